#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/odbc/OdbcApi.h"

namespace adapters::odbc {

using Utf16 = std::vector<SQLWCHAR>;

/// UTF-8 as UTF-16 with a terminating zero, which the ODBC calls want and the size counts. Bytes
/// that are no UTF-8 become U+FFFD.
Utf16 ToUtf16(std::string_view text);

/// Appends UTF-16 as UTF-8; half a surrogate pair becomes U+FFFD.
void AppendUtf8(std::string& out, std::span<const SQLWCHAR> text);

/// The text in a buffer that a call filled with `length` units; 0 and less are no units. Driver
/// managers that translate for a narrow driver give the length in its bytes: a terminating zero
/// before it counts.
std::string ToUtf8(const Utf16& buffer, SQLINTEGER length);

}  // namespace adapters::odbc
