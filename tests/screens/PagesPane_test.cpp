#include "screens/PagesPane.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "screens/PaneTrial.h"
#include "support/ErrorNumber.h"

namespace screens {
namespace {

using controls::PageView;
using testing::ElementsAre;

constexpr int kMany = 50'000;

/// Sheets of 300 x 400 points, 400 x 533 pixels, in a view that is 600 x 500 pixels large.
class PagesPaneTest : public testing::Test {
 protected:
  PagesPaneTest() {
    view.SetSheetSize(300, 400);
    view.SetCount(kMany);
    view.sheetOf = [this](int sheet) -> std::optional<controls::Sheet> {
      asked.push_back(sheet);
      if (sheet == broken) throw platform::RuntimeError(57, "broken");
      if (busy) return std::nullopt;
      return controls::Sheet{
          300, 400, {}, {{"sheet " + std::to_string(sheet), {30, 30, 270, 45}, {}}}};
    };
    view.SetZoom(1);
    trial.pane.Resized({600, 500});
    Idle();
    asked.clear();
  }
  /// Lets the timer tick until it is stopped.
  void Idle() {
    for (int tick = 0; trial.host.timer != 0 && tick < 99; ++tick) trial.pane.Tick();
  }
  bool Shows(const std::string& text) { return trial.Painted({600, 500}).Shows(text); }

  support::Events events;
  support::FakeScreen screen{events};
  TrialForm form{screen};
  PageView view{form, "view"};
  std::vector<int> asked;
  int broken = -1;
  bool busy = false;
  PaneTrial<PagesPane> trial{view};
};

TEST_F(PagesPaneTest, Scrolling_AsksForNoMoreThanIsSeenAndWhatIsBesideIt) {
  trial.pane.Scrolled(Axis::kDown, 30'000 * 547);
  EXPECT_EQ(view.Current(), 30'000);
  EXPECT_THAT(asked, ElementsAre(30'000)) << "at once";
  EXPECT_TRUE(Shows("sheet 30000"));
  Idle();
  EXPECT_THAT(asked, ElementsAre(30'000, 30'001, 29'999));
  const ScrollRange& down = trial.host.down;
  EXPECT_EQ(down.count, 14 + kMany * 547);
  trial.pane.Scrolled(Axis::kDown, down.count);
  EXPECT_EQ(down.place, down.count - 500);
  EXPECT_EQ(view.Current(), kMany - 1);
  EXPECT_FALSE(Shows("sheet 0"));
}

TEST_F(PagesPaneTest, Keys_ScrollAndTurn) {
  const struct {
    Key key;
    Modifiers held;
    int above;
    int current;
  } kStrokes[] = {{Key::kDown, {}, 48, 0},
                  {Key::kPageDown, {}, 516, 1},
                  {Key::kSpace, {}, 984, 2},
                  {Key::kUp, {}, 936, 2},
                  {Key::kSpace, {.shift = true}, 468, 1},
                  {Key::kHome, {}, 0, 0},
                  {Key::kUp, {}, 0, 0},
                  {Key::kEnd, {}, (kMany - 1) * 547, kMany - 1},
                  {Key::kPageUp, {}, (kMany - 1) * 547 - 468, kMany - 2}};
  for (const auto& stroke : kStrokes) {
    EXPECT_TRUE(trial.Strike(stroke.key, stroke.held));
    EXPECT_EQ(trial.host.down.place, stroke.above) << static_cast<int>(stroke.key);
    EXPECT_EQ(view.Current(), stroke.current) << static_cast<int>(stroke.key);
  }
  EXPECT_FALSE(trial.Strike(Key::kEscape)) << "the form's";
  int last = 0;
  view.onGoLast = [&] { ++last; };
  trial.Strike(Key::kEnd, {.control = true});
  EXPECT_EQ(last, 1);
  trial.pane.Wheel({.up = -1});
  EXPECT_EQ(trial.host.down.place, (kMany - 1) * 547 - 468 + 96);
}

TEST_F(PagesPaneTest, Zoom_KeepsWhatStandsAtTheTop) {
  view.GoTo(1000);
  trial.Strike(Key::kDown);
  const double before = trial.host.down.place / 547.0;
  for (const double up : {2.0, -1.0, -6.0, 5.0}) {
    trial.pane.Wheel({.up = up, .modifiers = {.control = true}});
    const Rect place = trial.pane.SheetPlace(0);
    EXPECT_NEAR(trial.host.down.place, before * (place.Height() + 14), before / 2) << up;
    EXPECT_EQ(view.Current(), 1000);
  }
  EXPECT_NEAR(view.Zoom(), 1, 1e-9);
  view.SetFit(PageView::Fit::kSheet);
  EXPECT_EQ(trial.pane.SheetPlace(1000), (Rect{123, 14, 477, 486}));
  view.SetFit(PageView::Fit::kWidth);
  trial.pane.Resized({700, 500});
  EXPECT_EQ(trial.pane.SheetPlace(0).Width(), 672);
  view.SetZoom(99);
  EXPECT_EQ(view.Zoom(), 5);
  EXPECT_EQ(view.GetFit(), PageView::Fit::kNone);
}

TEST_F(PagesPaneTest, Sheet_ThatCannotBeToldOrMade_LeavesEmptyPaper) {
  busy = true;
  view.GoTo(7);
  EXPECT_FALSE(Shows("sheet 7"));
  EXPECT_NE(trial.host.timer, 0) << "it is tried again";
  busy = false;
  Idle();
  EXPECT_TRUE(Shows("sheet 7"));

  broken = 20;
  EXPECT_EQ(support::NumberOf([&] { view.GoTo(20); }), 57);
  asked.clear();
  Idle();
  EXPECT_THAT(asked, testing::Not(testing::Contains(20))) << "it would fail without an end";
}

TEST_F(PagesPaneTest, Work_IsDoneByTheTimerAfterWhatIsSeen) {
  std::string done;
  view.SetWork([&] {
    done += std::to_string(asked.size());
    if (done.size() == 3) view.SetWork(nullptr);
  });
  view.GoTo(9);
  Idle();
  EXPECT_EQ(done, "333");
  EXPECT_EQ(trial.host.timer, 0);
  // Old sheets stay in sight until new ones are there.
  busy = true;
  view.SheetsChanged();
  EXPECT_TRUE(Shows("sheet 9"));
  busy = false;
  asked.clear();
  Idle();
  EXPECT_THAT(asked, ElementsAre(9, 10, 8));
  trial.pane.Detach();
  trial.pane.Tick();
  EXPECT_EQ(trial.host.timer, 0);
}

TEST_F(PagesPaneTest, Reader_HearsTheTextsOfTheCurrentPage) {
  view.GoTo(3);
  ASSERT_EQ(trial.pane.PartCount(), 1);
  const Accessible part = trial.pane.DescribePart(0);
  EXPECT_EQ(part.name, "sheet 3");
  EXPECT_EQ(trial.pane.PartAt(part.place.Middle()), 0);
  EXPECT_EQ(trial.pane.PartAt({1, 1}), -1);
  EXPECT_THAT(trial.host.announced, testing::Contains(std::pair(Tidings::kContent, -1)));
}

}  // namespace
}  // namespace screens
