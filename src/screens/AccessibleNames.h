#pragma once

#include <string>

#include "controls/Control.h"

namespace screens {

/// What a screen reader calls a control: its caption, the caption of the label that names it, or
/// what its form says of it; of a button that shows a mere sign, its tool tip and the list that it
/// is for. A colon and blanks at the end are left out. Empty where nothing says it.
std::string AccessibleName(const controls::Control& control);

/// The tool tip, where it is not the name.
std::string AccessibleDescription(const controls::Control& control);

/// "Alt+ث": its own access key, else that of the label that names it; empty for none.
std::string AccessKeyText(const controls::Control& control);

}  // namespace screens
