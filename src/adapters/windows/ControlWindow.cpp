#include "adapters/windows/ControlWindow.h"

namespace adapters::windows {

using controls::Aspect;
using controls::Change;
using controls::Control;

namespace {

controls::Colour GroundOf(const Control& control) {
  const controls::Container* container = &control.Parent();
  while (const auto* frame = dynamic_cast<const controls::Frame*>(container)) {
    if (frame->BorderStyle() == controls::Frame::Border::kLine) return controls::palette::kFrame;
    container = &frame->Parent();
  }
  return controls::palette::kFormGround;
}

}  // namespace

bool OfferKeyToForm(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
      if (wParam != VK_TAB && wParam != VK_RETURN && wParam != VK_ESCAPE) return false;
      return SendMessageW(GetAncestor(window, GA_ROOT), kFormKeyDown, wParam, lParam) != 0;
    case WM_CHAR:
      // What TranslateMessage made of keys that the form has had already.
      return wParam == L'\t' || wParam == L'\r' || wParam == 27;
    default:
      return false;
  }
}

void ControlWindow::Follow(Control& control) {
  SetName(kControlProperty, control.Name());
  ground_ = GroundOf(control);
  following_.Begin(control, [this, &control](const Change& change) { Apply(control, change); });
}

void ControlWindow::Apply(Control& control, const Change& change) {
  if (Handle() == nullptr) return;
  const bool focused = HasFocus();
  switch (change.aspect) {
    case Aspect::kBounds: {
      const RECT place = GetScale().Bounds(control);
      SetWindowPos(Handle(), nullptr, place.left, place.top, place.right - place.left,
                   place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
      break;
    }
    case Aspect::kEnabled:
      EnableWindow(Handle(), control.Enabled());
      RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN);
      if (focused && !control.Enabled()) PassFocusOn();
      break;
    case Aspect::kVisible:
      ShowWindow(Handle(), control.Visible() ? SW_SHOWNA : SW_HIDE);
      if (focused && !control.Visible()) PassFocusOn();
      break;
    default:
      break;
  }
  Refresh(change);
}

void ControlWindow::PassFocusOn() const {
  // Windows leaves the focus with a window that is disabled, where it takes no keys.
  SendMessageW(GetAncestor(Handle(), GA_ROOT), kFormFocusLost, 0, 0);
}

bool ControlWindow::HasFocus() const {
  const HWND focus = GetFocus();
  return focus != nullptr && (focus == Handle() || IsChild(Handle(), focus));
}

bool ControlWindow::Enabled() const {
  const HWND root = GetAncestor(Handle(), GA_ROOT);
  for (HWND at = Handle(); at != nullptr && at != root; at = GetAncestor(at, GA_PARENT)) {
    if (!IsWindowEnabled(at)) return false;
  }
  return true;
}

LRESULT ControlWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_CHAR:
      if (OfferKeyToForm(Handle(), message, wParam, lParam)) return 0;
      break;
    case WM_GETDLGCODE:
      // For a host that runs a dialog's keyboard over whatever window is active.
      return Default(message, wParam, lParam) | DLGC_WANTALLKEYS | DLGC_WANTARROWS | DLGC_WANTTAB |
             DLGC_WANTCHARS;
    case WM_GETFONT:
      return reinterpret_cast<LRESULT>(Look().Font());
    case WM_ERASEBKGND:
      return 1;
    default:
      break;
  }
  return Default(message, wParam, lParam);
}

}  // namespace adapters::windows
