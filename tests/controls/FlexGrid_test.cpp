#include "controls/FlexGrid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "controls/GridTrial.h"

namespace {

using controls::Aspect;
using controls::Colour;
using controls::FlexGrid;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(FlexGridModel, randomCalls_besidePlainGrid_sameToEveryReaderAndView) {
  for (unsigned seed = 1; seed <= 12; ++seed) {
    std::mt19937 random(seed);
    gridtrial::Trial trial(
        [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); });
    for (int step = 0; step < 3000; ++step) {
      ASSERT_NO_THROW(trial.Step()) << "seed " << seed << ", step " << step;
    }
  }
}

// What the random calls do not show: words of errors, memory, what a view hears one by one, keys.
class FlexGridTest : public testing::Test {
 protected:
  // Row, Col, RowSel, ColSel.
  std::vector<int> Block() const { return {grid.Row(), grid.Col(), grid.RowSel(), grid.ColSel()}; }
  void SetBlock(int row, int col, int rowSel, int colSel) {
    grid.SetRow(row);
    grid.SetCol(col);
    grid.SetRowSel(rowSel);
    grid.SetColSel(colSel);
  }
  // As the forms do it.
  void PaintRow(int row, Colour colour) {
    grid.SetFillStyle(FlexGrid::FillStyle::kRepeat);
    grid.SetRow(row);
    grid.SetCol(grid.FixedCols());
    grid.SetColSel(grid.Cols() - 1);
    grid.SetCellBackColor(colour);
  }
  void Fill(const std::vector<std::string>& rows) {
    grid.SetRows(1);
    for (const std::string& row : rows) grid.AddItem(row);
  }
  // What a view has heard since the last call.
  std::vector<std::string> Heard() { return std::exchange(heard_, {}); }

  LoneContainer container;
  FlexGrid grid{container, "flx"};

 private:
  std::vector<std::string> heard_;
  controls::Subscription subscription_ = grid.Subscribe([this](const controls::Change& change) {
    const auto span = std::to_string(change.firstRow) + "-" + std::to_string(change.lastRow);
    const std::map<Aspect, std::string> words = {{Aspect::kEnabled, "enabled"},
                                                 {Aspect::kColumns, "columns"},
                                                 {Aspect::kRows, "rows"},
                                                 {Aspect::kCells, "cells " + span},
                                                 {Aspect::kSelection, "selection"}};
    heard_.push_back(words.at(change.aspect));
  });
};

TEST_F(FlexGridTest, refusedCall_thatTheTrialDoesNotMake_changesNothing) {
  Fill({"1\tعلی", "2\tرضا"});
  // Says only how long it is: who refuses it for that reads nothing of it.
  const std::string_view tooLong{"x", 0xFFFFFFFFU};
  const std::vector<std::pair<std::string, std::function<void()>>> refused = {
      {"30010 Invalid Col value", [&] { grid.SetStretchCol(2); }},
      {"380 Invalid property value", [&] { grid.SetCols(32768); }},
      {"7 Out of memory", [&] { grid.SetRows(2147483647); }},
      {"7 Out of memory", [&] { grid.SetTextMatrix(1, 1, tooLong); }},
      {"7 Out of memory", [&] { grid.AddItem(tooLong); }},
  };
  Heard();
  for (const auto& [expected, act] : refused) {
    try {
      act();
      ADD_FAILURE() << expected << " was not thrown";
    } catch (const platform::RuntimeError& error) {
      EXPECT_EQ(std::to_string(error.Number()) + " " + error.Description(), expected);
    }
  }
  EXPECT_THAT(Heard(), IsEmpty());
}

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
  const std::size_t before = grid.MemoryBytes();
  for (const Colour colour : {controls::palette::kMark, grid.BackColor()}) {
    for (int row = 1; row < grid.Rows(); ++row) PaintRow(row, colour);
    EXPECT_EQ(grid.MemoryBytes(), before);
    EXPECT_EQ(grid.CellBackColor(), colour);
    EXPECT_EQ(grid.EffectiveBackColor(3, 1), colour);
    EXPECT_EQ(grid.EffectiveBackColor(2, 1) == controls::palette::kGridBand,
              colour == grid.BackColor());
  }
}

TEST_F(FlexGridTest, notify_redrawOff_onceForEachKindWhenSwitchedOn) {
  Fill({"1\ta", "2\tb", "3\tc", "4\td"});
  grid.SetStretchCol(1);
  const auto heard = [this](int rows) {
    Heard();
    grid.SetRedraw(false);
    PaintRow(1, 5);
    grid.SetTextMatrix(1, 1, "y");
    grid.SetRows(rows);
    grid.SetColWidth(1, 0);
    grid.SetColAlignment(1, FlexGrid::Alignment::kLeftCentre);
    grid.SetBackColor(7);
    grid.SetHighLight(FlexGrid::HighLight::kNever);
    grid.Sort(7);
    grid.SetRow(rows - 1);
    grid.SetRedraw(true);
    return Heard();
  };
  EXPECT_THAT(heard(2), ElementsAre("columns", "rows", "selection"));
  EXPECT_THAT(heard(2), IsEmpty());
  EXPECT_EQ(grid.ColAlignment(1), FlexGrid::Alignment::kLeftCentre);
  grid.SetCols(1);
  EXPECT_EQ(grid.StretchCol(), -1);  // its column is gone
}

TEST_F(FlexGridTest, mouse_pressOnDataCell_currentBeforeTheHandlerHearsUnlessDisabled) {
  grid.SetRows(5);
  grid.SetCols(4);
  std::vector<std::vector<int>> events;  // button, shift, mouse and current row and column
  grid.onMouseDown = [&](int button, int shift) {
    events.push_back({button, shift, grid.MouseRow(), grid.MouseCol(), grid.Row(), grid.Col()});
  };
  grid.onClick = grid.onDblClick = [&] { events.emplace_back(); };
  EXPECT_EQ(grid.MouseRow(), -1);
  const auto use = [&] {
    grid.MouseDown(3, 2, 1, 0);
    grid.MouseDown(2, 0, 2, 4);    // row heading
    grid.MouseDown(99, 99, 1, 0);  // below and beyond
    grid.MouseDrag(4, 1);
    grid.Click();
    grid.DblClick();
    grid.DragColWidth(2, 20);
    grid.PressKey(FlexGrid::Key::kDown, false, 5);
  };
  use();
  EXPECT_THAT(events, ElementsAre(ElementsAre(1, 0, 3, 2, 3, 2), ElementsAre(2, 4, 2, 0, 3, 2),
                                  ElementsAre(1, 0, 5, 4, 3, 2), IsEmpty(), IsEmpty()));
  EXPECT_EQ(grid.ColWidth(2), 150);
  grid.SetColWidth(2, 500);
  grid.SetColWidth(1, 0);
  grid.DragColWidth(1, 700);  // hidden
  EXPECT_EQ(grid.ColWidth(1), 0);
  grid.SetEnabled(false);
  Heard();
  use();
  EXPECT_THAT(Heard(), IsEmpty());
  EXPECT_EQ(events.size(), 5U);
}

TEST_F(FlexGridTest, pressKey_eachKey_movesAmongVisibleDataCells) {
  using enum FlexGrid::Key;
  grid.SetRows(11);
  grid.SetCols(6);
  grid.SetColWidth(3, 0);
  grid.SetColWidth(5, 0);
  const struct {
    FlexGrid::Key key;
    int row, col, thenRow, thenCol;  // the last two: from a heading, from a hidden cell
  } cases[] = {{kUp, 4, 2, 3, 2},     {kUp, 1, 2, 1, 2},       {kDown, 4, 2, 5, 2},
               {kDown, 10, 2, 10, 2}, {kLeft, 4, 2, 4, 4},     {kLeft, 4, 4, 4, 4},
               {kRight, 4, 4, 4, 2},  {kRight, 4, 1, 4, 1},    {kPageUp, 4, 2, 1, 2},
               {kHome, 4, 2, 4, 1},   {kPageDown, 4, 2, 8, 2}, {kPageDown, 9, 2, 10, 2},
               {kEnd, 4, 2, 4, 4},    {kTop, 4, 2, 1, 2},      {kBottom, 4, 2, 10, 2},
               {kDown, 0, 0, 1, 1},   {kUp, 4, 5, 3, 4}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << static_cast<int>(c.key) << " at " << c.row << "," << c.col);
    SetBlock(c.row, c.col, 7, 1);
    grid.PressKey(c.key, false, 4);
    EXPECT_THAT(Block(), ElementsAre(c.thenRow, c.thenCol, c.thenRow, c.thenCol));
    SetBlock(2, 2, c.row, c.col);
    grid.PressKey(c.key, true, 4);
    EXPECT_THAT(Block(), ElementsAre(2, 2, c.thenRow, c.thenCol));
  }
  grid.SetRows(1);
  grid.PressKey(kDown, false, 4);
  EXPECT_EQ(grid.Row(), 0);
}

TEST_F(FlexGridTest, blockText_hiddenColumnAndBreaksInTexts_oneLineARow) {
  grid.SetCols(4);
  Fill({"1\ta\tb\tc", "2\td\te\tf"});
  grid.SetTextMatrix(1, 3, "نام\r\nو\tنشان\n");
  grid.SetColWidth(2, 0);
  SetBlock(2, 3, 1, 1);
  EXPECT_EQ(grid.BlockText(), "a\tنام و نشان \r\nd\tf");
  EXPECT_TRUE(grid.InBlock(1, 2) && !grid.InBlock(0, 2) && !grid.InBlock(1, 0));
  grid.SetRows(0);
  EXPECT_EQ(grid.BlockText(), "");
}

}  // namespace
