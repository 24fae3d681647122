#include "report/Style.h"

#include <algorithm>

namespace report {

namespace {

constexpr unsigned kText = kLetters | kAlign;
constexpr unsigned kTextBlock = kText | kGround | kBorder | kPadding | kMargins | kHeight | kBreaks;
constexpr unsigned kRows = kText | kGround | kVertical;
constexpr unsigned kCell = kRows | kBorder | kPadding | kWidth | kHeight;
constexpr unsigned kRun = kLetters | kGround;

/// In the order of Element.
constexpr ElementKind kElements[] = {
    {"", Element::kRoot, 0},
    {"html", Element::kHtml, kText},
    {"head", Element::kHead, 0},
    {"title", Element::kTitle, 0},
    {"style", Element::kStyle, 0},
    {"meta", Element::kMeta, 0},
    {"body", Element::kBody, kText},
    {"div", Element::kDiv, kTextBlock},
    {"p", Element::kP, kTextBlock},
    {"h1", Element::kH1, kTextBlock},
    {"h2", Element::kH2, kTextBlock},
    {"h3", Element::kH3, kTextBlock},
    {"br", Element::kBr, 0},
    {"hr", Element::kHr, kLetters | kMargins | kWidth | kHeight | kBreaks},
    {"table", Element::kTable, kText | kGround | kBorder | kMargins | kWidth | kBreaks | kCollapse},
    {"thead", Element::kTableHead, kRows},
    {"tbody", Element::kTableBody, kRows},
    {"tfoot", Element::kTableFoot, kRows},
    {"tr", Element::kTr, kRows | kBorder | kHeight},
    {"td", Element::kTd, kCell},
    {"th", Element::kTh, kCell},
    {"b", Element::kB, kRun},
    {"strong", Element::kStrong, kRun},
    {"span", Element::kSpan, kRun},
    {"i", Element::kI, kRun},
    {"em", Element::kEm, kRun},
    {"small", Element::kSmall, kRun},
    {"meter", Element::kMeter, kRun | kHeight},
};

}  // namespace

const ElementKind* FindElement(std::string_view name) {
  const auto* const found =
      std::find_if(std::begin(kElements) + 1, std::end(kElements),
                   [name](const ElementKind& kind) { return kind.name == name; });
  return found == std::end(kElements) ? nullptr : found;
}

const ElementKind& KindOf(Element element) {
  return kElements[static_cast<std::size_t>(element)];
}

bool Style::IsBox() const {
  return ground || height > 0 ||
         std::any_of(borders.begin(), borders.end(),
                     [](const Line& line) { return line.width > 0; }) ||
         std::any_of(padding.begin(), padding.end(), [](double side) { return side > 0; });
}

controls::SheetText::Side Style::Side(Align of) const {
  using Side = controls::SheetText::Side;
  if (of == Align::kCentre) return Side::kCentre;
  const bool right = of == Align::kRight || (of == Align::kStart && rightToLeft) ||
                     (of == Align::kEnd && !rightToLeft);
  return right ? Side::kRight : Side::kLeft;
}

Style Style::HandedDown() const {
  Style inner;
  inner.colour = colour;
  inner.font = font;
  inner.align = align;
  inner.rightToLeft = rightToLeft;
  inner.wraps = wraps;
  inner.cellPadding = cellPadding;
  inner.cellSpacing = cellSpacing;
  inner.cellBorder = cellBorder;
  inner.vertical = vertical;
  return inner;
}

}  // namespace report
