#include "screens/MonthBrowser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using calendar::SolarHijriDate;
using screens::Key;
using screens::MonthBrowser;
using screens::MonthPage;
using testing::ElementsAre;

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

class MonthBrowserTest : public testing::Test {
 protected:
  MonthBrowserTest() {
    browser.onClose = [this] { events.emplace_back("closed"); };
    browser.onPicked = [this](const SolarHijriDate& day) { events.push_back(day.Text()); };
  }
  void Open(std::string_view chosen) { browser.Open(Date(chosen), Date("1404/06/31")); }
  MonthBrowser browser;
  std::vector<std::string> events;
};

TEST_F(MonthBrowserTest, Keys_MoveTheCursorAndItsPageAsFarAsTheCalendarGoes) {
  const struct {
    const char* from;
    Key key;
    bool control;
    const char* to;
  } kCases[] = {
      {"1404/02/15", Key::kLeft, false, "1404/02/16"},
      {"1404/02/01", Key::kRight, false, "1404/01/31"},
      {"1404/02/15", Key::kDown, true, "1404/02/22"},
      {"1404/01/05", Key::kUp, false, "1403/12/28"},
      {"1404/06/31", Key::kPageDown, false, "1404/07/30"},
      {"1404/01/31", Key::kPageUp, false, "1403/12/30"},
      {"1403/12/30", Key::kPageDown, true, "1404/12/29"},
      {"1404/02/15", Key::kPageUp, true, "1403/02/15"},
      {"1300/01/01", Key::kHome, false, "1404/06/31"},
      {"9377/12/30", Key::kLeft, false, "9377/12/30"},
      {"0001/05/01", Key::kPageUp, true, "0001/05/01"},
  };
  for (const auto& each : kCases) {
    Open(each.from);
    EXPECT_TRUE(browser.PressKey({each.key, {.control = each.control}, {}}));
    EXPECT_EQ(browser.Cursor().Text(), each.to) << each.from;
    EXPECT_TRUE(browser.Page().InMonth(browser.Cursor())) << each.from;
  }
  EXPECT_TRUE(events.empty());
  Open("1404/02/15");
  browser.PressKey({Key::kEnter, {}, {}});
  browser.PressKey({Key::kEscape, {}, {}});
  EXPECT_THAT(events, ElementsAre("closed", "1404/02/15", "closed"));
}

}  // namespace
