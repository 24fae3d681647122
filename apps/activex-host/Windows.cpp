#include "Windows.h"

#include <algorithm>

#include "adapters/windows/Wide.h"
#include "adapters/windows/Window.h"
#include "apps/tour/Player.h"

namespace activexhost {

namespace {

using adapters::windows::kControlProperty;
using adapters::windows::kFormProperty;
using adapters::windows::NameOf;

BOOL CALLBACK Gather(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

/// From the front to the back.
std::vector<HWND> ThreadWindows() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), &Gather, reinterpret_cast<LPARAM>(&windows));
  std::erase_if(windows, [](HWND window) { return IsWindowVisible(window) == 0; });
  return windows;
}

std::vector<HWND> Descendants(HWND window) {
  std::vector<HWND> windows;
  EnumChildWindows(window, &Gather, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

std::wstring ClassOf(HWND window) {
  wchar_t name[64];
  return {name, static_cast<std::size_t>(GetClassNameW(window, name, 64))};
}

bool IsA(HWND window, const wchar_t* windowClass) {
  return lstrcmpiW(ClassOf(window).c_str(), windowClass) == 0;
}

HWND FirstOf(const std::vector<HWND>& windows, auto&& condition) {
  const auto found = std::ranges::find_if(windows, condition);
  return found == windows.end() ? nullptr : *found;
}

}  // namespace

HWND FindForm(const std::string& name) {
  return FirstOf(ThreadWindows(), [&](HWND each) { return NameOf(each, kFormProperty) == name; });
}

HWND FindControl(const std::string& path) {
  std::size_t dot = path.find('.');
  HWND window = FindForm(path.substr(0, dot));
  while (window != nullptr && dot != std::string::npos) {
    const std::size_t begin = dot + 1;
    dot = path.find('.', begin);
    const std::string name = path.substr(begin, dot - begin);
    window = FirstOf(Descendants(window),
                     [&](HWND each) { return NameOf(each, kControlProperty) == name; });
  }
  if (window == nullptr) throw tour::Failure(path + " is not shown");
  return window;
}

HWND ReachControl(const std::string& path) {
  const HWND window = FindControl(path);
  if (IsWindowVisible(window) == 0) throw tour::Failure(path + " is not shown");
  if (IsWindowEnabled(GetAncestor(window, GA_ROOT)) == 0) {
    throw tour::Failure(path + " is behind a modal window");
  }
  if (IsWindowEnabled(window) == 0) throw tour::Failure(path + " is disabled");
  return window;
}

HWND FindMessage() {
  return FindForm("MessageForm");
}

HWND FindSaveDialog() {
  return FirstOf(ThreadWindows(), [](HWND each) { return IsA(each, L"#32770"); });
}

std::vector<HWND> FormAndAbove(HWND form) {
  std::vector<HWND> windows = ThreadWindows();
  const auto found = std::ranges::find(windows, form);
  if (found != windows.end()) windows.erase(found + 1, windows.end());
  return windows;
}

std::string TextOf(HWND window) {
  const HWND field = FirstOf(Descendants(window), [](HWND each) { return IsA(each, L"EDIT"); });
  const HWND from = field == nullptr || IsA(window, L"COMBOBOX") ? window : field;
  std::wstring text(static_cast<std::size_t>(SendMessageW(from, WM_GETTEXTLENGTH, 0, 0)) + 1,
                    L'\0');
  text.resize(static_cast<std::size_t>(
      SendMessageW(from, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return adapters::windows::Utf8(text);
}

}  // namespace activexhost
