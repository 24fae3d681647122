#pragma once

#include "controls/Control.h"

/// Colours of the suite's look that no form names, the same on every screen: texts, fields, lines,
/// and what is focused, chosen or refused.
namespace controls::palette {

inline constexpr Colour kText = Rgb(54, 44, 36);
inline constexpr Colour kMutedText = Rgb(124, 108, 94);
inline constexpr Colour kLine = Rgb(203, 184, 166);
inline constexpr Colour kFaintLine = Rgb(232, 219, 204);
inline constexpr Colour kField = Rgb(255, 253, 250);
inline constexpr Colour kAccent = Rgb(166, 104, 58);
inline constexpr Colour kAccentGround = Rgb(244, 214, 182);
inline constexpr Colour kRefused = Rgb(184, 56, 44);

}  // namespace controls::palette
