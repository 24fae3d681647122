#pragma once

#include <functional>
#include <string>
#include <vector>

#include "screens/Pane.h"

namespace screens {

/// A sentence that stands below a field for a while.
class NotePane : public Pane {
 public:
  /// `onEnd` is called when it has stood long enough.
  NotePane(PaneHost& host, std::string sentence, std::function<void()> onEnd);
  /// In at most this room.
  Size Wanted(Size room) const;

  void Resized(Size size) override { size_ = size; }
  void Paint(Surface& surface, const Rect& dirty) const override;
  void Tick() override;
  Accessible Describe() const override;

 private:
  std::vector<std::string> Lines(int width) const;
  int Padding() const;

  PaneHost& host_;
  std::string sentence_;
  std::function<void()> onEnd_;
  Size size_;
};

}  // namespace screens
