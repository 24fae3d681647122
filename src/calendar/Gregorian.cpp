#include "calendar/Gregorian.h"

namespace calendar {

namespace {

// The number that `width` digits at `at` make; nothing when one is no digit.
std::optional<int> DigitsAt(std::string_view text, std::size_t at, std::size_t width) {
  int value = 0;
  for (const char c : text.substr(at, width)) {
    if (c < '0' || c > '9') return std::nullopt;
    value = 10 * value + (c - '0');
  }
  return value;
}

std::string Joined(std::chrono::sys_days day, std::string_view separator) {
  const std::chrono::year_month_day date(day);
  std::string year = std::to_string(static_cast<int>(date.year()));
  if (year.size() < 4) year.insert(0, 4 - year.size(), '0');
  const auto twoDigits = [](unsigned value) {
    return std::string(value < 10 ? "0" : "") + std::to_string(value);
  };
  return year.append(separator) + twoDigits(static_cast<unsigned>(date.month())) +
         std::string(separator) + twoDigits(static_cast<unsigned>(date.day()));
}

}  // namespace

std::optional<std::chrono::sys_days> GregorianFromText(std::string_view text) {
  if (text.size() < 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  if (text.size() > 10 && text[10] != ' ' && text[10] != 'T') return std::nullopt;
  const auto year = DigitsAt(text, 0, 4);
  const auto month = DigitsAt(text, 5, 2);
  const auto day = DigitsAt(text, 8, 2);
  if (!year || !month || !day) return std::nullopt;
  const std::chrono::year_month_day date(std::chrono::year(*year),
                                         std::chrono::month(static_cast<unsigned>(*month)),
                                         std::chrono::day(static_cast<unsigned>(*day)));
  if (!date.ok()) return std::nullopt;
  return std::chrono::sys_days(date);
}

std::string GregorianText(std::chrono::sys_days day) {
  return Joined(day, "-");
}

std::string GregorianLiteral(std::chrono::sys_days day) {
  return Joined(day, "");
}

}  // namespace calendar
