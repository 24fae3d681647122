#pragma once

#include <span>
#include <string_view>

#include "controls/FlexGrid.h"
#include "host/Recordset.h"

namespace tools {

/// A column in the table of a grid.
struct Column {
  std::string_view heading;
  controls::Twips width;        // 0 hides it
  std::string_view field = {};  // whose texts it shows; the numbers of the rows where there is none
  bool takesSpare = false;      // some of the width that the columns leave free
};

/// Gives a grid its columns with their headings. Where only one of them takes the spare width, a
/// view stretches it; several share it through SpareWidth.
void SetColumns(controls::FlexGrid& grid, std::span<const Column> columns,
                controls::FlexGrid::Alignment alignment = controls::FlexGrid::Alignment::kGeneral);

/// Writes the numbers of the data rows into the first column.
void NumberRows(controls::FlexGrid& grid);

/// Puts the rows of an open recordset in the place of the grid's data rows, and closes it.
void FillRows(controls::FlexGrid& grid, std::span<const Column> columns, host::Recordset& rows);

}  // namespace tools
