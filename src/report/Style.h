#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "controls/Sheet.h"

namespace report {

/// The elements that a template may use, and above them all the root.
enum class Element {
  kRoot,
  kHtml,
  kHead,
  kTitle,
  kStyle,
  kMeta,
  kBody,
  kDiv,
  kP,
  kH1,
  kH2,
  kH3,
  kBr,
  kHr,
  kTable,
  kTableHead,
  kTableBody,
  kTableFoot,
  kTr,
  kTd,
  kTh,
  kB,
  kStrong,
  kSpan,
  kI,
  kEm,
  kSmall,
  kMeter,
};

/// What properties an element takes, as bits.
enum Takes : unsigned {
  kLetters = 1U,
  kAlign = 2U,
  kGround = 4U,
  kBorder = 8U,
  kPadding = 16U,
  kMargins = 32U,
  kWidth = 64U,
  kHeight = 128U,
  kVertical = 256U,
  kBreaks = 512U,
  kCollapse = 1024U,
};

struct ElementKind {
  std::string_view name;
  Element element;
  unsigned takes;
};

/// Null for what a template may not use.
const ElementKind* FindElement(std::string_view name);
const ElementKind& KindOf(Element element);

inline bool IsCell(Element element) {
  return element == Element::kTd || element == Element::kTh;
}
inline bool IsHeading(Element element) {
  return element >= Element::kH1 && element <= Element::kH3;
}
/// Div, paragraph or heading: a block of text.
inline bool IsTextBlock(Element element) {
  return element >= Element::kDiv && element <= Element::kH3;
}
inline bool IsRowGroup(Element element) {
  return element >= Element::kTableHead && element <= Element::kTableFoot;
}
/// What runs within a line.
inline bool IsInline(Element element) {
  return element >= Element::kB && element <= Element::kSmall;
}

enum class Align { kStart, kEnd, kLeft, kRight, kCentre };
enum class Vertical { kTop, kMiddle, kBottom };
enum Edge : std::uint8_t { kTopEdge, kRightEdge, kBottomEdge, kLeftEdge };

struct Extent {
  double value = 0;  // points, or percent of what is there
  bool percent = false;
  double Of(double whole) const { return percent ? whole * value / 100 : value; }
};

struct Line {
  double width = 0;
  std::optional<controls::Colour> colour;  // none: that of the text
};

/// How an element looks, everything in points.
struct Style {
  // What elements hand down to those in them.
  controls::Colour colour = 0;
  controls::SheetFont font;
  Align align = Align::kStart;
  bool rightToLeft = true;
  bool wraps = true;
  // What a table hands down to its cells.
  double cellPadding = 0.75;
  double cellSpacing = 0;
  double cellBorder = 0;
  Vertical vertical = Vertical::kMiddle;

  std::optional<controls::Colour> ground;
  std::array<Line, 4> borders;  // by Edge
  std::array<double, 4> padding{};
  double marginTop = 0;
  double marginBottom = 0;
  std::optional<Extent> width;
  double height = 0;  // at least
  bool breakBefore = false;
  bool breakAfter = false;
  int columns = 1;
  Align place = Align::kStart;  // of a table that is narrower than the page

  /// Whether it is more than text: painted as one box.
  bool IsBox() const;
  /// Start and end by the direction of reading.
  controls::SheetText::Side Side(Align of) const;
  /// What an element in this one begins with.
  Style HandedDown() const;
};

}  // namespace report
