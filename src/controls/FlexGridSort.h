#pragma once

#include <cstdint>
#include <vector>

#include "controls/FlexGridStore.h"

namespace controls {

enum class SortDirection { kAscending, kDescending };

/// The order of the rows from `firstRow` on, as numbers from 0, by the texts of the columns
/// firstCol to lastCol in the order of text::ComparePersian. Rows with equal texts keep their order
/// in both directions.
std::vector<std::uint32_t> SortedRows(const FlexGridStore& store, int firstRow, int firstCol,
                                      int lastCol, SortDirection direction);

}  // namespace controls
