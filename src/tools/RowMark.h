#pragma once

#include <cstdint>

#include "controls/FlexGrid.h"

/// Marks and sorting of a grid with one header row. A row's mark is the yellow of its cells
/// (controls::palette::kMark) and stands nowhere else.
namespace tools {

/// Paints a row from column `firstCol` to the last one, with highlighting off and the fill style
/// on repeat from then on; leaves the painted block as the grid's current block. Throws 30009 or
/// 30010 where the grid has no such row or column.
void PaintRow(controls::FlexGrid& grid, int row, int firstCol, controls::Colour colour);

/// Moves the current cell to (row, col), leaves it there, and tells whether that cell is yellow.
/// Throws 30009 or 30010 where the grid has no such cell.
bool IsRowMarked(controls::FlexGrid& grid, int row, int col);

/// Whether a data row is marked, its first cell that is not fixed being yellow; false for any other
/// row. Moves nothing.
bool IsMarked(const controls::FlexGrid& grid, int row);
/// How many rows are marked.
int MarkedRows(const controls::FlexGrid& grid);

/// Sorts by the header cell under the mouse, that column and all to its right as keys, the
/// direction turned over by every call through `lastSort` (7 ascending, 8 descending, 0 before the
/// first). Marks move with their rows. Leaves the current block from the first non-fixed column to
/// the last one, and the drawing on. Returns false, having done nothing, when the mouse is not on
/// the header row or there is no data row.
bool SortByHeader(controls::FlexGrid& grid, std::int32_t& lastSort);

}  // namespace tools
