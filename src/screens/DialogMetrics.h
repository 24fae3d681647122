#pragma once

#include "controls/Control.h"

/// The measures that the windows of our own (messages, progress, documents) have in common.
namespace screens::dialog {

inline constexpr controls::Twips kPixel = 15;
inline constexpr controls::Twips kMargin = 14 * kPixel;
inline constexpr controls::Twips kGap = 12 * kPixel;
inline constexpr controls::Twips kButtonWidth = 88 * kPixel;
inline constexpr controls::Twips kButtonHeight = 28 * kPixel;

}  // namespace screens::dialog
