#include "Hands.h"

#include <algorithm>
#include <array>
#include <utility>

#include "Things.h"
#include "adapters/windows/Clipboard.h"
#include "adapters/windows/Wide.h"

namespace activexhost {

using adapters::windows::Utf8;
using adapters::windows::Wide;
using screens::Key;
using tour::Failure;

namespace {

constexpr DWORD kPaintingTime = 60;  // milliseconds, for the painted windows to reach the screen
constexpr int kFileNameCombo = 0x47c;
constexpr int kFileNameEdit = 0x480;
constexpr BYTE kDown = 0x80;

BOOL CALLBACK Gather(HWND window, LPARAM list) {
  if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

/// From the front to the back.
std::vector<HWND> ShownWindows() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), &Gather, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

/// Not what comes up over a window: lists, tips.
bool HasCaption(HWND window) {
  return (GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
}

HWND Front() {
  const std::vector<HWND> windows = ShownWindows();
  const auto front = std::ranges::find_if(windows, HasCaption);
  if (front == windows.end()) throw Failure("expected a window");
  return *front;
}

/// What was posted to this thread: the tour's own timer waits for the loop that runs already.
void CarryOut() {
  MSG message;
  constexpr UINT kPosted = PM_REMOVE | PM_QS_POSTMESSAGE | PM_QS_INPUT;
  while (PeekMessageW(&message, nullptr, 0, 0, kPosted)) {
    if (message.message == WM_QUIT) return PostQuitMessage(static_cast<int>(message.wParam));
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void Paint(const std::vector<HWND>& windows) {
  for (const HWND window : windows) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  }
  const DWORD begin = GetTickCount();
  while (GetTickCount() - begin < kPaintingTime) {
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE) != 0) {
      DispatchMessageW(&message);
    }
    MsgWaitForMultipleObjects(0, nullptr, FALSE, kPaintingTime / 4, QS_PAINT);
  }
}

/// For this thread. A stroke may open a modal window: then these keys are let go by the next one.
void Hold(const screens::Modifiers& held) {
  std::array<BYTE, 256> keys{};
  if (held.shift) keys[VK_SHIFT] = kDown;
  if (held.control) keys[VK_CONTROL] = kDown;
  if (held.alt) keys[VK_MENU] = kDown;
  SetKeyboardState(keys.data());
}

/// Those that the day has a use for.
constexpr std::pair<Key, WPARAM> kKeys[] = {
    {Key::kSpace, VK_SPACE}, {Key::kEnter, VK_RETURN}, {Key::kEscape, VK_ESCAPE},
    {Key::kUp, VK_UP},       {Key::kDown, VK_DOWN},    {Key::kLeft, VK_LEFT},
    {Key::kHome, VK_HOME},   {Key::kEnd, VK_END},      {Key::kTab, VK_TAB},
    {Key::kF4, VK_F4},       {Key::kF6, VK_F6},        {Key::kC, 'C'},
    {Key::kF, 'F'},          {Key::kY, 'Y'},           {Key::kZ, 'Z'}};

WPARAM VirtualKey(Key key) {
  const auto* const found = std::ranges::find(kKeys, key, &std::pair<Key, WPARAM>::first);
  if (found == std::end(kKeys)) throw Failure("this key is not at hand");
  return found->second;
}

}  // namespace

std::vector<std::unique_ptr<tour::Thing>> Hands::Windows() {
  std::vector<std::unique_ptr<tour::Thing>> things;
  for (const HWND window : ShownWindows()) {
    if (auto thing = MakeThing(window)) things.push_back(std::move(thing));
  }
  return things;
}

// Windows does so for the pointer on its desk, which a tour leaves alone.
void Hands::Leave(HWND window) {
  const HWND before = std::exchange(pointed_, window);
  if (before != window && IsWindow(before)) SendMessageW(before, WM_MOUSELEAVE, 0, 0);
}

void Hands::MoveMouse(Mouse action, screens::Point place) {
  const POINT at{place.x, place.y};
  // Sent, because what else is in the queue must not come between a press and its release.
  const auto send = [this, &at](UINT message, WPARAM held) {
    const HWND captor = GetCapture();
    const HWND target = captor != nullptr ? captor : WindowFromPoint(at);
    if (GetWindowThreadProcessId(target, nullptr) != GetCurrentThreadId()) {
      throw Failure("there is no window to point at");
    }
    Leave(target);
    POINT inside = at;
    ScreenToClient(target, &inside);
    SendMessageW(target, message, held, MAKELPARAM(inside.x, inside.y));
  };
  switch (action) {
    case Mouse::kPress:
      return send(WM_LBUTTONDOWN, MK_LBUTTON);
    case Mouse::kMove:
      return send(WM_MOUSEMOVE, GetCapture() != nullptr ? MK_LBUTTON : 0);
    case Mouse::kRelease:
      send(WM_LBUTTONUP, 0);
      return CarryOut();
    case Mouse::kDoubleClick:
      send(WM_LBUTTONDOWN, MK_LBUTTON);
      send(WM_LBUTTONUP, 0);
      send(WM_LBUTTONDBLCLK, MK_LBUTTON);
      // The window may be gone.
      if (GetCapture() != nullptr) send(WM_LBUTTONUP, 0);
      return CarryOut();
  }
}

void Hands::Press(const screens::KeyEvent& stroke) {
  // Without a window manager nobody gives it back.
  if (GetFocus() == nullptr) SetForegroundWindow(Front());
  const HWND focus = GetFocus();
  if (focus == nullptr) throw Failure("no window has the keyboard");
  Hold(stroke.modifiers);
  if (stroke.key == Key::kText) {
    for (const wchar_t unit : Wide(stroke.text)) {
      PostMessageW(focus, stroke.modifiers.alt ? WM_SYSCHAR : WM_CHAR, unit, 1);
    }
  } else {
    PostMessageW(focus, WM_KEYDOWN, VirtualKey(stroke.key), 1);
    PostMessageW(focus, WM_KEYUP, VirtualKey(stroke.key), static_cast<LPARAM>(0xC0000001));
  }
  CarryOut();
  Hold({});
}

void Hands::Picture(int windows, const std::string& path) {
  if (GetAncestor(pointed_, GA_ROOT) != Front()) Leave(nullptr);
  std::vector<HWND> shown;
  for (const HWND window : ShownWindows()) {
    if (windows == 0) break;
    shown.push_back(window);
    if (HasCaption(window)) --windows;
  }
  Paint(shown);
  RECT all{};
  for (const HWND window : shown) {
    RECT place;
    GetWindowRect(window, &place);
    UnionRect(&all, &all, &place);
  }
  camera_.Save(all, path);
}

void Hands::ResizeFront(double factor) {
  const HWND window = Front();
  RECT place;
  GetWindowRect(window, &place);
  SetWindowPos(window, nullptr, 10, 10, static_cast<int>((place.right - place.left) * factor),
               static_cast<int>((place.bottom - place.top) * factor),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void Hands::SaveAs(const std::string& path) {
  const HWND dialog = Front();
  const int field = GetDlgItem(dialog, kFileNameCombo) != nullptr ? kFileNameCombo : kFileNameEdit;
  if (GetDlgItem(dialog, field) == nullptr) throw Failure("expected a Save As dialog");
  std::wstring name = Wide(path);
  std::ranges::replace(name, L'/', L'\\');
  DeleteFileW(name.c_str());  // of an earlier tour: the program would ask
  SetDlgItemTextW(dialog, field, name.c_str());
  PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

std::string Hands::Clipboard() {
  return Utf8(adapters::windows::TextOfClipboard(nullptr));
}

int Hands::Depth() const {
  const std::vector<HWND> windows = ShownWindows();
  return static_cast<int>(
      std::ranges::count_if(windows, [](HWND window) { return !IsWindowEnabled(window); }));
}

}  // namespace activexhost
