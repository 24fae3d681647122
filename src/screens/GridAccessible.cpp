// What a screen reader is told of the grid. Its parts are all cells of the columns that are shown,
// row by row from the headings on; none of them is kept, so that long lists cost nothing. Behind
// them comes the line in which a text is looked for, while it is open.

#include <algorithm>
#include <string>

#include "controls/Controls.h"
#include "screens/AccessibleNames.h"
#include "screens/GridPane.h"

namespace screens {

using controls::Aspect;

int GridPane::CellParts() const {
  return grid_ == nullptr ? 0 : grid_->Rows() * static_cast<int>(ShownCols(*grid_).size());
}

int GridPane::PartCount() const {
  return CellParts() + (grid_ != nullptr && line_.IsOpen() ? FindLine::kParts : 0);
}

int GridPane::PartOf(GridGeometry::Cell cell) const {
  const std::vector<int> cols = ShownCols(*grid_);
  const auto at = std::ranges::find(cols, cell.col);
  if (at == cols.end() || cell.row < 0 || cell.row >= grid_->Rows()) return -1;
  return cell.row * static_cast<int>(cols.size()) + static_cast<int>(at - cols.begin());
}

std::optional<GridGeometry::Cell> GridPane::CellOf(int part) const {
  const std::vector<int> cols = ShownCols(*grid_);
  const int count = static_cast<int>(cols.size());
  if (part < 0 || count == 0 || part / count >= grid_->Rows()) return std::nullopt;
  return GridGeometry::Cell{part / count, cols[static_cast<std::size_t>(part % count)]};
}

/// The current cell, or the corner of the block that the keys move.
GridGeometry::Cell GridPane::FocusedCell() const {
  const bool block = grid_->RowSel() != grid_->Row();
  return {grid_->RowSel(), grid_->ShownCol(block ? grid_->ColSel() : grid_->Col())};
}

int GridPane::FocusedPart() const {
  if (grid_ != nullptr && line_.IsOpen()) return CellParts() + FindLine::kFieldPart;
  if (grid_ == nullptr || grid_->Cols() == 0) return -1;
  const GridGeometry::Cell cell = FocusedCell();
  return IsDataRow(cell.row) ? PartOf(cell) : -1;
}

Accessible GridPane::Describe() const {
  Accessible told{.role = Role::kTable, .place = Area()};
  if (grid_ == nullptr) return told;
  told.name = AccessibleName(*grid_);
  told.description = AccessibleDescription(*grid_);
  told.rows = grid_->Rows();
  told.headingRows = std::min(grid_->FixedRows(), grid_->Rows());
  told.columns = static_cast<int>(ShownCols(*grid_).size());
  told.enabled = Host().Enabled();
  told.focusable = true;
  told.focused = focused_;
  const int count = std::max(0, grid_->Rows() - grid_->FixedRows());
  const std::string all = std::to_string(count) + " سطر";
  if (count == 0 && !grid_->EmptyText().empty()) {
    told.value = grid_->EmptyText();
  } else if (IsDataRow(grid_->RowSel())) {
    told.value = std::to_string(grid_->RowSel() - grid_->FixedRows() + 1) + " از " + all;
  } else {
    told.value = all;
  }
  return told;
}

Accessible GridPane::DescribeField() const {
  return line_.DescribePart(FindLine::kFieldPart, Describe().name, focused_);
}

Accessible GridPane::DescribePart(int part) const {
  const int inLine = part - CellParts();
  if (inLine >= 0 && part < PartCount()) {
    return line_.DescribePart(inLine, Describe().name, focused_);
  }
  const auto cell = grid_ == nullptr ? std::nullopt : CellOf(part);
  if (!cell) return {};
  const auto [row, col] = *cell;
  const int columns = static_cast<int>(ShownCols(*grid_).size());
  const std::string heading(grid_->FixedRows() > 0 ? grid_->TextMatrix(0, col) : "");
  Accessible told{.role = Role::kCell, .name = heading, .place = geometry_.CellPlace(row, col)};
  told.place = told.place.Common(Area());
  told.row = part / columns;
  told.column = part % columns;
  told.enabled = Host().Enabled();
  if (told.enabled) told.action = ActionOn(row);
  told.readOnly = true;
  if (!IsDataRow(row)) {
    told.role = Role::kColumnHeading;
    told.name = grid_->TextMatrix(row, col);
    return told;
  }
  told.value = grid_->TextMatrix(row, col);
  told.focusable = true;
  told.focused = focused_ && part == FocusedPart();
  told.selectable = grid_->marking.all != nullptr;
  told.selected = IsMarked(row);
  return told;
}

int GridPane::PartAt(Point place) const {
  if (grid_ == nullptr || !Area().Contains(place)) return -1;
  if (line_.Contains(place)) return CellParts() + line_.PartAt(place);
  return PartOf(geometry_.CellAt(place));
}

/// What opens rows opens them; there a blank marks.
std::string GridPane::ActionOn(int row) const {
  if (!IsDataRow(row)) return grid_->onClick ? "مرتب كردن" : "";
  if (grid_->onDblClick) return "باز كردن";
  if (!grid_->onMouseDown) return {};
  return IsMarked(row) ? "برداشتن علامت" : "علامت زدن";
}

void GridPane::Act(int part) {
  if (part >= CellParts() && part < PartCount()) {
    if (Host().Enabled()) line_.Act(part - CellParts());
    return;
  }
  const auto cell = grid_ == nullptr ? std::nullopt : CellOf(part);
  if (!cell || !Host().Enabled()) return;
  Host().TakeFocus();
  if (grid_ == nullptr) return;
  if (IsDataRow(cell->row)) grid_->SetRow(cell->row);
  grid_->SetCol(cell->col);
  Reveal(grid_->Row(), cell->col);
  if (!IsDataRow(cell->row)) {
    SortByCurrentColumn();
  } else if (!Open() && grid_->onMouseDown) {
    MarkRows(false);
  }
}

void GridPane::AnnounceFocus() {
  const int part = focused_ ? FocusedPart() : -1;
  if (part == announcedFocus_) return;
  announcedFocus_ = part;
  if (part >= 0) Host().Announce(Tidings::kFocus, part);
}

void GridPane::AnnounceChange(const controls::Change& change) {
  switch (change.aspect) {
    case Aspect::kCells:
      // Colours are what marks a row.
      if (grid_->marking.all == nullptr) {
        Host().Announce(Tidings::kContent, -1);
      } else {
        const bool one = change.firstRow == change.lastRow;
        const std::vector<int> cols = ShownCols(*grid_);
        Host().Announce(Tidings::kSelection,
                        one && !cols.empty() ? PartOf({change.firstRow, cols.front()}) : -1);
      }
      break;
    case Aspect::kRows:
    case Aspect::kColumns:
      Host().Announce(Tidings::kContent, -1);
      announcedFocus_ = -1;
      AnnounceFocus();
      break;
    case Aspect::kSelection:
      AnnounceFocus();
      break;
    default:
      break;
  }
}

}  // namespace screens
