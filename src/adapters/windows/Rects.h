#pragma once

#include <windows.h>

#include "screens/Rect.h"

namespace adapters::windows {

inline RECT ToRECT(const screens::Rect& rect) {
  return {rect.left, rect.top, rect.right, rect.bottom};
}
inline screens::Rect FromRECT(const RECT& rect) {
  return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
          static_cast<int>(rect.bottom)};
}
inline screens::Rect ClientArea(HWND window) {
  RECT area{};
  GetClientRect(window, &area);
  return FromRECT(area);
}

inline screens::Rect WindowArea(HWND window) {
  RECT area{};
  GetWindowRect(window, &area);
  return FromRECT(area);
}
/// Of the monitor that a window is on; `otherwise` is MONITOR_DEFAULTTO...
inline screens::Rect WorkArea(HWND window, DWORD otherwise) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, otherwise), &monitor);
  return FromRECT(monitor.rcWork);
}

}  // namespace adapters::windows
