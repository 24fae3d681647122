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

  void Detach() override {}
  void Changed(const controls::Change& /*change*/) override {}
  void Resized(Size size) override { size_ = size; }
  void Paint(Surface& surface, const Rect& dirty) const override;
  void Pointer(const PointerEvent& /*event*/) override {}
  void PointerLost() override {}
  void Wheel(const WheelEvent& /*event*/) override {}
  bool PressKey(const KeyEvent& /*event*/) override { return false; }
  void FocusChanged(bool /*focused*/) override {}
  void Tick() override;
  void Scrolled(Axis /*axis*/, int /*place*/) override {}
  Cursor CursorAt(Point /*place*/) const override { return Cursor::kArrow; }
  Tip TipAt(Point /*place*/) const override { return {}; }
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
