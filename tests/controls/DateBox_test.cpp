#include "controls/DateBox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/FlexGridHarness.h"

namespace {

using calendar::SolarHijriDate;
using controls::DateBox;
using platform::ResumeNext;
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

TEST_F(DateBoxTest, SetText_TakesOnlyADayAndRaisesOnlyForAnother) {
  box.StepDays(1);  // from no date to no date
  for (const char* text : {"", "1403/12/30", "1403/12/30"}) box.SetText(text);
  try {
    box.SetText("1404/12/30");
    ADD_FAILURE();
  } catch (const platform::RuntimeError& error) {
    EXPECT_EQ(error.Number(), 380);
    EXPECT_THAT(error.Description(), HasSubstr("تاريخ ”1404/12/30“ درست نيست."));
  }
  EXPECT_EQ(box.Text(), "1403/12/30");
  EXPECT_EQ(changes, 1);
  box.StepDays(1);
  EXPECT_EQ(box.Value(), std::chrono::year(2025) / 3 / 21);
  box.SetText("");
  EXPECT_TRUE(box.IsEmpty());
  EXPECT_EQ(box.Text() + std::string(box.WeekdayName()), "");
  EXPECT_EQ(box.Value(), std::nullopt);
  EXPECT_EQ(changes, 3);
}

TEST_F(DateBoxTest, TypedText_IsADateOrExplainedAndTheDateKept) {
  EXPECT_EQ(box.EnterTyped("۱۴۰۴/۲/۱۵"), "");
  EXPECT_THAT(box.EnterTyped(" فردا"),
              AllOf(HasSubstr("”فردا“ درست نيست"), HasSubstr("سال/ماه/روز")));
  EXPECT_EQ(box.Text(), "1404/02/15");
  box.EnterTyped("14040215");
  EXPECT_EQ(changes, 1) << "the same day";
  box.EnterTyped("14040215", DateBox::Typing::kEnter);
  EXPECT_EQ(changes, 2) << "asked for again";
  EXPECT_EQ(box.EnterTyped("  ", DateBox::Typing::kEnter), "");
  EXPECT_TRUE(box.IsEmpty());
  EXPECT_EQ(changes, 3);
}

TEST_F(DateBoxTest, Keys_StepDaysAndMonthsUnlessDisabledOrAtTheEnd) {
  using enum DateBox::Key;
  const auto pressed = [this](DateBox::Key key) {
    box.PressKey(key, SolarHijriDate::FromText("1404/06/31")->Days());
    return box.Text();
  };
  EXPECT_EQ(pressed(kDown), "1404/06/31");  // an empty box starts at today
  EXPECT_EQ(pressed(kPageUp), "1404/07/30");
  EXPECT_EQ(pressed(kUp), "1404/08/01");
  EXPECT_EQ(pressed(kDown), "1404/07/30");
  EXPECT_EQ(pressed(kPageDown), "1404/06/30");
  box.SetEnabled(false);
  EXPECT_EQ(pressed(kUp), "1404/06/30");
  box.EnterTyped("1404/02/16");
  EXPECT_EQ(box.Text(), "1404/06/30");
  box.SetEnabled(true);
  box.SetText("9377/12/30");
  EXPECT_EQ(ResumeNext([&] { box.StepDays(1); }), 380);
  EXPECT_EQ(pressed(kUp), "9377/12/30");
  EXPECT_EQ(pressed(kPageUp), "9377/12/30");
}

}  // namespace
