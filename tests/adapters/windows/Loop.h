#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <utility>

// A person before the windows of this thread, who acts from whichever message loop runs.

namespace adapters::windows {

/// What a host's loop does until nothing is left.
inline void Pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

/// A host's loop until `done`; false when that takes longer than 20 seconds.
template <typename Condition>
bool PumpUntil(const Condition& done) {
  MSG message;
  const ULONGLONG giveUp = GetTickCount64() + 20'000;
  const UINT_PTR tick = SetTimer(nullptr, 0, 100, nullptr);
  while (!done() && GetTickCount64() < giveUp && GetMessageW(&message, nullptr, 0, 0) > 0) {
    DispatchMessageW(&message);
  }
  KillTimer(nullptr, tick);
  return done();
}

/// A click of the mouse, through the message loop.
inline void PostClick(HWND window, int x = 5, int y = 5) {
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
  PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}

/// Runs `action` once, as soon as `ready` holds. A loop that has messages for one window alone runs
/// it when `window` is that one.
inline void Once(std::function<bool()> ready, std::function<void()> action, HWND window = nullptr) {
  // A timer is given nothing of its owner.
  static std::map<UINT_PTR, std::pair<std::function<bool()>, std::function<void()>>> waiting;
  static UINT_PTR next = 0x7000;
  const auto look = [](HWND of, UINT, UINT_PTR timer, DWORD) {
    const auto found = waiting.find(timer);
    if (found == waiting.end() || !found->second.first()) return;
    KillTimer(of, timer);
    const std::function<void()> now = std::move(found->second.second);
    waiting.erase(found);
    now();
  };
  const UINT_PTR timer = SetTimer(window, ++next, USER_TIMER_MINIMUM, look);
  waiting[window == nullptr ? timer : next] = {std::move(ready), std::move(action)};
}

}  // namespace adapters::windows
