#pragma once

#include <QString>
#include <cstdint>

#include "platform/ComponentFactory.h"

namespace adapters::qt {

// What every component of this folder does with its members' values.

/// Throws RuntimeError 438 in the name of `component`.
[[noreturn]] void ThrowNoSuchMember(const char* component);

/// Empty as empty text, True and False in English.
QString AsText(const platform::AutomationValue& value);

/// Throws RuntimeError 13 in the name of `component` unless the value is a number.
std::int32_t AsNumber(const platform::AutomationValue& value, const char* component);

}  // namespace adapters::qt
