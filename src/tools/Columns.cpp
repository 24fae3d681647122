#include "tools/Columns.h"

#include <algorithm>
#include <string>

namespace tools {

void SetColumns(controls::FlexGrid& grid, std::span<const Column> columns,
                controls::FlexGrid::Alignment alignment) {
  grid.SetCols(static_cast<int>(columns.size()));
  const bool stretches = std::ranges::count(columns, true, &Column::takesSpare) == 1;
  int col = 0;
  for (const Column& column : columns) {
    grid.SetTextMatrix(0, col, column.heading);
    grid.SetColWidth(col, column.width);
    grid.SetColAlignment(col, alignment);
    if (stretches && column.takesSpare) grid.SetStretchCol(col);
    ++col;
  }
}

void NumberRows(controls::FlexGrid& grid) {
  for (int row = 1; row < grid.Rows(); ++row) grid.SetTextMatrix(row, 0, std::to_string(row));
}

void FillRows(controls::FlexGrid& grid, std::span<const Column> columns, host::Recordset& rows) {
  grid.SetRows(1);
  for (; !rows.Eof(); rows.MoveNext()) {
    grid.AddItem("");
    const int row = grid.Rows() - 1;
    int col = 0;
    for (const Column& column : columns) {
      grid.SetTextMatrix(row, col++,
                         column.field.empty() ? std::to_string(row) : rows.Text(column.field));
    }
  }
  rows.Close();
}

}  // namespace tools
