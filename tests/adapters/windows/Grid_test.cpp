#include <gmock/gmock.h>

#include "adapters/windows/GridAutomation.h"
#include "adapters/windows/Wide.h"
#include "adapters/windows/WinScreen.h"
#include "controls/FlexGrid.h"
#include "controls/Form.h"

namespace adapters::windows {
namespace {

using controls::FlexGrid;
using testing::ElementsAre;

class NoonClock : public platform::Clock {
 public:
  std::chrono::sys_days Today() const override { return {}; }
  int MinutesSinceMidnight() const override { return 720; }
};

struct GridForm : controls::Form {
  explicit GridForm(controls::Screen& screen) : Form(screen, "GridForm", Border::kFixed) {
    Resize(9000, 6000);
    flx.Move(150, 150, 8700, 5700);
  }
  FlexGrid flx{*this, "flx"};
};

class GridWindowTest : public testing::Test {
 protected:
  GridWindowTest() {
    FlexGrid& grid = form.flx;
    grid.SetRows(100001);
    grid.SetCols(4);
    const int widths[] = {750, 0, 3000, 1500};
    for (int col = 0; col < 4; ++col) grid.SetColWidth(col, widths[col]);
    grid.SetTextMatrix(2, 2, "علی");
    grid.SetTextMatrix(3, 3, "b");
    grid.onMouseDown = [this](int button, int shift) {
      events.push_back("down " + std::to_string(button) + " " + std::to_string(shift));
    };
    grid.onClick = [this] { events.push_back("click"); };
    grid.onDblClick = [this] { events.push_back("double"); };
    form.Show(controls::Modality::kModeless);
    grid.SetFocus();
    window = screen.WindowOf(grid);
    UpdateWindow(window);
  }
  POINT At(int row, int col) const {
    const LRESULT place =
        SendMessageW(window, GridCellRectMessage(), static_cast<WPARAM>(row), col);
    return {LOWORD(place), HIWORD(place)};
  }
  bool InSight(int row, int col) const { return At(row, col).x != 0; }
  void Mouse(UINT message, POINT at, WPARAM held = MK_LBUTTON) const {
    SendMessageW(window, message, held, MAKELPARAM(at.x, at.y));
  }
  void Press(WPARAM key, int with = 0) const {
    BYTE keys[256]{};
    keys[with] = with != 0 ? 0x80 : 0;
    SetKeyboardState(keys);
    SendMessageW(window, WM_KEYDOWN, key, 0);
    keys[with] = 0;
    SetKeyboardState(keys);
  }
  LONG UnpaintedHeight() const {
    RECT area{};
    GetUpdateRect(window, &area, FALSE);
    UpdateWindow(window);
    return area.bottom - area.top;
  }
  std::wstring Clipboard() const {
    if (!OpenClipboard(window)) return L"(closed)";
    const HANDLE text = GetClipboardData(CF_UNICODETEXT);
    const std::wstring copy = text ? static_cast<const wchar_t*>(GlobalLock(text)) : L"";
    CloseClipboard();
    return copy;
  }
  ErrorGuard guard;
  NoonClock clock;
  Theme theme{Scale(96)};
  WinScreen screen{guard, clock, theme};
  GridForm form{screen};
  HWND window = nullptr;
  std::vector<std::string> events;
};

TEST_F(GridWindowTest, Clicked_InRightToLeftGeometry_ReachesTheModelsCell) {
  EXPECT_EQ(SendMessageW(window, GridRowsMessage(), 0, 0), 100001);
  EXPECT_FALSE(InSight(1, 1)) << "a hidden column";
  EXPECT_GT(At(1, 0).x, At(1, 2).x);
  EXPECT_GT(At(1, 2).x, At(1, 3).x);
  for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP}) {
    Mouse(message, At(2, 2));
  }
  EXPECT_THAT(events, ElementsAre("down 1 0", "click", "double"));
  EXPECT_EQ(std::pair(form.flx.Row(), form.flx.Col()), std::pair(2, 2));
  Mouse(WM_RBUTTONDOWN, {1, At(3, 2).y}, MK_RBUTTON | MK_SHIFT);
  EXPECT_EQ(events.back(), "down 2 1");
  EXPECT_EQ(std::pair(form.flx.MouseRow(), form.flx.MouseCol()), std::pair(3, 4)) << "beyond";
}

TEST_F(GridWindowTest, Dragged_MakesABlockThatCtrlCCopies_AndScrollsBelowTheEdge) {
  Mouse(WM_LBUTTONDOWN, At(2, 2));
  Mouse(WM_MOUSEMOVE, At(3, 3));
  Press('C', VK_CONTROL);
  EXPECT_EQ(Clipboard(), L"علی\t\r\n\tb");
  Mouse(WM_MOUSEMOVE, {At(2, 2).x, 2000});
  const int lastInSight = form.flx.RowSel();
  EXPECT_TRUE(InSight(lastInSight, 2));
  for (int i = 0; i < 3; ++i) SendMessageW(window, WM_TIMER, 1, 0);
  EXPECT_EQ(form.flx.RowSel(), lastInSight + 3);
  Mouse(WM_LBUTTONUP, At(30, 2), 0);
  EXPECT_EQ(events.back(), "click");
}

TEST_F(GridWindowTest, ColumnBorder_Dragged_ChangesTheWidthAndClicksNothing) {
  const POINT heading = At(0, 2);
  const LONG border = heading.x - 100;  // half of 3000 twips
  Mouse(WM_LBUTTONDOWN, {border, heading.y});
  Mouse(WM_MOUSEMOVE, {border - 40, heading.y});
  Mouse(WM_LBUTTONUP, {border - 40, heading.y}, 0);
  EXPECT_NEAR(form.flx.ColWidth(2), 3600, 15);
  EXPECT_EQ(At(1, 2).x, heading.x - 20);
  EXPECT_TRUE(events.empty());
}

TEST_F(GridWindowTest, Scrolled_ToTheEndAndByWheel_ShowsAndFindsTheRows) {
  SendMessageW(window, WM_VSCROLL, SB_BOTTOM, 0);
  ASSERT_TRUE(InSight(100000, 2));
  EXPECT_FALSE(InSight(1, 2));
  EXPECT_TRUE(InSight(0, 2)) << "headings stay";
  Mouse(WM_LBUTTONDOWN, At(100000, 2));
  EXPECT_EQ(form.flx.Row(), 100000);
  Mouse(WM_LBUTTONUP, {}, 0);
  SCROLLINFO bar{};
  bar.cbSize = sizeof bar;
  bar.fMask = SIF_ALL;
  GetScrollInfo(window, SB_VERT, &bar);
  EXPECT_EQ(bar.nPos + static_cast<int>(bar.nPage), 100000);
  SendMessageW(window, WM_VSCROLL, SB_TOP, 0);
  for (int part = 0; part < 3; ++part) {
    EXPECT_TRUE(InSight(1, 2)) << "less than a row yet";
    SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, -14), 0);
  }
  EXPECT_FALSE(InSight(1, 2)) << "fine wheels add up to a row";
  form.flx.SetColWidth(3, 9000);
  const LONG unscrolled = At(2, 2).x;
  SendMessageW(window, WM_HSCROLL, SB_LINELEFT, 0);
  EXPECT_GT(At(2, 2).x, unscrolled) << "further columns come in from the left";
}

TEST_F(GridWindowTest, Keys_MoveAndExtendTheBlockAndKeepItInSight) {
  form.flx.SetRow(1);
  form.flx.SetCol(2);
  Press(VK_LEFT);
  EXPECT_EQ(form.flx.Col(), 3);
  Press(VK_END, VK_CONTROL);
  EXPECT_EQ(form.flx.Row(), 100000);
  EXPECT_TRUE(InSight(100000, 3));
  Press(VK_PRIOR, VK_SHIFT);
  EXPECT_EQ(form.flx.Row(), 100000);
  EXPECT_LT(form.flx.RowSel(), 99990);
  EXPECT_TRUE(InSight(form.flx.RowSel(), 3));
}

TEST_F(GridWindowTest, Changed_RepaintsOnlyTheRowsConcerned) {
  EXPECT_EQ(UnpaintedHeight(), 0);
  form.flx.SetTextMatrix(5, 2, "x");
  EXPECT_NEAR(UnpaintedHeight(), 19, 4);
  form.flx.SetTextMatrix(90000, 2, "x");
  EXPECT_EQ(UnpaintedHeight(), 0) << "out of sight";
  form.flx.SetRow(3);
  UpdateWindow(window);
  form.flx.SetRow(4);
  EXPECT_NEAR(UnpaintedHeight(), 2 * 19, 4) << "where the selection was and is";
}

TEST_F(GridWindowTest, EmptiedOrUnloaded_FromItsOwnEvent_IsHarmless) {
  form.flx.onDblClick = [&] { form.Unload(); };
  form.flx.SetRows(0);
  Mouse(WM_LBUTTONDOWN, {60, 60});
  EXPECT_EQ(form.flx.MouseRow(), 0);
  Press(VK_DOWN);
  form.flx.SetCols(0);
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  Mouse(WM_LBUTTONDBLCLK, {60, 60});
  EXPECT_FALSE(form.Loaded());
  Mouse(WM_MOUSEMOVE, {61, 60});
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  EXPECT_EQ(SendMessageW(window, GridRowsMessage(), 0, 0), 0);
}

}  // namespace
}  // namespace adapters::windows
