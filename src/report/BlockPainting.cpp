#include <algorithm>
#include <limits>

#include "report/BlockLayout.h"

namespace report {

using controls::SheetBox;
using controls::SheetText;

void BlockLayout::Paint(const Block& block, double top, PageContent& page) {
  const Style& style = styles_[block.style];
  if (block.isRule) {
    page.lines.push_back({{block.left, top, block.right, top + block.height}, style.colour});
    return;
  }
  const bool isRow = styles_.ElementOf(block.style) == Element::kTr;
  const double bottom = top + block.height - (isRow ? style.cellSpacing : 0);
  PaintBoxes(block, top, bottom, page);
  for (const Block::Cell& cell : block.cells) {
    const Insets insets = InsetsOf(cell.style);
    const double spare = bottom - top - insets.top - cell.contentHeight - insets.bottom;
    const Vertical vertical = isRow ? styles_[cell.style].vertical : Vertical::kTop;
    const double above = vertical == Vertical::kTop      ? 0
                         : vertical == Vertical::kMiddle ? spare / 2
                                                         : spare;
    for (std::size_t i = cell.firstLine; i < cell.endLine; ++i) {
      const Block::TextLine& line = block.lines[i];
      const double lineTop = top + insets.top + above + line.top;
      PaintLine(
          block, line,
          {cell.left + insets.left, lineTop, cell.right - insets.right, lineTop + line.height},
          page);
    }
  }
}

std::optional<double> BlockLayout::PaintPart(const Block& block, BlockPart& part, double top,
                                             double room, PageContent& page) {
  constexpr double kNone = std::numeric_limits<double>::max();
  // Of lines, as if all cells were written from the top.
  const auto eachLine = [&](const auto& use) {
    for (const Block::Cell& cell : block.cells) {
      const Insets insets = InsetsOf(cell.style);
      for (std::size_t i = cell.firstLine; i < cell.endLine; ++i) {
        const double lineTop = insets.top + block.lines[i].top;
        use(cell, insets, block.lines[i], lineTop, lineTop + block.lines[i].height);
      }
    }
  };
  double nearest = kNone;  // bottom of a line that is still to be painted
  eachLine([&](const auto&, const auto&, const auto&, double, double bottom) {
    if (bottom > part.done) nearest = std::min(nearest, bottom);
  });
  const double from = part.from;
  const double done = part.done;
  part.done = std::max(from + room, nearest == kNone ? 0 : nearest);
  part.from = kNone;
  double taken = 0;
  eachLine(
      [&](const auto& cell, const auto& insets, const auto& line, double lineTop, double bottom) {
        if (bottom <= done) return;
        if (bottom > part.done) {
          part.from = std::min(part.from, lineTop - insets.top);
          return;
        }
        taken = std::max(taken, bottom - from + insets.bottom);
        PaintLine(block, line,
                  {cell.left + insets.left, top + lineTop - from, cell.right - insets.right,
                   top + bottom - from},
                  page);
      });
  const bool more = part.from != kNone;
  taken = std::min(more || from == 0 ? room : taken, room);
  PaintBoxes(block, top, top + taken, page);
  if (more) return {};
  return taken;
}

void BlockLayout::PaintBoxes(const Block& block, double top, double bottom,
                             PageContent& page) const {
  const auto ground = [&](const SheetBox& box, const Style& style) {
    if (style.ground) page.grounds.push_back({box, *style.ground});
  };
  const bool isRow = styles_.ElementOf(block.style) == Element::kTr;
  const SheetBox row{block.left, top, block.right, bottom};
  if (isRow) ground(row, styles_[block.style]);
  for (const Block::Cell& cell : block.cells) {
    const SheetBox box{cell.left, top, cell.right, bottom};
    ground(box, styles_[cell.style]);
    PaintBorders(box, styles_[cell.style], SharesBorders(cell.style), page);
  }
  if (isRow) PaintBorders(row, styles_[block.style], true, page);
}

void BlockLayout::PaintTableBorder(const Table& table, double top, double bottom,
                                   PageContent& page) {
  PaintBorders({table.left, top, table.right, bottom}, styles_[table.style], true, page);
}

/// Within the box, or with their middle on its edges, where those of others lie too.
void BlockLayout::PaintBorders(const SheetBox& box, const Style& style, bool shared,
                               PageContent& page) const {
  const auto width = [&style](Edge edge) { return style.borders[edge].width; };
  const auto out = [&](Edge edge) { return shared ? width(edge) / 2 : 0; };
  const SheetBox outer{box.left - out(kLeftEdge), box.top - out(kTopEdge),
                       box.right + out(kRightEdge), box.bottom + out(kBottomEdge)};
  const auto paint = [&](Edge edge, SheetBox line) {
    if (width(edge) == 0) return;
    page.lines.push_back({line, style.borders[edge].colour.value_or(style.colour)});
  };
  paint(kTopEdge, {outer.left, outer.top, outer.right, outer.top + width(kTopEdge)});
  paint(kRightEdge, {outer.right - width(kRightEdge), outer.top, outer.right, outer.bottom});
  paint(kBottomEdge, {outer.left, outer.bottom - width(kBottomEdge), outer.right, outer.bottom});
  paint(kLeftEdge, {outer.left, outer.top, outer.left + width(kLeftEdge), outer.bottom});
}

void BlockLayout::PaintLine(const Block& block, const Block::TextLine& line, const SheetBox& box,
                            PageContent& page) const {
  if (line.firstPiece == line.endPiece) return;
  const Style& first = styles_[block.pieces[line.firstPiece].style];
  const auto side = first.Side(first.align);
  const double spare = box.Width() - line.width;
  const double left = box.left + (side == SheetText::Side::kRight    ? spare
                                  : side == SheetText::Side::kCentre ? spare / 2
                                                                     : 0);
  for (std::size_t i = line.firstPiece; i < line.endPiece; ++i) {
    const Block::Piece& piece = block.pieces[i];
    SheetBox place = box;
    place.left =
        first.rightToLeft ? left + line.width - piece.offset - piece.width : left + piece.offset;
    place.right = place.left + piece.width;
    const Style& style = styles_[piece.style];
    const bool inlineGround = style.ground && IsInline(styles_.ElementOf(piece.style));
    if (inlineGround) page.grounds.push_back({place, *style.ground});
    if (piece.isMeter) {
      if (style.ground) page.grounds.push_back({box, *style.ground});
      if (piece.width > 0) page.lines.push_back({place, style.colour});
      continue;
    }
    const bool alone = line.endPiece - line.firstPiece == 1;
    const auto start = first.rightToLeft ? SheetText::Side::kRight : SheetText::Side::kLeft;
    page.texts.push_back({block.text.substr(piece.begin, piece.end - piece.begin),
                          alone ? box : place, style.font, style.colour, alone ? side : start,
                          style.rightToLeft});
  }
}

}  // namespace report
