#include "adapters/windows/PopupWindow.h"

#include <algorithm>
#include <utility>

#include "adapters/windows/WinSurface.h"
#include "screens/Palette.h"
#include "screens/PopupPlace.h"

namespace adapters::windows {

using screens::PopupKind;

namespace {

constexpr int kNoteGap = 2;  // at 96 dpi
constexpr UINT kLeave = WM_APP + 20;

/// The popup that is open in this thread; Windows passes a hook nothing of its owner.
thread_local const PopupWindow* open = nullptr;

constexpr UINT kPresses[] = {WM_LBUTTONDOWN,   WM_RBUTTONDOWN,     WM_MBUTTONDOWN,
                             WM_XBUTTONDOWN,   WM_LBUTTONDBLCLK,   WM_RBUTTONDBLCLK,
                             WM_MBUTTONDBLCLK, WM_NCLBUTTONDBLCLK, WM_NCLBUTTONDOWN,
                             WM_NCRBUTTONDOWN, WM_NCMBUTTONDOWN,   WM_NCXBUTTONDOWN};

WindowPlan PlanOf(PopupKind kind, HWND form) {
  const bool note = kind == PopupKind::kNote;
  return {.style = note ? WS_CHILD | WS_CLIPSIBLINGS : WS_POPUP,
          .extendedStyle = note ? 0UL : WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW | WS_EX_LEFTSCROLLBAR,
          .parent = form};
}

}  // namespace

screens::Rect RoomOf(PopupKind kind, HWND window) {
  if (kind == PopupKind::kNote) return ClientArea(GetAncestor(window, GA_ROOT));
  return WorkArea(window, MONITOR_DEFAULTTONEAREST);
}

PopupWindow::PopupWindow(PaneView& owner, PopupKind kind, const screens::PaneMaker& make)
    : PaneView(owner.surroundings_),
      owner_(owner),
      kind_(kind),
      form_(GetAncestor(owner.Handle(), GA_ROOT)) {
  Create(PlanOf(kind, form_));
  if (kind == PopupKind::kDropDown) AddFrame();
  Fill(make(Host()));
}

PopupWindow::~PopupWindow() {
  EndWatching();
}

controls::Colour PopupWindow::FrameColour(bool /*focused*/) const {
  return screens::palette::kBorder;
}

void PopupWindow::Show(screens::Size size) {
  const bool note = kind_ == PopupKind::kNote;
  RECT control = ToRECT(WindowArea(owner_.Handle()));
  if (note) MapWindowPoints(nullptr, form_, reinterpret_cast<POINT*>(&control), 2);
  const int gap = note ? Look().GetScale().Design(kNoteGap) : 0;
  const screens::Rect place =
      screens::PopupPlace(FromRECT(control), size, gap, RoomOf(kind_, owner_.Handle()));
  // A form that is raised after its list came up must not cover it.
  SetWindowPos(Handle(), note ? HWND_TOP : HWND_TOPMOST, place.left, place.top, place.Width(),
               place.Height(), SWP_NOACTIVATE | SWP_SHOWWINDOW);
  if (!note) BeginWatching();
}

void PopupWindow::Hide() {
  EndWatching();
  if (Visible()) ShowWindow(Handle(), SW_HIDE);
}

void PopupWindow::BeginWatching() {
  if (open == this) return;
  if (open != nullptr) PostMessageW(open->Handle(), kLeave, 0, 0);
  open = this;
  formPlace_ = WindowArea(form_);
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
  if (code == HC_ACTION && removed == PM_REMOVE && open != nullptr &&
      std::ranges::count(kPresses, message.message) > 0 && message.hwnd != open->Handle()) {
    message.message = WM_NULL;
    PostMessageW(open->Handle(), kLeave, 0, 0);
  }
  return CallNextHookEx(nullptr, code, removed, lParam);
}

LRESULT CALLBACK PopupWindow::WatchMoves(int code, WPARAM wParam, LPARAM lParam) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && open != nullptr && sent.hwnd == open->form_ &&
      sent.message == WM_WINDOWPOSCHANGED) {
    // It may have been put where it stood already.
    const bool hidden =
        (reinterpret_cast<const WINDOWPOS*>(sent.lParam)->flags & SWP_HIDEWINDOW) != 0;
    if (hidden || WindowArea(open->form_) != open->formPlace_) {
      PostMessageW(open->Handle(), kLeave, 0, 0);
    }
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT PopupWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case kLeave:
      if (Visible() && owner_.Shown() != nullptr) owner_.Shown()->PopupLeft();
      return 0;
    case WM_MOUSEACTIVATE:
      return MA_NOACTIVATE;
    case WM_NCHITTEST:
      if (kind_ == PopupKind::kNote) return HTTRANSPARENT;
      break;
    case WM_DESTROY:
      EndWatching();
      break;
    default:
      break;
  }
  return PaneView::OnMessage(message, wParam, lParam);
}

}  // namespace adapters::windows
