#pragma once

#include <functional>

#include "controls/Control.h"
#include "screens/Rect.h"

namespace screens {

/// A control's place in pixels, from its container's left and top edge. `pixels` rounds a length in
/// twips. Edges are rounded, not sizes, and on the form, not in the container, so that controls
/// that touch in twips touch in pixels, also those in different frames.
Rect PlaceInContainer(const controls::Control& control,
                      const std::function<int(controls::Twips)>& pixels);

}  // namespace screens
