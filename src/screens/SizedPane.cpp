#include "screens/SizedPane.h"

#include "screens/WrapText.h"

namespace screens {

void SizedPane::Resized(Size size) {
  size_ = size;
  RepaintAll();
}

std::vector<std::string> SizedPane::Wrapped(std::string_view text, int width, Weight weight) const {
  return WrapText(text, width, [&](std::string_view part) { return TextWidth(part, weight); });
}

void SizedPane::PaintLines(Surface& surface, const std::vector<std::string>& lines,
                           const Rect& room, const TextStyle& style) const {
  const int height = host_.LineHeight();
  int top = room.top;
  for (const std::string& line : lines) {
    surface.Text(line, {room.left, top, room.right, top + height}, style);
    top += height;
  }
}

int SizedPane::WholeSteps(double turned) {
  wheelRest_ += turned;
  // A little more for what rounding loses: ten tenths add up to slightly less than one.
  const int steps = static_cast<int>(wheelRest_ + (wheelRest_ > 0 ? 1e-6 : -1e-6));
  wheelRest_ -= steps;
  return steps;
}

}  // namespace screens
