// What the grid's window paints.

#include <algorithm>

#include "adapters/windows/GridWindow.h"

namespace adapters::windows {

using controls::Colour;
using controls::FlexGrid;

namespace {

Across TextAcross(FlexGrid::Alignment alignment) {
  switch (alignment) {
    case FlexGrid::Alignment::kLeftCentre:
      return Across::kLeft;
    case FlexGrid::Alignment::kCentreCentre:
      return Across::kCentre;
    case FlexGrid::Alignment::kRightCentre:
    case FlexGrid::Alignment::kGeneral:
      break;
  }
  return Across::kRight;
}

/// A ground that shows the block and lets a mark shine through: three tenths of the accent.
Colour Tinted(Colour ground) {
  Colour tinted = 0;
  for (const unsigned shift : {0U, 8U, 16U}) {
    const Colour from = ground >> shift & 0xFFU;
    const Colour to = theme::kAccent >> shift & 0xFFU;
    tinted |= (from * 7 + to * 3) / 10 << shift;
  }
  return tinted;
}

}  // namespace

void GridWindow::Paint() const {
  const PaintSession session(Handle());
  const RECT& dirty = session.Dirty();
  session.Fill(dirty, controls::palette::kFrame);
  if (!Model()) return;
  PaintColumns(session, dirty, false);
  PaintColumns(session, dirty, true);
  if (focused_) PaintBlockFrame(session);
}

void GridWindow::PaintColumns(const Canvas& canvas, const RECT& dirty, bool fixed) const {
  canvas.Clip(geometry_.Room(fixed, true));
  canvas.Clip(dirty);
  const int fixedRows = Model()->FixedRows();
  const int lastRow = geometry_.LastRowInSight();
  for (const int col : geometry_.ColumnsInSight(fixed)) {
    const RECT column = geometry_.ColumnPlace(col);
    if (column.right <= dirty.left || column.left >= dirty.right) continue;
    const auto paintRows = [&](int first, int last) {
      for (int row = first; row <= last; ++row) {
        const int top = geometry_.RowTop(row);
        if (top < dirty.bottom && top + geometry_.RowHeight() > dirty.top) {
          PaintCell(canvas, row, col);
        }
      }
    };
    paintRows(0, fixedRows - 1);
    paintRows(fixedRows + geometry_.RowsAbove(), lastRow);
  }
  canvas.Unclip();
}

void GridWindow::PaintCell(const Canvas& canvas, int row, int col) const {
  RECT place = geometry_.ColumnPlace(col);
  place.top = geometry_.RowTop(row);
  place.bottom = place.top + geometry_.RowHeight();
  const bool heading = row < Model()->FixedRows() || col < Model()->FixedCols();
  Colour ground = controls::palette::kButton;
  if (!heading) {
    ground = Model()->EffectiveBackColor(row, col);
    const FlexGrid::HighLight highLight = Model()->GetHighLight();
    const bool shown = highLight == FlexGrid::HighLight::kAlways ||
                       (highLight == FlexGrid::HighLight::kWithFocus && focused_);
    if (shown && Model()->InBlock(row, col)) ground = Tinted(ground);
  }
  canvas.Fill(place, ground);
  const Colour line = heading ? theme::kLine : theme::kFaintLine;
  canvas.Line(place.left, place.bottom - 1, place.right, place.bottom - 1, line);
  canvas.Line(place.left, place.top, place.left, place.bottom, line);

  TextLook look;
  look.font = Look().Font();
  look.colour = Enabled() ? theme::kText : theme::kMutedText;
  look.across = TextAcross(Model()->ColAlignment(col));
  const int margin = GetScale().Design(kTextMargin);
  canvas.Text(CellText(row, col),
              {place.left + margin, place.top, place.right - margin, place.bottom - 1}, look);
}

void GridWindow::PaintBlockFrame(const Canvas& canvas) const {
  if (Model()->Rows() <= Model()->FixedRows()) return;
  const auto [firstRow, lastRow] = std::minmax({Model()->Row(), Model()->RowSel()});
  const auto [firstCol, lastCol] = std::minmax({Model()->Col(), Model()->ColSel()});
  if (firstRow < Model()->FixedRows()) return;
  const RECT block = geometry_.BlockPlace(firstRow, firstCol, lastRow, lastCol);
  if (IsRectEmpty(&block) != FALSE) return;
  canvas.Clip(geometry_.Room(firstCol < Model()->FixedCols(), false));
  canvas.Frame(block, theme::kAccent);
  canvas.Unclip();
}

void GridWindow::PaintFrame() const {
  const FramePainting frame(Handle());
  const Canvas canvas(frame.Dc());
  // Nobody paints the corner between the two scroll bars.
  RECT client{};
  GetClientRect(Handle(), &client);
  RECT window{};
  GetWindowRect(Handle(), &window);
  MapWindowPoints(Handle(), nullptr, reinterpret_cast<POINT*>(&client), 2);
  OffsetRect(&client, -window.left, -window.top);
  canvas.Fill({0, client.bottom, client.left, frame.Area().bottom}, controls::palette::kFrame);
  canvas.Frame(frame.Area(), focused_ ? theme::kAccent : theme::kLine);
}

}  // namespace adapters::windows
