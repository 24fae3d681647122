#include "adapters/windows/Clipboard.h"

#include <cstring>
#include <cwchar>

namespace adapters::windows {

bool CopyToClipboard(HWND owner, const std::wstring& text) {
  if (!OpenClipboard(owner)) return false;
  EmptyClipboard();
  const SIZE_T bytes = (text.size() + 1) * sizeof(wchar_t);
  bool copied = false;
  if (const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes)) {
    if (void* const room = GlobalLock(memory)) {
      std::memcpy(room, text.c_str(), bytes);
      GlobalUnlock(memory);
      copied = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
    }
    // The clipboard owns what it took.
    if (!copied) GlobalFree(memory);
  }
  CloseClipboard();
  return copied;
}

std::wstring TextOfClipboard(HWND owner) {
  std::wstring text;
  if (!OpenClipboard(owner)) return text;
  if (const HGLOBAL memory = GetClipboardData(CF_UNICODETEXT)) {
    if (const auto* const units = static_cast<const wchar_t*>(GlobalLock(memory))) {
      text.assign(units, wcsnlen(units, GlobalSize(memory) / sizeof(wchar_t)));
      GlobalUnlock(memory);
    }
  }
  CloseClipboard();
  return text;
}

}  // namespace adapters::windows
