#pragma once

#include <functional>
#include <string>

#include "screens/SizedPane.h"

namespace screens {

/// A sentence that stands below a field for a while.
class NotePane : public SizedPane {
 public:
  /// `onEnd` is called when it has stood long enough.
  NotePane(PaneHost& host, std::string sentence, std::function<void()> onEnd);
  /// In at most this room.
  Size Wanted(Size room) const;

  void Paint(Surface& surface, const Rect& dirty) const override;
  void Tick() override;
  Accessible Describe() const override;

 private:
  int Padding() const;

  std::string sentence_;
  std::function<void()> onEnd_;
};

}  // namespace screens
