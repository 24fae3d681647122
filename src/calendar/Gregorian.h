#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace calendar {

/// The day of a text that begins with yyyy-mm-dd (what a date column gives, with or without a time
/// after it); nothing when it is no date.
std::optional<std::chrono::sys_days> GregorianFromText(std::string_view text);
/// yyyy-mm-dd.
std::string GregorianText(std::chrono::sys_days day);
/// yyyymmdd: the date literal that the server reads the same under every language setting.
std::string GregorianLiteral(std::chrono::sys_days day);

}  // namespace calendar
