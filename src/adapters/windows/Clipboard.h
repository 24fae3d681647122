#pragma once

#include <windows.h>

#include <string>

namespace adapters::windows {

/// Puts a text on the clipboard for `owner`. Another program that holds the clipboard keeps it as
/// it is: false.
bool CopyToClipboard(HWND owner, const std::wstring& text);
/// The text on the clipboard; empty where there is none or another program holds it.
std::wstring TextOfClipboard(HWND owner);

}  // namespace adapters::windows
