#pragma once

#include <string>
#include <string_view>

namespace adapters::windows {

/// Windows' UTF-16 of a UTF-8 text and back; what is broken in either becomes U+FFFD.
std::wstring Wide(std::string_view utf8);
std::string Utf8(std::wstring_view wide);

}  // namespace adapters::windows
