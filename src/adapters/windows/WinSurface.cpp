#include "adapters/windows/WinSurface.h"

#include <vector>

#include "adapters/windows/Wide.h"

namespace adapters::windows {

void WinSurface::Fill(const screens::Rect& area, controls::Colour colour) {
  canvas_.Fill(ToRECT(area), colour);
}

void WinSurface::Text(std::string_view text, const screens::Rect& box,
                      const screens::TextStyle& style) {
  TextLook look;
  look.font = style.weight == screens::Weight::kBold ? look_.BoldFont() : look_.Font();
  look.colour = style.colour;
  look.across = style.side == screens::Side::kRight    ? Across::kRight
                : style.side == screens::Side::kCentre ? Across::kCentre
                                                       : Across::kLeft;
  look.leftToRight = style.direction == screens::Direction::kLeftToRight;
  canvas_.Text(Wide(text), ToRECT(box), look);
}

void WinSurface::Stroke(std::initializer_list<screens::Dot> points, double width,
                        controls::Colour colour) {
  std::vector<Canvas::Point> line;
  for (const screens::Dot& point : points) line.push_back({point.x, point.y});
  canvas_.Stroke(line, width, colour);
}

void WinSurface::PushClip(const screens::Rect& area) {
  SaveDC(canvas_.Dc());
  canvas_.Clip(ToRECT(area));
}

void WinSurface::PopClip() {
  RestoreDC(canvas_.Dc(), -1);
}

}  // namespace adapters::windows
