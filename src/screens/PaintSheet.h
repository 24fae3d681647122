#pragma once

#include "controls/Sheet.h"
#include "screens/Rect.h"
#include "screens/Surface.h"

namespace screens {

/// Where a box of a sheet is in device pixels: `origin` is the sheet's corner, `scale` how many
/// pixels a point has.
Rect OnDevice(const controls::SheetBox& box, Point origin, double scale);

/// What is printed on a sheet, for a screen, a printer and a file alike, as far as it comes near
/// `dirty`. The paper itself is not painted.
void PaintSheet(const controls::Sheet& sheet, Surface& surface, Point origin, double scale,
                const Rect& dirty);

}  // namespace screens
