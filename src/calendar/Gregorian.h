#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace calendar {

/// The day of a text yyyy-mm-dd, alone or with a blank (or T) and a time after it, as a date column
/// gives it; nothing when it is no date.
std::optional<std::chrono::sys_days> GregorianFromText(std::string_view text);
/// yyyy-mm-dd.
std::string GregorianText(std::chrono::sys_days day);
/// yyyymmdd: the date literal that the server reads the same under every language setting.
std::string GregorianLiteral(std::chrono::sys_days day);

}  // namespace calendar
