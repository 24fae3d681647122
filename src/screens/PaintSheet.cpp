#include "screens/PaintSheet.h"

#include <algorithm>
#include <cmath>

namespace screens {

using controls::SheetText;

namespace {

constexpr int kThickestLine = 4;  // pixels

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
    // Lines of one thickness are so wherever they are, and the thinnest is still one.
    const auto thick = [scale](double points, int edge, int other) {
      const int pixels = std::max(1, static_cast<int>(std::lround(points * scale)));
      return pixels <= kThickestLine ? edge + pixels : other;
    };
    place.right = thick(fill.box.Width(), place.left, place.right);
    place.bottom = thick(fill.box.Height(), place.top, place.bottom);
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
