#include "adapters/windows/WinFixture.h"

#include "adapters/windows/Clipboard.h"
#include "adapters/windows/PopupWindow.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

void Pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

void ClickAt(HWND window, int x, int y) {
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
  PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
  Pump();
}

namespace {

/// The open drop-down of this thread.
BOOL CALLBACK LookForDropDown(HWND window, LPARAM found) {
  const bool child = (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0;
  const bool its = !child && IsWindowVisible(window) &&
                   dynamic_cast<PopupWindow*>(Window::Of(window)) != nullptr;
  if (its) *reinterpret_cast<HWND*>(found) = window;
  return its ? FALSE : TRUE;
}

HWND DropDown() {
  HWND found = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), &LookForDropDown, reinterpret_cast<LPARAM>(&found));
  return found;
}

template <typename PaneType>
bool DropsDown(HWND window) {
  const auto& view = dynamic_cast<const PaneView&>(*Window::Of(window));
  return dynamic_cast<const PaneType*>(view.Shown()) != nullptr;
}

}  // namespace

}  // namespace adapters::windows

namespace contract {

using namespace adapters::windows;

ScreenTest::ScreenTest()
    : adapter(std::make_unique<Adapter>(desktop, cities)), screen(adapter->screen) {}

ScreenTest::~ScreenTest() = default;

void ScreenTest::ShowForm() {
  form.Show(controls::Modality::kModeless);
  ASSERT_TRUE(IsWindowVisible(adapter->screen.WindowOf(form)));
}

void ScreenTest::Press(std::initializer_list<Key> keys, Held held) {
  // As in the enumerations.
  constexpr WPARAM kKeys[] = {VK_RETURN, VK_ESCAPE, VK_TAB,  VK_F4,  VK_UP,   VK_DOWN, VK_LEFT,
                              VK_PRIOR,  VK_NEXT,   VK_HOME, VK_END, VK_BACK, 'C',     'F'};
  constexpr int kHeld[] = {0, VK_SHIFT, VK_CONTROL};
  BYTE state[256]{};
  if (held != Held::kNothing) state[kHeld[static_cast<int>(held)]] = 0x80;
  SetKeyboardState(state);
  for (const Key key : keys) {
    const bool letter = key == Key::kBackspace;
    SendMessageW(GetFocus(), letter ? WM_CHAR : WM_KEYDOWN, kKeys[static_cast<int>(key)], 0);
  }
  const BYTE released[256]{};
  SetKeyboardState(const_cast<BYTE*>(released));
}

void ScreenTest::Type(const std::string& text) {
  for (const wchar_t unit : Wide(text)) SendMessageW(GetFocus(), WM_CHAR, unit, 0);
}

void ScreenTest::Retype(const std::string& text) {
  SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
  Press({Key::kBackspace});
  Type(text);
}

void ScreenTest::Paste(const std::string& text) {
  CopyToClipboard(GetFocus(), Wide(text));
  SendMessageW(GetFocus(), WM_CHAR, 0x16, 0);  // Ctrl+V
}

void ScreenTest::Undo() {
  SendMessageW(GetFocus(), WM_CHAR, 0x1A, 0);  // Ctrl+Z
}

void ScreenTest::Click(controls::Control& control) {
  const HWND window = adapter->screen.WindowOf(control);
  RECT area{};
  GetClientRect(window, &area);
  const LPARAM middle = MAKELPARAM(area.right / 2, area.bottom / 2);
  SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  SendMessageW(window, WM_LBUTTONUP, 0, middle);
}

void ScreenTest::ClickMonthPage(Place at) {
  ClickAt(DropDown(), at.x, at.y);
}

void ScreenTest::ClickListRow(int row) {
  const HWND list = DropDown();
  const screens::Point place = PaneIn<screens::ListPane>(list).RowPlace(row).Middle();
  ClickAt(list, place.x, place.y);
}

void ScreenTest::MouseOnGrid(Mouse what, Place at, int button, Held held) {
  constexpr UINT kLeft[] = {WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_LBUTTONUP, WM_LBUTTONDBLCLK};
  const bool left = button == 1;
  const WPARAM pressed = what == Mouse::kRelease ? 0 : left ? MK_LBUTTON : MK_RBUTTON;
  SendMessageW(adapter->screen.WindowOf(form.flx),
               left ? kLeft[static_cast<int>(what)] : WM_RBUTTONDOWN,
               pressed | (held == Held::kShift ? MK_SHIFT : 0U), MAKELPARAM(at.x, at.y));
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
  RECT inside{};
  GetWindowRect(window, &outside);
  GetClientRect(window, &inside);
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
  adapter->errands.push_back(std::make_unique<Errand>(adapter->guard, std::move(action)));
}

void ScreenTest::Settle() {
  UpdateWindow(adapter->screen.WindowOf(form.flx));
  Pump();
}

std::string ScreenTest::Shown(controls::Control& control) {
  std::string text = Utf8(TextOf(adapter->screen.WindowOf(control)));
  std::erase(text, '\r');
  return text;
}

Place ScreenTest::WindowSize() {
  RECT inside{};
  GetClientRect(adapter->screen.WindowOf(form), &inside);
  return {static_cast<int>(inside.right), static_cast<int>(inside.bottom)};
}

std::string ScreenTest::WindowTitle() {
  return Utf8(TextOf(adapter->screen.WindowOf(form)));
}

std::string ScreenTest::Focused() {
  const HWND focus = GetFocus();
  const auto search = [&](const controls::Container& in, const auto& again) -> std::string {
    for (const controls::Control* const control : in.Controls()) {
      const auto* const inner = dynamic_cast<const controls::Container*>(control);
      if (std::string found = inner == nullptr ? "" : again(*inner, again); !found.empty()) {
        return found;
      }
      // The keyboard may be at the field in the control's window.
      const HWND window = adapter->screen.WindowOf(*control);
      if (inner == nullptr && (window == focus || IsChild(window, focus))) return control->Name();
    }
    return {};
  };
  return search(form, search);
}

bool ScreenTest::DateRefused() {
  // Of a refused date a note says why.
  HWND note = nullptr;
  while ((note = FindWindowExW(adapter->screen.WindowOf(form), note, nullptr, nullptr)) !=
         nullptr) {
    const bool popup = dynamic_cast<PopupWindow*>(Window::Of(note)) != nullptr;
    if (popup && IsWindowVisible(note)) return true;
  }
  return false;
}

bool ScreenTest::MonthPageOpen() {
  const HWND page = DropDown();
  return page != nullptr && DropsDown<screens::MonthPane>(page);
}

int ScreenTest::ListCount() {
  const HWND list = DropDown();
  if (list == nullptr || !DropsDown<screens::ListPane>(list)) return -1;
  RECT inside{};
  GetClientRect(list, &inside);
  return static_cast<int>(inside.bottom) / PaneIn<screens::ListPane>(list).RowPlace(0).Height();
}

Place ScreenTest::DayAt(int week, int weekday) {
  const int part = week * 7 + weekday;
  const screens::Rect place = PaneIn<screens::MonthPane>(DropDown()).DescribePart(part).place;
  return {place.left + 5, place.top + 5};
}

Place ScreenTest::At(int row, int col) {
  const screens::Point place =
      PaneIn<screens::GridPane>(adapter->screen.WindowOf(form.flx)).CellPlace(row, col).Middle();
  return {place.x, place.y};
}

std::string ScreenTest::Copied() {
  if (!OpenClipboard(nullptr)) return "locked";
  const auto* const text =
      static_cast<const wchar_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT)));
  const std::string copied = text == nullptr ? "nothing" : Utf8(text);
  CloseClipboard();
  return copied;
}

}  // namespace contract
