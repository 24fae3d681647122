#include "tools/comFlex.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/Form.h"
#include "support/ScriptedPlatform.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What no form does with a list; the rest is in tests/module/sessions/lists.txt.
class comFlexTest : public testing::Test {
 protected:
  comFlexTest() {
    grid.SetCols(3);
    Fill();
  }
  void Fill() {
    grid.SetRows(1);
    for (const char* row : {"\ta\t1", "\tb\t2"}) grid.AddItem(row);
  }
  std::vector<int> Marked() {
    std::vector<int> rows;
    for (int row = 1; row < grid.Rows(); ++row) {
      if (list.IsSelected(row)) rows.push_back(row);
    }
    return rows;
  }
  void Press(int row) { grid.MouseDown(row, 1, 2, 7); }

  support::ScriptedPlatform outside;
  host::modMain module{outside.Services()};
  controls::Form form{outside.screen, "Form", controls::Form::Border::kSizable};
  tools::comFlex list{form, "flxList", module};
  controls::FlexGrid& grid = list.getFlex();
};

TEST_F(comFlexTest, Undo_ofManyGestures_endsAtTheOldestOfFiftyOrWhereRowsBecameOthers) {
  grid.markSteps->Begin();
  for (const int row : {1, 2}) Press(row);
  grid.markSteps->End();
  grid.markSteps->Undo();
  EXPECT_THAT(Marked(), IsEmpty()) << "one gesture";
  for (int i = 0; i < 51; ++i) Press(1);
  for (int i = 0; i < 60; ++i) grid.markSteps->Undo();
  EXPECT_THAT(Marked(), ElementsAre(1)) << "the first of them is forgotten";

  const std::function<void()> changes[] = {[&] { grid.AddItem("\tc\t3"); },
                                           [&] { grid.RemoveItem(2); }, [&] { grid.SetCols(4); },
                                           [&] { Fill(); },
                                           [&] {
                                             grid.Bind(platform::RowSet({"x", "y"}));
                                           }};
  for (const auto& change : changes) {
    list.cmdSelectAll.Click();
    list.cmdSelectNone.Click();
    change();
    EXPECT_EQ(grid.markSteps->Undo(), std::pair(0, -1));
    EXPECT_EQ(grid.markSteps->Redo(), std::pair(0, -1));
  }
}

TEST_F(comFlexTest, Mark_coversTheRowButItsFixedCells_andAHostMaySetItToo) {
  Press(2);
  for (int col = 0; col < 3; ++col) {
    EXPECT_EQ(grid.EffectiveBackColor(2, col) == controls::palette::kMark, col > 0);
  }
  grid.SetRow(1);
  grid.SetCol(1);
  grid.SetCellBackColor(65535);
  EXPECT_THAT(Marked(), ElementsAre(1, 2));
}

TEST_F(comFlexTest, Lists_lowerThanTheirButtons_haveNoRows) {
  list.Move(50, 60, 5000, list.cmdSelectAll.Height() / 2);
  EXPECT_EQ(grid.Height(), 0);
}

}  // namespace
