#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "controls/Control.h"
#include "controls/Form.h"

namespace screens {

/// The first byte and the number of bytes of an access key's letter in a caption, for a screen to
/// underline; nothing when there is no key or the caption does not hold it.
std::optional<std::pair<std::size_t, std::size_t>> AccessKeySpan(std::string_view caption,
                                                                 std::string_view key);

/// Carries out Alt and a letter (UTF-8, as it was typed: a Persian one, or the Latin one of the
/// same key of the standard Persian keyboard): the keyboard goes to the button or check box that
/// has it, which is clicked, or to the field of the label that has it. Where several have it, the
/// next one behind `focused` (null: none has the keyboard). False when nothing within reach has it.
bool PressAccessKey(controls::Form& form, std::string_view typed, const controls::Control* focused);

/// Carries out Ctrl and a key, as Control::Shortcut names it. False when no button that can be
/// clicked has it.
bool PressShortcut(controls::Form& form, std::string_view key);

}  // namespace screens
