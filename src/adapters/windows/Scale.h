#pragma once

#include <windows.h>

#include "screens/PixelPlace.h"
#include "screens/Scale.h"

namespace adapters::windows {

/// The scale of the screen as this process sees it. A process that does not know of dpi is scaled
/// by Windows and sees 96; one that does sees what the desktop began with, on every monitor, so
/// that all windows agree.
class Scale : public screens::Scale {
 public:
  Scale() : screens::Scale(ScreenDpi()) {}
  explicit Scale(double dpi) : screens::Scale(dpi) {}

  /// A control's place in its container.
  RECT Bounds(const controls::Control& control) const {
    const auto [left, top, right, bottom] =
        screens::PlaceInContainer(control, [this](controls::Twips twips) { return Pixels(twips); });
    return {left, top, right, bottom};
  }

 private:
  static double ScreenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : 96;
  }
};

}  // namespace adapters::windows
