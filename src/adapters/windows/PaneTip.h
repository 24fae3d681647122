#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "adapters/windows/Theme.h"

namespace adapters::windows {

/// Windows' tool tip over a part of a window at a time: what is cut off there in full.
class PaneTip {
 public:
  /// `text` is asked when a tip is about to show; empty shows none.
  PaneTip(HWND window, const Theme& look, std::function<std::wstring()> text);
  ~PaneTip();
  PaneTip(const PaneTip&) = delete;
  PaneTip& operator=(const PaneTip&) = delete;
  /// A child of the window belongs to the part around it.
  void Cover(HWND child);
  /// The mouse is over another part of the window.
  void MoveTo(const RECT& place);
  /// WM_NOTIFY of the window; true when it was this tip's.
  bool OnNotify(LPARAM lParam);

 private:
  HWND window_;
  HWND tip_;
  std::function<std::wstring()> ask_;
  std::wstring text_;
};

}  // namespace adapters::windows
