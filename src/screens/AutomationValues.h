#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/ComponentFactory.h"

namespace screens {

// What every component of ours does with its members' values; `component` is its name.

/// Throws RuntimeError 438.
[[noreturn]] void ThrowNoSuchMember(std::string_view component);

/// Empty as empty text, True and False in English.
std::string AsText(const platform::AutomationValue& value);

/// The nearest whole number. Throws RuntimeError 13 unless the value is a number, 6 where it is too
/// large.
std::int32_t AsNumber(const platform::AutomationValue& value, std::string_view component);

}  // namespace screens
