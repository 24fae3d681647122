// What the grid shows.

#include <algorithm>

#include "screens/GridPane.h"
#include "screens/Palette.h"

namespace screens {

using controls::Colour;
using controls::FlexGrid;

namespace {

// At 96 dpi.
constexpr int kTickRoom = 14;
constexpr int kFrameThickness = 2;
constexpr int kLookUpMargin = 6;

Side SideOf(FlexGrid::Alignment alignment) {
  switch (alignment) {
    case FlexGrid::Alignment::kLeftCentre:
      return Side::kLeft;
    case FlexGrid::Alignment::kCentreCentre:
      return Side::kCentre;
    case FlexGrid::Alignment::kRightCentre:
    case FlexGrid::Alignment::kGeneral:
      break;
  }
  return Side::kRight;
}

std::string OnOneLine(std::string_view text) {
  std::string line(text);
  std::erase(line, '\r');
  std::replace(line.begin(), line.end(), '\n', ' ');
  return line;
}

/// A tick in the room at the right of a cell.
void PaintTick(Surface& surface, const Rect& cell, int room) {
  const double unit = std::max(1, room / 4);
  const int across = cell.right - room / 2 + 1;
  const Dot middle{static_cast<double>(across), (cell.top + cell.bottom) / 2.0};
  surface.Stroke({{middle.x - unit, middle.y},
                  {middle.x - unit / 3, middle.y + unit},
                  {middle.x + unit, middle.y - unit}},
                 room / 7.0, palette::kText);
}

}  // namespace

void GridPane::Paint(Surface& surface, const Rect& dirty) const {
  surface.Fill(dirty, palette::kFrame);
  if (grid_ == nullptr) return;
  PaintColumns(surface, dirty, false);
  PaintColumns(surface, dirty, true);
  if (grid_->Rows() <= grid_->FixedRows()) PaintEmptyText(surface);
  if (focused_) PaintBlockFrame(surface);
  if (typing_) PaintLookUp(surface);
  if (line_.IsOpen()) line_.Paint(surface, focused_);
}

void GridPane::PaintColumns(Surface& surface, const Rect& dirty, bool fixed) const {
  const Clipped clipped(surface, geometry_.Room(fixed, true).Common(dirty));
  for (const int col : geometry_.ColumnsInSight(fixed)) {
    const Rect column = geometry_.ColumnPlace(col);
    if (column.right <= dirty.left || column.left >= dirty.right) continue;
    const auto paintRows = [&](int first, int last) {
      for (int row = first; row <= last; ++row) {
        const int top = geometry_.RowTop(row);
        if (top < dirty.bottom && top + geometry_.RowHeight(row) > dirty.top) {
          PaintCell(surface, row, col);
        }
      }
    };
    paintRows(0, std::min(grid_->FixedRows(), grid_->Rows()) - 1);
    paintRows(grid_->FixedRows() + geometry_.RowsAbove(), geometry_.LastRowInSight());
  }
}

void GridPane::PaintCell(Surface& surface, int row, int col) const {
  Rect cell = geometry_.ColumnPlace(col);
  cell.top = geometry_.RowTop(row);
  cell.bottom = cell.top + geometry_.RowHeight(row);
  const bool heading = row < grid_->FixedRows() || col < grid_->FixedCols();
  Colour ground = palette::kButton;
  Colour colour = Host().Enabled() ? palette::kText : palette::kMutedText;
  if (!heading) {
    ground = grid_->EffectiveBackColor(row, col);
    const FlexGrid::HighLight highLight = grid_->GetHighLight();
    const bool shown = highLight == FlexGrid::HighLight::kAlways ||
                       (highLight == FlexGrid::HighLight::kWithFocus && focused_);
    if (shown && grid_->InBlock(row, col)) {
      ground = palette::Tinted(ground);
    } else if (grid_->rowTextColour && Host().Enabled()) {
      if (const Colour own = grid_->rowTextColour(row); own != 0) colour = own;
    }
  }
  surface.Fill(cell, ground);
  const Colour line = heading ? palette::kLine : palette::kFaintLine;
  surface.Fill({cell.left, cell.bottom - 1, cell.right, cell.bottom}, line);
  surface.Fill({cell.left, cell.top, cell.left + 1, cell.bottom}, line);

  const Rect room = TextRoom(cell, row, col);
  if (room.right < cell.right - Design(kTextMargin) && IsMarked(row)) {
    PaintTick(surface, cell, Design(kTickRoom));
  }
  const std::string_view text = grid_->TextMatrix(row, col);
  if (text.empty()) return;
  TextStyle style;
  style.colour = colour;
  style.side = SideOf(grid_->ColAlignment(col));
  if (IsDataRow(row) && find_.Holds(text)) PaintFound(surface, text, room, style.side);
  if (heading && room.Height() >= 2 * Host().LineHeight()) {
    PaintHeading(surface, text, room, style);
  } else if (text.find_first_of("\r\n") == std::string_view::npos) {
    surface.Text(text, room, style);
  } else {
    surface.Text(OnOneLine(text), room, style);
  }
}

/// A label around the text; of a mark's ground is enough left to be seen.
void GridPane::PaintFound(Surface& surface, std::string_view text, const Rect& room,
                          Side side) const {
  const int margin = Design(kTextMargin) - 1;
  const int width = std::min(room.Width(), TextWidth(OnOneLine(text)));
  int right = room.right;
  if (side == Side::kLeft) right = room.left + width;
  if (side == Side::kCentre) right = (room.left + room.right + width) / 2;
  surface.RoundBox({right - width - margin, room.top + 1, right + margin, room.bottom - 1},
                   Design(3), palette::kAccentGround, palette::kAccent);
}

/// In one line or two, in the middle of its higher cell.
void GridPane::PaintHeading(Surface& surface, std::string_view text, const Rect& room,
                            const TextStyle& style) const {
  std::vector<std::string> lines = Wrapped(text, room.Width());
  if (lines.size() > 2) lines = {lines[0], std::string(text.substr(text.find(lines[1])))};
  const int height = static_cast<int>(lines.size()) * Host().LineHeight();
  const int top = room.Middle().y - height / 2;
  PaintLines(surface, lines, {room.left, top, room.right, top + height}, style);
}

bool GridPane::IsMarked(int row) const {
  const int col = grid_->FixedCols();
  return IsDataRow(row) && col < grid_->Cols() &&
         grid_->EffectiveBackColor(row, col) == palette::kMark;
}

Rect GridPane::TextRoom(const Rect& cell, int row, int col) const {
  const int margin = Design(kTextMargin);
  // In a list that marks its rows, the tick stands before the first column's text.
  const bool ticked = grid_->marking.all != nullptr && IsDataRow(row) && col == FirstCol();
  return {cell.left + margin, cell.top, cell.right - (ticked ? Design(kTickRoom) : margin),
          cell.bottom - 1};
}

int GridPane::FirstCol() const {
  int col = 0;
  while (col < grid_->Cols() && grid_->ColWidth(col) == 0) ++col;
  return col;
}

void GridPane::PaintBlockFrame(Surface& surface) const {
  if (grid_->Rows() <= grid_->FixedRows()) return;
  const auto [firstRow, lastRow] = std::minmax({grid_->Row(), grid_->RowSel()});
  auto [firstCol, lastCol] = std::minmax({grid_->Col(), grid_->ColSel()});
  // The cell that keys begin at.
  if (firstCol == lastCol) firstCol = lastCol = grid_->ShownCol(firstCol);
  if (firstRow < grid_->FixedRows()) return;
  const Rect block = geometry_.BlockPlace(firstRow, firstCol, lastRow, lastCol);
  if (block.Empty()) return;
  const Clipped clipped(surface, geometry_.Room(firstCol < grid_->FixedCols(), false));
  surface.Frame(block, palette::kDeepAccent, Design(kFrameThickness));
}

void GridPane::PaintEmptyText(Surface& surface) const {
  if (grid_->EmptyText().empty()) return;
  // Near the headings, where the rows would begin.
  const int top = geometry_.FixedBottom() + geometry_.RowHeight();
  surface.Text(grid_->EmptyText(), {0, top, Area().right, top + geometry_.RowHeight()},
               {.colour = palette::kMutedText, .side = Side::kCentre});
}

std::string GridPane::LookUpText() const {
  return found_ ? "جستجو: «" + sought_ + "»" : "«" + sought_ + "» پيدا نشد";
}

Rect GridPane::LookUpPlace() const {
  if (!typing_) return {};
  const int margin = Design(kLookUpMargin);
  const int width = TextWidth(LookUpText()) + 2 * margin;
  return {0, std::max(0, Area().bottom - Host().LineHeight() - margin),
          std::min(width, Area().right), Area().bottom};
}

void GridPane::PaintLookUp(Surface& surface) const {
  const Rect place = LookUpPlace();
  const int margin = Design(kLookUpMargin);
  surface.Fill(place, palette::kAccentGround);
  surface.Frame(place, palette::kDeepAccent);
  surface.Text(LookUpText(), {place.left + margin, place.top, place.right - margin, place.bottom},
               {.colour = found_ ? palette::kText : palette::kRefused});
}

/// What a cell does not show all of.
Tip GridPane::TipAt(Point place) const {
  if (grid_ == nullptr) return {};
  if (line_.Contains(place)) return line_.TipAt(place);
  const auto [row, col] = geometry_.CellAt(place);
  Tip tip{geometry_.CellPlace(row, col), {}};
  if (tip.place.Empty()) return tip;
  std::string text = OnOneLine(grid_->TextMatrix(row, col));
  const Rect cell = geometry_.ColumnPlace(col);
  if (TextWidth(text) > TextRoom(cell, row, col).Width()) {
    tip.text = std::move(text);
  }
  return tip;
}

}  // namespace screens
