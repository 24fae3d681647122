#include <stdexcept>

#include "controls/DateBox.h"

namespace controls {

MonthPage::MonthPage(calendar::SolarHijriDate shown)
    : first_(*calendar::SolarHijriDate::FromYearMonthDay(shown.Year(), shown.Month(), 1)) {}

std::string MonthPage::Title() const {
  return std::string(first_.MonthName()) + " " + std::to_string(Year());
}

calendar::SolarHijriDate MonthPage::DayAt(int week, int weekday) const {
  const int offset = 7 * week + weekday - first_.Weekday();
  try {
    return first_.PlusDays(offset);
  } catch (const std::out_of_range&) {
    if (offset < 0) return first_;
    return first_.PlusDays(calendar::DaysInMonth(Year(), Month()) - 1);
  }
}

MonthPage MonthPage::PlusMonths(int months) const {
  try {
    return MonthPage(first_.PlusMonths(months));
  } catch (const std::out_of_range&) {
    return *this;
  }
}

}  // namespace controls
