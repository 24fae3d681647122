#include "screens/MonthPage.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using calendar::SolarHijriDate;
using screens::MonthPage;

SolarHijriDate Date(std::string_view text) {
  return SolarHijriDate::FromText(text).value();
}

TEST(MonthPage, AnyMonth_ShowsAllOfItsDaysUnderTheirWeekdays) {
  for (int month = 0; month < 400; ++month) {
    const MonthPage page(Date("1400/01/01").PlusMonths(month));
    int shown = 0;
    for (int cell = 0; cell < MonthPage::kDays * MonthPage::kWeeks; ++cell) {
      const SolarHijriDate day = page.DayAt(cell / MonthPage::kDays, cell % MonthPage::kDays);
      ASSERT_EQ(day.Weekday(), cell % MonthPage::kDays) << day.Text();
      if (page.InMonth(day)) ++shown;
    }
    EXPECT_EQ(shown, calendar::DaysInMonth(page.Year(), page.Month())) << page.Title();
  }
  const MonthPage page(Date("1404/02/15"));  // the month begins on a Monday
  EXPECT_EQ(page.Title(), "ارديبهشت 1404");
  EXPECT_EQ(page.DayAt(0, 0).Text(), "1404/01/30");
  EXPECT_EQ(page.DayAt(5, 6).Text(), "1404/03/09");
  // Where the calendar ends, its last day fills up.
  EXPECT_EQ(MonthPage(Date("9377/12/01")).DayAt(5, 6).Text(), "9377/12/30");
  EXPECT_EQ(MonthPage(Date("0001/01/09")).DayAt(0, 0).Text(), "0001/01/01");
  EXPECT_EQ(MonthPage::WeekdayLetter(MonthPage::kFriday), "ج");
}

}  // namespace
