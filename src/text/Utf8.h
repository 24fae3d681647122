#pragma once

#include <cstddef>
#include <string_view>

namespace text {

/// Stands for a byte that belongs to no character.
inline constexpr char32_t kReplacement = 0xFFFD;

/// The character that begins at byte `at` of UTF-8 text, and moves `at` behind it. Behind one byte
/// alone, with kReplacement, when that byte begins no character: cut, longer than need be, a
/// surrogate, beyond the last.
char32_t TakeCharacter(std::string_view text, std::size_t& at);

/// Writes UTF-8 text as UTF-16 at `to`, where there is room for a unit for each byte, and gives the
/// end. Quick with Persian and Latin letters.
char16_t* PutUtf16(std::string_view text, char16_t* to);

}  // namespace text
