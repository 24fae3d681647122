#include "screens/PopupPlace.h"

#include <algorithm>

namespace screens {

Rect PopupPlace(const Rect& control, Size size, int gap, const Rect& room) {
  const int left = std::clamp(control.right - size.width, room.left,
                              std::max(room.left, room.right - size.width));
  int top = control.bottom + gap;
  if (top + size.height > room.bottom) top = control.top - gap - size.height;
  top = std::max(top, room.top);
  return {left, top, left + size.width, top + size.height};
}

}  // namespace screens
