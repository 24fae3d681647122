#include "adapters/windows/SelectorList.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "adapters/windows/Wide.h"

namespace adapters::windows {

using controls::Selector;

namespace {

// Lengths at 96 dpi.
constexpr int kRowPadding = 7;
constexpr int kLeastWidth = 260;
constexpr int kRowMargin = 8;
constexpr int kDetailGap = 16;

constexpr int kMeasuredRows = 200;
constexpr int kWheelRows = 3;

}  // namespace

SelectorList::SelectorList(const Surroundings& surroundings, HWND field)
    : PopupWindow(surroundings, field) {
  Create({.style = WS_POPUP | WS_VSCROLL,
          .extendedStyle = WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW | WS_EX_LEFTSCROLLBAR,
          .parent = GetAncestor(field, GA_ROOT)});
}

int SelectorList::RowHeight() const {
  return Look().LineHeight() + Design(kRowPadding);
}

const Selector::Row* SelectorList::RowAt(int row) const {
  if (selector_ == nullptr || row < 0 || row >= Count()) return nullptr;
  const std::size_t index = ListRow(row);
  return index < selector_->List().size() ? &selector_->List()[index] : nullptr;
}

void SelectorList::Show(const Selector& selector, std::vector<std::size_t> rows, int current,
                        int least) {
  const bool opening = !Visible();
  selector_ = &selector;
  rows_ = std::move(rows);
  current_ = current;
  hover_ = -1;
  top_ = 0;
  ShowBelow(
      {std::max(least, WidthForRows()), std::clamp(Count(), 1, kShownRows) * RowHeight() + 2});
  ScrollTo(opening && current > 0 ? current - kShownRows / 2 : 0);
  Invalidate();
}

void SelectorList::Forget() {
  Hide();
  selector_ = nullptr;
  rows_.clear();
  current_ = -1;
}

/// What the first rows take, within the work area.
int SelectorList::WidthForRows() const {
  const Measuring measuring(Look().Font());
  int widest = 0;
  for (int i = 0; i < std::min(Count(), kMeasuredRows); ++i) {
    const Selector::Row* row = RowAt(i);
    if (row == nullptr) break;
    widest = std::max(widest, TextWidth(measuring.Dc(), Wide(row->name)) +
                                  TextWidth(measuring.Dc(), Wide(row->detail)));
  }
  const int around =
      Design(kDetailGap) + 2 * Design(kRowMargin) + GetSystemMetrics(SM_CXVSCROLL) + Design(4);
  const RECT room = Room();
  return std::clamp(widest + around, Design(kLeastWidth), static_cast<int>(room.right - room.left));
}

void SelectorList::ScrollTo(int top) {
  top_ = std::clamp(top, 0, std::max(0, Count() - kShownRows));
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = std::max(0, Count() - 1);
  info.nPage = kShownRows;
  info.nPos = top_;
  SetScrollInfo(Handle(), SB_VERT, &info, TRUE);
  Invalidate();
}

void SelectorList::MoveBy(int rows) {
  if (Count() == 0) return;
  const int from = current_ >= 0 ? current_ : (rows > 0 ? -1 : Count());
  current_ = std::clamp(from + rows, 0, Count() - 1);
  ScrollTo(std::clamp(top_, current_ - kShownRows + 1, current_));
}

void SelectorList::OnScrollBar(int request) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  // The message itself carries only 16 bits of the place.
  GetScrollInfo(Handle(), SB_VERT, &info);
  switch (request) {
    case SB_LINEUP:
      return ScrollTo(top_ - 1);
    case SB_LINEDOWN:
      return ScrollTo(top_ + 1);
    case SB_PAGEUP:
      return ScrollTo(top_ - kShownRows);
    case SB_PAGEDOWN:
      return ScrollTo(top_ + kShownRows);
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return ScrollTo(info.nTrackPos);
    case SB_TOP:
      return ScrollTo(0);
    case SB_BOTTOM:
      return ScrollTo(Count());
    default:
      return;
  }
}

int SelectorList::RowUnder(POINT place) const {
  RECT area{};
  GetClientRect(Handle(), &area);
  if (PtInRect(&area, place) == FALSE) return -1;
  const int row = top_ + static_cast<int>(place.y) / RowHeight();
  return row < Count() ? row : -1;
}

void SelectorList::Paint() const {
  const PaintSession session(Handle());
  session.Fill(session.Area(), theme::kField);
  if (Count() == 0) {
    session.Text(L"موردي يافت نشد", session.Area(),
                 {.font = Look().Font(), .colour = theme::kMutedText, .across = Across::kCentre});
    return;
  }
  const int height = RowHeight();
  for (int row = top_; row < Count() && (row - top_) * height < session.Area().bottom; ++row) {
    const LONG top = (row - top_) * height;
    PaintRow(session, row, {0, top, session.Area().right, top + height});
  }
}

void SelectorList::PaintRow(const Canvas& canvas, int row, const RECT& place) const {
  const Selector::Row* const item = RowAt(row);
  if (item == nullptr) return;
  if (row == current_) {
    canvas.Fill(place, theme::kAccentGround);
  } else if (row == hover_) {
    canvas.Fill(place, controls::palette::kGridRow);
  }
  RECT inside = place;
  InflateRect(&inside, -Design(kRowMargin), 0);
  const std::wstring detail = Wide(item->detail);
  if (!detail.empty()) {
    const Selected font(canvas.Dc(), Look().Font());
    // What the name leaves; of a long name, a third of the row.
    const LONG whole = inside.right - inside.left;
    const LONG name = TextWidth(canvas.Dc(), Wide(item->name));
    const LONG width = std::min(LONG{TextWidth(canvas.Dc(), detail)},
                                std::max(whole - name - Design(kDetailGap), whole / 3));
    canvas.Text(detail, {inside.left, inside.top, inside.left + width, inside.bottom},
                {.font = Look().Font(), .colour = theme::kMutedText, .across = Across::kLeft});
    inside.left += width + Design(kDetailGap);
  }
  canvas.Text(Wide(item->name), inside, {.font = Look().Font()});
}

void SelectorList::PaintBorder() const {
  const FramePainting frame(Handle());
  Canvas(frame.Dc()).Frame(frame.Area(), theme::kBorder);
}

LRESULT SelectorList::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NCCALCSIZE:
      // Both forms of this message begin with the window's place.
      InflateRect(reinterpret_cast<RECT*>(lParam), -1, -1);
      break;
    case WM_NCPAINT: {
      const LRESULT result = Default(message, wParam, lParam);
      PaintBorder();
      return result;
    }
    case WM_PAINT:
      Paint();
      return 0;
    case WM_VSCROLL:
      OnScrollBar(LOWORD(wParam));
      UpdateWindow(Handle());
      return 0;
    case WM_MOUSEWHEEL: {
      wheelRest_ += static_cast<short>(HIWORD(wParam)) * kWheelRows;
      const int rows = wheelRest_ / WHEEL_DELTA;
      wheelRest_ -= rows * WHEEL_DELTA;
      ScrollTo(top_ - rows);
      return 0;
    }
    case WM_MOUSEMOVE: {
      const int row = RowUnder({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      if (std::exchange(hover_, row) != row) Invalidate();
      return 0;
    }
    case WM_LBUTTONUP: {
      const int row = RowUnder({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      if (row < 0) return 0;
      current_ = row;
      if (onPicked) onPicked();
      return 0;
    }
    default:
      break;
  }
  return PopupWindow::OnMessage(message, wParam, lParam);
}

}  // namespace adapters::windows
