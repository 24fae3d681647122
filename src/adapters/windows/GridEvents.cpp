// What mouse and keys do in the grid's window.

#include <windowsx.h>

#include <algorithm>

#include "adapters/windows/Clipboard.h"
#include "adapters/windows/GridWindow.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

using controls::FlexGrid;

namespace {

constexpr int kBorderReach = 4;
constexpr int kColumnStep = 40;
constexpr UINT_PTR kAutoScrollTimer = 1;
constexpr UINT kAutoScrollMilliseconds = 50;

bool Held(int key) {
  return GetKeyState(key) < 0;
}

int ShiftNumber(WPARAM held) {
  return ((held & MK_SHIFT) != 0 ? 1 : 0) | ((held & MK_CONTROL) != 0 ? 2 : 0) |
         (Held(VK_MENU) ? 4 : 0);
}

std::optional<FlexGrid::Key> GridKey(WPARAM key, bool control) {
  switch (key) {
    case VK_UP:
      return control ? FlexGrid::Key::kTop : FlexGrid::Key::kUp;
    case VK_DOWN:
      return control ? FlexGrid::Key::kBottom : FlexGrid::Key::kDown;
    case VK_LEFT:
      return control ? FlexGrid::Key::kEnd : FlexGrid::Key::kLeft;
    case VK_RIGHT:
      return control ? FlexGrid::Key::kHome : FlexGrid::Key::kRight;
    case VK_PRIOR:
      return FlexGrid::Key::kPageUp;
    case VK_NEXT:
      return FlexGrid::Key::kPageDown;
    case VK_HOME:
      return control ? FlexGrid::Key::kTop : FlexGrid::Key::kHome;
    case VK_END:
      return control ? FlexGrid::Key::kBottom : FlexGrid::Key::kEnd;
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<LRESULT> GridWindow::OnMouse(UINT message, WPARAM wParam, LPARAM lParam) {
  const POINT place{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  switch (message) {
    case WM_LBUTTONDOWN:
      Press(place, 1, wParam);
      return 0;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
      Press(place, 2, wParam);
      return 0;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
      Press(place, 4, wParam);
      return 0;
    case WM_LBUTTONDBLCLK:
      if (!geometry_.BorderAt(place, GetScale().Design(kBorderReach))) {
        Call([](FlexGrid& grid) { grid.DblClick(); });
      }
      return 0;
    case WM_MOUSEMOVE:
      Move(place, wParam);
      return 0;
    case WM_LBUTTONUP:
      Release();
      return 0;
    case WM_CAPTURECHANGED:
    case WM_CANCELMODE:
      EndPressing();
      break;
    case WM_TIMER:
      if (wParam != kAutoScrollTimer) break;
      AutoScroll();
      return 0;
    default:
      break;
  }
  return std::nullopt;
}

void GridWindow::Press(POINT place, int button, WPARAM held) {
  // What the field does that loses the focus may end the form.
  SetFocus(Handle());
  if (!Model()) return;
  const auto border = geometry_.BorderAt(place, GetScale().Design(kBorderReach));
  if (border && button == 1) {
    pressing_ = Pressing::kBorder;
    draggedCol_ = *border;
    dragRight_ = geometry_.ColumnPlace(*border).right;
    SetCapture(Handle());
    return;
  }
  if (button == 1) {
    pressing_ = Pressing::kCells;
    lastDrag_ = place;
    SetCapture(Handle());
  }
  const GridGeometry::Cell cell = geometry_.CellAt(place);
  const int shift = ShiftNumber(held);
  Call([&](FlexGrid& grid) { grid.MouseDown(cell.row, cell.col, button, shift); });
}

void GridWindow::Move(POINT place, WPARAM held) {
  if (!Model()) return;
  // The release is lost when the press opened a modal window.
  if ((held & MK_LBUTTON) == 0 && pressing_ != Pressing::kNone) ReleaseCapture();
  if (pressing_ == Pressing::kBorder) {
    const controls::Twips width =
        GetScale().Twips(std::max(0, dragRight_ - static_cast<int>(place.x)));
    Call([&](FlexGrid& grid) {
      if (draggedCol_ < grid.Cols()) grid.DragColWidth(draggedCol_, width);
    });
  } else if (pressing_ == Pressing::kCells) {
    DragTo(place);
    const RECT inside{0, 0, geometry_.Width(), geometry_.Height()};
    if (PtInRect(&inside, place) != FALSE) {
      KillTimer(Handle(), kAutoScrollTimer);
    } else {
      SetTimer(Handle(), kAutoScrollTimer, kAutoScrollMilliseconds, nullptr);
    }
  } else {
    ShowTipAt(place);
  }
}

/// Where the mouse is outside of the cells, the nearest one in sight counts.
void GridWindow::DragTo(POINT place) {
  lastDrag_ = place;
  const LONG top = geometry_.FixedHeight();
  const LONG right = std::max(LONG{0}, LONG{geometry_.Width()} - 1);
  const LONG bottom = std::max(top, LONG{geometry_.Height()} - 1);
  const GridGeometry::Cell cell =
      geometry_.CellAt({std::clamp(place.x, LONG{0}, right), std::clamp(place.y, top, bottom)});
  if (cell.row == Model()->MouseRow() && cell.col == Model()->MouseCol()) return;
  Call([&](FlexGrid& grid) { grid.MouseDrag(cell.row, cell.col); });
}

void GridWindow::AutoScroll() {
  if (!Model() || pressing_ != Pressing::kCells) {
    KillTimer(Handle(), kAutoScrollTimer);
    return;
  }
  int above = geometry_.RowsAbove();
  int across = geometry_.Across();
  if (lastDrag_.y < geometry_.FixedHeight()) --above;
  if (lastDrag_.y >= geometry_.Height()) ++above;
  if (lastDrag_.x < 0) across += GetScale().Design(kColumnStep);
  if (lastDrag_.x >= geometry_.Width()) across -= GetScale().Design(kColumnStep);
  ScrollTo(above, across);
  DragTo(lastDrag_);
}

void GridWindow::Release() {
  const Pressing pressing = pressing_;
  if (pressing == Pressing::kNone) return;
  ReleaseCapture();
  if (pressing == Pressing::kCells) Call([](FlexGrid& grid) { grid.Click(); });
}

void GridWindow::EndPressing() {
  pressing_ = Pressing::kNone;
  KillTimer(Handle(), kAutoScrollTimer);
}

void GridWindow::OnScrollBar(int bar, int request) {
  if (!Model()) return;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  // The message itself carries only 16 bits of the place.
  GetScrollInfo(Handle(), bar, &info);
  const int step = bar == SB_VERT ? 1 : GetScale().Design(kColumnStep);
  const int page = std::max(1, static_cast<int>(info.nPage));
  int place = info.nPos;
  switch (request) {
    case SB_LINEUP:
      place -= step;
      break;
    case SB_LINEDOWN:
      place += step;
      break;
    case SB_PAGEUP:
      place -= page;
      break;
    case SB_PAGEDOWN:
      place += page;
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      place = info.nTrackPos;
      break;
    case SB_TOP:
      place = info.nMin;
      break;
    case SB_BOTTOM:
      place = info.nMax;
      break;
    default:
      return;
  }
  if (bar == SB_VERT) {
    ScrollTo(place, geometry_.Across());
  } else {
    // The bar begins at the left, the grid at the right.
    ScrollTo(geometry_.RowsAbove(), geometry_.MostAcross() - place);
  }
  UpdateWindow(Handle());
}

void GridWindow::OnWheel(bool across, int delta) {
  if (!Model()) return;
  if (across) {
    ScrollTo(geometry_.RowsAbove(),
             geometry_.Across() + MulDiv(delta, GetScale().Design(kColumnStep), 120));
    return;
  }
  UINT lines = 3;
  SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  const int rows = lines == WHEEL_PAGESCROLL ? geometry_.PageRows() : static_cast<int>(lines);
  // Fine wheels and touch pads send parts of a notch.
  wheelRest_ += delta * rows;
  const int whole = wheelRest_ / WHEEL_DELTA;
  wheelRest_ -= whole * WHEEL_DELTA;
  ScrollTo(geometry_.RowsAbove() - whole, geometry_.Across());
}

bool GridWindow::OnKey(WPARAM key) {
  if (!Model() || Held(VK_MENU)) return false;
  const bool control = Held(VK_CONTROL);
  if (control && (key == 'C' || key == VK_INSERT)) {
    Call([this](FlexGrid& grid) { CopyToClipboard(Handle(), Wide(grid.BlockText())); });
    return true;
  }
  const auto gridKey = GridKey(key, control);
  if (!gridKey) return false;
  const bool extend = Held(VK_SHIFT);
  const int page = geometry_.PageRows();
  if (Call([&](FlexGrid& grid) { grid.PressKey(*gridKey, extend, page); })) {
    Reveal(Model()->RowSel(), Model()->ColSel());
  }
  return true;
}

bool GridWindow::ShowPointer() const {
  if (!Model()) return false;
  POINT place{};
  GetCursorPos(&place);
  ScreenToClient(Handle(), &place);
  if (!geometry_.BorderAt(place, GetScale().Design(kBorderReach))) return false;
  SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_SIZEWE)));
  return true;
}

void GridWindow::ShowTipAt(POINT place) {
  const GridGeometry::Cell cell = geometry_.CellAt(place);
  if (cell == tipCell_) return;
  tipCell_ = cell;
  if (!tip_) tip_ = std::make_unique<CellTip>(Handle(), Look(), [this] { return TipText(); });
  tip_->MoveTo(geometry_.CellPlace(cell.row, cell.col));
}

/// A cell's text where the cell does not show all of it.
std::wstring GridWindow::TipText() const {
  if (!Model()) return {};
  const RECT place = geometry_.CellPlace(tipCell_.row, tipCell_.col);
  if (IsRectEmpty(&place) != FALSE) return {};
  std::wstring text = CellText(tipCell_.row, tipCell_.col);
  const Measuring measuring(Look().Font());
  const int room = place.right - place.left - 2 * GetScale().Design(kTextMargin);
  return TextWidth(measuring.Dc(), text) > room ? text : std::wstring();
}

}  // namespace adapters::windows
