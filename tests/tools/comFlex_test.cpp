#include "tools/comFlex.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/Form.h"
#include "platform/ResumeNext.h"
#include "support/ScriptedPlatform.h"
#include "tools/BusyGrid.h"

namespace {

using controls::palette::kMark;
using support::Message;
using testing::ElementsAre;
using testing::IsEmpty;

// A selectable grid with one fixed column, two texts a row, and the events it raises.
class comFlexTest : public testing::Test {
 protected:
  comFlexTest() {
    list.Selected = [this](std::int32_t row) {
      const tools::Hourglass ofTheListener(module);
      raised.push_back("+" + std::to_string(row));
    };
    list.UnSelected = [this](std::int32_t row) { raised.push_back("-" + std::to_string(row)); };
    list.Flex.SetCols(3);
    Fill({});
  }

  void Fill(const std::vector<std::pair<std::string, std::string>>& rows) {
    controls::FlexGrid& grid = list.Flex;
    grid.SetRows(1);
    for (const auto& [first, second] : rows) grid.AddItem("\t" + first + "\t" + second);
    if (!rows.empty()) grid.SetFixedRows(1);
  }

  std::vector<std::string> Raised() { return std::exchange(raised, {}); }
  // The marked rows, read without IsSelected.
  std::vector<int> Yellow() {
    std::vector<int> rows;
    for (int row = 1; row < list.Flex.Rows(); ++row) {
      if (list.Flex.EffectiveBackColor(row, 1) == kMark) rows.push_back(row);
    }
    return rows;
  }

  std::vector<std::string> Column(int col) {
    std::vector<std::string> texts;
    for (int row = 1; row < list.Flex.Rows(); ++row) {
      texts.emplace_back(list.Flex.TextMatrix(row, col));
    }
    return texts;
  }

  void Press(int row, int col) { list.Flex.MouseDown(row, col, 2, 7); }
  void ClickAt(int row, int col) {
    Press(row, col);
    list.Flex.Click();
  }

  support::ScriptedPlatform outside;
  host::modMain module{outside.Services()};
  controls::Form form{outside.screen, "Form", controls::Form::Border::kSizable};
  tools::comFlex list{form, "flxList", module};
  std::vector<std::string> raised;
};

TEST_F(comFlexTest, Commands_onEveryRow_markAndRaiseForEachRowInOrder) {
  Fill({{"a", "1"}, {"b", "2"}, {"c", "3"}});
  for (const int row : {2, -1, 0, 4}) Press(row, 1);  // all but the first are off the data rows
  EXPECT_THAT(Raised(), ElementsAre("+2"));
  int painted = 0;
  const controls::Subscription subscription =
      list.Flex.Subscribe([&](const controls::Change& change) {
        if (change.aspect == controls::Aspect::kCells) ++painted;
      });
  outside.screen.log.clear();
  list.cmdSelectInverse.Click();
  EXPECT_THAT(outside.screen.log, ElementsAre("pointer 11", "pointer 0")) << "to the very end";
  EXPECT_THAT(Raised(), ElementsAre("+1", "-2", "+3"));
  EXPECT_THAT(Yellow(), ElementsAre(1, 3));
  EXPECT_EQ(painted, 1) << "the view is told once";
  list.cmdSelectAll.Click();
  EXPECT_THAT(Raised(), ElementsAre("+1", "+2", "+3"));
  EXPECT_THAT(Yellow(), ElementsAre(1, 2, 3));
  list.cmdSelectNone.Click();
  list.cmdSelectNone.Click();
  EXPECT_THAT(Raised(), ElementsAre("-1", "-2", "-3", "-1", "-2", "-3"));
  EXPECT_THAT(Yellow(), IsEmpty());
}

TEST_F(comFlexTest, SetMarks_ofSomeRows_marksThemInOneGoAndRaisesForEach) {
  Fill({{"a", "1"}, {"b", "2"}, {"c", "3"}});
  int painted = 0;
  const controls::Subscription subscription =
      list.Flex.Subscribe([&](const controls::Change& change) {
        if (change.aspect == controls::Aspect::kCells) ++painted;
      });
  list.SetMarks({1, 3}, true);
  EXPECT_THAT(Yellow(), ElementsAre(1, 3));
  EXPECT_EQ(painted, 1);
  list.SetMarks({2, 3}, false);
  EXPECT_THAT(Yellow(), ElementsAre(1));
  EXPECT_THAT(Raised(), ElementsAre("+1", "+3", "-2", "-3"));
}

TEST_F(comFlexTest, Undo_withASortInBetween_changesTheRowsOfEachGestureBackAndTellsOfEach) {
  Fill({{"c", "1"}, {"a", "2"}, {"b", "3"}});
  controls::FlexGrid::MarkSteps& steps = *list.Flex.markSteps;
  Press(1, 1);
  list.cmdSelectInverse.Click();
  ClickAt(0, 1);  // a b c
  EXPECT_THAT(Yellow(), ElementsAre(1, 2));
  Raised();
  EXPECT_EQ(steps.Undo(), std::pair(1, 3));
  EXPECT_THAT(Raised(), ElementsAre("-1", "-2", "+3"));
  EXPECT_EQ(steps.Undo(), std::pair(3, 3));
  EXPECT_THAT(Yellow(), IsEmpty());
  EXPECT_EQ(steps.Undo(), std::pair(0, -1)) << "there is no more";
  ClickAt(0, 1);  // c b a
  steps.Redo();
  EXPECT_THAT(Yellow(), ElementsAre(1));
  steps.Redo();
  EXPECT_THAT(Yellow(), ElementsAre(2, 3));
  steps.Undo();
  list.cmdSelectAll.Click();
  Raised();
  EXPECT_EQ(steps.Redo(), std::pair(0, -1)) << "another gesture came in between";
  steps.Undo();
  EXPECT_THAT(Raised(), ElementsAre("-2", "-3")) << "the first row was marked before";
}

TEST_F(comFlexTest, Undo_ofManyGestures_endsAtTheOldestOfFiftyOrWhereRowsBecameOthers) {
  Fill({{"a", "1"}, {"b", "2"}});
  controls::FlexGrid& grid = list.Flex;
  grid.markSteps->Begin();
  for (const int row : {1, 2}) Press(row, 1);
  grid.markSteps->End();
  grid.markSteps->Undo();
  EXPECT_THAT(Yellow(), IsEmpty()) << "one gesture";
  for (int i = 0; i < 51; ++i) Press(1, 1);
  for (int i = 0; i < 60; ++i) grid.markSteps->Undo();
  EXPECT_THAT(Yellow(), ElementsAre(1)) << "the first of them is forgotten";

  const std::function<void()> changes[] = {[&] { grid.AddItem("\tc\t3"); },
                                           [&] { grid.RemoveItem(2); }, [&] { grid.SetCols(4); },
                                           [&] {
                                             Fill({{"a", "1"}, {"b", "2"}});
                                           },
                                           [&] {
                                             grid.Bind(platform::RowSet({"x", "y"}));
                                           }};
  for (const auto& change : changes) {
    list.cmdSelectAll.Click();
    list.cmdSelectNone.Click();
    change();
    Raised();
    grid.markSteps->Undo();
    grid.markSteps->Redo();
    EXPECT_THAT(Raised(), IsEmpty());
  }
}

TEST_F(comFlexTest, Undo_whereAListenerFails_goesOnWithTheSameGesture) {
  Fill({{"a", "1"}, {"b", "2"}, {"c", "3"}});
  const auto fails = [](std::int32_t row) {
    if (row == 2) throw platform::RuntimeError(5, "away");
  };
  list.Selected = fails;
  EXPECT_EQ(platform::ResumeNext([&] { list.cmdSelectAll.Click(); }), 5);
  EXPECT_THAT(Yellow(), ElementsAre(1, 2));
  list.UnSelected = fails;
  EXPECT_EQ(platform::ResumeNext([&] { list.Flex.markSteps->Undo(); }), 5);
  list.UnSelected = nullptr;
  list.SetMarks({3}, true);
  list.Flex.markSteps->Undo();
  EXPECT_THAT(Yellow(), IsEmpty());
  EXPECT_TRUE(list.Flex.Redraw());
}

TEST_F(comFlexTest, IsSelected_yellowFromUserOrHost_isTrueAndTheRowBecomesCurrent) {
  Fill({{"a", "1"}, {"b", "2"}});
  controls::FlexGrid& grid = list.Flex;
  Press(2, 2);
  for (int col = 0; col < 3; ++col) EXPECT_EQ(grid.EffectiveBackColor(2, col) == kMark, col > 0);
  EXPECT_EQ(grid.GetHighLight(), controls::FlexGrid::HighLight::kNever);
  Press(2, 1);
  EXPECT_FALSE(list.IsSelected(2));
  EXPECT_EQ(grid.CellBackColor(), grid.BackColor());
  grid.SetCellBackColor(65535);
  for (const int row : {1, 2}) {
    EXPECT_EQ(list.IsSelected(row), row == 2);
    EXPECT_EQ(std::pair(grid.Row(), grid.Col()), std::pair(row, 1));
  }
  EXPECT_EQ(platform::ResumeNext([&] { list.IsSelected(3); }), platform::kInvalidRowValue);
}

TEST_F(comFlexTest, HeaderClicks_anyColumn_flipOneSharedDirection) {
  ClickAt(0, 1);  // on the headings alone: does not count
  Fill({{"b", "1"}, {"a", "3"}, {"a", "2"}});
  for (const auto& [row, col] : {std::pair{1, 1}, {4, 1}, {0, -1}, {0, 3}}) ClickAt(row, col);
  EXPECT_THAT(Column(2), ElementsAre("1", "3", "2")) << "none of these is on the headings";
  ClickAt(0, 1);
  EXPECT_THAT(Column(2), ElementsAre("2", "3", "1")) << "equal texts go by the columns behind";
  EXPECT_THAT(Yellow(), ElementsAre(3)) << "the mark went with its row";
  ClickAt(0, 2);
  EXPECT_THAT(Column(2), ElementsAre("3", "2", "1"));
}

TEST_F(comFlexTest, Resize_anySize_packsTheButtonsAtTheRightBottom) {
  const double height = list.cmdSelectAll.Height();
  list.Move(50, 60, 5000, 3000);
  EXPECT_EQ(std::pair(list.Flex.Width(), list.Flex.Height()), std::pair(5000.0, 3000 - height));
  double right = 5000;
  for (const controls::Button* button :
       {&list.cmdSelectAll, &list.cmdSelectNone, &list.cmdSelectInverse, &list.cmdExcel}) {
    EXPECT_EQ(button->Left() + button->Width(), right) << button->Name();
    EXPECT_EQ(button->Top() + button->Height(), 3000) << button->Name();
    right = button->Left();
  }
  list.SetHeight(height / 2);  // lower than the buttons
  EXPECT_EQ(list.Flex.Height(), 0);
}

TEST_F(comFlexTest, Excel_wholeGrid_isWrittenRowByRowAndAnnounced) {
  Fill({{"a", "1"}, {"b", "2"}});
  list.Flex.SetTextMatrix(0, 1, "نام");
  list.Flex.SetTextMatrix(2, 0, "#");
  list.cmdExcel.Click();
  std::string written;
  for (const auto& [at, text] : outside.excel.written) {
    written += std::to_string(at.first) + std::to_string(at.second) + text + " ";
  }
  EXPECT_EQ(written, "11 12نام 13 21 22a 231 31# 32b 332 ");
  EXPECT_TRUE(outside.excel.visible);
  EXPECT_EQ(outside.excel.finished, 1);
  EXPECT_THAT(outside.progress.advanced, ElementsAre(1U, 2U, 3U));
  EXPECT_EQ(outside.progress.ended, 1);
  EXPECT_THAT(outside.components.messages,
              ElementsAre(Message{"موفقيت", "انتقال به اكسل با موفقيت انجام شد"}));
}

TEST_F(comFlexTest, Excel_stoppedOrFailingAtTheEnd_keepsWhatIsWrittenAndSaysWhy) {
  Fill({{"a", "1"}, {"b", "2"}});
  outside.progress.stopAt = 2;
  list.cmdExcel.Click();
  EXPECT_EQ(outside.excel.written.size(), 6U);
  outside.progress.stopAt.reset();
  outside.excel.beforeCall = [&](std::string_view call) {
    if (call == "Finish") throw platform::RuntimeError(1004, "جا نيست");
  };
  list.cmdExcel.Click();
  EXPECT_EQ(outside.excel.written.size(), 6U + 9U);
  EXPECT_EQ(outside.excel.finished, 0);
  EXPECT_EQ(outside.progress.ended, 2);
  EXPECT_THAT(outside.components.messages,
              ElementsAre(Message{"اشکال در انتقال به اکسل", "انتقال به اكسل توسط كاربر متوقف شد."},
                          Message{"اشکال در انتقال به اکسل", "جا نيست"}));
}

}  // namespace
