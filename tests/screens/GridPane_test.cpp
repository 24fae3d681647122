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

TEST_F(GridPaneTest, FindLine_TellsItsFieldAndKeys) {
  grid.SetAccessibleName("list");
  Strike(Key::kF, kControl);
  EXPECT_EQ(pane.DescribeField().name, "جستجو در list");
  EXPECT_EQ(pane.FocusedPart(), pane.PartCount() - 1);
  EXPECT_EQ(pane.TipAt(pane.DescribePart(pane.PartCount() - 3).place.Middle()).text,
            "بعدي (Enter)");
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

}  // namespace
}  // namespace screens
