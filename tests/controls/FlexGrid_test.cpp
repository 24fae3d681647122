#include "controls/FlexGrid.h"

#include <gtest/gtest.h>

#include <string>

#include "controls/GridTrial.h"

namespace {

using controls::Colour;
using controls::FlexGrid;

TEST(FlexGridModel, randomCalls_besidePlainGrid_sameToEveryReaderAndView) {
  for (unsigned seed = 1; seed <= 12; ++seed) {
    gridtrial::Trial trial(seed);
    for (int step = 0; step < 3000; ++step) {
      ASSERT_NO_THROW(trial.Step()) << "seed " << seed << ", step " << step;
    }
  }
}

/// What neither the random calls nor the session show: memory, and colours of many rows.
class FlexGridTest : public testing::Test {
 protected:
  support::LoneContainer container;
  FlexGrid grid{container, "flx"};
};

TEST_F(FlexGridTest, refillAndWriteOver_manyTimes_reclaimTheirRoom) {
  const std::string text(1000, 'x');
  for (int round = 0; round < 20; ++round) {
    grid.SetRows(1);
    for (int row = 1; row <= 200; ++row) {
      grid.AddItem(text);
      grid.SetTextMatrix(row, 0, text + std::to_string(round));
    }
  }
  EXPECT_LE(grid.MemoryBytes(), 600U * 1024U);
  while (grid.Rows() > 3) grid.RemoveItem(1);
  EXPECT_LE(grid.MemoryBytes(), 100U * 1024U);
  EXPECT_EQ(grid.TextMatrix(2, 0), text + "19");
}

TEST_F(FlexGridTest, marking_everyRowAndBack_costsNoMemoryAndGivesTheBandBack) {
  grid.SetRows(1001);
  grid.SetFillStyle(FlexGrid::FillStyle::kRepeat);
  const std::size_t before = grid.MemoryBytes();
  for (const Colour colour : {controls::palette::kMark, grid.BackColor()}) {
    for (int row = 1; row < grid.Rows(); ++row) {  // as the forms do it
      grid.SetRow(row);
      grid.SetCol(grid.FixedCols());
      grid.SetColSel(grid.Cols() - 1);
      grid.SetCellBackColor(colour);
    }
    EXPECT_EQ(grid.MemoryBytes(), before);
    EXPECT_EQ(grid.CellBackColor(), colour);
    EXPECT_EQ(grid.EffectiveBackColor(3, 1), colour);
    EXPECT_EQ(grid.EffectiveBackColor(2, 1) == controls::palette::kGridBand,
              colour == grid.BackColor());
  }
}

}  // namespace
