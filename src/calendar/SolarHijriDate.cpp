#include "calendar/SolarHijriDate.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <vector>

#include "text/Fold.h"
#include "text/Text.h"

namespace calendar {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr int kLastYear = 9377;

// Names stand as the module's texts write them: with Arabic yeh.
constexpr std::array<std::string_view, 12> kMonthNames = {"فروردين", "ارديبهشت", "خرداد", "تير",
                                                          "مرداد",   "شهريور",   "مهر",   "آبان",
                                                          "آذر",     "دي",       "بهمن",  "اسفند"};
constexpr std::array<std::string_view, 7> kWeekdayNames = {
    "شنبه", "يكشنبه", "دوشنبه", "سه شنبه", "چهارشنبه", "پنجشنبه", "جمعه"};

// Days from the first day of year 1 to the first day of `year`. Everything else follows from this:
// eight of 33 years are leap years, spread so that (25 * year + 11) mod 33 < 8 holds for them.
constexpr int DaysBeforeYear(int year) {
  return 365 * (year - 1) + (8 * year + 21) / 33;
}

// The greatest year whose DaysBeforeYear is not more than `day`, the inequality solved for it.
constexpr int YearOfDay(int day) {
  return (33 * day + 12056) / 12053;
}

// The first six months have 31 days, the others 30.
constexpr int DaysBeforeMonth(int month) {
  return month <= 7 ? 31 * (month - 1) : 30 * (month - 1) + 6;
}

constexpr int MonthOfDay(int dayOfYear) {
  return dayOfYear < DaysBeforeMonth(7) ? dayOfYear / 31 + 1 : (dayOfYear - 6) / 30 + 1;
}

constexpr sys_days kFirstDay =
    sys_days(std::chrono::year(2025) / std::chrono::March / 21) - days(DaysBeforeYear(1404));
constexpr int kDayCount = DaysBeforeYear(kLastYear + 1);

// A number that has at most `most` digits and nothing else; nothing for any other text.
std::optional<int> Number(std::string_view digits, std::size_t most) {
  if (digits.empty() || digits.size() > most) return std::nullopt;
  int value = 0;
  for (const char c : digits) {
    if (c < '0' || c > '9') return std::nullopt;
    value = 10 * value + (c - '0');
  }
  return value;
}

std::optional<SolarHijriDate> FromParts(std::string_view year, std::string_view month,
                                        std::string_view day) {
  const auto y = Number(year, 4);
  const auto m = Number(month, 2);
  const auto d = Number(day, 2);
  if (!y || !m || !d) return std::nullopt;
  return SolarHijriDate::FromYearMonthDay(*y, *m, *d);
}

// The parts of a typed date. A separator may have blanks around it, or be blanks alone.
std::vector<std::string_view> TypedParts(std::string_view typed) {
  std::vector<std::string_view> parts;
  constexpr std::string_view kSeparators = "/-. ";
  while (true) {
    const std::size_t end = std::min(typed.find_first_of(kSeparators), typed.size());
    parts.push_back(typed.substr(0, end));
    if (end == typed.size()) return parts;
    typed.remove_prefix(std::min(typed.find_first_not_of(' ', end), typed.size()));
    if (!typed.empty() && kSeparators.find(typed.front()) != std::string_view::npos) {
      typed.remove_prefix(1);
      typed.remove_prefix(std::min(typed.find_first_not_of(' '), typed.size()));
    }
  }
}

std::string Padded(int value, std::size_t width) {
  std::string digits = std::to_string(value);
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

}  // namespace

std::optional<SolarHijriDate> SolarHijriDate::FromYearMonthDay(int year, int month, int day) {
  if (year < 1 || year > kLastYear || month < 1 || month > 12) return std::nullopt;
  if (day < 1 || day > DaysInMonth(year, month)) return std::nullopt;
  const int number = DaysBeforeYear(year) + DaysBeforeMonth(month) + day - 1;
  return SolarHijriDate(year, month, day, kFirstDay + std::chrono::days(number));
}

std::optional<SolarHijriDate> SolarHijriDate::FromText(std::string_view yyyymmdd) {
  if (yyyymmdd.size() != 10 || yyyymmdd[4] != '/' || yyyymmdd[7] != '/') return std::nullopt;
  return FromParts(yyyymmdd.substr(0, 4), yyyymmdd.substr(5, 2), yyyymmdd.substr(8, 2));
}

std::optional<SolarHijriDate> SolarHijriDate::FromTyped(std::string_view typed) {
  // Folding also drops the direction marks that come along when a date is pasted.
  const std::string folded = text::FoldForLookup(typed);
  const std::string_view whole = folded;
  const auto parts = TypedParts(whole);
  if (parts.size() == 1 && whole.size() == 8) {
    return FromParts(whole.substr(0, 4), whole.substr(4, 2), whole.substr(6, 2));
  }
  if (parts.size() != 3) return std::nullopt;
  if (parts[0].size() == 2) {
    const std::string century = parts[0] < "50" ? "14" : "13";
    return FromParts(century + std::string(parts[0]), parts[1], parts[2]);
  }
  if (parts[0].size() != 4) return std::nullopt;
  return FromParts(parts[0], parts[1], parts[2]);
}

SolarHijriDate SolarHijriDate::FromDays(sys_days gregorian) {
  const auto sinceFirst = (gregorian - kFirstDay).count();
  if (sinceFirst < 0 || sinceFirst >= kDayCount) {
    throw std::out_of_range("a day outside the years 1 to 9377");
  }
  const auto number = static_cast<int>(sinceFirst);
  const int year = YearOfDay(number);
  const int dayOfYear = number - DaysBeforeYear(year);
  const int month = MonthOfDay(dayOfYear);
  return {year, month, dayOfYear - DaysBeforeMonth(month) + 1, gregorian};
}

std::string SolarHijriDate::Text() const {
  return Padded(year_, 4) + "/" + Padded(month_, 2) + "/" + Padded(day_, 2);
}

int SolarHijriDate::Weekday() const {
  const unsigned sinceSunday = std::chrono::weekday(days_).c_encoding();
  return static_cast<int>((sinceSunday + 1) % 7);
}

std::string_view SolarHijriDate::WeekdayName() const {
  return calendar::WeekdayName(Weekday());
}

std::string_view SolarHijriDate::MonthName() const {
  return calendar::MonthName(month_);
}

SolarHijriDate SolarHijriDate::PlusDays(int days) const {
  return FromDays(days_ + std::chrono::days(days));
}

SolarHijriDate SolarHijriDate::PlusMonths(int months) const {
  const std::int64_t sinceYear0 = std::int64_t{12} * year_ + month_ - 1 + months;
  if (sinceYear0 < 12 || sinceYear0 >= std::int64_t{12} * (kLastYear + 1)) {
    throw std::out_of_range("a month outside the years 1 to 9377");
  }
  const auto year = static_cast<int>(sinceYear0 / 12);
  const auto month = static_cast<int>(sinceYear0 % 12) + 1;
  return *FromYearMonthDay(year, month, std::min(day_, DaysInMonth(year, month)));
}

int DaysInMonth(int year, int month) {
  if (month < 12) return DaysBeforeMonth(month + 1) - DaysBeforeMonth(month);
  return DaysBeforeYear(year + 1) - DaysBeforeYear(year) - DaysBeforeMonth(12);
}

std::string_view MonthName(int month) {
  return month >= 1 && month <= 11 ? kMonthNames[static_cast<std::size_t>(month) - 1]
                                   : kMonthNames.back();
}

std::string_view WeekdayName(int weekday) {
  return kWeekdayNames.at(static_cast<std::size_t>(weekday));
}

std::string FirstOfNextMonth(std::string_view date) {
  const double month = text::LeadingNumber(text::Mid(date, 6, 2));
  const double year = text::LeadingNumber(text::Mid(date, 1, 4));
  if (month == 12) return text::DecimalText(year + 1) + "/01/01";
  if (month > 11) return {};
  const std::string_view zero = month <= 8 ? "0" : "";
  return std::string(text::Mid(date, 1, 5)).append(zero) + text::DecimalText(month + 1) + "/01";
}

}  // namespace calendar
