#include "adapters/windows/PushButton.h"

#include <utility>

#include "adapters/windows/Surroundings.h"

namespace adapters::windows {

bool ButtonFace::OnMessage(HWND window, UINT& message, WPARAM /*wParam*/) {
  switch (message) {
    case WM_PAINT:
      Paint(window);
      return true;
    case WM_LBUTTONDBLCLK:
      message = WM_LBUTTONDOWN;
      return false;
    case WM_MOUSEMOVE:
      if (!std::exchange(hovered_, true)) {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window, 0};
        TrackMouseEvent(&track);
        InvalidateRect(window, nullptr, FALSE);
      }
      return false;
    case WM_MOUSELEAVE:
      hovered_ = false;
      InvalidateRect(window, nullptr, FALSE);
      return false;
    default:
      return false;
  }
}

void ButtonFace::Paint(HWND window) const {
  const PaintSession canvas(window);
  const bool enabled = IsWindowEnabled(window) != FALSE;
  const bool pressed = (SendMessageW(window, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0;
  const bool focused = GetFocus() == window;
  const screens::Scale& scale = theme_.GetScale();
  controls::Colour face = face_;
  controls::Colour line = theme::kBorder;
  controls::Colour ink = theme::kText;
  if (!enabled) {
    face = around_;
    line = theme::kLine;
    ink = theme::kMutedText;
  } else if (pressed) {
    face = theme::kLine;
  } else if (hovered_) {
    face = theme::kAccentGround;
    line = theme::kAccent;
  }
  const bool marked = enabled && (focused || isDefault_);
  if (marked) line = theme::kAccent;
  canvas.Fill(canvas.Area(), around_);
  canvas.RoundBox(canvas.Area(), scale.Design(4), face, line,
                  scale.Design(focused && enabled ? 2 : 1));
  RECT inside = canvas.Area();
  InflateRect(&inside, -scale.Design(3), 0);
  if (pressed) OffsetRect(&inside, 0, scale.Design(1));
  canvas.Text(TextOf(window), inside,
              {.font = theme_.Font(), .colour = ink, .across = Across::kCentre});
}

PushButton::PushButton(ErrorGuard& guard, const Theme& theme, HWND parent, const RECT& place,
                       const std::wstring& caption, std::function<void()> onClick)
    : Window(guard), face_(theme), onClick_(std::move(onClick)) {
  CreateStandard(L"BUTTON", {.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | BS_OWNERDRAW,
                             .extendedStyle = WS_EX_RTLREADING,
                             .parent = parent,
                             .place = place,
                             .text = caption});
  SendMessageW(Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(theme.Font()), FALSE);
}

LRESULT PushButton::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (face_.OnMessage(Handle(), message, wParam)) return 0;
  switch (message) {
    case WM_KEYDOWN:
      if (wParam == VK_RETURN) {
        onClick_();
        return 0;
      }
      if (SendMessageW(GetAncestor(Handle(), GA_ROOT), kFormKeyDown, wParam, lParam) != 0) return 0;
      break;
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS | DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTCHARS;
    case WM_ERASEBKGND:
      return 1;
    default:
      break;
  }
  return Default(message, wParam, lParam);
}

bool PushButton::OnParentMessage(UINT message, WPARAM wParam, LPARAM /*lParam*/,
                                 LRESULT& /*result*/) {
  if (message == WM_DRAWITEM) {
    Invalidate();
    return true;
  }
  if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
    onClick_();
    return true;
  }
  return false;
}

}  // namespace adapters::windows
