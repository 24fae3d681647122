#pragma once

#include "controls/Control.h"

/// The colours of everything on a screen by their role, the same on every toolkit: those that forms
/// name, and those of texts, fields, lines, and of what is focused, chosen or refused.
namespace screens::palette {

using namespace controls::palette;

inline constexpr controls::Colour kText = controls::Rgb(54, 44, 36);
inline constexpr controls::Colour kMutedText = controls::Rgb(124, 108, 94);
inline constexpr controls::Colour kLine = controls::Rgb(203, 184, 166);
inline constexpr controls::Colour kFaintLine = controls::Rgb(232, 219, 204);
inline constexpr controls::Colour kField = controls::Rgb(255, 253, 250);
inline constexpr controls::Colour kAccent = controls::Rgb(166, 104, 58);
inline constexpr controls::Colour kDeepAccent = controls::Rgb(128, 80, 45);
inline constexpr controls::Colour kAccentGround = controls::Rgb(244, 214, 182);
inline constexpr controls::Colour kRefused = controls::Rgb(184, 56, 44);

}  // namespace screens::palette
