#include "adapters/windows/PaneTip.h"

#include <commctrl.h>

#include <utility>

#include "adapters/windows/Window.h"

namespace adapters::windows {

namespace {

constexpr int kMostWidth = 500;  // at 96 dpi

TTTOOLINFOW ToolOf(HWND window) {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_SUBCLASS | TTF_RTLREADING;
  tool.hwnd = window;
  tool.lpszText = LPSTR_TEXTCALLBACKW;
  return tool;
}

}  // namespace

PaneTip::PaneTip(HWND window, const Theme& look, std::function<std::wstring()> text)
    : window_(window), ask_(std::move(text)) {
  const INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_BAR_CLASSES};
  InitCommonControlsEx(&wanted);
  tip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, 0, 0, 0,
                         0, window, nullptr, Window::Instance(), nullptr);
  SendMessageW(tip_, WM_SETFONT, reinterpret_cast<WPARAM>(look.Font()), FALSE);
  SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, look.GetScale().Design(kMostWidth));
  const TTTOOLINFOW tool = ToolOf(window);
  SendMessageW(tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

PaneTip::~PaneTip() {
  // It may have gone with the form that owned it.
  if (IsWindow(tip_)) DestroyWindow(tip_);
}

void PaneTip::Cover(HWND child) {
  TTTOOLINFOW tool = ToolOf(window_);
  tool.uFlags |= TTF_IDISHWND;
  tool.uId = reinterpret_cast<UINT_PTR>(child);
  SendMessageW(tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void PaneTip::MoveTo(const RECT& place) {
  SendMessageW(tip_, TTM_POP, 0, 0);
  TTTOOLINFOW tool = ToolOf(window_);
  tool.rect = place;
  SendMessageW(tip_, TTM_NEWTOOLRECTW, 0, reinterpret_cast<LPARAM>(&tool));
}

bool PaneTip::OnNotify(LPARAM lParam) {
  auto& asked = *reinterpret_cast<NMTTDISPINFOW*>(lParam);
  if (asked.hdr.hwndFrom != tip_ || asked.hdr.code != static_cast<UINT>(TTN_GETDISPINFOW)) {
    return false;
  }
  text_ = ask_();
  // Not every Windows minds TTF_RTLREADING: the text itself says that it reads from the right.
  if (!text_.empty()) text_.insert(0, 1, L'\u202B');
  asked.lpszText = text_.data();
  return true;
}

}  // namespace adapters::windows
