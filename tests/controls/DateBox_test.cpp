#include "controls/DateBox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/FlexGridHarness.h"

namespace {

using calendar::SolarHijriDate;
using controls::DateBox;
using controls::MonthPage;
using testing::AllOf;
using testing::HasSubstr;

class DateBoxTest : public testing::Test {
 protected:
  DateBoxTest() {
    box.onChange = [this] { ++changes; };
  }
  LoneContainer form;
  DateBox box{form, "box"};
  int changes = 0;
};

SolarHijriDate Date(std::string_view text) {
  return SolarHijriDate::FromText(text).value();
}

TEST_F(DateBoxTest, New_IsEmptyAndStaysSoWhenStepped) {
  EXPECT_TRUE(box.IsEmpty());
  EXPECT_EQ(box.Text(), "");
  EXPECT_EQ(box.WeekdayName(), "");
  EXPECT_EQ(box.MonthNumber(), 0);
  EXPECT_EQ(box.Value(), std::nullopt);
  box.StepDays(1);
  box.SetText("");
  EXPECT_TRUE(box.IsEmpty());
  EXPECT_EQ(changes, 0);
}

TEST_F(DateBoxTest, SetText_TakesOnlyADayAndRaisesOnlyForAnother) {
  box.SetText("1403/12/30");
  box.SetText("1403/12/30");
  EXPECT_EQ(changes, 1);
  for (const std::string_view refused : {"1403/13/40", "1404/12/30", "1403/1/1", " ", "x"}) {
    EXPECT_EQ(ErrorOf([&] { box.SetText(refused); }), 380) << refused;
  }
  EXPECT_EQ(box.Text(), "1403/12/30");
  EXPECT_EQ(changes, 1);
  box.StepDays(1);
  EXPECT_EQ(box.Text(), "1404/01/01");
  EXPECT_EQ(box.WeekdayName(), "جمعه");
  EXPECT_EQ(box.MonthNumber(), 1);
  EXPECT_EQ(box.Value(), Date("1404/01/01").Days());
  box.SetText("");
  EXPECT_TRUE(box.IsEmpty());
  EXPECT_EQ(changes, 3);
}

TEST_F(DateBoxTest, StepBeyondTheCalendar_IsRefusedAndKeepsTheDate) {
  box.SetText("9377/12/30");
  EXPECT_EQ(ErrorOf([&] { box.StepDays(1); }), 380);
  EXPECT_EQ(ErrorOf([&] { box.SetValue(std::chrono::sys_days() - std::chrono::days(800'000)); }),
            380);
  box.PressKey(DateBox::Key::kUp, {});
  box.PressKey(DateBox::Key::kPageUp, {});
  EXPECT_EQ(box.Text(), "9377/12/30");
  EXPECT_EQ(changes, 1);
}

TEST_F(DateBoxTest, TypedDates_AreTakenInAnyDigits) {
  for (const std::string_view typed : {"1404/2/15", "۱۴۰۴/۰۲/۱۵", "١٤٠٤/٠٢/١٥", "14040215"}) {
    box.Clear();
    EXPECT_EQ(box.EnterTyped(typed), "") << typed;
    EXPECT_EQ(box.Text(), "1404/02/15") << typed;
  }
  EXPECT_EQ(box.EnterTyped("  "), "");
  EXPECT_TRUE(box.IsEmpty());
}

TEST_F(DateBoxTest, TypedText_ThatIsNoDate_IsExplainedAndTheDateKept) {
  box.SetText("1404/02/15");
  for (const std::string typed : {"1403/13/40", "1404/12/30", "۱۴۰۴/۱۳/۱", "فردا"}) {
    EXPECT_THAT(box.EnterTyped(" " + typed),
                AllOf(HasSubstr("”" + typed + "“ درست نيست"), HasSubstr("سال/ماه/روز")));
    EXPECT_EQ(box.Text(), "1404/02/15") << typed;
  }
  EXPECT_EQ(changes, 1);
}

TEST_F(DateBoxTest, Keys_StepDaysAndMonths) {
  const auto today = Date("1404/06/31").Days();
  box.PressKey(DateBox::Key::kDown, today);
  EXPECT_EQ(box.Text(), "1404/06/31");
  box.PressKey(DateBox::Key::kUp, today);
  EXPECT_EQ(box.Text(), "1404/07/01");
  box.PressKey(DateBox::Key::kDown, today);
  box.PressKey(DateBox::Key::kPageUp, today);
  EXPECT_EQ(box.Text(), "1404/07/30");
  box.PressKey(DateBox::Key::kPageDown, today);
  EXPECT_EQ(box.Text(), "1404/06/30");
}

TEST_F(DateBoxTest, Disabled_IgnoresTheUserButNotTheForm) {
  box.SetText("1404/02/15");
  box.SetEnabled(false);
  EXPECT_EQ(box.EnterTyped("1404/02/16"), "");
  EXPECT_EQ(box.EnterTyped("x"), "");
  box.PressKey(DateBox::Key::kUp, {});
  EXPECT_EQ(box.Text(), "1404/02/15");
  box.StepDays(1);
  EXPECT_EQ(box.Text(), "1404/02/16");
}

TEST(MonthPage, EveryWeek_BeginsOnSaturday) {
  const MonthPage page(Date("1404/02/15"));  // the month begins on a Monday
  EXPECT_EQ(page.Title(), "ارديبهشت 1404");
  EXPECT_EQ(page.DayAt(0, 0).Text(), "1404/01/30");
  EXPECT_EQ(page.DayAt(0, 2).Text(), "1404/02/01");
  EXPECT_EQ(page.DayAt(5, 6).Text(), "1404/03/09");
  for (int week = 0; week < MonthPage::kWeeks; ++week) {
    for (int weekday = 0; weekday < 7; ++weekday) {
      EXPECT_EQ(page.DayAt(week, weekday).Weekday(), weekday);
    }
  }
  EXPECT_TRUE(page.InMonth(Date("1404/02/31")));
  EXPECT_FALSE(page.InMonth(Date("1404/03/01")));
  EXPECT_FALSE(page.InMonth(Date("1403/02/01")));
  EXPECT_EQ(page.PlusMonths(-2).Title(), "اسفند 1403");
}

TEST(MonthPage, AnyMonth_ShowsAllOfItsDays) {
  MonthPage page(Date("1400/01/01"));
  for (int month = 0; month < 400; ++month, page = page.PlusMonths(1)) {
    int shown = 0;
    for (int cell = 0; cell < 7 * MonthPage::kWeeks; ++cell) {
      if (page.InMonth(page.DayAt(cell / 7, cell % 7))) ++shown;
    }
    EXPECT_EQ(shown, calendar::DaysInMonth(page.Year(), page.Month())) << page.Title();
  }
}

TEST(MonthPage, EndsOfTheCalendar_AreFilledWithItsLastDay) {
  const MonthPage last(Date("9377/12/01"));
  EXPECT_EQ(last.DayAt(5, 6).Text(), "9377/12/30");
  EXPECT_EQ(last.PlusMonths(1).Month(), 12);
  const MonthPage first(Date("0001/01/09"));
  EXPECT_EQ(first.DayAt(0, 0).Text(), "0001/01/01");
  EXPECT_EQ(first.PlusMonths(-1).Year(), 1);
}

}  // namespace
