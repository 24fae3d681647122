#include "screens/GridPane.h"

#include <algorithm>

namespace screens {

using controls::Aspect;
using controls::Change;
using controls::FlexGrid;

GridPane::GridPane(FlexGrid& grid, PaneHost& host)
    : SizedPane(host), grid_(&grid), geometry_(grid) {}

void GridPane::Changed(const Change& change) {
  if (grid_ == nullptr) return;
  switch (change.aspect) {
    case Aspect::kColumns:
    case Aspect::kBounds:
    case Aspect::kRows:
      Measure();
      break;
    case Aspect::kCells:
      if (HeadingHeight(geometry_.RowHeight()) != geometry_.RowHeight(0)) Measure();
      RepaintRows({change.firstRow, change.lastRow});
      break;
    case Aspect::kSelection:
      RepaintBlock();
      break;
    default:
      RepaintAll();
      break;
  }
  if (line_.IsOpen()) FindAfter(change);
  AnnounceChange(change);
}

void GridPane::Resized(Size size) {
  SizedPane::Resized(size);
  line_.Resized(size.width);
  Measure();
}

void GridPane::Measure() {
  if (grid_ == nullptr) return;
  const Scale scale = Host().GetScale();
  const int rowHeight = std::max(scale.Pixels(FlexGrid::kRowHeight), Host().LineHeight() + 2);
  geometry_.MeasureColumns({Area().right, Area().bottom}, scale);
  geometry_.MeasureRows(rowHeight, HeadingHeight(rowHeight), line_.Height());
  UpdateScrollBars();
  RepaintAll();
}

/// Two lines where the words of a heading do not fit beside each other.
int GridPane::HeadingHeight(int rowHeight) const {
  if (grid_->FixedRows() == 0 || grid_->Rows() == 0) return rowHeight;
  const int margins = 2 * Design(kTextMargin);
  for (int col = 0; col < grid_->Cols(); ++col) {
    const std::string_view text = grid_->TextMatrix(0, col);
    if (text.find(' ') == std::string_view::npos) continue;
    const int room = geometry_.ColumnWidth(col) - margins;
    if (room > 0 && TextWidth(text) > room) {
      return rowHeight + Host().LineHeight();
    }
  }
  return rowHeight;
}

void GridPane::UpdateScrollBars() {
  // A bar that comes or goes changes the pane's size, which is measured within this call.
  Host().SetScrollBar(Axis::kDown, {grid_->Rows() - grid_->FixedRows(), geometry_.PageRows(),
                                    geometry_.RowsAbove(), 1});
  Host().SetScrollBar(Axis::kAcross, {geometry_.ColumnsWidth(), geometry_.Width(),
                                      geometry_.Across(), Design(kColumnStep)});
}

void GridPane::ScrollTo(int rowsAbove, int across) {
  const GridGeometry before = geometry_;
  if (geometry_.ScrollTo(rowsAbove, across)) ShowScrolled(before);
}

void GridPane::Reveal(int row, int col) {
  const GridGeometry before = geometry_;
  if (geometry_.Reveal(row, col)) ShowScrolled(before);
}

void GridPane::ShowScrolled(const GridGeometry& before) {
  if (geometry_.Across() != before.Across() || !LookUpPlace().Empty()) {
    RepaintAll();
  } else {
    Host().ScrollPart(geometry_.Room(true, false),
                      (before.RowsAbove() - geometry_.RowsAbove()) * geometry_.RowHeight());
  }
  UpdateScrollBars();
}

void GridPane::Scrolled(Axis axis, int place) {
  if (grid_ == nullptr) return;
  const bool down = axis == Axis::kDown;
  ScrollTo(down ? place : geometry_.RowsAbove(), down ? geometry_.Across() : place);
}

void GridPane::Wheel(const WheelEvent& event) {
  if (grid_ == nullptr) return;
  if (event.left != 0 || event.modifiers.shift) {
    const double notches = event.left != 0 ? event.left : event.up;
    ScrollTo(geometry_.RowsAbove(), geometry_.Across() + Design(notches * kColumnStep));
    return;
  }
  const int rows = WholeSteps(event.up * (event.lines > 0 ? event.lines : geometry_.PageRows()));
  ScrollTo(geometry_.RowsAbove() - rows, geometry_.Across());
}

void GridPane::FocusChanged(bool focused) {
  focused_ = focused;
  if (!focused) EndLookUp();
  RepaintRows(shownBlock_);
  announcedFocus_ = -1;
  AnnounceFocus();
}

void GridPane::RepaintRows(Span rows) {
  if (grid_ == nullptr) return;
  const Rect place = geometry_.RowsPlace(rows.first, rows.last);
  if (!place.Empty()) Host().Repaint(place);
}

void GridPane::RepaintBlock() {
  RepaintRows(shownBlock_);
  const auto [first, last] = std::minmax({grid_->Row(), grid_->RowSel()});
  shownBlock_ = {first, last};
  RepaintRows(shownBlock_);
}

bool GridPane::IsDataRow(int row) const {
  return row >= grid_->FixedRows() && row < grid_->Rows();
}

Rect GridPane::CellPlace(int row, int col) const {
  return grid_ == nullptr ? Rect{} : geometry_.CellPlace(row, col);
}

}  // namespace screens
