#pragma once

#include <vector>

#include "controls/Control.h"
#include "controls/Form.h"

namespace controls {

/// The controls of a form in the order in which the tab key visits them, those inside frames
/// included; labels and the like too, which a screen passes over. A control without an index is
/// left out. A frame that has an index itself is a composite control: its parts follow at its
/// place.
std::vector<Control*> TabSequence(const Form& form);

}  // namespace controls
