#include "screens/MonthPage.h"

#include <array>
#include <cstddef>
#include <stdexcept>

namespace screens {

MonthPage::MonthPage(calendar::SolarHijriDate shown)
    : first_(*calendar::SolarHijriDate::FromYearMonthDay(shown.Year(), shown.Month(), 1)) {}

std::string MonthPage::Title() const {
  return std::string(first_.MonthName()) + " " + std::to_string(Year());
}

calendar::SolarHijriDate MonthPage::DayAt(int week, int weekday) const {
  const int offset = kDays * week + weekday - first_.Weekday();
  try {
    return first_.PlusDays(offset);
  } catch (const std::out_of_range&) {
    if (offset < 0) return first_;
    return first_.PlusDays(calendar::DaysInMonth(Year(), Month()) - 1);
  }
}

std::string_view MonthPage::WeekdayLetter(int weekday) {
  static constexpr std::array<std::string_view, kDays> kLetters = {"ش", "ی", "د", "س",
                                                                   "چ", "پ", "ج"};
  return kLetters.at(static_cast<std::size_t>(weekday));
}

}  // namespace screens
