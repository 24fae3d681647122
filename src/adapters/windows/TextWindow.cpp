#include "adapters/windows/TextWindow.h"

#include <algorithm>
#include <string>

#include "adapters/windows/Clipboard.h"
#include "adapters/windows/Field.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

using controls::Aspect;
using controls::Change;

namespace {

/// An EDIT knows CR LF as a line's end only.
std::wstring WithLineEnds(std::wstring_view text) {
  std::wstring result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'\n' && (i == 0 || text[i - 1] != L'\r')) result += L'\r';
    result += text[i];
  }
  return result;
}

}  // namespace

TextWindow::TextWindow(controls::TextBox& model, const Surroundings& surroundings, HWND parent)
    : WindowOf(model, surroundings),
      severalLines_(model.LineMode() == controls::TextBox::Lines::kSeveral) {
  const DWORD lines =
      severalLines_ ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN : ES_AUTOHSCROLL;
  CreateStandard(L"EDIT", {.style = WS_CHILD | WS_CLIPSIBLINGS | ES_RIGHT | lines,
                           .extendedStyle = kRightToLeftField,
                           .parent = parent});
  SendMessageW(Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(Look().Font()), FALSE);
  SendMessageW(Handle(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
  SendMessageW(Handle(), EM_SETLIMITTEXT, 0, 0);  // no limit, where an EDIT of its own has one
}

void TextWindow::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText) ShowText();
}

void TextWindow::ShowText() {
  const std::wstring wanted =
      severalLines_ ? WithLineEnds(Wide(Model()->Text())) : Wide(Model()->Text());
  if (wanted == TextOf(Handle())) return;
  DWORD cursor = 0;
  SendMessageW(Handle(), EM_GETSEL, 0, reinterpret_cast<LPARAM>(&cursor));
  if (GetFocus() != Handle()) cursor = 0;
  showing_ = true;
  SetWindowTextW(Handle(), wanted.c_str());
  showing_ = false;
  cursor = std::min(cursor, static_cast<DWORD>(wanted.size()));
  SendMessageW(Handle(), EM_SETSEL, cursor, static_cast<LPARAM>(cursor));
}

std::optional<std::wstring> TextWindow::TakenInstead(const std::wstring& text) const {
  if (!Model()) return std::nullopt;
  const std::string typed = Utf8(text);
  std::string taken = Model()->Taken(typed);
  return taken == typed ? std::nullopt : std::optional(Wide(taken));
}

bool TextWindow::Paste() {
  if (!Model()) return false;
  const std::wstring text = TextOfClipboard(Handle());
  const std::wstring taken = Wide(Model()->Pasted(Utf8(text)));
  if (taken == text) return false;
  // To be undone in one.
  SendMessageW(Handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(taken.c_str()));
  return true;
}

LRESULT TextWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NCCALCSIZE: {
      RECT& place = *reinterpret_cast<RECT*>(lParam);
      place = InsideField(place, Look(), severalLines_);
      return 0;
    }
    case WM_NCPAINT: {
      const FramePainting frame(Handle());
      const Buffer canvas(frame.Dc(), frame.Area());
      PaintField(canvas, frame.Area(), Look(), Ground(), Enabled(), GetFocus() == Handle());
      return 0;
    }
    case WM_NCHITTEST:
      return HTCLIENT;  // the padding belongs to the text
    case WM_ERASEBKGND:
      return Default(message, wParam, lParam);
    case WM_PAINT:
      // Several lines may be scrolled, which only the EDIT knows.
      if (Enabled() && (severalLines_ || GetFocus() == Handle())) break;
      PaintText();
      return 0;
    case WM_SETFOCUS: {
      const LRESULT result = WindowOf::OnMessage(message, wParam, lParam);
      RedrawWindow(Handle(), nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
      if (Model() && Model()->SelectAllOnFocus()) SendMessageW(Handle(), EM_SETSEL, 0, -1);
      return result;
    }
    case WM_KILLFOCUS:
      RedrawWindow(Handle(), nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
      break;
    case WM_KEYDOWN:
      if (severalLines_ && wParam == VK_RETURN) return Default(message, wParam, lParam);
      break;
    case WM_CHAR:
      if (severalLines_ && wParam == L'\r') return Default(message, wParam, lParam);
      if (wParam == 1) {  // Ctrl+A
        SendMessageW(Handle(), EM_SETSEL, 0, -1);
        return 0;
      }
      // Before the EDIT has it, so that undo knows no other text.
      if (const auto taken = TakenInstead(std::wstring(1, static_cast<wchar_t>(wParam)))) {
        wParam = taken->front();
      }
      break;
    case WM_PASTE:
      if (Paste()) return 0;
      break;
    default:
      break;
  }
  return WindowOf::OnMessage(message, wParam, lParam);
}

bool TextWindow::OnParentMessage(UINT message, WPARAM wParam, LPARAM /*lParam*/, LRESULT& result) {
  if (message == WM_CTLCOLOREDIT || message == WM_CTLCOLORSTATIC) {
    result = FieldColours(reinterpret_cast<HDC>(wParam), Enabled());
    return true;
  }
  if (message != WM_COMMAND || HIWORD(wParam) != EN_CHANGE) return false;
  if (!showing_) {
    // What came past keys and clipboard may not have been taken as it is.
    if (Call([&](controls::TextBox& box) { box.SetText(Utf8(TextOf(Handle()))); })) ShowText();
  }
  return true;
}

void TextWindow::PaintText() const {
  // An EDIT would show a disabled text in the system's grey, which is hard to read on this ground,
  // and not every Windows puts its Persian and Latin words in the right order.
  const PaintSession canvas(Handle());
  canvas.Fill(canvas.Area(), Enabled() ? theme::kField : controls::palette::kFrame);
  canvas.Text(TextOf(Handle()), canvas.Area(), {.font = Look().Font(), .wrapped = severalLines_});
}

}  // namespace adapters::windows
