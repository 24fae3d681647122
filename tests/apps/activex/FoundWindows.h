#pragma once

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "adapters/windows/Window.h"

namespace test {

inline BOOL CALLBACK AddShown(HWND window, LPARAM list) {
  if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

inline HWND FirstNamed(const std::vector<HWND>& windows, const wchar_t* property,
                       const std::string& name) {
  const auto found = std::ranges::find_if(windows, [&](HWND each) {
    return adapters::windows::NameOf(each, property) == name;
  });
  return found == windows.end() ? nullptr : *found;
}

/// The shown window of a form on this thread; null for none.
inline HWND FindForm(const std::string& name) {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), &AddShown, reinterpret_cast<LPARAM>(&windows));
  return FirstNamed(windows, adapters::windows::kFormProperty, name);
}

/// The window of a control on a shown form; null for none.
inline HWND FindControl(const std::string& form, const std::string& name) {
  std::vector<HWND> windows;
  EnumChildWindows(FindForm(form), &AddShown, reinterpret_cast<LPARAM>(&windows));
  return FirstNamed(windows, adapters::windows::kControlProperty, name);
}

}  // namespace test
