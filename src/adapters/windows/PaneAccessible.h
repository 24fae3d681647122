#pragma once

#include <windows.h>

#include <oleacc.h>

#include <optional>

#include "adapters/windows/Com.h"
#include "screens/Accessible.h"

namespace adapters::windows {

class PaneView;

/// A window's side of the talk with screen readers (MSAA). The object that they are given is asked
/// for what the pane says at that moment: its parts are children by number, from 1, the windows in
/// it follow. Of a form's window the object knows the caption and the windows on it, in the order
/// in which they are read.
class ScreenReaderLink {
 public:
  ScreenReaderLink() = default;
  /// Readers hold nothing of it any more.
  ~ScreenReaderLink();
  ScreenReaderLink(const ScreenReaderLink&) = delete;
  ScreenReaderLink& operator=(const ScreenReaderLink&) = delete;
  /// Answers WM_GETOBJECT of the window, or of the field in it; none for an object that Windows
  /// answers for.
  std::optional<LRESULT> Answer(HWND window, WPARAM wParam, LPARAM lParam);

 private:
  ComPtr<IAccessible> object_;
};

/// A reader did what a part (wParam, from 1; 0 is the pane) is for. Comes as a message, because the
/// reader does not wait for a form that this opens.
inline constexpr UINT kAct = WM_APP + 30;

/// Tells readers what has changed in a pane, `part` -1, or in a part of it.
void TellScreenReader(const PaneView& view, screens::Tidings what, int part);

}  // namespace adapters::windows
