#include "controls/DateBox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/FlexGridHarness.h"

namespace {

using calendar::SolarHijriDate;
using controls::DateBox;
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

TEST_F(DateBoxTest, SetText_TakesOnlyADayAndRaisesOnlyForAnother) {
  box.StepDays(1);  // from no date to no date
  box.SetText("");
  EXPECT_EQ(changes, 0);
  box.SetText("1403/12/30");
  box.SetText("1403/12/30");
  for (const std::string_view refused : {"1404/12/30", "1403/1/1", " "}) {
    EXPECT_EQ(ErrorOf([&] { box.SetText(refused); }), 380) << refused;
  }
  EXPECT_EQ(box.Text(), "1403/12/30");
  EXPECT_EQ(changes, 1);
  box.StepDays(1);
  EXPECT_EQ(box.Value(), Date("1404/01/01").Days());
  box.SetText("");
  EXPECT_TRUE(box.IsEmpty());
  EXPECT_EQ(box.Text() + std::string(box.WeekdayName()), "");
  EXPECT_EQ(changes, 3);
}

TEST_F(DateBoxTest, StepBeyondTheCalendar_IsRefusedAndKeepsTheDate) {
  box.SetText("9377/12/30");
  EXPECT_EQ(ErrorOf([&] { box.StepDays(1); }), 380);
  EXPECT_EQ(ErrorOf([&] { box.SetValue(std::chrono::sys_days(-std::chrono::days(800'000))); }),
            380);
  box.PressKey(DateBox::Key::kUp, {});
  box.PressKey(DateBox::Key::kPageUp, {});
  EXPECT_EQ(box.Text(), "9377/12/30");
}

TEST_F(DateBoxTest, TypedText_IsADateOrExplainedAndTheDateKept) {
  EXPECT_EQ(box.EnterTyped("۱۴۰۴/۲/۱۵"), "");
  for (const std::string typed : {"1403/13/40", "1404/12/30", "فردا"}) {
    EXPECT_THAT(box.EnterTyped(" " + typed),
                AllOf(HasSubstr("”" + typed + "“ درست نيست"), HasSubstr("سال/ماه/روز")));
    EXPECT_EQ(box.Text(), "1404/02/15") << typed;
  }
  EXPECT_EQ(box.EnterTyped("  "), "");
  EXPECT_TRUE(box.IsEmpty());
  EXPECT_EQ(changes, 2);
}

TEST_F(DateBoxTest, Keys_StepDaysAndMonthsUnlessDisabled) {
  using enum DateBox::Key;
  const auto pressed = [this](DateBox::Key key) {
    box.PressKey(key, Date("1404/06/31").Days());
    return box.Text();
  };
  EXPECT_EQ(pressed(kDown), "1404/06/31");  // an empty box starts at today
  EXPECT_EQ(pressed(kUp), "1404/07/01");
  EXPECT_EQ(pressed(kDown), "1404/06/31");
  EXPECT_EQ(pressed(kPageUp), "1404/07/30");
  EXPECT_EQ(pressed(kPageDown), "1404/06/30");
  box.SetEnabled(false);
  EXPECT_EQ(pressed(kUp), "1404/06/30");
  box.EnterTyped("1404/02/16");
  EXPECT_EQ(box.Text(), "1404/06/30");
  box.StepDays(1);  // by code
  EXPECT_EQ(box.Text(), "1404/06/31");
}

}  // namespace
