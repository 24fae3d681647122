#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <oleacc.h>

#include <string>
#include <vector>

#include "adapters/windows/Com.h"
#include "adapters/windows/Wide.h"
#include "adapters/windows/Window.h"

// How tests find the module's windows, and the objects that those give to screen readers.

namespace test {

inline VARIANT Number(LONG number) {
  VARIANT value{};
  value.vt = VT_I4;
  value.lVal = number;
  return value;
}

inline adapters::windows::ComPtr<IAccessible> ClientOf(HWND window) {
  adapters::windows::ComPtr<IAccessible> client;
  EXPECT_EQ(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                       __uuidof(IAccessible), client.OutVoid()),
            S_OK);
  return client;
}

/// The shown windows of this thread.
inline std::vector<HWND> ShownWindows() {
  std::vector<HWND> windows;
  const auto add = [](HWND window, LPARAM list) -> BOOL {
    if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), add, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

/// The shown window whose title begins so; null for none.
inline HWND FindForm(const std::string& title) {
  for (const HWND each : ShownWindows()) {
    if (adapters::windows::Utf8(adapters::windows::TextOf(each)).starts_with(title)) return each;
  }
  return nullptr;
}

}  // namespace test
