#include "adapters/windows/WinFixture.h"

#include <array>
#include <stdexcept>

#include "adapters/windows/PopupWindow.h"
#include "adapters/windows/Wide.h"
#include "support/AllControls.h"

namespace contract {

using namespace adapters::windows;

namespace {

void SendMouse(HWND window, const screens::PointerEvent& event) {
  const bool left = event.button == screens::MouseButton::kLeft;
  UINT message = event.clicks == 2 ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN;
  if (!left) message = WM_RBUTTONDOWN;
  if (event.action == PointerAction::kMove) message = WM_MOUSEMOVE;
  if (event.action == PointerAction::kRelease) message = WM_LBUTTONUP;
  WPARAM held = event.modifiers.shift ? MK_SHIFT : 0;
  if (event.action == PointerAction::kPress) held |= left ? MK_LBUTTON : MK_RBUTTON;
  if (event.leftHeld) held |= MK_LBUTTON;
  SendMessageW(window, message, held, MAKELPARAM(event.place.x, event.place.y));
}

RECT InsideOf(HWND window) {
  RECT inside{};
  GetClientRect(window, &inside);
  return inside;
}

}  // namespace

ScreenTest::ScreenTest()
    : adapter(std::make_unique<Adapter>(desktop, cities)), screen(adapter->screen) {}

ScreenTest::~ScreenTest() = default;

void ScreenTest::ShowForm() {
  form.Show(controls::Modality::kModeless);
  ASSERT_TRUE(IsWindowVisible(adapter->screen.WindowOf(form)));
}

void ScreenTest::Press(std::initializer_list<Key> keys, screens::Modifiers held) {
  // As in the enumeration, from kEnter on.
  constexpr WPARAM kKeys[] = {VK_RETURN, VK_ESCAPE, VK_BACK,  VK_INSERT, VK_UP,   VK_DOWN,
                              VK_LEFT,   VK_RIGHT,  VK_PRIOR, VK_NEXT,   VK_HOME, VK_END,
                              VK_TAB,    VK_F3,     VK_F4,    VK_F6,     'A',     'C',
                              'D',       'F',       'I',      'Y',       'Z'};
  BYTE state[256]{};
  state[VK_SHIFT] = held.shift ? 0x80 : 0;
  state[VK_CONTROL] = held.control ? 0x80 : 0;
  SetKeyboardState(state);
  for (const Key named : keys) {
    const WPARAM key = kKeys[static_cast<int>(named) - static_cast<int>(Key::kEnter)];
    const HWND focus = GetFocus();
    if (named != Key::kBackspace) SendMessageW(focus, WM_KEYDOWN, key, 0);
    // The character that a loop makes of it.
    if (named == Key::kBackspace || named == Key::kZ) SendMessageW(focus, WM_CHAR, key & 0x1F, 0);
  }
  SetKeyboardState(std::array<BYTE, 256>{}.data());
}

void ScreenTest::Type(const std::string& text) {
  for (const wchar_t unit : Wide(text)) SendMessageW(GetFocus(), WM_CHAR, unit, 0);
}

void ScreenTest::Paste() {
  SendMessageW(GetFocus(), WM_CHAR, 0x16, 0);  // Ctrl+V
}

void ScreenTest::Click(controls::Control& control) {
  const HWND window = adapter->screen.WindowOf(control);
  const RECT area = InsideOf(window);
  const Place middle{static_cast<int>(area.right / 2), static_cast<int>(area.bottom / 2)};
  SendMouse(window, {.action = PointerAction::kPress, .place = middle});
  SendMouse(window, {.action = PointerAction::kRelease, .place = middle});
}

void ScreenTest::MouseOnGrid(const screens::PointerEvent& event) {
  SendMouse(adapter->screen.WindowOf(form.flx), event);
}

void ScreenTest::TurnWheelOnGrid(int delta) {
  SendMessageW(adapter->screen.WindowOf(form.flx), WM_MOUSEWHEEL, MAKEWPARAM(0, delta), 0);
}

void ScreenTest::AwaitAutoScroll() {
  SendMessageW(adapter->screen.WindowOf(form.flx), WM_TIMER, 1, 0);
}

void ScreenTest::DragWindowTo(int width, int height) {
  const HWND window = adapter->screen.WindowOf(form);
  RECT outside{};
  GetWindowRect(window, &outside);
  const RECT inside = InsideOf(window);
  SetWindowPos(window, nullptr, 0, 0, outside.right - outside.left - inside.right + width,
               outside.bottom - outside.top - inside.bottom + height, SWP_NOMOVE | SWP_NOZORDER);
}

void ScreenTest::CloseWindow() {
  SendMessageW(adapter->screen.WindowOf(form), WM_CLOSE, 0, 0);
}

const controls::Form& ScreenTest::ActiveForm() {
  const controls::Form* const shown = adapter->screen.FormOf(GetActiveWindow());
  if (shown == nullptr) throw std::logic_error("no form takes input");
  return *shown;
}

void ScreenTest::Later(std::function<void()> action) {
  Once([] { return true; }, std::move(action), GetActiveWindow());
}

void ScreenTest::Settle() {
  UpdateWindow(adapter->screen.WindowOf(form.flx));
  Pump();
}

const screens::Pane& ScreenTest::PaneOf(controls::Control& control) {
  return *dynamic_cast<PaneView&>(*Window::Of(adapter->screen.WindowOf(control))).Shown();
}

std::string ScreenTest::Shown(controls::Control& control) {
  return Utf8(TextOf(adapter->screen.WindowOf(control)));
}

std::pair<int, int> ScreenTest::WindowSize() {
  const RECT inside = InsideOf(adapter->screen.WindowOf(form));
  return {static_cast<int>(inside.right), static_cast<int>(inside.bottom)};
}

std::string ScreenTest::WindowTitle() {
  return Utf8(TextOf(adapter->screen.WindowOf(form)));
}

std::string ScreenTest::Focused() {
  const HWND focus = GetFocus();
  for (const controls::Control* const control : support::AllControls(form)) {
    if (control == &form.frame) continue;
    // The keyboard may be at the field in the control's window.
    const HWND window = adapter->screen.WindowOf(*control);
    if (window == focus || IsChild(window, focus)) return control->Name();
  }
  return {};
}

}  // namespace contract

namespace adapters::windows {

HWND DropDown() {
  HWND found = nullptr;
  const auto look = [](HWND window, LPARAM result) -> BOOL {
    const bool child = (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0;
    const bool its = !child && IsWindowVisible(window) &&
                     dynamic_cast<PopupWindow*>(Window::Of(window)) != nullptr;
    if (its) *reinterpret_cast<HWND*>(result) = window;
    return its ? FALSE : TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&found));
  return found;
}

}  // namespace adapters::windows
