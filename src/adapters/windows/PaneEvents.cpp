#include <windowsx.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "adapters/windows/PaneView.h"
#include "adapters/windows/Wide.h"
#include "adapters/windows/WinSurface.h"

namespace adapters::windows {

using screens::Axis;
using screens::Key;
using screens::PointerEvent;

namespace {

screens::Modifiers ModifiersHeld() {
  return {.shift = Held(VK_SHIFT), .control = Held(VK_CONTROL), .alt = Held(VK_MENU)};
}

screens::Modifiers ModifiersOf(WPARAM held) {
  return {
      .shift = (held & MK_SHIFT) != 0, .control = (held & MK_CONTROL) != 0, .alt = Held(VK_MENU)};
}

/// Of screens::Key, from kEnter on.
constexpr WPARAM kKeys[] = {VK_RETURN, VK_ESCAPE, VK_BACK,  VK_INSERT, VK_UP,   VK_DOWN,
                            VK_LEFT,   VK_RIGHT,  VK_PRIOR, VK_NEXT,   VK_HOME, VK_END,
                            VK_TAB,    VK_F3,     VK_F4,    VK_F6,     'A',     'C',
                            'D',       'F',       'I',      'Y',       'Z'};
static_assert(std::size(kKeys) == static_cast<int>(Key::kZ) - static_cast<int>(Key::kEnter) + 1);

/// Null for a key that has no name or comes as a character too.
std::optional<Key> KeyOf(WPARAM key) {
  const auto found = std::ranges::find(kKeys, key) - std::begin(kKeys);
  const bool letter = key >= 'A' && key <= 'Z';
  if (found == std::ssize(kKeys) || (letter && !Held(VK_CONTROL))) return std::nullopt;
  return static_cast<Key>(static_cast<int>(Key::kEnter) + found);
}

}  // namespace

std::optional<LRESULT> PaneView::OnMouse(UINT message, WPARAM wParam, LPARAM lParam) {
  const screens::Point place{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      Press(screens::MouseButton::kLeft, message == WM_LBUTTONDOWN ? 1 : 2, wParam, place);
      return 0;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
      Press(screens::MouseButton::kRight, 1, wParam, place);
      return 0;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
      Press(screens::MouseButton::kMiddle, 1, wParam, place);
      return 0;
    case WM_MOUSEMOVE:
      Move(wParam, place);
      return 0;
    case WM_MOUSELEAVE:
      hovered_ = false;
      pane_->Pointer({.action = PointerEvent::Action::kLeave, .place = {}});
      return 0;
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
      OnWheel(wParam, message == WM_MOUSEHWHEEL);
      return message == WM_MOUSEHWHEEL ? TRUE : 0;
    case WM_LBUTTONUP:
      // Beforehand: what the click does may want the mouse.
      releasing_ = true;
      ReleaseCapture();
      releasing_ = false;
      pane_->Pointer({.action = PointerEvent::Action::kRelease,
                      .place = place,
                      .modifiers = ModifiersOf(wParam)});
      return 0;
    case WM_CAPTURECHANGED:
    case WM_CANCELMODE:
      if (!releasing_) pane_->PointerLost();
      break;
    case WM_TIMER:
      if (wParam != kTimer) break;
      pane_->Tick();
      return 0;
    default:
      break;
  }
  return std::nullopt;
}

void PaneView::Press(screens::MouseButton button, int clicks, WPARAM held, screens::Point place) {
  // What the field does that loses the focus may end the form.
  if (TakesKeys()) TakeFocus();
  if (button == screens::MouseButton::kLeft) SetCapture(Handle());
  AwaitLeaving();
  pane_->Pointer({.action = PointerEvent::Action::kPress,
                  .place = place,
                  .button = button,
                  .clicks = clicks,
                  .modifiers = ModifiersOf(held)});
}

void PaneView::AwaitLeaving() {
  if (std::exchange(hovered_, true)) return;
  TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, Handle(), 0};
  TrackMouseEvent(&leaving);
}

void PaneView::Move(WPARAM held, screens::Point place) {
  const bool left = (held & MK_LBUTTON) != 0;
  // The release is lost when the press opened a modal window.
  if (!left && GetCapture() == Handle()) ReleaseCapture();
  AwaitLeaving();
  pane_->Pointer({.place = place, .leftHeld = left, .modifiers = ModifiersOf(held)});
  if (!left) ShowTip(place);
}

void PaneView::ShowTip(screens::Point place) {
  if (tip_ && tipPlace_.Contains(place)) return;
  const screens::Tip tip = pane_->TipAt(place);
  if (!tip_ && tip.text.empty()) return;
  tipPlace_ = tip.place;
  if (!tip_) {
    tip_ = std::make_unique<PaneTip>(
        Handle(), Look(), [this] { return Wide(pane_->TipAt(tipPlace_.Middle()).text); });
    if (field_) tip_->Cover(field_->Handle());
  }
  tip_->MoveTo(ToRECT(tipPlace_));
}

void PaneView::OnWheel(WPARAM wParam, bool across) {
  UINT lines = 3;
  SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  const double notches = GET_WHEEL_DELTA_WPARAM(wParam) / static_cast<double>(WHEEL_DELTA);
  pane_->Wheel({.up = across ? 0 : notches,
                .left = across ? -notches : 0,
                .lines = lines == WHEEL_PAGESCROLL ? 0 : static_cast<int>(lines),
                .modifiers = ModifiersOf(GET_KEYSTATE_WPARAM(wParam))});
}

void PaneView::OnScrollBar(Axis axis, int request) {
  const screens::ScrollRange& range = axis == Axis::kDown ? down_ : across_;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  // The message itself carries only 16 bits of the place.
  GetScrollInfo(Handle(), BarOf(axis), &info);
  const int thumb = ThumbOf(axis, range);
  int place = thumb;
  switch (request) {
    case SB_LINEUP:
      place -= range.step;
      break;
    case SB_LINEDOWN:
      place += range.step;
      break;
    case SB_PAGEUP:
      place -= range.page;
      break;
    case SB_PAGEDOWN:
      place += range.page;
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      place = info.nTrackPos;
      break;
    case SB_TOP:
      place = 0;
      break;
    case SB_BOTTOM:
      place = range.count;
      break;
    default:
      return;
  }
  pane_->Scrolled(axis, axis == Axis::kDown ? place : range.place + thumb - place);
  UpdateWindow(Handle());
}

std::optional<LRESULT> PaneView::OnKeyboard(UINT message, WPARAM wParam) {
  const bool ofForm = wParam == VK_TAB || wParam == VK_RETURN || wParam == VK_ESCAPE;
  switch (message) {
    case WM_KEYDOWN:
      if (OnKey(wParam, false)) return 0;
      // What else comes with Ctrl may be one of the form's shortcuts.
      if (!ofForm && (!Held(VK_CONTROL) || Held(VK_MENU))) return std::nullopt;
      if (SendMessageW(GetAncestor(Handle(), GA_ROOT), kFormKeyDown, wParam, 0) != 0) return 0;
      return std::nullopt;
    case WM_SYSKEYDOWN:
      if ((wParam == VK_DOWN || wParam == VK_UP) && OnKey(wParam, true)) return 0;
      return std::nullopt;
    case WM_CHAR:
      // The first is what TranslateMessage made of keys that pane and form have had already.
      if (ofForm || OnCharacter(wParam)) return 0;
      return std::nullopt;
    case WM_SYSCHAR:
      if (SendMessageW(GetAncestor(Handle(), GA_ROOT), kFormAccessKey, wParam, 0) != 0) return 0;
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

bool PaneView::OnKey(WPARAM key, bool alt) {
  const auto named = KeyOf(key);
  screens::Modifiers held = ModifiersHeld();
  held.alt = held.alt || alt;
  if (!named || !pane_->PressKey({*named, held, {}})) return false;
  // The pane has had it: its character is not for the field any more.
  const bool writes = key == VK_BACK || (key >= 'A' && key <= 'Z');
  const HWND target = FocusTarget();
  MSG message;
  if (writes && target != nullptr) PeekMessageW(&message, target, WM_CHAR, WM_CHAR, PM_REMOVE);
  return true;
}

bool PaneView::OnCharacter(WPARAM unit) {
  // Neither control characters nor halves of a character; with AltGr both keys are held.
  if (unit < L' ' || unit == 0x7F || (unit >= 0xD800 && unit < 0xE000)) return false;
  const bool shift = Held(VK_SHIFT);
  if (unit == L' ') return pane_->PressKey({Key::kSpace, {.shift = shift}, {}});
  return pane_->PressKey(
      {Key::kText, {.shift = shift}, Utf8(std::wstring(1, static_cast<wchar_t>(unit)))});
}

/// The pane has the keyboard while its field has.
void PaneView::OnFocus(bool focused, HWND other) {
  if (HasField() && focused && GetFocus() == Handle()) {
    SetFocus(field_->Handle());
    return;
  }
  const bool within = other != nullptr && (other == Handle() || other == FocusTarget());
  if ((!focused && within) || std::exchange(focused_, focused) == focused) return;
  PaintFrame();
  pane_->FocusChanged(focused);
}

std::optional<LRESULT> PaneView::OnFieldMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (!pane_) return std::nullopt;
  switch (message) {
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      OnFocus(message == WM_SETFOCUS, reinterpret_cast<HWND>(wParam));
      return std::nullopt;
    case WM_MOUSEWHEEL:
      OnWheel(wParam, false);
      return 0;
    case WM_MOUSEMOVE: {
      POINT place{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
      MapWindowPoints(field_->Handle(), Handle(), &place, 1);
      ShowTip({static_cast<int>(place.x), static_cast<int>(place.y)});
      return std::nullopt;
    }
    case WM_GETOBJECT:
      return reader_.Answer(Handle(), wParam, lParam);
    default:
      return OnKeyboard(message, wParam);
  }
}

bool PaneView::ShowPointer() const {
  POINT place{};
  GetCursorPos(&place);
  ScreenToClient(Handle(), &place);
  const screens::Point at{static_cast<int>(place.x), static_cast<int>(place.y)};
  if (pane_->CursorAt(at) != screens::Cursor::kColumnBorder) return false;
  SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_SIZEWE)));
  return true;
}

std::wstring PaneView::ShownText() const {
  if (HasField()) return TextOf(field_->Handle());
  const screens::Accessible described = pane_->Describe();
  return Wide(described.value.empty() ? described.name : described.value);
}

LRESULT PaneView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  // Both forms of this message begin with the window's place.
  if (message == WM_NCCALCSIZE && framed_) {
    InflateRect(reinterpret_cast<RECT*>(lParam), -1, -1);
  }
  // Windows sends the first ones while the window is being made.
  if (!pane_) return Default(message, wParam, lParam);
  if (const auto answer = OnMouse(message, wParam, lParam)) return *answer;
  if (const auto answer = OnKeyboard(message, wParam)) return *answer;
  switch (message) {
    case WM_NCPAINT: {
      const LRESULT result = Default(message, wParam, lParam);
      PaintFrame();
      return result;
    }
    case WM_PAINT:
      Paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      PassSize();
      return 0;
    case WM_VSCROLL:
    case WM_HSCROLL:
      OnScrollBar(message == WM_VSCROLL ? Axis::kDown : Axis::kAcross, LOWORD(wParam));
      return 0;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
      if (field_) return field_->Colours(reinterpret_cast<HDC>(wParam));
      break;
    case WM_COMMAND:
      if (field_ && HIWORD(wParam) == EN_CHANGE) field_->Changed();
      break;
    case WM_NOTIFY:
      if (tip_ && tip_->OnNotify(lParam)) return 0;
      break;
    case WM_SETCURSOR:
      // The form may show the hourglass over all of it.
      if (LOWORD(lParam) != HTCLIENT || reinterpret_cast<HWND>(wParam) != Handle()) break;
      if (SendMessageW(GetParent(Handle()), message, wParam, lParam) != 0) return TRUE;
      if (ShowPointer()) return TRUE;
      break;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      OnFocus(message == WM_SETFOCUS, reinterpret_cast<HWND>(wParam));
      break;
    case WM_GETOBJECT:
      if (const auto answer = reader_.Answer(Handle(), wParam, lParam)) return *answer;
      break;
    case kAct:
      if (Enabled()) pane_->Act(static_cast<int>(wParam) - 1);
      return 0;
    case WM_GETDLGCODE:
      return kAllKeys;
    case WM_GETFONT:
      return reinterpret_cast<LRESULT>(Look().Font());
    case WM_GETTEXTLENGTH:
      return static_cast<LRESULT>(ShownText().size());
    case WM_GETTEXT: {
      if (wParam == 0) return 0;
      auto* const text = reinterpret_cast<wchar_t*>(lParam);
      const std::size_t size = ShownText().copy(text, wParam - 1);
      text[size] = 0;
      return static_cast<LRESULT>(size);
    }
    default:
      break;
  }
  return Default(message, wParam, lParam);
}

}  // namespace adapters::windows
