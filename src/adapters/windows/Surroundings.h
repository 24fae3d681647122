#pragma once

#include "adapters/windows/Theme.h"
#include "adapters/windows/Window.h"
#include "platform/Desktop.h"

namespace adapters::windows {

/// What every window of a form needs besides its model. All of it outlives the windows.
struct Surroundings {
  ErrorGuard& guard;
  const platform::Desktop& desktop;
  const Theme& theme;
};

/// What a form's window is sent: a key (as WM_KEYDOWN) that none of its controls took, answered
/// with 1 when the form used it up; a letter held with Alt (as WM_SYSCHAR), likewise; and that the
/// focused control can have the focus no longer.
inline constexpr UINT kFormKeyDown = WM_APP + 1;
inline constexpr UINT kFormAccessKey = WM_APP + 2;
inline constexpr UINT kFormFocusLost = WM_APP + 3;

/// Answers WM_GETDLGCODE, for a host that runs a dialog's keyboard over whatever window is active.
inline constexpr LRESULT kAllKeys =
    DLGC_WANTALLKEYS | DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTCHARS;

}  // namespace adapters::windows
