#include "adapters/windows/PaneWindow.h"

#include <windowsx.h>

#include <algorithm>

#include "adapters/windows/Clipboard.h"
#include "adapters/windows/GridAutomation.h"
#include "adapters/windows/HeldKey.h"
#include "adapters/windows/Wide.h"
#include "adapters/windows/WinSurface.h"
#include "screens/GridPane.h"

namespace adapters::windows {

using screens::Axis;
using screens::Key;
using screens::PointerEvent;

namespace {

constexpr UINT_PTR kTimer = 1;

screens::Modifiers ModifiersHeld() {
  return {.shift = Held(VK_SHIFT), .control = Held(VK_CONTROL), .alt = Held(VK_MENU)};
}

screens::Modifiers ModifiersOf(WPARAM held) {
  return {
      .shift = (held & MK_SHIFT) != 0, .control = (held & MK_CONTROL) != 0, .alt = Held(VK_MENU)};
}

/// Null for a key that has no name or comes as a character too.
std::optional<Key> KeyOf(WPARAM key) {
  static constexpr std::pair<WPARAM, Key> kKeys[] = {{VK_RETURN, Key::kEnter},
                                                     {VK_ESCAPE, Key::kEscape},
                                                     {VK_BACK, Key::kBackspace},
                                                     {VK_INSERT, Key::kInsert},
                                                     {VK_UP, Key::kUp},
                                                     {VK_DOWN, Key::kDown},
                                                     {VK_LEFT, Key::kLeft},
                                                     {VK_RIGHT, Key::kRight},
                                                     {VK_PRIOR, Key::kPageUp},
                                                     {VK_NEXT, Key::kPageDown},
                                                     {VK_HOME, Key::kHome},
                                                     {VK_END, Key::kEnd},
                                                     {VK_F3, Key::kF3},
                                                     {VK_F6, Key::kF6},
                                                     {'A', Key::kA},
                                                     {'C', Key::kC},
                                                     {'D', Key::kD},
                                                     {'I', Key::kI}};
  const auto* const found =
      std::ranges::find(kKeys, key, [](const auto& pair) { return pair.first; });
  if (found == std::end(kKeys)) return std::nullopt;
  const bool letter = key >= 'A' && key <= 'Z';
  return letter && !Held(VK_CONTROL) ? std::nullopt : std::optional(found->second);
}

int BarOf(Axis axis) {
  return axis == Axis::kDown ? SB_VERT : SB_HORZ;
}

/// Where the thumb is. The bar across begins at the left, the pane at the right.
int ThumbOf(Axis axis, const screens::ScrollRange& range) {
  return axis == Axis::kDown ? range.place : std::max(0, range.count - range.page) - range.place;
}

}  // namespace

PaneWindow::PaneWindow(const Surroundings& surroundings, HWND parent)
    : ControlWindow(surroundings) {
  WindowPlan plan;
  plan.style = WS_CHILD | WS_CLIPSIBLINGS | WS_VSCROLL | WS_HSCROLL;
  plan.extendedStyle = WS_EX_LEFTSCROLLBAR;
  plan.parent = parent;
  Create(plan);
}

void PaneWindow::Detach() {
  Unfollow();
  pane_->Detach();
}

void PaneWindow::Refresh(const controls::Change& change) {
  pane_->Changed(change);
}

// What the pane asks.

int PaneWindow::TextWidth(std::string_view text, screens::Weight weight) const {
  const Measuring measuring(weight == screens::Weight::kBold ? Look().BoldFont() : Look().Font());
  return windows::TextWidth(measuring.Dc(), Wide(text));
}

void PaneWindow::Repaint(const screens::Rect& area) {
  const RECT place = ToRECT(area);
  if (!area.Empty()) InvalidateRect(Handle(), &place, FALSE);
}

void PaneWindow::ScrollPart(const screens::Rect& area, int down) {
  const RECT place = ToRECT(area);
  ScrollWindowEx(Handle(), 0, down, &place, &place, nullptr, nullptr, SW_INVALIDATE);
}

void PaneWindow::SetScrollBar(Axis axis, const screens::ScrollRange& range) {
  screens::ScrollRange& shown = axis == Axis::kDown ? down_ : across_;
  if (shown == range) return;
  shown = range;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = std::max(0, range.count - 1);
  info.nPage = static_cast<UINT>(std::max(1, range.page));
  info.nPos = ThumbOf(axis, range);
  SetScrollInfo(Handle(), BarOf(axis), &info, TRUE);
}

void PaneWindow::SetTimer(int milliseconds) {
  if (milliseconds == 0) {
    KillTimer(Handle(), kTimer);
  } else {
    ::SetTimer(Handle(), kTimer, static_cast<UINT>(milliseconds), nullptr);
  }
}

void PaneWindow::CopyToClipboard(const std::string& text) {
  windows::CopyToClipboard(Handle(), Wide(text));
}

// What the pane is told.

std::optional<LRESULT> PaneWindow::OnMouse(UINT message, WPARAM wParam, LPARAM lParam) {
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

void PaneWindow::Press(screens::MouseButton button, int clicks, WPARAM held, screens::Point place) {
  // What the field does that loses the focus may end the form.
  SetFocus(Handle());
  if (button == screens::MouseButton::kLeft) SetCapture(Handle());
  pane_->Pointer({.action = PointerEvent::Action::kPress,
                  .place = place,
                  .button = button,
                  .clicks = clicks,
                  .modifiers = ModifiersOf(held)});
}

void PaneWindow::Move(WPARAM held, screens::Point place) {
  const bool left = (held & MK_LBUTTON) != 0;
  // The release is lost when the press opened a modal window.
  if (!left && GetCapture() == Handle()) ReleaseCapture();
  pane_->Pointer({.place = place, .leftHeld = left, .modifiers = ModifiersOf(held)});
  if (left || tipPlace_.Contains(place)) return;
  tipPlace_ = pane_->TipAt(place).place;
  if (!tip_) {
    tip_ = std::make_unique<CellTip>(
        Handle(), Look(), [this] { return Wide(pane_->TipAt(tipPlace_.Middle()).text); });
  }
  tip_->MoveTo(ToRECT(tipPlace_));
}

void PaneWindow::OnWheel(WPARAM wParam, bool across) {
  UINT lines = 3;
  SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  const double notches = GET_WHEEL_DELTA_WPARAM(wParam) / static_cast<double>(WHEEL_DELTA);
  pane_->Wheel({.up = across ? 0 : notches,
                .left = across ? -notches : 0,
                .lines = lines == WHEEL_PAGESCROLL ? 0 : static_cast<int>(lines),
                .modifiers = ModifiersOf(GET_KEYSTATE_WPARAM(wParam))});
}

void PaneWindow::OnScrollBar(Axis axis, int request) {
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

bool PaneWindow::OnKey(WPARAM key) {
  const auto named = KeyOf(key);
  return named && pane_->PressKey({*named, ModifiersHeld(), {}});
}

bool PaneWindow::OnCharacter(WPARAM unit) {
  // Neither control characters nor halves of a character; with AltGr both keys are held.
  if (unit < L' ' || unit == 0x7F || (unit >= 0xD800 && unit < 0xE000)) return false;
  const bool shift = Held(VK_SHIFT);
  if (unit == L' ') return pane_->PressKey({Key::kSpace, {.shift = shift}, {}});
  return pane_->PressKey(
      {Key::kText, {.shift = shift}, Utf8(std::wstring(1, static_cast<wchar_t>(unit)))});
}

bool PaneWindow::ShowPointer() const {
  POINT place{};
  GetCursorPos(&place);
  ScreenToClient(Handle(), &place);
  const screens::Point at{static_cast<int>(place.x), static_cast<int>(place.y)};
  if (pane_->CursorAt(at) != screens::Cursor::kColumnBorder) return false;
  SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_SIZEWE)));
  return true;
}

void PaneWindow::ShowFocus(bool focused) {
  focused_ = focused;
  PaintFrame();
  pane_->FocusChanged(focused);
}

void PaneWindow::PassSize() {
  RECT area{};
  GetClientRect(Handle(), &area);
  pane_->Resized({static_cast<int>(area.right), static_cast<int>(area.bottom)});
}

void PaneWindow::Paint() const {
  const PaintSession session(Handle());
  WinSurface surface(session, Look());
  pane_->Paint(surface, FromRECT(session.Dirty()));
}

void PaneWindow::PaintFrame() const {
  const FramePainting frame(Handle());
  const Canvas canvas(frame.Dc());
  // Nobody paints the corner between the two scroll bars.
  RECT client{};
  GetClientRect(Handle(), &client);
  RECT window{};
  GetWindowRect(Handle(), &window);
  MapWindowPoints(Handle(), nullptr, reinterpret_cast<POINT*>(&client), 2);
  OffsetRect(&client, -window.left, -window.top);
  canvas.Fill({0, client.bottom, client.left, frame.Area().bottom}, controls::palette::kFrame);
  canvas.Frame(frame.Area(), focused_ ? theme::kAccent : theme::kLine);
}

std::optional<LRESULT> PaneWindow::OnAutomation(UINT message, WPARAM wParam, LPARAM lParam) const {
  const auto* const pane = dynamic_cast<const screens::GridPane*>(pane_.get());
  const controls::FlexGrid* const grid = pane == nullptr ? nullptr : pane->Grid();
  if (message == GridRowsMessage()) return grid != nullptr ? grid->Rows() : 0;
  if (message == GridBlockMessage()) {
    if (grid == nullptr) return 0;
    const auto [first, last] = std::minmax({grid->Row(), grid->RowSel()});
    return MAKELPARAM(first, last);
  }
  if (message == GridCellRectMessage()) {
    if (grid == nullptr) return 0;
    const auto place = pane->CellPlace(static_cast<int>(wParam), static_cast<int>(lParam));
    return place.Empty() ? 0 : MAKELPARAM(place.Middle().x, place.Middle().y);
  }
  if (message != GridTextMessage()) return std::nullopt;
  const int row = static_cast<int>(wParam);
  const int col = static_cast<int>(lParam);
  const bool there =
      grid != nullptr && row >= 0 && row < grid->Rows() && col >= 0 && col < grid->Cols();
  if (!there) return -1;
  constexpr std::size_t kLongestAtom = 255;
  const std::wstring text = Wide(grid->TextMatrix(row, col)).substr(0, kLongestAtom);
  return text.empty() ? 0 : GlobalAddAtomW(text.c_str());
}

LRESULT PaneWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  // Both forms of this message begin with the window's place.
  if (message == WM_NCCALCSIZE) InflateRect(reinterpret_cast<RECT*>(lParam), -1, -1);
  // Windows sends the first ones while the window is being made.
  if (!pane_) return ControlWindow::OnMessage(message, wParam, lParam);
  if (const auto answer = OnMouse(message, wParam, lParam)) return *answer;
  switch (message) {
    case WM_NCPAINT: {
      const LRESULT result = Default(message, wParam, lParam);
      PaintFrame();
      return result;
    }
    case WM_PAINT:
      Paint();
      return 0;
    case WM_SIZE:
      PassSize();
      return 0;
    case WM_VSCROLL:
    case WM_HSCROLL:
      OnScrollBar(message == WM_VSCROLL ? Axis::kDown : Axis::kAcross, LOWORD(wParam));
      return 0;
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
      OnWheel(wParam, message == WM_MOUSEHWHEEL);
      return message == WM_MOUSEHWHEEL ? TRUE : 0;
    case WM_KEYDOWN:
      if (OnKey(wParam)) return 0;
      break;
    case WM_CHAR:
      if (OnCharacter(wParam)) return 0;
      break;
    case WM_NOTIFY:
      if (tip_ && tip_->OnNotify(lParam)) return 0;
      break;
    case WM_SETCURSOR:
      // The form may show the hourglass over all of it.
      if (LOWORD(lParam) != HTCLIENT) break;
      if (SendMessageW(GetParent(Handle()), message, wParam, lParam) != 0) return TRUE;
      if (ShowPointer()) return TRUE;
      break;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      ShowFocus(message == WM_SETFOCUS);
      break;
    default:
      if (const auto answer = OnAutomation(message, wParam, lParam)) return *answer;
      break;
  }
  return ControlWindow::OnMessage(message, wParam, lParam);
}

}  // namespace adapters::windows
