#pragma once

#include <windows.h>

#include <string>

namespace adapters::windows {

/// Puts a text on the clipboard for `owner`. Another program that holds the clipboard keeps it as
/// it is: false.
bool CopyToClipboard(HWND owner, const std::wstring& text);

}  // namespace adapters::windows
