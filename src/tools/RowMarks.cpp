#include "tools/RowMarks.h"

#include <utility>

#include "controls/Controls.h"
#include "tools/BusyGrid.h"

namespace tools {

namespace {

constexpr std::int32_t kAscending = 7;
constexpr std::int32_t kDescending = 8;

}  // namespace

bool IsRowMarked(const controls::FlexGrid& grid, int row) {
  const int col = grid.FixedCols();
  return row >= grid.FixedRows() && row < grid.Rows() && col < grid.Cols() &&
         grid.EffectiveBackColor(row, col) == controls::palette::kMark;
}

int MarkedRows(const controls::FlexGrid& grid) {
  int count = 0;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    count += IsRowMarked(grid, row) ? 1 : 0;
  return count;
}

RowMarks::RowMarks(host::modMain& module, controls::FlexGrid& grid,
                   const controls::FlexGrid::MarkButtons& buttons, std::function<bool()> mayMark)
    : module_(module),
      grid_(grid),
      mayMark_(std::move(mayMark)),
      history_(
          module, grid, [this](int row, bool marked) { MarkRow(row, marked); }, mayMark_) {
  buttons.all->onClick = [this] { MarkAll([](int) { return true; }); };
  buttons.none->onClick = [this] { MarkAll([](int) { return false; }); };
  buttons.inverse->onClick = [this] {
    MarkAll([this](int row) { return !IsRowMarked(grid_, row); });
  };
  grid.onMouseDown = [this](int, int) { ToggleUnderMouse(); };
  grid.onClick = [this] { SortByHeader(); };
  grid.marking = buttons;
  grid.markSteps = &history_;
}

/// Paints the row from its first cell that is not fixed and leaves it the grid's current block.
void RowMarks::MarkRow(int row, bool marked) {
  history_.Note(row, marked);
  grid_.SetHighLight(controls::FlexGrid::HighLight::kNever);
  grid_.SetFillStyle(controls::FlexGrid::FillStyle::kRepeat);
  grid_.SetRow(row);
  grid_.SetCol(grid_.FixedCols());
  grid_.SetColSel(grid_.Cols() - 1);
  grid_.SetCellBackColor(marked ? controls::palette::kMark : grid_.BackColor());
  if (onMark) onMark(row, marked);
}

void RowMarks::MarkAll(const std::function<bool(int row)>& marked) {
  const BusyGrid busy(module_, grid_);
  const MarkGesture gesture(history_);
  for (int row = 1; row < grid_.Rows(); ++row) MarkRow(row, marked(row));
}

void RowMarks::Set(const std::vector<std::int32_t>& rows, bool marked) {
  const BusyGrid busy(module_, grid_);
  const MarkGesture gesture(history_);
  for (const std::int32_t row : rows) MarkRow(row, marked);
}

void RowMarks::ToggleUnderMouse() {
  const int row = grid_.MouseRow();
  if (row < 1 || row >= grid_.Rows() || (mayMark_ && !mayMark_())) return;
  const RedrawOff redrawOff(grid_);
  MarkRow(row, !IsRowMarked(grid_, row));
}

bool RowMarks::SortByHeader() {
  const int col = grid_.MouseCol();
  if (grid_.MouseRow() != 0 || col < 0 || col >= grid_.Cols() || grid_.Rows() < 2) return false;
  const RedrawOff redrawOff(grid_);
  grid_.SetCol(col);
  grid_.SetColSel(grid_.Cols() - 1);
  lastSort_ = lastSort_ != kAscending ? kAscending : kDescending;
  grid_.Sort(lastSort_);
  grid_.SetCol(grid_.FixedCols());
  grid_.SetColSel(grid_.Cols() - 1);
  return true;
}

}  // namespace tools
