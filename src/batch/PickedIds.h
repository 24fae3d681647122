#pragma once

#include <string>
#include <string_view>

#include "tools/BusyGrid.h"
#include "tools/comFlex.h"

namespace batch {

/// Adds an element to an id list: "," only between elements.
inline void AppendId(std::string& list, std::string_view id) {
  if (!list.empty()) list += ',';
  list += id;
}

/// The id list of a grid's picked rows in grid order; `idOf(row)` gives a row's element. The grid
/// draws once at the end, since asking for a pick moves its current cell.
template <typename IdOf>
std::string PickedIds(tools::comFlex& grid, IdOf&& idOf) {
  const tools::RedrawOff redrawOff(grid.getFlex());
  std::string list;
  for (int row = 1; row < grid.getFlex().Rows(); ++row) {
    if (grid.IsSelected(row)) AppendId(list, idOf(row));
  }
  return list;
}

}  // namespace batch
