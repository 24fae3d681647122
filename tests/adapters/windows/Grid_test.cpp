#include "adapters/windows/GridAutomation.h"
#include "adapters/windows/SampleWindows.h"

namespace adapters::windows {
namespace {

class GridWindowTest : public SampleWindows {
 protected:
  GridWindowTest() {
    flx.SetRows(100001);
    flx.SetCols(4);
    for (int col = 0; col < 4; ++col) flx.SetColWidth(col, col == 1 ? 0 : 750 * (4 - col));
    flx.SetTextMatrix(2, 2, "علی");
    flx.SetTextMatrix(3, 3, "b");
    flx.onMouseDown = [this](int button, int shift) {
      events.push_back("down " + std::to_string(10 * button + shift));
    };
    flx.onClick = [this] { events.push_back("click"); };
    flx.onDblClick = [this] { events.push_back("double"); };
    flx.SetFocus();
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
  LONG UnpaintedHeight() const {
    RECT area{};
    GetUpdateRect(window, &area, FALSE);
    UpdateWindow(window);
    return area.bottom - area.top;
  }
  const HWND window = Of(flx);
};

TEST_F(GridWindowTest, Clicked_InRightToLeftGeometry_ReachesTheModelsCell) {
  EXPECT_EQ(SendMessageW(window, GridRowsMessage(), 0, 0), 100001);
  EXPECT_FALSE(InSight(1, 1)) << "a hidden column";
  EXPECT_GT(At(1, 0).x, At(1, 2).x);
  EXPECT_GT(At(1, 2).x, At(1, 3).x);
  for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP})
    Mouse(message, At(2, 2));
  EXPECT_THAT(events, testing::ElementsAre("down 10", "click", "double"));
  EXPECT_EQ(std::pair(flx.Row(), flx.Col()), std::pair(2, 2));
  Mouse(WM_RBUTTONDOWN, {1, At(3, 2).y}, MK_RBUTTON | MK_SHIFT);
  EXPECT_EQ(events.back(), "down 21");
  EXPECT_EQ(std::pair(flx.MouseRow(), flx.MouseCol()), std::pair(3, 4)) << "beyond";
}

TEST_F(GridWindowTest, Dragged_MakesABlockThatCtrlCCopies_AndScrollsBelowTheEdge) {
  Mouse(WM_LBUTTONDOWN, At(2, 2));
  Mouse(WM_MOUSEMOVE, At(3, 3));
  Press({'C'}, VK_CONTROL);
  ASSERT_TRUE(OpenClipboard(window));
  EXPECT_STREQ(static_cast<const wchar_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT))),
               L"علی\t\r\n\tb");
  CloseClipboard();
  Mouse(WM_MOUSEMOVE, {At(2, 2).x, 2000});
  const int lastInSight = flx.RowSel();
  EXPECT_TRUE(InSight(lastInSight, 2));
  for (int i = 0; i < 3; ++i) SendMessageW(window, WM_TIMER, 1, 0);
  EXPECT_EQ(flx.RowSel(), lastInSight + 3);
  Mouse(WM_LBUTTONUP, {}, 0);
  EXPECT_EQ(events.back(), "click");
}

TEST_F(GridWindowTest, ColumnBorder_Dragged_ChangesTheWidthAndClicksNothing) {
  const POINT heading = At(0, 2);
  const LONG border = heading.x - 50;  // half of 1500 twips
  Mouse(WM_LBUTTONDOWN, {border, heading.y});
  Mouse(WM_MOUSEMOVE, {border - 40, heading.y});
  Mouse(WM_LBUTTONUP, {border - 40, heading.y}, 0);
  EXPECT_NEAR(flx.ColWidth(2), 2100, 15);
  EXPECT_EQ(At(1, 2).x, heading.x - 20);
  EXPECT_TRUE(events.empty());
}

TEST_F(GridWindowTest, Scrolled_ToTheEndAcrossAndByWheel_ShowsAndFindsTheRows) {
  SendMessageW(window, WM_VSCROLL, SB_BOTTOM, 0);
  EXPECT_FALSE(InSight(1, 2));
  EXPECT_TRUE(InSight(0, 2)) << "headings stay";
  Mouse(WM_LBUTTONDOWN, At(100000, 2));
  EXPECT_EQ(flx.Row(), 100000);
  Mouse(WM_LBUTTONUP, {}, 0);
  SCROLLINFO bar{sizeof bar, SIF_ALL, 0, 0, 0, 0, 0};
  GetScrollInfo(window, SB_VERT, &bar);
  EXPECT_EQ(bar.nPos + static_cast<int>(bar.nPage), 100000);
  SendMessageW(window, WM_VSCROLL, SB_TOP, 0);
  for (int part = 0; part < 3; ++part) {
    EXPECT_TRUE(InSight(1, 2)) << "less than a row yet";
    SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, -14), 0);
  }
  EXPECT_FALSE(InSight(1, 2)) << "fine wheels add up to a row";
  flx.SetColWidth(3, 9000);
  const LONG unscrolled = At(2, 2).x;
  SendMessageW(window, WM_HSCROLL, SB_LINELEFT, 0);
  EXPECT_EQ(At(2, 2).x, unscrolled + 20) << "40 pixels of it lie below the heading column";
}

TEST_F(GridWindowTest, Keys_MoveAndExtendTheBlockAndKeepItInSight) {
  flx.SetRow(1);
  flx.SetCol(2);
  Press({VK_LEFT});
  EXPECT_EQ(flx.Col(), 3);
  Press({VK_END}, VK_CONTROL);
  EXPECT_TRUE(InSight(100000, 3));
  Press({VK_PRIOR, VK_PRIOR}, VK_SHIFT);
  EXPECT_EQ(flx.Row(), 100000);
  EXPECT_LT(flx.RowSel(), 99980);
  EXPECT_TRUE(InSight(flx.RowSel(), 3));
}

TEST_F(GridWindowTest, Changed_RepaintsOnlyTheRowsConcerned) {
  flx.SetTextMatrix(5, 2, "x");
  EXPECT_NEAR(UnpaintedHeight(), 19, 4);
  flx.SetTextMatrix(90000, 2, "x");
  EXPECT_EQ(UnpaintedHeight(), 0) << "out of sight";
  flx.SetRow(2);
  EXPECT_NEAR(UnpaintedHeight(), 2 * 19, 4) << "where the selection was and is";
}

TEST_F(GridWindowTest, EmptiedOrUnloaded_FromItsOwnEvent_IsHarmless) {
  flx.onDblClick = [&] { Unload(); };
  flx.SetRows(0);
  Mouse(WM_LBUTTONDOWN, {60, 60});
  EXPECT_EQ(flx.MouseRow(), 0);
  Press({VK_DOWN});
  flx.SetCols(0);
  Mouse(WM_LBUTTONDBLCLK, {60, 60});
  EXPECT_FALSE(Loaded());
  Mouse(WM_MOUSEMOVE, {61, 60});
  EXPECT_EQ(SendMessageW(window, GridRowsMessage(), 0, 0), 0);
}

}  // namespace
}  // namespace adapters::windows
