#pragma once

#include "adapters/windows/Paint.h"

namespace adapters::windows {

/// How the windows of fields read: from the right, with scroll bars at the left.
inline constexpr DWORD kRightToLeftField = WS_EX_RTLREADING | WS_EX_RIGHT | WS_EX_LEFTSCROLLBAR;

/// The room that a field's border and padding leave for an EDIT inside `outer`, which stands in the
/// middle when it is of one line.
RECT InsideField(const RECT& outer, const Theme& theme, bool severalLines);
/// A field's border and ground.
void PaintField(const Canvas& canvas, const RECT& outer, const Theme& theme,
                controls::Colour around, bool enabled, bool focused);
/// WM_CTLCOLOREDIT and WM_CTLCOLORSTATIC of an EDIT on a field.
LRESULT FieldColours(HDC dc, bool enabled);

}  // namespace adapters::windows
