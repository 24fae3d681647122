#pragma once

#include <vector>

#include "controls/Control.h"
#include "controls/Form.h"

namespace screens {

/// The controls of a form in the order in which the tab key visits them, those inside frames
/// included; labels and the like too, which a screen passes over. A control without an index is
/// left out. A frame that has an index itself is a composite control: its parts follow at its
/// place.
std::vector<controls::Control*> TabSequence(const controls::Form& form);

/// Whether controls of its kind take keys.
bool IsKeyboardKind(const controls::Control& control);

/// The same of one that is enabled and visible with all frames around it.
bool TakesKeyboard(const controls::Control& control);

/// Where tab (`step` 1) or shift and tab (-1) lead from a control, which may be one that is not in
/// the order or takes no keys any more; null begins at that end. Null when nothing takes keys.
controls::Control* NextStop(const controls::Form& form, const controls::Control* from, int step);

/// Where the keyboard goes when the form comes up for the first time.
controls::Control* FirstStop(const controls::Form& form);

}  // namespace screens
