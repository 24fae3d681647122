#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace calendar {

/// A day of the Solar Hijri calendar. The calendar's year is the official one's for 1206 to 1498:
/// the 33-year rule, (25 * year + 11) mod 33 < 8 is a leap year. Years 1 to 9377 are accepted, so
/// that the text always has four digits of year.
class SolarHijriDate {
 public:
  /// Nothing when there is no such day (month 13, 1404/12/30).
  static std::optional<SolarHijriDate> FromYearMonthDay(int year, int month, int day);
  /// Reads yyyy/mm/dd, exactly ten characters with Latin digits; nothing when it is no such day.
  static std::optional<SolarHijriDate> FromText(std::string_view yyyymmdd);
  /// Reads what a person types or pastes: Latin, Persian or Arabic digits; "/", "-", "." or blank
  /// between the parts; one or two digits of month and day; a year of two digits is of the 1400s
  /// (below 50) or the 1300s; eight digits alone are yyyymmdd.
  static std::optional<SolarHijriDate> FromTyped(std::string_view typed);
  /// Throws std::out_of_range for a day outside the years 1 to 9377; so do the two steps below.
  static SolarHijriDate FromDays(std::chrono::sys_days gregorian);

  int Year() const { return year_; }
  int Month() const { return month_; }
  int Day() const { return day_; }
  std::chrono::sys_days Days() const { return days_; }
  /// yyyy/mm/dd with Latin digits.
  std::string Text() const;
  /// 0 is شنبه, 6 is جمعه.
  int Weekday() const;
  std::string_view WeekdayName() const;
  std::string_view MonthName() const;
  SolarHijriDate PlusDays(int days) const;
  /// Same day of another month, the last day where that month is shorter.
  SolarHijriDate PlusMonths(int months) const;

  friend bool operator==(const SolarHijriDate& a, const SolarHijriDate& b) {
    return a.days_ == b.days_;
  }

 private:
  SolarHijriDate(int year, int month, int day, std::chrono::sys_days days)
      : year_(year), month_(month), day_(day), days_(days) {}
  int year_;
  int month_;
  int day_;
  std::chrono::sys_days days_;
};

/// 31, 30, or 29 for the last month of a common year. month 1 to 12.
int DaysInMonth(int year, int month);
/// Month names as the module writes them (Arabic yeh); any number but 1 to 11 gives the last.
std::string_view MonthName(int month);
/// weekday 0 (شنبه) to 6 (جمعه).
std::string_view WeekdayName(int weekday);

/// The first day of the month after the one in a date text yyyy/mm/dd; the day part is ignored.
/// Month 12 gives the first of the next year, a month of 13 and above the empty text. Reads the
/// parts as leading numbers, so a text that is no date gives a text that is none either.
std::string FirstOfNextMonth(std::string_view date);

}  // namespace calendar
