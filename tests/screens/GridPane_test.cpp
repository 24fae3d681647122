#include "screens/GridPane.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "controls/Controls.h"
#include "controls/FlexGridHarness.h"
#include "screens/Palette.h"
#include "screens/PaneTrial.h"

namespace screens {
namespace {

using controls::FlexGrid;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kRow = 19;

/// A list of 1000 rows in a pane of 400 x 200 pixels: nine whole rows below the heading. Column 0
/// is fixed, column 1 hidden, the others are 100 and 500 pixels wide.
class GridPaneTest : public testing::Test {
 protected:
  GridPaneTest() {
    grid.SetRows(1001);
    grid.SetCols(4);
    for (const auto& [col, width] : {std::pair{0, 600}, {1, 0}, {2, 1500}, {3, 7500}}) {
      grid.SetColWidth(col, width);
    }
    grid.onMouseDown = [this](int button, int shift) {
      Note("down " + std::to_string(button) + std::to_string(shift));
    };
    grid.onClick = [this] { Note("click"); };
    grid.onDblClick = [this] { Note("double"); };
    At(1, 2);
  }

  /// With the cell that the mouse is on.
  void Note(const std::string& what) {
    events.push_back(what + " " + Cell(grid.MouseRow(), grid.MouseCol()));
  }
  static std::string Cell(int row, int col) {
    return std::to_string(row) + "," + std::to_string(col);
  }
  void At(int row, int col) {
    grid.SetRow(row);
    grid.SetCol(col);
  }
  std::string Block() const {
    const std::string from = Cell(grid.Row(), grid.Col());
    const std::string to = Cell(grid.RowSel(), grid.ColSel());
    return from == to ? from : from + " to " + to;
  }
  Point Middle(int row, int col) const { return pane.CellPlace(row, col).Middle(); }
  void Mouse(char step, Point at) {
    using enum PointerEvent::Action;
    trial.Mouse(step == 'm' ? kMove : step == 'r' ? kRelease : kPress, at, step == 'd' ? 2 : 1);
  }
  bool Strike(Key key, Modifiers held = {}) { return trial.Strike(key, held); }
  void Type(const std::string& text) { pane.PressKey({Key::kText, {}, text}); }

  static constexpr Modifiers kShift{.shift = true};
  static constexpr Modifiers kControl{.control = true};
  LoneContainer container;
  FlexGrid grid{container, "flx"};
  controls::Button all{container, "all", ""};
  controls::Button inverse{container, "inverse", ""};
  controls::Button none{container, "none", ""};
  PaneTrial<GridPane> trial{grid, {400, 200}};
  ScriptedHost& host = trial.host;
  GridPane& pane = trial.pane;
  std::vector<std::string> events;
};

TEST_F(GridPaneTest, Heading_OfTwoLines_MakesItsRowHigherAndMovesTheOthers) {
  const Rect before = pane.CellPlace(2, 2);
  grid.SetTextMatrix(0, 2, "computer number");  // 15 letters in 92 pixels fit
  EXPECT_EQ(pane.CellPlace(2, 2), before);
  grid.SetTextMatrix(0, 2, "the computer number");
  EXPECT_EQ(pane.CellPlace(0, 2).Height(), kRow + 15);
  EXPECT_EQ(pane.CellPlace(2, 2).top, before.top + 15);
  grid.SetColWidth(3, 1500);
  grid.SetStretchCol(2);
  EXPECT_EQ(pane.CellPlace(0, 2).Height(), kRow) << "with the room that is left it fits";
  grid.SetStretchCol(-1);
  grid.SetColWidth(3, 6000);
  for (const int row : {0, 1, 2, 3}) {
    Mouse('p', Middle(row, 2));
    EXPECT_EQ(grid.MouseRow(), row);
  }
}

TEST_F(GridPaneTest, Rows_ThatFitWhole_AreInSightAndTellWhatTheyShorten) {
  EXPECT_EQ(pane.CellPlace(2, 3), (Rect{0, 2 * kRow, 260, 3 * kRow})) << "what is seen of it";
  EXPECT_TRUE(pane.CellPlace(2, 1).Empty()) << "hidden";
  EXPECT_FALSE(pane.CellPlace(9, 2).Empty());
  EXPECT_TRUE(pane.CellPlace(10, 2).Empty()) << "there is room for a half of it";
  grid.SetTextMatrix(10, 2, "below");
  EXPECT_FALSE(trial.Painted().Shows("below"));
  grid.SetTextMatrix(3, 2, "sixteen letters.");
  grid.SetTextMatrix(4, 2, "fifteen letters");
  EXPECT_EQ(pane.TipAt(Middle(3, 2)).text, "sixteen letters.") << "more than there is room for";
  EXPECT_EQ(pane.TipAt(Middle(4, 2)).text, "");
}

TEST_F(GridPaneTest, Changed_OrScrolledByRows_RepaintsNoMoreThanThat) {
  const auto height = [&] {
    int pixels = 0;
    for (const Rect& area : std::exchange(host.repainted, {})) pixels += area.Height();
    return pixels;
  };
  height();
  grid.SetTextMatrix(5, 2, "x");
  EXPECT_NEAR(height(), kRow, 4);
  grid.SetTextMatrix(900, 2, "x");
  EXPECT_EQ(height(), 0) << "out of sight";
  At(3, 2);
  EXPECT_NEAR(height(), 2 * kRow, 8) << "where the block was and is";
  pane.Scrolled(Axis::kDown, 2);
  EXPECT_EQ(host.scrolled, -2 * kRow);
  EXPECT_EQ(height(), 0);
  EXPECT_EQ(host.down, (ScrollRange{1000, 9, 2, 1}));
  EXPECT_EQ(host.across, (ScrollRange{640, 400, 0, 40}));
  pane.Scrolled(Axis::kAcross, 100);
  EXPECT_EQ(pane.CellPlace(3, 0).right, 400) << "fixed columns stay";
  EXPECT_EQ(pane.CellPlace(3, 2), Rect{}) << "the others move to the right, below them";
  grid.SetStretchCol(2);
  grid.SetColWidth(3, 1500);
  EXPECT_EQ(pane.CellPlace(3, 2).Width(), 260) << "it takes what is left";
}

TEST_F(GridPaneTest, Mouse_OfAnUnquietHand_DoesWhatWasMeant) {
  const Point heading = Middle(0, 2);
  const Point row2 = Middle(2, 2);
  const Point number5 = Middle(5, 0);
  const Point edge{300, 3 * kRow - 1};  // of row 2
  const struct {
    const char* what;
    std::vector<std::pair<char, Point>> hand;  // press, double press, move, release
    std::vector<std::string> heard;
    const char* block;
  } cases[] = {
      {"click", {{'p', row2}, {'r', row2}}, {"down 10 2,2", "click 2,2"}, "2,2"},
      {"shaky click on a heading",
       {{'p', heading}, {'m', {heading.x + 60, heading.y + 3}}, {'r', {heading.x, 0}}},
       {"down 10 0,2", "click 0,2"},
       "1,2"},
      {"heading left again", {{'p', heading}, {'r', row2}}, {"down 10 0,2"}, "1,2"},
      {"shaky click at the edge of a row",
       {{'p', edge}, {'m', {300, edge.y + 3}}, {'r', {300, edge.y + 3}}},
       {"down 10 2,2", "click 2,2"},
       "2,2"},
      {"drag",
       {{'p', row2}, {'m', Middle(4, 3)}, {'r', Middle(4, 3)}},
       {"down 10 2,2", "click 4,3"},
       "2,2 to 4,3"},
      {"double click on a row",
       {{'p', row2}, {'r', row2}, {'d', row2}, {'r', row2}},
       {"down 10 2,2", "click 2,2", "double 2,2"},
       "2,2"},
      {"double click on a number",
       {{'p', number5}, {'r', number5}, {'d', number5}},
       {"down 10 5,0", "click 5,0", "double 5,0"},
       "5,2"},
      {"double click on a heading",
       {{'p', heading}, {'r', heading}, {'d', heading}, {'r', heading}},
       {"down 10 0,2", "click 0,2", "down 10 0,2", "click 0,2"},
       "1,2"},
      {"border of a column", {{'p', {261, 5}}, {'m', {221, 5}}, {'r', {221, 5}}}, {}, "1,2"},
      {"below two rows",
       {{'p', edge}, {'r', edge}, {'d', {300, 70}}, {'r', edge}},
       {"down 10 2,2", "click 2,2", "down 10 3,2", "click 3,2"},
       "2,2"},
  };
  for (const auto& each : cases) {
    At(1, 2);
    grid.SetRows(std::string(each.what) == "below two rows" ? 3 : 1001);
    for (const auto& [step, at] : each.hand) Mouse(step, at);
    EXPECT_EQ(std::exchange(events, {}), each.heard) << each.what;
    EXPECT_EQ(Block(), each.block) << each.what;
  }
  EXPECT_EQ(grid.ColWidth(2), 2085) << "from its right edge to the mouse";
  EXPECT_EQ(pane.CursorAt({222, 5}), Cursor::kColumnBorder);
  EXPECT_EQ(pane.CursorAt({300, 70}), Cursor::kArrow);
}

TEST_F(GridPaneTest, Drag_BelowTheEdge_ScrollsOnUntilTheMouseIsLost) {
  Mouse('p', Middle(2, 2));
  Mouse('m', {300, 500});
  EXPECT_EQ(host.timer, 50);
  pane.Tick();
  pane.Tick();
  EXPECT_EQ(Block(), "2,2 to 11,2");
  pane.PointerLost();
  EXPECT_EQ(host.timer, 0);
  Mouse('r', {300, 500});
  EXPECT_THAT(events, ElementsAre("down 10 2,2"));
}

TEST_F(GridPaneTest, Wheel_OfAnyKind_AddsItsPartsUp) {
  const struct {
    int times;
    WheelEvent event;
    int rows;
    int across;
  } cases[] = {{1, {.up = -1}, 3, 0},
               {3, {.up = -0.11, .lines = 3}, 0, 0},
               {10, {.up = -0.1}, 3, 0},
               {1, {.up = -1, .lines = 0}, 9, 0},
               {120, {.up = -1.0 / 120, .lines = 1}, 1, 0},
               {1, {.left = 1.5}, 0, 60},
               {2, {.up = 1, .modifiers = kShift}, 0, 80}};
  for (const auto& each : cases) {
    pane.Scrolled(Axis::kDown, 0);
    pane.Scrolled(Axis::kAcross, 0);
    GridPane fresh(grid, host);
    fresh.Resized({400, 200});
    for (int i = 0; i < each.times; ++i) fresh.Wheel(each.event);
    EXPECT_EQ(host.down.place, each.rows) << each.event.up << " x " << each.times;
    EXPECT_EQ(host.across.place, each.across);
  }
}

TEST_F(GridPaneTest, Keys_OfTheWholeDay_DoWhatTheMouseDoes) {
  grid.SetTextMatrix(2, 2, "b");
  all.onClick = [this] { events.emplace_back("all"); };
  inverse.onClick = [this] { events.emplace_back("inverse"); };
  none.onClick = [this] { events.emplace_back("none"); };
  grid.marking = {&all, &inverse, &none};
  const struct {
    Key key;
    Modifiers held;
    std::vector<std::string> heard;
    const char* block;  // from 2,2 on
  } cases[] = {{Key::kDown, {}, {}, "3,2"},
               {Key::kPageDown, {}, {}, "11,2"},
               {Key::kPageDown, kShift, {}, "2,2 to 11,2"},
               {Key::kLeft, {}, {}, "2,3"},
               {Key::kHome, kControl, {}, "1,2"},
               {Key::kEnd, kControl, {}, "1000,2"},
               {Key::kSpace, {}, {"down 10 2,1", "click 2,1"}, "2,2"},
               {Key::kEnter, {}, {"double 2,2"}, "2,2"},
               {Key::kF6, {}, {"down 10 0,2", "click 0,2"}, "2,2"},
               {Key::kA, kControl, {"all"}, "2,2"},
               {Key::kI, kControl, {"inverse"}, "2,2"},
               {Key::kD, kControl, {"none"}, "2,2"},
               {Key::kC, kControl, {}, "2,2"}};
  for (const auto& each : cases) {
    At(2, 2);
    pane.Scrolled(Axis::kDown, 500);
    EXPECT_TRUE(Strike(each.key, each.held));
    EXPECT_EQ(std::exchange(events, {}), each.heard) << static_cast<int>(each.key);
    EXPECT_EQ(Block(), each.block) << static_cast<int>(each.key);
    const bool inSight = !pane.CellPlace(grid.RowSel(), grid.ColSel()).Empty();
    EXPECT_TRUE(inSight || each.held.control) << static_cast<int>(each.key);
  }
  EXPECT_EQ(host.copied, "b");

  grid.SetRows(1);
  grid.marking = {};
  for (const Key key : {Key::kEnter, Key::kEscape, Key::kBackspace, Key::kF3}) {
    EXPECT_FALSE(Strike(key)) << "the form's: " << static_cast<int>(key);
  }
  EXPECT_FALSE(Strike(Key::kA, kControl));
}

TEST_F(GridPaneTest, Space_OnHeadingOrBlock_MarksTheFirstRowOrThoseWithoutAMarkElseNone) {
  std::vector<int> toggled;
  grid.onMouseDown = [&](int, int) {
    toggled.push_back(grid.MouseRow());
    At(grid.MouseRow(), 1);
    grid.SetCellBackColor(grid.CellBackColor() == palette::kMark ? 0 : palette::kMark);
  };
  for (const int row : {0, 3}) {
    At(row, 2);
    Strike(Key::kSpace);
  }
  At(2, 2);
  grid.SetRowSel(4);
  for (const auto& expected : {std::vector{1, 3, 2, 4}, {1, 3, 2, 4, 2, 3, 4}}) {
    Strike(Key::kSpace, kShift);
    EXPECT_EQ(toggled, expected);
    EXPECT_EQ(Block(), "2,2 to 4,2") << "it stays";
  }
  EXPECT_TRUE(grid.Redraw());
}

TEST_F(GridPaneTest, ControlZ_TakesAWholeFrameOfMarksBackAndKeepsTheBlock) {
  struct Steps : FlexGrid::MarkSteps {
    void Begin() override { note("begin"); }
    void End() override { note("end"); }
    std::pair<int, int> Undo() override { return note("undo"); }
    std::pair<int, int> Redo() override { return note("redo"); }
    std::function<std::pair<int, int>(const char*)> note;
  } steps;
  steps.note = [this](const char* what) {
    events.emplace_back(what);
    if (std::string_view(what).ends_with("do")) At(700, 2);
    return std::pair(700, 900);
  };
  EXPECT_FALSE(Strike(Key::kZ, kControl)) << "this list takes nothing back";
  grid.markSteps = &steps;
  At(2, 2);
  grid.SetRowSel(3);
  Strike(Key::kSpace, kShift);
  EXPECT_THAT(std::exchange(events, {}),
              ElementsAre("begin", "down 10 2,1", "click 2,1", "down 10 3,1", "click 3,1", "end"));
  Strike(Key::kZ, kControl);
  Strike(Key::kZ, {.shift = true, .control = true});
  Strike(Key::kY, kControl);
  EXPECT_THAT(events, ElementsAre("undo", "redo", "redo"));
  EXPECT_EQ(Block(), "2,2 to 3,2");
  EXPECT_FALSE(pane.CellPlace(700, 2).Empty()) << "what has changed is seen";

  events.clear();
  grid.onMouseDown = [this](int, int) { pane.Detach(); };
  Strike(Key::kSpace);
  EXPECT_THAT(events, ElementsAre("begin", "end")) << "the form may show the list again";
}

TEST_F(GridPaneTest, Letters_LookTheCurrentColumnUp) {
  int row = 1;
  for (const char* name : {"زهرا", "علي رضایی", "رضا", "كریم", "رضایی", "علی"}) {
    grid.SetTextMatrix(row++, 2, name);
  }
  grid.SetTextMatrix(990, 2, "كریمی");
  Type("ر");
  EXPECT_EQ(grid.Row(), 3) << "begins with it, though the second row holds it";
  Type("ضای");
  EXPECT_EQ(grid.Row(), 5);
  EXPECT_TRUE(trial.Painted().Shows("جستجو: «رضای»"));
  Strike(Key::kF3);
  EXPECT_EQ(grid.Row(), 2) << "round again, to the one that holds it";
  Type("x");
  EXPECT_EQ(grid.Row(), 2);
  EXPECT_TRUE(trial.Painted().Shows("«رضایx» پيدا نشد"));
  Strike(Key::kBackspace);
  EXPECT_EQ(grid.Row(), 5);
  EXPECT_TRUE(Strike(Key::kEscape));
  EXPECT_FALSE(Strike(Key::kEscape)) << "the form's";
  Type("کر");
  EXPECT_EQ(grid.Row(), 990) << "either kaf";
  EXPECT_FALSE(pane.CellPlace(990, 2).Empty());
  Strike(Key::kUp);
  Strike(Key::kF3);
  EXPECT_EQ(grid.Row(), 990) << "what was sought last";
  Strike(Key::kDown);
  Type("ع");
  EXPECT_EQ(grid.Row(), 2) << "letters begin anew after another key";
  grid.onMouseDown = nullptr;
  Strike(Key::kSpace);
  EXPECT_EQ(grid.Row(), 2) << "in a list that marks nothing a blank is a letter";
  Strike(Key::kBackspace);
  Strike(Key::kBackspace);
  EXPECT_FALSE(Strike(Key::kBackspace)) << "nothing is left to take away";
}

TEST_F(GridPaneTest, ModelGone_InItsOwnEvent_EverythingElseIsHarmless) {
  grid.onMouseDown = [this](int, int) { pane.Detach(); };
  for (const char step : {'p', 'm', 'd', 'r'}) Mouse(step, Middle(2, 2));
  for (const Key key : {Key::kSpace, Key::kDown, Key::kText}) EXPECT_FALSE(Strike(key));
  pane.Wheel({.up = -1});
  pane.Scrolled(Axis::kDown, 4);
  pane.Tick();
  pane.Resized({300, 100});
  pane.FocusChanged(true);
  pane.Changed({controls::Aspect::kRows});
  EXPECT_THAT(trial.Painted().texts, IsEmpty());
  EXPECT_TRUE(pane.CellPlace(1, 2).Empty());
  EXPECT_EQ(pane.TipAt({5, 30}).text, "");
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(GridPaneTest, Parts_OfALongList_AreMadeOnDemand) {
  EXPECT_EQ(pane.PartCount(), 3003) << "one is hidden";
  const int part = 7 * 3 + 1;
  EXPECT_EQ(pane.DescribePart(part).place, pane.CellPlace(7, 2));
  EXPECT_EQ(pane.PartAt(Middle(7, 2)), part);
  EXPECT_EQ(pane.PartAt({5, 195}), -1) << "below the rows";
  EXPECT_EQ(pane.DescribePart(3003).role, Role::kNone);
  EXPECT_TRUE(pane.DescribePart(500 * 3).place.Empty()) << "out of sight";
}

TEST_F(GridPaneTest, Announced_AreTheCurrentCellAndMarks_EachOnce) {
  using testing::Pair;
  grid.marking = {&all, &inverse, &none};
  grid.onMouseDown = [this](int, int) {
    grid.SetCol(1);
    grid.SetCellBackColor(palette::kMark);
  };
  grid.onDblClick = nullptr;
  host.announced.clear();
  Strike(Key::kDown);
  EXPECT_THAT(host.announced, IsEmpty()) << "without the keyboard";
  pane.FocusChanged(true);
  Strike(Key::kDown);
  Strike(Key::kLeft);
  EXPECT_THAT(host.announced, ElementsAre(Pair(Tidings::kFocus, 7), Pair(Tidings::kFocus, 10),
                                          Pair(Tidings::kFocus, 11)));
  EXPECT_EQ(pane.FocusedPart(), 11);
  EXPECT_TRUE(pane.DescribePart(11).focused);

  host.announced.clear();
  pane.Act(5 * 3 + 2);
  EXPECT_EQ(grid.Row(), 5);
  EXPECT_TRUE(pane.DescribePart(5 * 3 + 2).selected);
  EXPECT_THAT(host.announced, testing::Contains(Pair(Tidings::kSelection, 5 * 3)));
  EXPECT_EQ(host.focusTaken, 1);
  events.clear();
  pane.Act(2);
  EXPECT_THAT(events, ElementsAre("click 0,3")) << "a heading sorts";
  grid.onDblClick = [this] { Note("double"); };
  pane.Act(6 * 3 + 2);
  EXPECT_THAT(events.back(), "double 6,3");
  host.announced.clear();
  grid.SetRows(20);
  EXPECT_THAT(host.announced, testing::Contains(Pair(Tidings::kContent, -1)));
}

}  // namespace
}  // namespace screens
