#pragma once

#include <string>
#include <string_view>

#include "calendar/SolarHijriDate.h"

namespace screens {

/// The month page that a date box pops up: six weeks, each beginning on Saturday.
class MonthPage {
 public:
  static constexpr int kWeeks = 6;
  static constexpr int kDays = 7;
  static constexpr int kFriday = 6;
  /// The page that holds `shown`.
  explicit MonthPage(calendar::SolarHijriDate shown);
  /// "ارديبهشت 1404".
  std::string Title() const;
  int Year() const { return first_.Year(); }
  int Month() const { return first_.Month(); }
  /// Day at a week (0 to 5) and weekday (0 is Saturday); days of the neighbour months fill up.
  /// Where the calendar ends, its first or last day fills up.
  calendar::SolarHijriDate DayAt(int week, int weekday) const;
  bool InMonth(const calendar::SolarHijriDate& date) const {
    return date.Year() == Year() && date.Month() == Month();
  }
  /// One letter to stand above the days of a weekday.
  static std::string_view WeekdayLetter(int weekday);

 private:
  calendar::SolarHijriDate first_;
};

}  // namespace screens
