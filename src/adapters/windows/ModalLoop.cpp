#include "adapters/windows/ModalLoop.h"

#include <utility>

#include "adapters/windows/Rects.h"
#include "screens/WindowPlace.h"

namespace adapters::windows {

namespace {

BOOL CALLBACK AddIfOpen(HWND window, LPARAM list) {
  if (IsWindowVisible(window) && IsWindowEnabled(window)) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  }
  return TRUE;
}

/// The thread's top-level windows that take input, uppermost first.
std::vector<HWND> OpenWindows() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), AddIfOpen, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

/// The next message of these; the word to quit, which always comes, stays for who runs the thread.
bool Take(MSG& message, HWND window, UINT first, UINT last) {
  if (!PeekMessageW(&message, window, first, last, PM_REMOVE)) return false;
  if (message.message != WM_QUIT) return true;
  PostQuitMessage(static_cast<int>(message.wParam));
  return false;
}

BOOL CALLBACK PaintNow(HWND window, LPARAM) {
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  return TRUE;
}

}  // namespace

ModalLoop::ModalLoop(HWND window) {
  for (const HWND other : OpenWindows()) {
    if (other == window) continue;
    EnableWindow(other, FALSE);
    disabled_.push_back(other);
  }
}

bool ModalLoop::Run(HWND window) {
  MSG message;
  while (!ended_ && IsWindow(window)) {
    const BOOL more = GetMessageW(&message, nullptr, 0, 0);
    if (more <= 0) {
      if (more == 0) PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return ended_;
}

void ModalLoop::DropInput(HWND receiver) {
  MSG message;
  for (const auto& [first, last] : {std::pair<UINT, UINT>{WM_KEYFIRST, WM_KEYLAST},
                                    std::pair<UINT, UINT>{WM_MOUSEFIRST, WM_MOUSELAST}}) {
    while (Take(message, nullptr, first, last)) {
      if (receiver == nullptr) continue;
      if (message.hwnd != receiver && !IsChild(receiver, message.hwnd)) continue;
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
}

void ModalLoop::Breathe(HWND window) {
  DropInput(window);
  MSG message;
  while (Take(message, window, 0, 0)) DispatchMessageW(&message);
  EnumThreadWindows(GetCurrentThreadId(), PaintNow, 0);
}

void ModalLoop::End() {
  if (std::exchange(ended_, true)) return;
  EnableOthers();
  // It may be a message sent by another thread that ends it: GetMessage would not return for that.
  PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

void ModalLoop::EnableOthers() {
  for (const HWND window : std::exchange(disabled_, {})) EnableWindow(window, TRUE);
}

HWND DialogOwner() {
  if (const HWND active = GetActiveWindow()) return active;
  const std::vector<HWND> open = OpenWindows();
  return open.empty() ? nullptr : open.front();
}

void CentreOver(HWND below, HWND window) {
  const screens::Rect room = WorkArea(below, MONITOR_DEFAULTTOPRIMARY);
  const bool seen = below != nullptr && !IsIconic(below);
  const screens::Rect own = WindowArea(window);
  const screens::Rect place =
      screens::PlaceOver(seen ? WindowArea(below) : room, {own.Width(), own.Height()}, room);
  SetWindowPos(window, nullptr, place.left, place.top, place.Width(), place.Height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace adapters::windows
