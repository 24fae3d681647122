#include "text/Utf8.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace text {

namespace {

// Of the bytes of four letters of two bytes each.
constexpr std::uint64_t kFourLetters = 0xC0FCC0FCC0FCC0FCU;
constexpr std::uint64_t kFourLettersAre = 0x80D880D880D880D8U;

/// Whether it is written onto the character before, or joins or directs those around it.
bool BelongsToTheOneBefore(char32_t c) {
  return (c >= 0x0300 && c <= 0x036F) || (c >= 0x064B && c <= 0x065F) || c == 0x0670 ||
         (c >= 0x200B && c <= 0x200F) || (c >= 0x202A && c <= 0x202E);
}

}  // namespace

char32_t TakeRareCharacter(std::string_view text, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at++]);
  const std::size_t more = lead >= 0xF0 ? 3 : 2;
  if (lead < 0xE0 || lead > 0xF4 || at + more > text.size()) return kReplacement;
  char32_t code = lead & (0x3FU >> more);
  for (std::size_t i = at; i < at + more; ++i) {
    if (!IsTail(text[i])) return kReplacement;
    code = (code << 6U) | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  const bool tooLong = code < (more == 2 ? 0x800U : 0x10000U);
  if (tooLong || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return kReplacement;
  at += more;
  return code;
}

std::size_t LetterEnd(std::string_view text, std::size_t at) {
  TakeCharacter(text, at);
  for (std::size_t next = at; next < text.size(); at = next) {
    if (!BelongsToTheOneBefore(TakeCharacter(text, next))) break;
  }
  return at;
}

char16_t* PutUtf16(std::string_view text, char16_t* to) {
  for (std::size_t at = 0; at < text.size();) {
    static_assert(std::endian::native == std::endian::little);
    std::uint64_t eight = 0;
    if (text.size() - at >= sizeof eight) {
      std::memcpy(&eight, text.data() + at, sizeof eight);
      if ((eight & kFourLetters) == kFourLettersAre) {
        eight = (eight & 0x001F001F001F001FU) << 6U | (eight >> 8U & 0x003F003F003F003FU);
        std::memcpy(to, &eight, sizeof eight);
        to += 4;
        at += 8;
        continue;
      }
    }
    const char32_t character = TakeCharacter(text, at);
    if (character < 0x10000) {
      *to++ = static_cast<char16_t>(character);
    } else {
      *to++ = static_cast<char16_t>(0xD7C0 + (character >> 10U));
      *to++ = static_cast<char16_t>(0xDC00 + (character & 0x3FFU));
    }
  }
  return to;
}

}  // namespace text
