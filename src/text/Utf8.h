#pragma once

#include <cstddef>
#include <string_view>

namespace text {

/// Stands for a byte that belongs to no character.
inline constexpr char32_t kReplacement = 0xFFFD;

/// Whether the byte goes on with a character that an earlier one began.
inline bool IsTail(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// TakeCharacter for what is neither Latin nor a letter of Persian.
char32_t TakeRareCharacter(std::string_view text, std::size_t& at);

/// The character that begins at byte `at` of UTF-8 text, and moves `at` behind it. Behind one byte
/// alone, with kReplacement, when that byte begins no character: cut, longer than need be, a
/// surrogate, beyond the last.
inline char32_t TakeCharacter(std::string_view text, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  if (lead < 0x80) {
    ++at;
    return lead;
  }
  if (lead >= 0xC2 && lead < 0xE0 && at + 1 < text.size() && IsTail(text[at + 1])) {
    const auto tail = static_cast<unsigned char>(text[at + 1]);
    at += 2;
    return (lead & 0x1FU) << 6U | (tail & 0x3FU);
  }
  return TakeRareCharacter(text, at);
}

/// Where the letter ends that begins at byte `at`: behind the marks that are written onto it and
/// the characters that join it or direct what follows.
std::size_t LetterEnd(std::string_view text, std::size_t at);

/// Writes UTF-8 text as UTF-16 at `to`, where there is room for a unit for each byte, and gives the
/// end. Quick with Persian and Latin letters.
char16_t* PutUtf16(std::string_view text, char16_t* to);

/// Writes a character as UTF-8 at `out`, where there is room for four bytes, and gives the end.
inline char* PutUtf8(char* out, char32_t code) {
  const auto put = [&](char32_t byte) { *out++ = static_cast<char>(byte); };
  if (code < 0x80) {
    put(code);
    return out;
  }
  if (code < 0x800) {
    put(0xC0 | (code >> 6U));
  } else {
    if (code < 0x10000) {
      put(0xE0 | (code >> 12U));
    } else {
      put(0xF0 | (code >> 18U));
      put(0x80 | ((code >> 12U) & 0x3FU));
    }
    put(0x80 | ((code >> 6U) & 0x3FU));
  }
  put(0x80 | (code & 0x3FU));
  return out;
}

}  // namespace text
