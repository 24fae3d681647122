#include "adapters/windows/PaneWindow.h"

#include <windowsx.h>

#include "controls/Controls.h"
#include "screens/MakePane.h"
#include "screens/PixelPlace.h"
#include "screens/TabOrder.h"

namespace adapters::windows {

using controls::Aspect;
using controls::Change;

PaneWindow::PaneWindow(controls::Control& control, const Surroundings& surroundings, HWND parent)
    : PaneView(surroundings),
      control_(&control),
      transparent_(dynamic_cast<const controls::Label*>(&control) != nullptr) {
  Create({.style = WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN,
          .extendedStyle = WS_EX_CONTROLPARENT | WS_EX_LEFTSCROLLBAR,
          .parent = parent});
  // Those declared later lie above.
  SetWindowPos(Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  Fill(screens::MakePane(control, Host()));
  following_.Begin(control, [this](const Change& change) { Apply(change); });
}

void PaneWindow::Detach() {
  following_.End();
  Shown()->Detach();
  control_ = nullptr;
}

void PaneWindow::Place() {
  const screens::Rect place = screens::PlaceInContainer(
      *control_, [this](controls::Twips twips) { return Look().GetScale().Pixels(twips); });
  SetWindowPos(Handle(), nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void PaneWindow::Rescale() {
  if (control_ != nullptr && Handle() != nullptr) Place();
  Remeasure();
}

void PaneWindow::Apply(const Change& change) {
  if (Handle() == nullptr) return;
  const HWND focus = GetFocus();
  const bool focused = focus != nullptr && (focus == Handle() || IsChild(Handle(), focus));
  bool lost = false;
  switch (change.aspect) {
    case Aspect::kBounds:
      Place();
      break;
    case Aspect::kEnabled:
      EnableWindow(Handle(), control_->Enabled());
      RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN);
      lost = focused && !control_->Enabled();
      break;
    case Aspect::kVisible:
      ShowWindow(Handle(), control_->Visible() ? SW_SHOWNA : SW_HIDE);
      lost = focused && !control_->Visible();
      break;
    default:
      break;
  }
  // Windows leaves the focus with a window that is disabled, where it takes no keys.
  if (lost) SendMessageW(GetAncestor(Handle(), GA_ROOT), kFormFocusLost, 0, 0);
  Guard().Run([&] { Shown()->Changed(change); });
}

bool PaneWindow::Enabled() const {
  const HWND root = GetAncestor(Handle(), GA_ROOT);
  for (HWND at = Handle(); at != nullptr && at != root; at = GetAncestor(at, GA_PARENT)) {
    if (!IsWindowEnabled(at)) return false;
  }
  return true;
}

bool PaneWindow::TakesKeys() const {
  return control_ != nullptr && screens::TakesKeyboard(*control_);
}

LRESULT PaneWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCHITTEST && transparent_ && Shown() != nullptr) {
    POINT place{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    ScreenToClient(Handle(), &place);
    const screens::Point at{static_cast<int>(place.x), static_cast<int>(place.y)};
    if (Shown()->TipAt(at).text.empty()) return HTTRANSPARENT;
  }
  return PaneView::OnMessage(message, wParam, lParam);
}

}  // namespace adapters::windows
