#pragma once

#include "adapters/odbc/Handles.h"
#include "platform/RowSet.h"

namespace adapters::odbc {

/// Reads the current result of a statement whole; a RowSet without columns when it has none.
/// Cells are as platform/RowSet.h says, and besides:
///
/// - a time of day at midnight is left out: a day stored as datetime reads `yyyy-mm-dd`;
/// - a decimal number has no zeros behind its last digit and one before a leading point (12.50 is
///   "12.5", .5 is "0.5"), whatever its declared scale; bit is 1 or 0;
/// - binary is written as the server writes it, 0x and hexadecimal digits.
///
/// On failure false: the statement's diagnostics say why, and `rows` is to be dropped.
bool ReadRows(const Statement& statement, platform::RowSet& rows);

}  // namespace adapters::odbc
