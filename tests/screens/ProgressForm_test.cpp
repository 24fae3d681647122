#include "screens/ProgressForm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/FakeScreen.h"

namespace screens {
namespace {

class ProgressFormTest : public testing::Test {
 protected:
  support::Events events;
  support::FakeScreen screen{events};
  std::chrono::milliseconds now{0};
  ProgressForm progress{screen, [this] { return now; }};
};

TEST_F(ProgressFormTest, LongWork_ShowsItsShareFromTimeToTime) {
  screen.pointer = controls::MousePointer::kHourglass;
  int breaths = 0;
  screen.onBreathe = [&] { ++breaths; };
  EXPECT_TRUE(progress.Advance(1)) << "nothing was begun";
  progress.Begin("انتقال به اكسل", 300);
  for (const int each : {0, 499}) {
    now = std::chrono::milliseconds(each);
    EXPECT_TRUE(progress.Advance(10));
  }
  EXPECT_FALSE(progress.Visible());
  const struct {
    int now;
    std::size_t done;
    const char* percent;
    int breaths;
  } kSteps[] = {
      {500, 20, "6%", 1}, {549, 30, "6%", 1}, {550, 150, "50%", 2}, {700, 999, "100%", 3}};
  for (const auto& step : kSteps) {
    now = std::chrono::milliseconds(step.now);
    EXPECT_TRUE(progress.Advance(step.done));
    EXPECT_EQ(progress.lblPercent.Caption(), step.percent) << step.now;
    EXPECT_EQ(breaths, step.breaths) << step.now;
  }
  EXPECT_DOUBLE_EQ(progress.bar.Share(), 1);
  EXPECT_EQ(progress.lblWhat.Caption(), "انتقال به اكسل");
  EXPECT_EQ(screen.pointer, controls::MousePointer::kDefault);
  progress.End();
  EXPECT_EQ(breaths, 4) << "what waited for other windows would reach them";
  EXPECT_EQ(screen.pointer, controls::MousePointer::kHourglass);
  EXPECT_THAT(screen.log, testing::ElementsAre("pointer 0", "show ProgressForm waiting",
                                               "hide ProgressForm", "pointer 11"));
}

TEST_F(ProgressFormTest, Stop_ByAnyWay_IsToldAtOnceAndGoesWithTheWork) {
  const std::function<void()> kWays[] = {[this] { progress.cmdStop.Click(); },
                                         [this] { progress.PressEscape(); },
                                         [this] { progress.CloseBox(); }};
  for (const auto& way : kWays) {
    progress.Begin("چاپ", 0);
    now += std::chrono::seconds(1);
    screen.onBreathe = way;
    EXPECT_FALSE(progress.Advance(5));
    EXPECT_LT(progress.bar.Share(), 0) << "nobody can tell";
    EXPECT_EQ(progress.lblPercent.Caption(), "");
    EXPECT_TRUE(progress.Visible());
    EXPECT_FALSE(progress.Advance(6)) << "also between two refreshes";
    screen.onBreathe = nullptr;
    progress.Begin("چاپ", 10);
    EXPECT_FALSE(progress.Visible());
    EXPECT_TRUE(progress.Advance(1));
  }
}

}  // namespace
}  // namespace screens
