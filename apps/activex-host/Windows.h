#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

namespace activexhost {

// The module's windows on this thread, found by the names that they carry for automation. What is
// not there, or could not be reached by a user, throws tour::Failure.

/// "FormMain"; null when the form has no visible window.
HWND FindForm(const std::string& name);
/// "FormMain.cmdNew", "FormAddBatch.flxPath.Flex".
HWND FindControl(const std::string& path);
/// As FindControl, of a control that is visible, enabled and not behind a modal window.
HWND ReachControl(const std::string& path);
/// The message that is up, or null.
HWND FindMessage();
/// The system's Save As dialog that is up, or null.
HWND FindSaveDialog();
/// The form's window and what this thread shows above it.
std::vector<HWND> FormAndAbove(HWND form);
/// Text of a window, UTF-8; of a composite control that of its edit field.
std::string TextOf(HWND window);

}  // namespace activexhost
