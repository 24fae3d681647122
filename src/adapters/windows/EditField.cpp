#include "adapters/windows/EditField.h"

#include <algorithm>

#include "adapters/windows/Clipboard.h"
#include "adapters/windows/PaneView.h"
#include "adapters/windows/Wide.h"
#include "adapters/windows/WinSurface.h"
#include "screens/Palette.h"

namespace adapters::windows {

namespace {

constexpr wchar_t kControlA = 1;
constexpr wchar_t kDelete = 0x7F;  // of Ctrl+Backspace, which an EDIT would write

}  // namespace

EditField::EditField(ErrorGuard& guard, const Theme& look, PaneView& view)
    : Window(guard), look_(look), view_(view) {
  Create({.style = WS_CHILD | WS_CLIPSIBLINGS | ES_RIGHT | ES_AUTOHSCROLL,
          .extendedStyle = WS_EX_RTLREADING | WS_EX_RIGHT,
          .parent = view.Handle(),
          .standardClass = L"EDIT"});
  SendMessageW(Handle(), EM_SETLIMITTEXT, 0, 0);  // no limit, where an EDIT of its own has one
  TakeFont();
}

void EditField::TakeFont() {
  SendMessageW(Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(look_.Font()), FALSE);
  SendMessageW(Handle(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
}

void EditField::Move(const screens::Rect& place) {
  hidden_ = false;
  // It writes at its top.
  const int height = std::min(look_.LineHeight(), place.Height());
  const int top = place.top + (place.Height() - height) / 2;
  SetWindowPos(Handle(), nullptr, place.left, top, place.Width(), height,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void EditField::Hide() {
  hidden_ = true;
  if (Focused()) SetFocus(view_.Handle());
  ShowWindow(Handle(), SW_HIDE);
}

std::string EditField::Text() const {
  return Utf8(TextOf(Handle()));
}

void EditField::SetText(const std::string& text) {
  const std::wstring wanted = Wide(text);
  if (wanted == TextOf(Handle())) return;
  DWORD caret = 0;
  if (Focused()) SendMessageW(Handle(), EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
  showing_ = true;
  SetWindowTextW(Handle(), wanted.c_str());
  showing_ = false;
  caret = std::min(caret, static_cast<DWORD>(wanted.size()));
  SendMessageW(Handle(), EM_SETSEL, caret, static_cast<LPARAM>(caret));
}

std::optional<std::wstring> EditField::TakenInstead(const std::wstring& text) const {
  const screens::Pane* const pane = view_.Shown();
  if (pane == nullptr || text.front() < L' ') return std::nullopt;
  const std::string typed = Utf8(text);
  const std::string taken = pane->Taken(typed);
  return taken == typed ? std::nullopt : std::optional(Wide(taken));
}

bool EditField::Paste() {
  const screens::Pane* const pane = view_.Shown();
  if (pane == nullptr || Locked()) return false;
  const std::wstring text = TextOfClipboard(Handle());
  const std::wstring taken = Wide(pane->Pasted(Utf8(text)));
  if (taken == text) return false;
  Put(taken);
  return true;
}

/// To be undone in one.
void EditField::Put(const std::wstring& text) {
  SendMessageW(Handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

LRESULT EditField::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
      const LRESULT result = Default(message, wParam, lParam);
      Invalidate();
      view_.OnFieldMessage(message, wParam, lParam);
      return result;
    }
    case WM_PAINT:
      if (view_.Enabled() && Focused()) break;
      PaintText();
      return 0;
    case WM_GETDLGCODE:
      return Default(message, wParam, lParam) | kAllKeys;
    default:
      break;
  }
  if (const auto answer = view_.OnFieldMessage(message, wParam, lParam)) return *answer;
  if (message == WM_PASTE && Paste()) return 0;
  if (message == WM_CHAR) {
    if (wParam == kDelete) return 0;
    if (wParam == kControlA) {
      SelectAll();
      return 0;
    }
    // Before the EDIT has it, so that undo knows no other text.
    if (const auto taken = TakenInstead(std::wstring(1, static_cast<wchar_t>(wParam)))) {
      if (taken->size() != 1) {
        if (!Locked()) Put(*taken);
        return 0;
      }
      wParam = taken->front();
    }
  }
  return Default(message, wParam, lParam);
}

void EditField::Changed() {
  if (!showing_ && view_.Shown() != nullptr) view_.Shown()->Edited();
}

controls::Colour EditField::Ground() const {
  return view_.Enabled() ? screens::palette::kField : screens::palette::kFrame;
}

LRESULT EditField::Colours(HDC dc) const {
  SetTextColor(dc, look_.Shown(screens::palette::kText));
  SetBkColor(dc, look_.Shown(Ground()));
  SetDCBrushColor(dc, look_.Shown(Ground()));
  return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
}

/// An EDIT would show a disabled text in the system's grey, which is hard to read on this ground,
/// and not every Windows puts its Persian and Latin words in the right order.
void EditField::PaintText() const {
  PaintSession surface(Handle(), look_);
  surface.Fill(surface.Dirty(), Ground());
  surface.Text(Text(), ClientArea(Handle()), {.colour = screens::palette::kText});
}

}  // namespace adapters::windows
