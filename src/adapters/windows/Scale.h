#pragma once

#include <windows.h>

#include <cmath>

#include "controls/PixelPlace.h"

namespace adapters::windows {

/// Twips and design pixels to the pixels of the screen, as this process sees it: 15 twips are a
/// pixel at 96 dpi. A process that does not know of dpi is scaled by Windows and sees 96; one that
/// does sees what the desktop began with, on every monitor, so that all windows agree.
class Scale {
 public:
  Scale() {
    const HDC screen = GetDC(nullptr);
    dpi_ = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    if (dpi_ <= 0) dpi_ = kDesignDpi;
  }
  explicit Scale(int dpi) : dpi_(dpi) {}

  int Dpi() const { return dpi_; }
  int Pixels(controls::Twips twips) const {
    return static_cast<int>(std::lround(twips * dpi_ / kTwipsPerInch));
  }
  controls::Twips Twips(int pixels) const { return pixels * kTwipsPerInch / dpi_; }
  /// A length designed in pixels at 96 dpi.
  int Design(int pixels) const { return MulDiv(pixels, dpi_, kDesignDpi); }

  /// A control's place in its container.
  RECT Bounds(const controls::Control& control) const {
    const auto [left, top, right, bottom] = controls::PlaceInContainer(
        control, [this](controls::Twips twips) { return Pixels(twips); });
    return {left, top, right, bottom};
  }

 private:
  static constexpr int kDesignDpi = 96;
  static constexpr double kTwipsPerInch = 1440.0;
  int dpi_ = kDesignDpi;
};

}  // namespace adapters::windows
