#pragma once

#include "screens/Rect.h"

namespace screens {

/// Where a popup of this size stands: below its control, `gap` pixels off, with their right edges
/// in line; above it where there is no room below; and inside `room`. All on the same plane.
Rect PopupPlace(const Rect& control, Size size, int gap, const Rect& room);

}  // namespace screens
