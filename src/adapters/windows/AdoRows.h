#pragma once

#include <chrono>

#include "adapters/windows/Com.h"
#include "platform/RowSet.h"

namespace adapters::windows {

/// Day 0 of automation's dates.
inline constexpr std::chrono::sys_days kFirstDateDay{std::chrono::year(1899) /
                                                     std::chrono::December / 30};

/// Reads an open ADO recordset whole, in one block. Cells are as platform/RowSet.h says, none of
/// them in the way of the machine's locale, and besides:
///
/// - a time of day at midnight is left out: a day stored as datetime reads `yyyy-mm-dd`; parts of a
///   second are cut off;
/// - a decimal number has no zeros behind its last digit and one before a leading point, whatever
///   its declared scale; a bit is 1 or 0;
/// - binary is 0x and hexadecimal digits.
///
/// Throws RuntimeError with the recordset's words, 13 for a value that is no text (an object).
platform::RowSet ReadRows(const Dispatch& recordset);

/// Appends one value.
void AppendCell(platform::RowSet& rows, const VARIANT& value);

}  // namespace adapters::windows
