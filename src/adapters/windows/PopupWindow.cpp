#include "adapters/windows/PopupWindow.h"

#include <algorithm>
#include <utility>

namespace adapters::windows {

namespace {

constexpr UINT kLeave = WM_APP + 20;

/// The popup that is open in this thread; Windows passes a hook nothing of its owner.
thread_local const PopupWindow* open = nullptr;

bool IsPress(UINT message) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_XBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDBLCLK:
    case WM_NCLBUTTONDOWN:
    case WM_NCRBUTTONDOWN:
    case WM_NCMBUTTONDOWN:
    case WM_NCXBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK:
      return true;
    default:
      return false;
  }
}

}  // namespace

PopupWindow::PopupWindow(const Surroundings& surroundings, HWND field)
    : Window(surroundings.guard),
      look_(surroundings.theme),
      field_(field),
      form_(GetAncestor(field, GA_ROOT)) {}

PopupWindow::~PopupWindow() {
  EndWatching();
}

RECT PopupWindow::Room() const {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(field_, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

RECT PopupWindow::PlaceFor(SIZE size) const {
  RECT field{};
  GetWindowRect(field_, &field);
  const RECT room = Room();
  LONG left = field.right - size.cx;
  LONG top = field.bottom;
  if (top + size.cy > room.bottom) top = field.top - size.cy;
  left = std::clamp(left, room.left, std::max(room.left, room.right - size.cx));
  top = std::max(top, room.top);
  return {left, top, left + size.cx, top + size.cy};
}

void PopupWindow::ShowBelow(SIZE size) {
  const RECT place = PlaceFor(size);
  SetWindowPos(Handle(), HWND_TOP, place.left, place.top, size.cx, size.cy,
               SWP_NOACTIVATE | SWP_SHOWWINDOW);
  BeginWatching();
}

void PopupWindow::Hide() {
  EndWatching();
  if (Visible()) ShowWindow(Handle(), SW_HIDE);
}

void PopupWindow::BeginWatching() {
  if (open == this) return;
  if (open != nullptr) PostMessageW(open->Handle(), kLeave, 0, 0);
  open = this;
  const DWORD thread = GetCurrentThreadId();
  presses_ = SetWindowsHookExW(WH_GETMESSAGE, &PopupWindow::WatchPresses, nullptr, thread);
  moves_ = SetWindowsHookExW(WH_CALLWNDPROC, &PopupWindow::WatchMoves, nullptr, thread);
}

void PopupWindow::EndWatching() {
  for (HHOOK* hook : {&presses_, &moves_}) {
    if (*hook != nullptr) UnhookWindowsHookEx(std::exchange(*hook, nullptr));
  }
  if (open == this) open = nullptr;
}

LRESULT CALLBACK PopupWindow::WatchPresses(int code, WPARAM removed, LPARAM lParam) {
  auto& message = *reinterpret_cast<MSG*>(lParam);
  if (code == HC_ACTION && removed == PM_REMOVE && open != nullptr && IsPress(message.message) &&
      message.hwnd != open->Handle()) {
    message.message = WM_NULL;
    PostMessageW(open->Handle(), kLeave, 0, 0);
  }
  return CallNextHookEx(nullptr, code, removed, lParam);
}

LRESULT CALLBACK PopupWindow::WatchMoves(int code, WPARAM wParam, LPARAM lParam) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && open != nullptr && sent.hwnd == open->form_ &&
      sent.message == WM_WINDOWPOSCHANGED) {
    constexpr UINT kStays = SWP_NOMOVE | SWP_NOSIZE;
    const UINT flags = reinterpret_cast<const WINDOWPOS*>(sent.lParam)->flags;
    if ((flags & kStays) != kStays || (flags & SWP_HIDEWINDOW) != 0) {
      PostMessageW(open->Handle(), kLeave, 0, 0);
    }
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT PopupWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case kLeave:
      if (Visible() && onLeft) onLeft();
      return 0;
    case WM_MOUSEACTIVATE:
      return MA_NOACTIVATE;
    case WM_ERASEBKGND:
      return 1;
    case WM_DESTROY:
      EndWatching();
      break;
    default:
      break;
  }
  return Default(message, wParam, lParam);
}

}  // namespace adapters::windows
