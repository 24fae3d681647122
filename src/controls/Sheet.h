#pragma once

#include <string>
#include <vector>

#include "controls/Control.h"

namespace controls {

/// A place on a sheet in points (1/72 inch) from its upper left corner.
struct SheetBox {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  double Width() const { return right - left; }
  double Height() const { return bottom - top; }
  friend bool operator==(const SheetBox&, const SheetBox&) = default;
};

struct SheetFont {
  double points = 8.5;
  bool bold = false;
  friend auto operator<=>(const SheetFont&, const SheetFont&) = default;
};

/// A rectangle of one colour; lines are thin ones.
struct SheetFill {
  SheetBox box;
  Colour colour = 0;
};

/// A text on one line, in the middle between top and bottom of its box. Where the letters come out
/// wider than the box they go on beyond it, on the side away from `side`: nothing is cut off.
struct SheetText {
  enum class Side { kRight, kCentre, kLeft };
  std::string text;  // UTF-8
  SheetBox box;
  SheetFont font;
  Colour colour = 0;
  Side side = Side::kRight;
  bool rightToLeft = true;  // how the whole is read
};

/// What is printed on one sheet of paper, the fills below the texts.
struct Sheet {
  double width = 0;  // points
  double height = 0;
  std::vector<SheetFill> fills;
  std::vector<SheetText> texts;
};

}  // namespace controls
