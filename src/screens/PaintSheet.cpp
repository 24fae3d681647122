#include "screens/PaintSheet.h"

#include <algorithm>
#include <cmath>

namespace screens {

using controls::SheetText;

namespace {

Side SideOf(SheetText::Side side) {
  if (side == SheetText::Side::kCentre) return Side::kCentre;
  return side == SheetText::Side::kLeft ? Side::kLeft : Side::kRight;
}

}  // namespace

Rect OnDevice(const controls::SheetBox& box, Point origin, double scale) {
  const auto pixels = [scale](double points) {
    return static_cast<int>(std::lround(points * scale));
  };
  return {origin.x + pixels(box.left), origin.y + pixels(box.top), origin.x + pixels(box.right),
          origin.y + pixels(box.bottom)};
}

void PaintSheet(const controls::Sheet& sheet, Surface& surface, Point origin, double scale,
                const Rect& dirty) {
  const OnPaper paper(surface);
  for (const controls::SheetFill& fill : sheet.fills) {
    Rect place = OnDevice(fill.box, origin, scale);
    // The thinnest line is still one.
    place.right = std::max(place.right, place.left + 1);
    place.bottom = std::max(place.bottom, place.top + 1);
    if (!place.Common(dirty).Empty()) surface.Fill(place, fill.colour);
  }
  for (const SheetText& text : sheet.texts) {
    const Rect place = OnDevice(text.box, origin, scale);
    const double size = text.font.points * scale;
    // Its letters may go on beyond the box.
    if (place.bottom + size < dirty.top || place.top - size > dirty.bottom) continue;
    surface.Text(text.text, place,
                 {.colour = text.colour,
                  .side = SideOf(text.side),
                  .direction = text.rightToLeft ? Direction::kRightToLeft : Direction::kLeftToRight,
                  .weight = text.font.bold ? Weight::kBold : Weight::kNormal,
                  .size = size});
  }
}

}  // namespace screens
