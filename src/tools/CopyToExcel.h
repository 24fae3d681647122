#pragma once

#include "controls/FlexGrid.h"
#include "host/modMain.h"

namespace tools {

/// Copies the whole grid, headings included, into a new workbook of a spreadsheet application that
/// the user sees, cell by cell; ends in a message of success or, for any failure or when the user
/// stops it, of failure. Cells written before a failure stay in the open workbook.
void CopyToExcel(host::modMain& module, const controls::FlexGrid& grid);

}  // namespace tools
