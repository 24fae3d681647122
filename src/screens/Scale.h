#pragma once

#include <cmath>

#include "controls/Control.h"

namespace screens {

/// Twips and design pixels to device pixels and back: 15 twips are a pixel at 96 dpi.
class Scale {
 public:
  explicit Scale(double dpi) : dpi_(dpi) {}
  /// Device pixels to a pixel at 96 dpi, in which lengths are designed.
  double Unit() const { return dpi_ / kDesignDpi; }
  int Pixels(controls::Twips twips) const {
    return static_cast<int>(std::lround(twips * dpi_ / kTwipsPerInch));
  }
  controls::Twips Twips(int pixels) const { return pixels * kTwipsPerInch / dpi_; }
  /// Of a length that is `now`: to the pixel the same, it does not lose the fraction of its twips.
  controls::Twips Twips(int pixels, controls::Twips now) const {
    return Pixels(now) == pixels ? now : Twips(pixels);
  }
  /// A designed length.
  int Design(double pixels) const { return static_cast<int>(std::lround(pixels * Unit())); }

 private:
  static constexpr double kDesignDpi = 96.0;
  static constexpr double kTwipsPerInch = 1440.0;
  double dpi_;
};

}  // namespace screens
