#pragma once

#include <functional>

#include "controls/Control.h"

namespace screens {

/// Edges in pixels from the container's left and top edge.
struct PixelPlace {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

/// A control's place in its container. `pixels` rounds a length in twips. Edges are rounded, not
/// sizes, and on the form, not in the container, so that controls that touch in twips touch in
/// pixels, also those in different frames.
PixelPlace PlaceInContainer(const controls::Control& control,
                            const std::function<int(controls::Twips)>& pixels);

}  // namespace screens
