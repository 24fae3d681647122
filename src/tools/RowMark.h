#pragma once

#include "controls/FlexGrid.h"

namespace tools {

/// Paints a row from column `firstCol` to the last one, with highlighting off; leaves the painted
/// block as the grid's current block.
void PaintRow(controls::FlexGrid& grid, int row, int firstCol, controls::Colour colour);

/// Moves the current cell to (row, col) and tells whether that cell is yellow.
bool IsRowMarked(controls::FlexGrid& grid, int row, int col);

/// Sorts by the header cell under the mouse, that column and all to its right as keys, the
/// direction turned over by every call through `lastSort` (7 ascending, 8 descending). Returns
/// false, having done nothing, when the mouse is not on the header row or there is no data row.
bool SortByHeader(controls::FlexGrid& grid, int& lastSort);

}  // namespace tools
