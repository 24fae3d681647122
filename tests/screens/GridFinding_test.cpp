#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "controls/FlexGridHarness.h"
#include "screens/GridPane.h"
#include "screens/PaneTrial.h"

namespace screens {
namespace {

using controls::FlexGrid;
using testing::Contains;
using testing::Pair;

constexpr Modifiers kControl{.control = true};
constexpr Modifiers kShift{.shift = true};

/// A list of numbers, names and towns, and a hidden column, in a pane of 400 x 200 pixels.
class GridFindingTest : public testing::Test {
 protected:
  GridFindingTest() {
    grid.SetCols(4);
    for (const auto& [col, width] : {std::pair{0, 600}, {1, 2400}, {2, 2400}, {3, 0}}) {
      grid.SetColWidth(col, width);
    }
    Fill({{"علي", "تهران"}, {"كريم ۲۱", "رشت"}, {"زهرا", "كرمان"}, {"رضا 21", "يزد"}});
    grid.SetAccessibleName("list");
    pane.FocusChanged(true);
    grid.SetRow(1);
    grid.SetCol(1);
  }

  void Fill(const std::vector<std::pair<std::string, std::string>>& rows) {
    grid.SetRedraw(false);
    grid.SetRows(1);
    for (const auto& [name, town] : rows) {
      grid.AddItem(std::to_string(grid.Rows()) + "\t" + name + "\t" + town + "\thidden");
    }
    grid.SetFixedRows(1);
    grid.SetRedraw(true);
  }
  bool Strike(Key key, Modifiers held = {}) { return trial.Strike(key, held); }
  void Type(const std::string& text) { trial.Retype(text); }
  void Seek(const std::string& text) {
    Strike(Key::kF, kControl);
    Type(text);
  }
  std::pair<int, int> Current() const { return {grid.Row(), grid.Col()}; }
  /// Of the line, while it is open.
  int FirstPart() const { return pane.PartCount() - FindLine::kParts; }
  Accessible Part(int inLine) const { return pane.DescribePart(FirstPart() + inLine); }
  std::string Found() const { return Part(FindLine::kFoundPart).name; }

  LoneContainer container;
  FlexGrid grid{container, "flx"};
  PaneTrial<GridPane> trial{grid, {400, 200}};
  ScriptedHost& host = trial.host;
  GridPane& pane = trial.pane;
};

TEST_F(GridFindingTest, Typing_JumpsFromTheCurrentRowOnAndRoundInAllColumnsThatAreShown) {
  Strike(Key::kF, kControl);
  EXPECT_FALSE(host.field.hidden);
  EXPECT_EQ(host.focusTaken, 1);
  Type("21");
  EXPECT_EQ(Current(), std::pair(2, 1)) << "digits of either kind";
  EXPECT_EQ(Found(), "1 از 2");
  for (const auto& [key, held, row] : {std::tuple{Key::kEnter, Modifiers{}, 4},
                                       {Key::kF3, {}, 2},
                                       {Key::kEnter, kShift, 4},
                                       {Key::kF3, kShift, 2}}) {
    EXPECT_TRUE(Strike(key, held));
    EXPECT_EQ(grid.Row(), row);
  }
  Type("کر");
  EXPECT_EQ(Current(), std::pair(2, 1)) << "the row it stands on holds it, with either kaf";
  Strike(Key::kEnter);
  EXPECT_EQ(Current(), std::pair(3, 2));
  EXPECT_EQ(Found(), "2 از 2");
  Strike(Key::kDown);
  EXPECT_EQ(Found(), "2 سطر") << "this one holds nothing";
  Type("hid");
  EXPECT_EQ(grid.Row(), 4) << "it stays";
  EXPECT_EQ(Found(), "يافت نشد");
  Strike(Key::kEnter);
  EXPECT_EQ(grid.Row(), 4);
  Type("");
  EXPECT_EQ(Found(), "");
  Type("زه");
  EXPECT_TRUE(Strike(Key::kEscape));
  EXPECT_TRUE(host.field.hidden);
  EXPECT_EQ(grid.Row(), 3) << "the list goes on from there";
  EXPECT_FALSE(Strike(Key::kEscape)) << "the form's";
}

TEST_F(GridFindingTest, KeysOfTheField_ChangeNothingInTheList) {
  Seek("21");
  for (const Key key : {Key::kZ, Key::kY, Key::kA, Key::kC}) EXPECT_FALSE(Strike(key, kControl));
  for (const Key key : {Key::kSpace, Key::kHome, Key::kLeft, Key::kTab}) EXPECT_FALSE(Strike(key));
  EXPECT_EQ(grid.Row(), 2);
  Strike(Key::kEscape);
  Strike(Key::kF, kControl);
  EXPECT_EQ(Found(), "1 از 2") << "what was sought before is there again";
  EXPECT_GT(host.field.selected, 0);
}

TEST_F(GridFindingTest, SortedFilledOrWritten_WhileItIsOpen_CountsAnew) {
  Seek("21");
  Strike(Key::kEnter);
  grid.SetCol(1);
  grid.Sort(8);  // كريم علي زهرا رضا, whichever way kaf sorts
  EXPECT_EQ(Found(), "2 از 2");
  EXPECT_EQ(Strike(Key::kEnter), true);
  EXPECT_EQ(Found(), "1 از 2");
  EXPECT_NE(std::string(grid.TextMatrix(grid.Row(), 1)).find("۲۱"), std::string::npos);
  grid.SetTextMatrix(3, 2, "21");
  EXPECT_EQ(Found(), "1 از 3");
  grid.SetTextMatrix(3, 2, "");
  EXPECT_EQ(Found(), "1 از 2");
  grid.SetColWidth(1, 0);
  EXPECT_EQ(Found(), "يافت نشد") << "nobody sees that column any more";
  grid.SetColWidth(1, 2400);
  Fill({{"x", "21"}, {"21", "y"}, {"z", "21"}});
  EXPECT_THAT(Found(), testing::HasSubstr("3"));
  grid.SetRows(1);
  EXPECT_EQ(Found(), "يافت نشد");
  Strike(Key::kEnter);
}

TEST_F(GridFindingTest, LongList_IsReadInSlicesAndJumpedInWhenItsTurnComes) {
  grid.SetRedraw(false);
  grid.SetRows(60001);
  grid.SetTextMatrix(59000, 1, "far");
  grid.SetTextMatrix(2, 1, "far");
  grid.SetRedraw(true);
  grid.SetRow(10);
  Seek("far");
  EXPECT_EQ(grid.Row(), 10);
  EXPECT_EQ(Found(), "…");
  int ticks = 0;
  for (; host.timer != 0 && ticks < 100; ++ticks) pane.Tick();
  EXPECT_GT(ticks, 1);
  EXPECT_EQ(grid.Row(), 59000) << "the first from the tenth row on";
  EXPECT_FALSE(pane.CellPlace(59000, 1).Empty());
  EXPECT_EQ(Found(), "2 از 2");
  Type("fa");
  Strike(Key::kEnter);
  EXPECT_EQ(grid.Row(), 2) << "without waiting";
  Type("far");
  ASSERT_NE(host.timer, 0);
  grid.SetRedraw(false);
  grid.SetRows(5);
  pane.Tick();  // while the list is loaded anew
  grid.SetRedraw(true);
  EXPECT_EQ(host.timer, 0);
}

TEST_F(GridFindingTest, Line_AboveTheRows_IsWorkedByAnUnquietHand) {
  const int before = pane.CellPlace(0, 1).top;
  Seek("21");
  EXPECT_GT(pane.CellPlace(0, 1).top, before + 15);
  const Point row = pane.CellPlace(3, 1).Middle();
  using enum PointerEvent::Action;
  trial.Click(row);
  EXPECT_EQ(grid.Row(), 3);
  EXPECT_EQ(Found(), "2 سطر");
  const auto button = [&](const char* name) {
    for (int part = 0; part < FindLine::kParts; ++part) {
      if (Part(part).name == name) return Part(part).place.Middle();
    }
    return Point{-1, -1};
  };
  const Point next = button("بعدي");
  trial.Mouse(kPress, next);
  trial.Mouse(kMove, {next.x + 5, next.y - 4});
  trial.Mouse(kRelease, {next.x + 5, next.y - 4});
  EXPECT_EQ(grid.Row(), 4);
  EXPECT_EQ(pane.TipAt(next).text, "بعدي (Enter)");
  trial.Click(button("قبلي"));
  EXPECT_EQ(grid.Row(), 2);
  trial.Mouse(kPress, next);
  trial.Mouse(kRelease, row);
  EXPECT_EQ(grid.Row(), 2) << "left again";
  trial.Click(button("بستن جستجو"));
  EXPECT_EQ(pane.CellPlace(0, 1).top, before);
  trial.Mouse(kPress, pane.CellPlace(0, 1).Middle());
  EXPECT_EQ(grid.MouseRow(), 0) << "the headings are back";
}

TEST_F(GridFindingTest, Parts_OfTheLine_FollowTheCellsAndAreToldAndWorked) {
  const int cells = 5 * 3;
  EXPECT_EQ(pane.PartCount(), cells);
  Strike(Key::kF, kControl);
  EXPECT_EQ(FirstPart(), cells);
  EXPECT_EQ(pane.FocusedPart(), FirstPart() + FindLine::kFieldPart);
  EXPECT_THAT(host.announced, Contains(Pair(Tidings::kFocus, pane.FocusedPart())));
  EXPECT_EQ(pane.DescribeField().name, "جستجو در list");
  EXPECT_EQ(pane.DescribeField().role, Role::kField);
  host.announced.clear();
  Type("21");
  EXPECT_THAT(host.announced, Contains(Pair(Tidings::kName, FirstPart())));
  EXPECT_EQ(pane.PartAt(Part(2).place.Middle()), FirstPart() + 2);
  EXPECT_EQ(Part(2).role, Role::kButton);
  pane.Act(FirstPart() + 2);
  EXPECT_EQ(grid.Row(), 4);
  pane.Act(FirstPart() + 3);
  EXPECT_EQ(pane.PartCount(), cells);
  EXPECT_EQ(pane.FocusedPart(), 4 * 3 + 1) << "the cell found";
}

TEST_F(GridFindingTest, ModelGone_WithTheLineOpen_IsHarmless) {
  Seek("21");
  pane.Detach();
  pane.Edited();
  pane.Tick();
  EXPECT_FALSE(Strike(Key::kEnter));
  pane.Pointer({.action = PointerEvent::Action::kPress, .place = {10, 10}});
  pane.Resized({300, 100});
  EXPECT_EQ(pane.PartCount(), 0);
}

}  // namespace
}  // namespace screens
