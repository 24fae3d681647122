#pragma once

#include "controls/Screen.h"

namespace screens {

/// Takes the hourglass of the work that asks away while it lives: it would hide that a window of
/// ours can be answered.
class PlainPointer {
 public:
  explicit PlainPointer(controls::Screen& screen)
      : screen_(screen), before_(screen.GetMousePointer()) {
    screen_.SetMousePointer(controls::MousePointer::kDefault);
  }
  ~PlainPointer() { screen_.SetMousePointer(before_); }
  PlainPointer(const PlainPointer&) = delete;
  PlainPointer& operator=(const PlainPointer&) = delete;

 private:
  controls::Screen& screen_;
  controls::MousePointer before_;
};

}  // namespace screens
