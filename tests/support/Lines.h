#pragma once

#include <string>

#include "platform/RowSet.h"

namespace support {

/// A result as text to compare: a row a line, cells joined by "|", NULL as "~".
inline std::string Lines(const platform::RowSet& rows) {
  std::string lines;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    if (row > 0) lines += "\n";
    for (std::size_t column = 0; column < rows.ColumnCount(); ++column) {
      if (column > 0) lines += "|";
      lines += rows.Cell(row, column).value_or("~");
    }
  }
  return lines;
}

}  // namespace support
