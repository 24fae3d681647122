#include "report/BlockLayout.h"

#include <algorithm>

#include "text/Utf8.h"

namespace report {

namespace {

using controls::SheetText;

constexpr double kTolerance = 0.01;  // of a point: sums of widths are not exact
constexpr double kRuleThickness = 0.75;
constexpr double kMeterHeight = 0.8;  // of the letters' size

/// Remembers what is asked for again and again.
template <typename Ask>
double Remembered(std::vector<double>& values, Styles::Id style, const Ask& ask) {
  if (style >= values.size()) values.resize(style + 1, -1);
  if (values[style] < 0) values[style] = ask();
  return values[style];
}

/// Widths that fill `room`: those that are given, and for the others equal parts of the rest. When
/// they cannot, all are made wider or narrower in proportion.
std::vector<double> Shares(const std::vector<std::optional<Extent>>& given, double room) {
  std::vector<double> widths(given.size(), room / static_cast<double>(given.size()));
  double sum = 0;
  std::size_t open = given.size();
  for (std::size_t i = 0; i < given.size(); ++i) {
    if (!given[i]) continue;
    widths[i] = given[i]->Of(room);
    sum += widths[i];
    --open;
  }
  if (open > 0 && sum < room) {
    for (std::size_t i = 0; i < given.size(); ++i) {
      if (!given[i]) widths[i] = (room - sum) / static_cast<double>(open);
    }
    return widths;
  }
  double whole = 0;
  for (const double width : widths) whole += width;
  for (double& width : widths) width = whole > 0 ? width * room / whole : room;
  return widths;
}

}  // namespace

double BlockLayout::LineHeight(Styles::Id style) {
  return Remembered(lineHeights_, style, [&] { return letters_.LineHeight(styles_[style].font); });
}

double BlockLayout::BlankWidth(Styles::Id style) {
  return Remembered(blankWidths_, style, [&] { return letters_.Width(" ", styles_[style].font); });
}

/// Lines of neighbours fall together, as far as nothing stands between them.
bool BlockLayout::SharesBorders(Styles::Id style) const {
  return IsCell(styles_.ElementOf(style)) && styles_[style].cellSpacing == 0;
}

BlockLayout::Insets BlockLayout::InsetsOf(Styles::Id id) const {
  const Style& style = styles_[id];
  const double part = SharesBorders(id) ? 0.5 : 1;
  const auto inset = [&](Edge edge) {
    return style.padding[edge] + style.borders[edge].width * part;
  };
  return {inset(kTopEdge), inset(kRightEdge), inset(kBottomEdge), inset(kLeftEdge)};
}

void BlockLayout::FixColumns(Table& table, const Block* row) {
  std::vector<std::optional<Extent>> given(1);
  const auto take = [&](const Block& block) {
    std::size_t column = 0;
    for (const Block::Cell& cell : block.cells) {
      const Style& style = styles_[cell.style];
      const std::size_t next = column + static_cast<std::size_t>(style.columns);
      if (next > given.size()) given.resize(next);
      if (style.columns == 1 && !given[column]) given[column] = style.width;
      column = next;
    }
  };
  for (const Block& block : table.head) take(block);
  if (row != nullptr) take(*row);

  const Style& style = styles_[table.style];
  const double room = right_ - left_;
  const double width = std::min(style.width ? style.width->Of(room) : room, room);
  const auto side = style.Side(style.place);
  const double spare = room - width;
  table.left = left_ + (side == SheetText::Side::kRight    ? spare
                        : side == SheetText::Side::kCentre ? spare / 2
                                                           : 0);
  table.right = table.left + width;
  const double spaces = style.cellSpacing * static_cast<double>(given.size() + 1);
  table.columns.assign(1, style.cellSpacing);
  for (const double share : Shares(given, std::max(width - spaces, 0.0))) {
    table.columns.push_back(table.columns.back() + share + style.cellSpacing);
  }
  for (Block& block : table.head) {
    LayOut(block, &table);
    table.headHeight += block.height;
  }
}

void BlockLayout::LayOut(Block& block) {
  LayOut(block, block.table.get());
}

void BlockLayout::LayOut(Block& block, const Table* table) {
  if (block.laidOut) return;
  block.laidOut = true;
  if (block.isRule) return LayOutRule(block);
  PlaceCells(block, table);
  const Style& style = styles_[block.style];
  block.height = table != nullptr ? style.height : 0;
  for (Block::Cell& cell : block.cells) {
    BreakIntoLines(block, cell);
    block.height = std::max(block.height, CellHeight(cell));
  }
  if (table != nullptr) block.height += style.cellSpacing;
}

void BlockLayout::LayOutRule(Block& block) const {
  const Style& style = styles_[block.style];
  const double room = right_ - left_;
  const double width = style.width ? std::min(style.width->Of(room), room) : room;
  block.left = left_ + (room - width) / 2;
  block.right = block.left + width;
  block.height = std::max(style.height, kRuleThickness);
}

void BlockLayout::PlaceCells(Block& block, const Table* table) const {
  block.left = table != nullptr ? table->left : left_;
  block.right = table != nullptr ? table->right : right_;
  if (table == nullptr) {
    for (Block::Cell& cell : block.cells) {
      cell.left = left_;
      cell.right = right_;
    }
    return;
  }
  const Style& style = styles_[table->style];
  std::size_t column = 0;
  for (Block::Cell& cell : block.cells) {
    const double begin = table->columns[column];
    column += static_cast<std::size_t>(styles_[cell.style].columns);
    const double end = table->columns[column] - style.cellSpacing;
    cell.left = style.rightToLeft ? table->right - end : table->left + begin;
    cell.right = style.rightToLeft ? table->right - begin : table->left + end;
  }
}

double BlockLayout::CellHeight(const Block::Cell& cell) const {
  const Insets insets = InsetsOf(cell.style);
  return std::max(styles_[cell.style].height, insets.top + cell.contentHeight + insets.bottom);
}

void BlockLayout::BreakIntoLines(Block& block, Block::Cell& cell) {
  const Insets insets = InsetsOf(cell.style);
  const double room = std::max(cell.right - cell.left - insets.left - insets.right, 0.0);
  lineTop_ = 0;
  cell.firstLine = block.lines.size();
  for (std::size_t run = cell.firstRun; run < cell.endRun;) {
    const Block::Run& first = block.runs[run];
    std::size_t end = run;
    while (end < cell.endRun && block.runs[end].kind == Block::RunKind::kText) ++end;
    if (end > run) {
      LayOutSegment(block, run, end, room);
      // The break that ends a line adds none.
      const bool broken = end < cell.endRun && block.runs[end].kind == Block::RunKind::kBreak;
      if (broken) lineTop_ += block.runs[end++].amount;
    } else if (first.kind == Block::RunKind::kMeter) {
      AddMeter(block, first, room);
      ++end;
    } else {
      lineTop_ += LineHeight(first.style) + first.amount;
      ++end;
    }
    run = end;
  }
  // What holds nothing is a line high, so that one can write there by hand, or as high as it says.
  const bool empty = cell.firstRun == cell.endRun && styles_[cell.style].height == 0;
  cell.contentHeight = empty ? LineHeight(cell.style) : lineTop_;
  cell.endLine = block.lines.size();
}

void BlockLayout::BeginLine(Block& block) {
  block.lines.push_back({block.pieces.size(), block.pieces.size(), lineTop_, 0, 0});
}

void BlockLayout::EndLine(Block& block) {
  Block::TextLine& line = block.lines.back();
  line.endPiece = block.pieces.size();
  for (std::size_t piece = line.firstPiece; piece < line.endPiece; ++piece) {
    line.height = std::max(line.height, LineHeight(block.pieces[piece].style));
  }
  lineTop_ += line.height;
}

void BlockLayout::AddMeter(Block& block, const Block::Run& run, double room) {
  const Style& style = styles_[run.style];
  BeginLine(block);
  block.pieces.push_back({run.style, 0, 0, 0, room * run.amount, true});
  Block::TextLine& line = block.lines.back();
  line.endPiece = block.pieces.size();
  line.width = room;
  line.height = style.height > 0 ? style.height : style.font.points * kMeterHeight;
  lineTop_ += line.height;
}

void BlockLayout::LayOutSegment(Block& block, std::size_t firstRun, std::size_t endRun,
                                double room) {
  if (LayOutOnOneLine(block, firstRun, endRun, room)) return;
  TakeAtoms(block, firstRun, endRun);
  FillLines(block, room);
}

/// What most texts need. False, and nothing done, when it does not fit.
bool BlockLayout::LayOutOnOneLine(Block& block, std::size_t firstRun, std::size_t endRun,
                                  double room) {
  const bool wraps = styles_[block.runs[firstRun].style].wraps;
  const std::size_t piecesBefore = block.pieces.size();
  double width = 0;
  for (std::size_t i = firstRun; i < endRun; ++i) {
    const Block::Run& run = block.runs[i];
    std::size_t begin = run.begin;
    if (block.text[begin] == ' ') {
      width += BlankWidth(run.style);
      ++begin;
    }
    const double own = letters_.Width(std::string_view(block.text).substr(begin, run.end - begin),
                                      styles_[run.style].font);
    block.pieces.push_back({run.style, begin, run.end, width, own, false});
    width += own;
    if (wraps && width > room + kTolerance) {
      block.pieces.resize(piecesBefore);
      return false;
    }
  }
  const std::size_t pieces = block.pieces.size() - piecesBefore;
  BeginLine(block);
  block.lines.back().firstPiece -= pieces;
  block.lines.back().width = width;
  EndLine(block);
  return true;
}

void BlockLayout::TakeAtoms(const Block& block, std::size_t firstRun, std::size_t endRun) {
  atoms_.clear();
  const std::string_view text = block.text;
  for (std::size_t i = firstRun; i < endRun; ++i) {
    const Block::Run& run = block.runs[i];
    for (std::size_t at = run.begin; at < run.end;) {
      const bool blank = text[at] == ' ';
      if (blank) ++at;
      const std::size_t end = std::min(text.find(' ', at), run.end);
      const double width = letters_.Width(text.substr(at, end - at), styles_[run.style].font);
      atoms_.push_back({run.style, at, end, width, blank});
      at = end;
    }
  }
}

void BlockLayout::FillLines(Block& block, double room) {
  BeginLine(block);
  for (std::size_t i = 0; i < atoms_.size();) {
    std::size_t end = i + 1;
    double width = atoms_[i].width;
    for (; end < atoms_.size() && !atoms_[end].blankBefore; ++end) width += atoms_[end].width;
    const Block::TextLine& line = block.lines.back();
    bool afterBlank = atoms_[i].blankBefore && block.pieces.size() > line.firstPiece;
    const double blank = afterBlank ? BlankWidth(atoms_[i].style) : 0;
    if (afterBlank && line.width + blank + width > room + kTolerance) {
      EndLine(block);
      BeginLine(block);
      afterBlank = false;
    }
    for (; i < end; ++i) {
      if (width > room + kTolerance) {
        AddCutWord(block, atoms_[i], room + kTolerance);
      } else {
        AddAtom(block, atoms_[i], afterBlank);
      }
      afterBlank = false;
    }
  }
  EndLine(block);
}

void BlockLayout::AddAtom(Block& block, const Atom& atom, bool afterBlank) {
  Block::TextLine& line = block.lines.back();
  const double blank = afterBlank ? BlankWidth(atom.style) : 0;
  if (block.pieces.size() > line.firstPiece && block.pieces.back().style == atom.style) {
    block.pieces.back().end = atom.end;
    block.pieces.back().width += blank + atom.width;
  } else {
    block.pieces.push_back(
        {atom.style, atom.begin, atom.end, line.width + blank, atom.width, false});
  }
  line.width += blank + atom.width;
}

/// Of a word that is wider than a line: as many letters as fit, and the others on the next ones.
void BlockLayout::AddCutWord(Block& block, const Atom& atom, double room) {
  const std::string_view text = std::string_view(block.text).substr(0, atom.end);
  const controls::SheetFont& font = styles_[atom.style].font;
  for (std::size_t at = atom.begin; at < atom.end;) {
    const double left = room - block.lines.back().width;
    std::size_t end = text::LetterEnd(text, at);
    double width = letters_.Width(text.substr(at, end - at), font);
    const bool lineBegun = block.pieces.size() > block.lines.back().firstPiece;
    if (width <= left || !lineBegun) {
      while (end < atom.end) {
        const std::size_t more = text::LetterEnd(text, end);
        const double wider = letters_.Width(text.substr(at, more - at), font);
        if (wider > left) break;
        end = more;
        width = wider;
      }
      AddAtom(block, {atom.style, at, end, width, false}, false);
      at = end;
    }
    if (at < atom.end) {
      EndLine(block);
      BeginLine(block);
    }
  }
}

}  // namespace report
