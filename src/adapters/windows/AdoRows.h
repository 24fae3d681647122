#pragma once

#include <chrono>

#include "adapters/windows/Com.h"
#include "platform/RowSet.h"
#include "platform/RunningStatement.h"

namespace adapters::windows {

/// Day 0 of automation's dates.
inline constexpr std::chrono::sys_days kFirstDateDay{std::chrono::year(1899) /
                                                     std::chrono::December / 30};

/// Reads an open ADO recordset whole. Cells are as platform/RowSet.h says, none of
/// them in the way of the machine's locale, and besides:
///
/// - a time of day at midnight is left out: a day stored as datetime reads `yyyy-mm-dd`; parts of a
///   second are cut off;
/// - a decimal number has no zeros behind its last digit and one before a leading point, whatever
///   its declared scale; a bit is 1 or 0;
/// - binary is 0x and hexadecimal digits.
///
/// Throws RuntimeError with the recordset's words, 13 for a value that is no text (an object).
/// Whoever waits is asked after each block of rows; once the user has cancelled, what was read so
/// far is returned.
platform::RowSet ReadRows(const Dispatch& recordset, platform::RunningStatement& running);

/// Appends one value.
void AppendCell(platform::RowSet& rows, const VARIANT& value);

}  // namespace adapters::windows
