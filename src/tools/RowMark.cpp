#include "tools/RowMark.h"

#include "tools/BusyGrid.h"

namespace tools {

namespace {

constexpr std::int32_t kAscending = 7;
constexpr std::int32_t kDescending = 8;

}  // namespace

void PaintRow(controls::FlexGrid& grid, int row, int firstCol, controls::Colour colour) {
  grid.SetHighLight(controls::FlexGrid::HighLight::kNever);
  grid.SetFillStyle(controls::FlexGrid::FillStyle::kRepeat);
  grid.SetRow(row);
  grid.SetCol(firstCol);
  grid.SetColSel(grid.Cols() - 1);
  grid.SetCellBackColor(colour);
}

bool IsRowMarked(controls::FlexGrid& grid, int row, int col) {
  grid.SetRow(row);
  grid.SetCol(col);
  return grid.CellBackColor() == controls::palette::kMark;
}

bool IsMarked(const controls::FlexGrid& grid, int row) {
  const int col = grid.FixedCols();
  return row >= grid.FixedRows() && row < grid.Rows() && col < grid.Cols() &&
         grid.EffectiveBackColor(row, col) == controls::palette::kMark;
}

int MarkedRows(const controls::FlexGrid& grid) {
  int count = 0;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) count += IsMarked(grid, row) ? 1 : 0;
  return count;
}

bool SortByHeader(controls::FlexGrid& grid, std::int32_t& lastSort) {
  const int col = grid.MouseCol();
  if (grid.MouseRow() != 0 || col < 0 || col > grid.Cols() - 1 || grid.Rows() < 2) return false;
  const RedrawOff redrawOff(grid);
  grid.SetCol(col);
  grid.SetColSel(grid.Cols() - 1);
  lastSort = lastSort != kAscending ? kAscending : kDescending;
  grid.Sort(lastSort);
  grid.SetCol(grid.FixedCols());
  grid.SetColSel(grid.Cols() - 1);
  return true;
}

}  // namespace tools
