#include "adapters/windows/GridWindow.h"

#include <algorithm>

#include "adapters/windows/GridAutomation.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

using controls::Aspect;
using controls::Change;
using controls::FlexGrid;

GridWindow::GridWindow(FlexGrid& model, const Surroundings& surroundings, HWND parent)
    : WindowOf(model, surroundings), geometry_(model) {
  WindowPlan plan;
  plan.style = WS_CHILD | WS_CLIPSIBLINGS | WS_VSCROLL | WS_HSCROLL;
  plan.extendedStyle = WS_EX_LEFTSCROLLBAR;
  plan.parent = parent;
  Create(plan);
}

void GridWindow::Refresh(const Change& change) {
  switch (change.aspect) {
    case Aspect::kColumns:
    case Aspect::kBounds:
      Measure();
      break;
    case Aspect::kRows:
      geometry_.KeepInside();
      UpdateScrollBars();
      Invalidate();
      break;
    case Aspect::kCells:
      InvalidateRows({change.firstRow, change.lastRow});
      break;
    case Aspect::kSelection:
      InvalidateBlock();
      break;
    default:
      Invalidate();
      break;
  }
}

void GridWindow::Measure() {
  if (!Model()) return;
  RECT area{};
  GetClientRect(Handle(), &area);
  const int rowHeight = std::max(GetScale().Pixels(FlexGrid::kRowHeight), Look().LineHeight() + 2);
  geometry_.Measure({area.right, area.bottom}, GetScale(), rowHeight);
  UpdateScrollBars();
  Invalidate();
}

void GridWindow::UpdateScrollBars() {
  // A bar that comes or goes changes the client area: WM_SIZE then measures within this call.
  const auto set = [this](int bar, int count, int page, int place) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = std::max(0, count - 1);
    info.nPage = static_cast<UINT>(std::max(1, page));
    info.nPos = place;
    SetScrollInfo(Handle(), bar, &info, TRUE);
  };
  set(SB_VERT, Model()->Rows() - Model()->FixedRows(), geometry_.PageRows(), geometry_.RowsAbove());
  // The bar begins at the left, the grid at the right.
  set(SB_HORZ, geometry_.ColumnsWidth(), geometry_.Width(),
      geometry_.MostAcross() - geometry_.Across());
}

void GridWindow::ScrollTo(int rowsAbove, int across) {
  const GridGeometry before = geometry_;
  if (geometry_.ScrollTo(rowsAbove, across)) ShowScrolled(before);
}

void GridWindow::Reveal(int row, int col) {
  const GridGeometry before = geometry_;
  if (geometry_.Reveal(row, col)) ShowScrolled(before);
}

void GridWindow::ShowScrolled(const GridGeometry& before) {
  if (geometry_.Across() != before.Across()) {
    Invalidate();
  } else {
    // Moves what stays in sight and paints the rest.
    const RECT rows = geometry_.Room(true, false);
    const int down = (before.RowsAbove() - geometry_.RowsAbove()) * geometry_.RowHeight();
    ScrollWindowEx(Handle(), 0, down, &rows, &rows, nullptr, nullptr, SW_INVALIDATE);
  }
  UpdateScrollBars();
}

void GridWindow::InvalidateRows(Rows rows) const {
  const RECT place = geometry_.RowsPlace(rows.first, rows.last);
  if (IsRectEmpty(&place) == FALSE) InvalidateRect(Handle(), &place, FALSE);
}

void GridWindow::InvalidateBlock() {
  InvalidateRows(shownBlock_);
  const auto [first, last] = std::minmax({Model()->Row(), Model()->RowSel()});
  shownBlock_ = {first, last};
  InvalidateRows(shownBlock_);
}

void GridWindow::ShowFocus(bool focused) {
  focused_ = focused;
  PaintFrame();
  if (Model()) InvalidateRows(shownBlock_);
}

std::wstring GridWindow::CellText(int row, int col) const {
  std::wstring text = Wide(Model()->TextMatrix(row, col));
  std::erase(text, L'\r');
  std::replace(text.begin(), text.end(), L'\n', L' ');
  return text;
}

std::optional<LRESULT> GridWindow::OnAutomation(UINT message, WPARAM wParam, LPARAM lParam) const {
  if (message == GridRowsMessage()) return Model() ? Model()->Rows() : 0;
  if (message == GridBlockMessage()) {
    if (!Model()) return 0;
    const auto [first, last] = std::minmax({Model()->Row(), Model()->RowSel()});
    return MAKELPARAM(first, last);
  }
  if (message == GridCellRectMessage()) {
    if (!Model()) return 0;
    const RECT place = geometry_.CellPlace(static_cast<int>(wParam), static_cast<int>(lParam));
    if (IsRectEmpty(&place) != FALSE) return 0;
    return MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
  }
  if (message != GridTextMessage()) return std::nullopt;
  const auto& request = *reinterpret_cast<const GridTextRequest*>(lParam);
  if (!Model() || request.row < 0 || request.row >= Model()->Rows() || request.col < 0 ||
      request.col >= Model()->Cols()) {
    return -1;
  }
  const std::wstring text = Wide(Model()->TextMatrix(request.row, request.col));
  lstrcpynW(request.buffer, text.c_str(), request.capacity);
  return static_cast<LRESULT>(text.size());
}

LRESULT GridWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (const auto answer = OnMouse(message, wParam, lParam)) return *answer;
  switch (message) {
    case WM_NCCALCSIZE:
      // Both forms of this message begin with the window's place.
      InflateRect(reinterpret_cast<RECT*>(lParam), -1, -1);
      break;
    case WM_NCPAINT: {
      const LRESULT result = Default(message, wParam, lParam);
      PaintFrame();
      return result;
    }
    case WM_PAINT:
      Paint();
      return 0;
    case WM_SIZE:
      Measure();
      return 0;
    case WM_VSCROLL:
    case WM_HSCROLL:
      OnScrollBar(message == WM_VSCROLL ? SB_VERT : SB_HORZ, LOWORD(wParam));
      return 0;
    case WM_MOUSEWHEEL: {
      const int delta = static_cast<short>(HIWORD(wParam));
      OnWheel((LOWORD(wParam) & MK_SHIFT) != 0, delta);
      return 0;
    }
    case WM_MOUSEHWHEEL:
      OnWheel(true, -static_cast<short>(HIWORD(wParam)));
      return TRUE;
    case WM_KEYDOWN:
      if (OnKey(wParam)) return 0;
      break;
    case WM_NOTIFY:
      if (tip_ && tip_->OnNotify(lParam)) return 0;
      break;
    case WM_SETCURSOR:
      // The form may show the hourglass over all of it.
      if (LOWORD(lParam) != HTCLIENT) break;
      if (SendMessageW(GetParent(Handle()), message, wParam, lParam) != 0) return TRUE;
      if (ShowPointer()) return TRUE;
      break;
    case WM_SETFOCUS:
      ShowFocus(true);
      break;
    case WM_KILLFOCUS:
      ShowFocus(false);
      break;
    default:
      if (const auto answer = OnAutomation(message, wParam, lParam)) return *answer;
      break;
  }
  return WindowOf::OnMessage(message, wParam, lParam);
}

}  // namespace adapters::windows
