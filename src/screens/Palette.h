#pragma once

#include "controls/Control.h"

/// The colours of everything on a screen by their role, the same on every toolkit: those that forms
/// name, and those of texts, fields, lines, and of what is focused, chosen or refused. Models and
/// panes know the light ones alone; a toolkit paints what InScheme makes of them.
namespace screens::palette {

using namespace controls::palette;

inline constexpr controls::Colour kText = controls::Rgb(54, 44, 36);
inline constexpr controls::Colour kMutedText = controls::Rgb(104, 89, 76);
/// Around what can be used: fields, buttons, handles of scroll bars.
inline constexpr controls::Colour kBorder = controls::Rgb(137, 112, 90);
/// Around what is only shown or is disabled, and between the parts of a whole.
inline constexpr controls::Colour kLine = controls::Rgb(203, 184, 166);
inline constexpr controls::Colour kFaintLine = controls::Rgb(232, 219, 204);
inline constexpr controls::Colour kField = controls::Rgb(255, 253, 250);
inline constexpr controls::Colour kAccent = controls::Rgb(158, 97, 52);
inline constexpr controls::Colour kOnAccent = controls::Rgb(255, 255, 255);
inline constexpr controls::Colour kDeepAccent = controls::Rgb(128, 80, 45);
inline constexpr controls::Colour kAccentGround = controls::Rgb(244, 214, 182);
inline constexpr controls::Colour kRefused = controls::Rgb(184, 56, 44);
inline constexpr controls::Colour kNoteGround = controls::Rgb(255, 243, 196);

enum class Scheme { kLight, kDark };

/// What stands in a scheme for a colour of this palette, tinted or not; another colour stays.
controls::Colour InScheme(controls::Colour colour, Scheme scheme);

/// A ground that shows a block of cells and lets a mark shine through: three tenths of the accent.
controls::Colour Tinted(controls::Colour ground);

}  // namespace screens::palette
