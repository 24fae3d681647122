#include "controls/FlexGrid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <compare>
#include <functional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "controls/FlexGridHarness.h"
#include "platform/RuntimeError.h"
#include "text/PersianOrder.h"

namespace {

using controls::Aspect;
using controls::Colour;
using controls::FlexGrid;
using testing::ElementsAre;

// A view that only says how long it is: whoever refuses it for that reads nothing of it.
std::string_view ViewOfLength(std::size_t length) {
  return {"x", length};
}

class FlexGridTest : public testing::Test {
 protected:
  // Row, Col, RowSel, ColSel.
  std::vector<int> Block() const { return {grid.Row(), grid.Col(), grid.RowSel(), grid.ColSel()}; }
  std::vector<std::string> Column(int col) const {
    std::vector<std::string> texts;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
      texts.emplace_back(grid.TextMatrix(row, col));
    }
    return texts;
  }
  void SetBlock(int row, int col, int rowSel, int colSel) {
    grid.SetRow(row);
    grid.SetCol(col);
    grid.SetRowSel(rowSel);
    grid.SetColSel(colSel);
  }
  // As the forms do it.
  void PaintRow(int row, Colour colour) {
    grid.SetHighLight(FlexGrid::HighLight::kNever);
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

  LoneContainer container;
  FlexGrid grid{container, "flx"};
};

TEST_F(FlexGridTest, stretchCol_keepsTheSetWidthAndGoesWithItsColumn) {
  grid.SetCols(4);
  grid.SetColWidth(3, 500);
  grid.SetStretchCol(3);
  EXPECT_EQ(grid.ColWidth(3), 500);
  EXPECT_THROW(grid.SetStretchCol(4), platform::RuntimeError);
  EXPECT_EQ(grid.StretchCol(), 3);
  grid.SetCols(3);
  EXPECT_EQ(grid.StretchCol(), -1);
}

TEST_F(FlexGridTest, new_twoByTwoWithHeadings_firstDataCellCurrent) {
  EXPECT_EQ(grid.Rows(), 2);
  EXPECT_EQ(grid.Cols(), 2);
  EXPECT_EQ(grid.FixedRows(), 1);
  EXPECT_EQ(grid.FixedCols(), 1);
  EXPECT_THAT(Block(), ElementsAre(1, 1, 1, 1));
  EXPECT_EQ(grid.ColWidth(1), FlexGrid::kDefaultColWidth);
  EXPECT_EQ(grid.MouseRow(), -1);
}

TEST_F(FlexGridTest, fixedRows_rowsTakenAndGivenBack_followsOnlyDownwards) {
  grid.SetRows(1);  // the heading alone
  EXPECT_EQ(grid.FixedRows(), 1);
  grid.SetRows(0);
  EXPECT_EQ(grid.FixedRows(), 0);
  EXPECT_EQ(grid.Row(), 0);
  EXPECT_EQ(ErrorOf([&] { grid.SetRow(0); }), 30009);
  grid.SetCellBackColor(5);  // no cell to colour
  EXPECT_EQ(grid.CellBackColor(), 0U);
  grid.SetRows(1);
  EXPECT_EQ(grid.FixedRows(), 0);
  EXPECT_EQ(ErrorOf([&] { grid.SetFixedRows(1); }), 30016);
  grid.SetRows(2);
  grid.SetFixedRows(1);
  EXPECT_EQ(grid.FixedRows(), 1);
}

TEST_F(FlexGridTest, block_setRowAndCol_collapsesToThem) {
  grid.SetRows(6);
  grid.SetCols(5);
  SetBlock(2, 1, 4, 3);
  EXPECT_THAT(Block(), ElementsAre(2, 1, 4, 3));
  grid.SetRow(3);
  EXPECT_THAT(Block(), ElementsAre(3, 1, 3, 1));
  SetBlock(2, 1, 4, 3);
  grid.SetCol(2);
  EXPECT_THAT(Block(), ElementsAre(2, 2, 2, 2));
  SetBlock(5, 4, 0, 0);  // headings may be in it, and the far corner before the current cell
  EXPECT_TRUE(grid.InBlock(3, 2));
  grid.SetRows(4);
  EXPECT_THAT(Block(), ElementsAre(3, 4, 0, 0));
}

TEST_F(FlexGridTest, refusedCall_anyKind_numberAndWordsAndNothingChanged) {
  Fill({"1\tعلی", "2\tرضا"});
  SetBlock(2, 1, 1, 0);
  const std::vector<std::pair<std::string, std::function<void()>>> refused = {
      {"30009 Invalid Row value", [&] { grid.SetRow(3); }},
      {"30009 Invalid Row value", [&] { grid.SetRowSel(-1); }},
      {"30010 Invalid Col value", [&] { grid.SetCol(2); }},
      {"30010 Invalid Col value", [&] { grid.SetColSel(-1); }},
      {"30010 Invalid Col value", [&] { grid.SetColWidth(2, 10); }},
      {"30010 Invalid Col value", [&] { (void)grid.ColWidth(-1); }},
      {"30010 Invalid Col value", [&] { (void)grid.ColAlignment(2); }},
      {"381 Subscript out of range", [&] { (void)grid.TextMatrix(3, 0); }},
      {"381 Subscript out of range", [&] { grid.SetTextMatrix(0, -1, "x"); }},
      {"30016 FixedRows must be at least one less than Rows value", [&] { grid.SetFixedRows(3); }},
      {"30017 FixedCols must be at least one less than Cols value", [&] { grid.SetFixedCols(2); }},
      {"30000 Cannot do a RemoveItem on a fixed row", [&] { grid.RemoveItem(0); }},
      {"30001 Cannot use AddItem on a fixed row", [&] { grid.AddItem("x", 0); }},
      {"30002 Grid does not contain that row", [&] { grid.RemoveItem(3); }},
      {"30002 Grid does not contain that row", [&] { grid.AddItem("x", 4); }},
      {"380 Invalid property value", [&] { grid.SetRows(-1); }},
      {"380 Invalid property value", [&] { grid.SetCols(32768); }},
      {"380 Invalid property value", [&] { grid.SetColWidth(0, -1); }},
      {"380 Invalid property value", [&] { grid.Sort(5); }},
      {"7 Out of memory", [&] { grid.SetRows(2147483647); }},
      {"7 Out of memory", [&] { grid.SetTextMatrix(1, 1, ViewOfLength(0xFFFFFFFFU)); }},
      {"7 Out of memory", [&] { grid.AddItem(ViewOfLength(0xFFFFFFFFU)); }},
  };
  const auto texts = TextsOf(grid);
  int notified = 0;
  const auto subscription = grid.Subscribe([&](const controls::Change&) { ++notified; });
  for (const auto& [expected, act] : refused) {
    try {
      act();
      ADD_FAILURE() << expected << " was not thrown";
    } catch (const platform::RuntimeError& error) {
      EXPECT_EQ(std::to_string(error.Number()) + " " + error.Description(), expected);
    }
    EXPECT_EQ(TextsOf(grid), texts) << expected;
    EXPECT_THAT(Block(), ElementsAre(2, 1, 1, 0)) << expected;
  }
  EXPECT_EQ(notified, 0);
}

TEST_F(FlexGridTest, removeItem_lastDataRow_refused) {
  EXPECT_EQ(ErrorOf([&] { grid.RemoveItem(1); }), 30015);
  EXPECT_EQ(grid.Rows(), 2);
}

TEST_F(FlexGridTest, addItem_moreAndFewerPartsThanColumns_fillsFromTheFirst) {
  grid.SetCols(3);
  Fill({"a\tb\tc\td", "e", "\t\tf"});
  grid.AddItem("g\t\t", 2);
  const std::vector<std::vector<std::string>> expected = {
      {"", "", ""}, {"a", "b", "c"}, {"g", "", ""}, {"e", "", ""}, {"", "", "f"}};
  EXPECT_EQ(TextsOf(grid), expected);
}

TEST_F(FlexGridTest, refill_manyTimes_holdsNoMoreMemoryThanOnce) {
  grid.SetCols(3);
  const auto fill = [&] {
    grid.SetRows(1);
    for (int row = 1; row <= 500; ++row) {
      grid.AddItem("");
      for (int col = 0; col < 3; ++col) grid.SetTextMatrix(row, col, "پخش نمونه تهران");
    }
  };
  fill();
  const std::size_t once = grid.MemoryBytes();
  for (int i = 0; i < 50; ++i) fill();
  EXPECT_LE(grid.MemoryBytes(), 2 * once);
  grid.SetRows(1);
  EXPECT_LE(grid.MemoryBytes(), 100U * 1024U);
}

TEST_F(FlexGridTest, setTextMatrix_writtenOverAgainAndAgain_reclaimsItsRoom) {
  for (int i = 0; i < 2000; ++i) {
    grid.SetTextMatrix(1, 0, std::string(1000 + static_cast<std::size_t>(i % 7), 'a'));
    grid.SetTextMatrix(1, 1, std::string(1000 + static_cast<std::size_t>(i % 5), 'b'));
  }
  EXPECT_EQ(grid.TextMatrix(1, 0), std::string(1000 + 1999 % 7, 'a'));
  EXPECT_EQ(grid.TextMatrix(1, 1), std::string(1000 + 1999 % 5, 'b'));
  EXPECT_LE(grid.MemoryBytes(), 200U * 1024U);
}

TEST_F(FlexGridTest, removeItem_mostRowsOneByOne_givesMemoryBack) {
  grid.SetCols(4);
  grid.SetRows(1);
  for (int i = 0; i < 2000; ++i) grid.AddItem(std::string(100, 'x'));
  const std::size_t full = grid.MemoryBytes();
  while (grid.Rows() > 3) grid.RemoveItem(1);
  EXPECT_LE(grid.MemoryBytes(), full / 3);
  EXPECT_THAT(Column(0), ElementsAre(std::string(100, 'x'), std::string(100, 'x')));
}

TEST_F(FlexGridTest, removeAndAdd_againAndAgain_newRowsEmptyWithoutColourInTheSameRoom) {
  grid.SetCols(4);
  Fill({"a", "b", "c"});
  for (int i = 0; i < 3000; ++i) {
    grid.AddItem("\t" + std::string(500, 'x'));
    // Two colours in one row, each time at other places.
    grid.SetRow(4);
    for (int col = 0; col < 4; ++col) ASSERT_EQ(grid.EffectiveBackColor(4, col), grid.BandColor());
    grid.SetCol(i % 2);
    grid.SetCellBackColor(3);
    grid.SetCol(i % 2 + 2);
    grid.SetCellBackColor(4);
    ASSERT_EQ(grid.EffectiveBackColor(4, i % 2), 3U);
    ASSERT_EQ(grid.EffectiveBackColor(4, 1 - i % 2), grid.BandColor());
    ASSERT_EQ(grid.EffectiveBackColor(4, 3 - i % 2), grid.BandColor());
    grid.RemoveItem(4);
  }
  EXPECT_LE(grid.MemoryBytes(), 150U * 1024U);
}

TEST_F(FlexGridTest, cellBackColor_fillStyles_currentCellOrWholeBlock) {
  grid.SetRows(4);
  grid.SetCols(4);
  SetBlock(3, 2, 2, 1);
  grid.SetCellBackColor(controls::palette::kMark);
  EXPECT_EQ(grid.CellBackColor(), controls::palette::kMark);
  EXPECT_EQ(grid.EffectiveBackColor(2, 1), grid.BandColor());
  grid.SetFillStyle(FlexGrid::FillStyle::kRepeat);
  grid.SetCellBackColor(controls::palette::kMark);
  EXPECT_EQ(grid.EffectiveBackColor(2, 1), controls::palette::kMark);
  EXPECT_EQ(grid.EffectiveBackColor(2, 3), grid.BandColor());
  EXPECT_THAT(Block(), ElementsAre(3, 2, 2, 1));
}

TEST_F(FlexGridTest, effectiveBackColor_unmarkedWithTheGridsOwn_showsTheBandAgain) {
  grid.SetRows(5);
  PaintRow(2, controls::palette::kMark);
  PaintRow(2, grid.BackColor());
  EXPECT_EQ(grid.CellBackColor(), grid.BackColor());
  EXPECT_EQ(grid.EffectiveBackColor(1, 1), grid.BackColor());
  EXPECT_EQ(grid.EffectiveBackColor(2, 1), grid.BandColor());
  EXPECT_EQ(grid.EffectiveBackColor(4, 1), grid.BandColor());
  EXPECT_EQ(grid.EffectiveBackColor(0, 1), grid.BackColor());
}

TEST_F(FlexGridTest, marking_everyRow_costsNoMemory) {
  grid.SetCols(12);
  grid.SetRows(1001);
  const std::size_t before = grid.MemoryBytes();
  for (int row = 1; row < grid.Rows(); ++row) PaintRow(row, controls::palette::kMark);
  EXPECT_EQ(grid.MemoryBytes(), before);
}

TEST_F(FlexGridTest, sort_persianNames_rowsMoveWithColoursAndCurrentCellStays) {
  Fill({"1\tیزد", "2\tپارس", "3\tآمل", "4\tبابل", "5\tگرگان", "6\tكاشان"});
  PaintRow(1, controls::palette::kMark);
  SetBlock(2, 1, 2, 1);
  grid.Sort(7);
  EXPECT_THAT(Column(1), ElementsAre("آمل", "بابل", "پارس", "كاشان", "گرگان", "یزد"));
  EXPECT_THAT(Column(0), ElementsAre("3", "4", "2", "6", "5", "1"));
  EXPECT_THAT(Block(), ElementsAre(2, 1, 2, 1));
  EXPECT_EQ(grid.EffectiveBackColor(6, 1), controls::palette::kMark);
  EXPECT_EQ(grid.EffectiveBackColor(1, 1), grid.BackColor());
  grid.Sort(8);
  EXPECT_THAT(Column(0), ElementsAre("1", "5", "6", "2", "4", "3"));
}

TEST_F(FlexGridTest, sort_tiesInTheFirstColumn_laterColumnsDecideThenTheOldOrder) {
  grid.SetCols(4);
  Fill({"1\tb\tz\tq", "2\ta\tz\tr", "3\tb\ty\ts", "4\ta\tz\tt", "5\tb\ty\tu"});
  SetBlock(1, 1, 1, 2);
  grid.Sort(7);
  EXPECT_THAT(Column(0), ElementsAre("2", "4", "3", "5", "1"));
  SetBlock(1, 2, 1, 1);  // the same two columns
  grid.Sort(8);
  EXPECT_THAT(Column(0), ElementsAre("1", "3", "5", "2", "4"));
  SetBlock(1, 3, 1, 3);
  grid.Sort(8);
  EXPECT_THAT(Column(0), ElementsAre("5", "4", "3", "2", "1"));
}

TEST_F(FlexGridTest, sort_manyRowsWithLongBeginningsInCommon_orderOfAStableSort) {
  std::mt19937 random(1403);
  const std::vector<std::string> beginnings = {"", "شرکت پخش سراسری نمونه، شعبه ",
                                               "شرکت پخش سراسری ", "\xE6\xBC\xA2\xE6\xBC\xA2",
                                               "12345678"};
  const std::vector<std::string> ends = {
      "", "ی", "ي", "ک", "تهران", "تهرانپارس غربی", "\xE4\xB8\x80"};
  struct Line {
    std::string first, second, number;
  };
  std::vector<Line> lines;
  grid.SetCols(3);
  grid.SetRows(1);
  for (int i = 0; i < 3000; ++i) {
    const Line& line = lines.emplace_back(
        Line{beginnings[random() % beginnings.size()] + ends[random() % ends.size()],
             beginnings[random() % beginnings.size()] + ends[random() % ends.size()] +
                 ends[random() % ends.size()],
             std::to_string(i)});
    grid.AddItem(line.first + "\t" + line.second + "\t" + line.number);
  }
  SetBlock(1, 0, 1, 1);
  for (const int order : {7, 8, 8, 7}) {
    std::stable_sort(lines.begin(), lines.end(), [order](const Line& a, const Line& b) {
      auto result = text::ComparePersian(a.first, b.first);
      if (std::is_eq(result)) result = text::ComparePersian(a.second, b.second);
      return order == 7 ? std::is_lt(result) : std::is_gt(result);
    });
    grid.Sort(order);
    for (int i = 0; i < 3000; ++i) {
      ASSERT_EQ(grid.TextMatrix(i + 1, 2), lines[static_cast<std::size_t>(i)].number);
    }
  }
}

TEST_F(FlexGridTest, sort_headingsAlone_nothing) {
  grid.SetRows(1);
  grid.SetTextMatrix(0, 1, "نام");
  grid.Sort(7);
  EXPECT_EQ(grid.TextMatrix(0, 1), "نام");
}

TEST_F(FlexGridTest, bind_result_textsUnderTheirNamesWithoutColours) {
  platform::RowSet result({"ID", "Name"});
  result.Append("7");
  result.Append("علی");
  result.AppendNull();
  result.Append("رضا");
  grid.SetColWidth(1, 500);
  PaintRow(1, controls::palette::kMark);
  grid.Bind(std::move(result));
  const std::vector<std::vector<std::string>> expected = {
      {"", "ID", "Name"}, {"", "7", "علی"}, {"", "", "رضا"}};
  EXPECT_EQ(TextsOf(grid), expected);
  EXPECT_THAT(Block(), ElementsAre(1, 1, 1, 1));
  EXPECT_EQ(grid.CellBackColor(), 0U);
  EXPECT_EQ(grid.ColWidth(1), 500);
  EXPECT_EQ(grid.ColWidth(2), FlexGrid::kDefaultColWidth);
  grid.SetTextMatrix(2, 1, "8");
  EXPECT_EQ(grid.TextMatrix(2, 1), "8");
}

TEST_F(FlexGridTest, bind_resultThatReservedNoMore_textsStayWhereTheyAre) {
  platform::RowSet result({"Notes"});
  result.Append(std::string(3000, 'x'));
  const void* place = result.Text(0, 0).data();
  grid.SetFixedRows(0);  // a heading's text might make the arena grow
  grid.Bind(std::move(result));
  EXPECT_EQ(static_cast<const void*>(grid.TextMatrix(0, 1).data()), place);
}

TEST_F(FlexGridTest, bind_resultThatReservedTooMuch_givesItBack) {
  platform::RowSet result({"Notes"});
  for (int i = 0; i < 65537; ++i) result.Append("x");
  grid.Bind(std::move(result));
  EXPECT_LE(grid.MemoryBytes(), 65538U * (1 + 2 * 8 + 8 + 4) * 5 / 4);
}

TEST_F(FlexGridTest, bind_noRows_headingRowCurrent) {
  grid.Bind(platform::RowSet({"a", "b", "c"}));
  EXPECT_EQ(grid.Rows(), 1);
  EXPECT_EQ(grid.Cols(), 4);
  EXPECT_THAT(Block(), ElementsAre(0, 1, 0, 1));
  EXPECT_EQ(grid.TextMatrix(0, 3), "c");
}

// What a view hears, in words.
class Heard {
 public:
  explicit Heard(FlexGrid& grid)
      : subscription_(grid.Subscribe([this](const controls::Change& change) { Note(change); })) {}
  std::vector<std::string> Take() { return std::exchange(heard_, {}); }

 private:
  void Note(const controls::Change& change) {
    switch (change.aspect) {
      case Aspect::kCells:
        heard_.push_back("cells " + std::to_string(change.firstRow) + "-" +
                         std::to_string(change.lastRow));
        break;
      case Aspect::kRows:
        heard_.emplace_back("rows");
        break;
      case Aspect::kColumns:
        heard_.emplace_back("columns");
        break;
      case Aspect::kSelection:
        heard_.emplace_back("selection");
        break;
      default:
        heard_.emplace_back("other");
    }
  }
  std::vector<std::string> heard_;
  controls::Subscription subscription_;
};

TEST_F(FlexGridTest, notify_setToWhatItWas_silent) {
  Fill({"1\ta", "2\tb"});
  PaintRow(1, 5);
  Heard heard(grid);
  PaintRow(1, 5);
  grid.SetTextMatrix(1, 1, "a");
  grid.SetRows(3);
  grid.SetCols(2);
  grid.SetFixedCols(1);
  grid.SetColWidth(1, FlexGrid::kDefaultColWidth);
  grid.SetBackColor(grid.BackColor());
  grid.Sort(7);
  grid.SetRedraw(true);
  EXPECT_THAT(heard.Take(), ElementsAre());
}

TEST_F(FlexGridTest, notify_redrawOff_onceForEachKindWhenSwitchedOn) {
  Fill({"1\ta", "2\tb", "3\tc", "4\td"});
  Heard heard(grid);
  grid.SetRedraw(false);
  PaintRow(3, 5);
  grid.SetTextMatrix(2, 1, "x");
  grid.SetRow(4);
  EXPECT_THAT(heard.Take(), ElementsAre());
  grid.SetRedraw(true);
  EXPECT_THAT(heard.Take(), ElementsAre("cells 2-3", "selection"));
  grid.SetRedraw(true);
  EXPECT_THAT(heard.Take(), ElementsAre());

  grid.SetRedraw(false);
  grid.SetTextMatrix(4, 1, "y");
  grid.SetRows(2);
  grid.SetColWidth(1, 0);
  grid.SetRedraw(true);
  EXPECT_THAT(heard.Take(), ElementsAre("columns", "rows", "selection"));

  grid.SetRedraw(false);
  grid.SetCols(1);  // the texts of the other column are lost
  grid.SetCols(2);
  grid.SetRedraw(true);
  EXPECT_THAT(heard.Take(), testing::IsSupersetOf({"columns", "rows"}));
}

TEST_F(FlexGridTest, mouse_pressOnDataCell_currentBeforeTheHandlerHears) {
  grid.SetRows(5);
  grid.SetCols(4);
  std::vector<std::string> events;
  grid.onMouseDown = [&](int button, int shift) {
    events.push_back("down " + std::to_string(button) + " " + std::to_string(shift) + " at " +
                     std::to_string(grid.MouseRow()) + "," + std::to_string(grid.MouseCol()) +
                     " current " + std::to_string(grid.Row()) + "," + std::to_string(grid.Col()));
  };
  grid.onClick = [&] { events.emplace_back("click"); };
  grid.onDblClick = [&] { events.emplace_back("double click"); };
  grid.MouseDown(3, 2, 1, 0);
  grid.Click();
  grid.DblClick();
  grid.MouseDown(0, 1, 1, 0);    // heading
  grid.MouseDown(2, 0, 2, 4);    // row heading
  grid.MouseDown(99, 99, 1, 0);  // below and beyond
  EXPECT_THAT(events, ElementsAre("down 1 0 at 3,2 current 3,2", "click", "double click",
                                  "down 1 0 at 0,1 current 3,2", "down 2 4 at 2,0 current 3,2",
                                  "down 1 0 at 5,4 current 3,2"));
}

TEST_F(FlexGridTest, mouse_shiftAndDrag_moveTheFarCornerAmongDataCells) {
  grid.SetRows(5);
  grid.SetCols(4);
  grid.MouseDown(2, 2, 1, 0);
  grid.MouseDown(4, 3, 1, 1);
  EXPECT_THAT(Block(), ElementsAre(2, 2, 4, 3));
  grid.MouseDrag(0, 0);
  EXPECT_THAT(Block(), ElementsAre(2, 2, 1, 1));
  grid.MouseDrag(50, 50);
  EXPECT_THAT(Block(), ElementsAre(2, 2, 4, 3));
  grid.MouseDown(0, 3, 1, 0);
  grid.MouseDrag(3, 3);  // begun on a heading
  EXPECT_THAT(Block(), ElementsAre(2, 2, 4, 3));
  EXPECT_EQ(grid.MouseRow(), 3);

  grid.onMouseDown = [&](int, int) { grid.SetRows(1); };
  grid.MouseDown(3, 3, 1, 0);
  grid.MouseDrag(2, 2);  // the rows are gone
  EXPECT_EQ(grid.Row(), 0);
}

TEST_F(FlexGridTest, disabled_mouseAndKeys_nothing) {
  grid.SetRows(5);
  grid.SetEnabled(false);
  bool heard = false;
  grid.onMouseDown = [&](int, int) { heard = true; };
  grid.onClick = grid.onDblClick = [&] { heard = true; };
  grid.MouseDown(3, 1, 1, 0);
  grid.MouseDrag(4, 1);
  grid.Click();
  grid.DblClick();
  grid.PressKey(FlexGrid::Key::kDown, false, 5);
  grid.DragColWidth(1, 400);
  EXPECT_FALSE(heard);
  EXPECT_THAT(Block(), ElementsAre(1, 1, 1, 1));
  EXPECT_EQ(grid.MouseRow(), -1);
  EXPECT_EQ(grid.ColWidth(1), FlexGrid::kDefaultColWidth);
}

TEST_F(FlexGridTest, pressKey_eachKey_movesAmongVisibleDataCells) {
  using Key = FlexGrid::Key;
  grid.SetRows(11);
  grid.SetCols(6);
  grid.SetColWidth(3, 0);
  grid.SetColWidth(5, 0);
  struct Case {
    Key key;
    int row, col, thenRow, thenCol;
  };
  for (const Case& c : std::vector<Case>{{Key::kUp, 4, 2, 3, 2},
                                         {Key::kUp, 1, 2, 1, 2},
                                         {Key::kDown, 4, 2, 5, 2},
                                         {Key::kDown, 10, 2, 10, 2},
                                         {Key::kLeft, 4, 2, 4, 4},
                                         {Key::kLeft, 4, 4, 4, 4},
                                         {Key::kRight, 4, 4, 4, 2},
                                         {Key::kRight, 4, 1, 4, 1},
                                         {Key::kPageUp, 4, 2, 1, 2},
                                         {Key::kPageDown, 4, 2, 8, 2},
                                         {Key::kPageDown, 9, 2, 10, 2},
                                         {Key::kHome, 4, 2, 4, 1},
                                         {Key::kEnd, 4, 2, 4, 4},
                                         {Key::kTop, 4, 2, 1, 2},
                                         {Key::kBottom, 4, 2, 10, 2},
                                         {Key::kDown, 0, 0, 1, 1},   // from a heading
                                         {Key::kUp, 4, 5, 3, 4}}) {  // from a hidden cell
    SetBlock(c.row, c.col, 7, 1);
    grid.PressKey(c.key, false, 4);
    EXPECT_THAT(Block(), ElementsAre(c.thenRow, c.thenCol, c.thenRow, c.thenCol))
        << "key " << static_cast<int>(c.key) << " from " << c.row << "," << c.col;
    SetBlock(2, 2, c.row, c.col);
    grid.PressKey(c.key, true, 4);
    EXPECT_THAT(Block(), ElementsAre(2, 2, c.thenRow, c.thenCol));
  }
  grid.SetRows(1);
  grid.PressKey(Key::kDown, false, 4);
  EXPECT_EQ(grid.Row(), 0);
}

TEST_F(FlexGridTest, dragColWidth_tooNarrowOrHidden_leastWidthOrNothing) {
  grid.DragColWidth(1, 20);
  EXPECT_EQ(grid.ColWidth(1), 150);
  grid.DragColWidth(1, 1234.5);
  EXPECT_EQ(grid.ColWidth(1), 1234.5);
  grid.SetColWidth(1, 0);
  grid.DragColWidth(1, 700);
  EXPECT_EQ(grid.ColWidth(1), 0);
}

TEST_F(FlexGridTest, blockText_hiddenColumnAndBreaksInTexts_oneLineARow) {
  grid.SetCols(4);
  Fill({"1\ta\tb\tc", "2\td\te\tf"});
  grid.SetTextMatrix(1, 3, "نام\r\nو\tنشان\n");
  grid.SetColWidth(2, 0);
  SetBlock(2, 3, 1, 1);
  EXPECT_EQ(grid.BlockText(), "a\tنام و نشان \r\nd\tf");
  SetBlock(1, 1, 1, 1);
  EXPECT_EQ(grid.BlockText(), "a");
  grid.SetRows(0);
  EXPECT_EQ(grid.BlockText(), "");
}

}  // namespace
