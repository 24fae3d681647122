#include "text/Utf8.h"

#include <array>
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

char32_t TakeCharacter(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  const unsigned char lead = byte(at++);
  if (lead < 0x80) return lead;
  const std::size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  if (lead < 0xC2 || lead > 0xF4 || at + more > text.size()) return kReplacement;
  char32_t code = lead & (0x3FU >> more);
  for (std::size_t i = at; i < at + more; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) return kReplacement;
    code = (code << 6U) | (byte(i) & 0x3FU);
  }
  constexpr std::array<char32_t, 4> kSmallest{0, 0x80, 0x800, 0x10000};
  if (code < kSmallest.at(more) || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) {
    return kReplacement;
  }
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
  const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
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
    const unsigned lead = byte(at);
    if (lead < 0x80) {
      *to++ = static_cast<char16_t>(lead);
      ++at;
    } else if (lead >= 0xC2 && lead < 0xE0 && at + 1 < text.size() && byte(at + 1) >> 6U == 2) {
      *to++ = static_cast<char16_t>((lead & 0x1FU) << 6U | (byte(at + 1) & 0x3FU));
      at += 2;  // all letters of Persian
    } else {
      const char32_t character = TakeCharacter(text, at);
      if (character < 0x10000) {
        *to++ = static_cast<char16_t>(character);
      } else {
        *to++ = static_cast<char16_t>(0xD7C0 + (character >> 10U));
        *to++ = static_cast<char16_t>(0xDC00 + (character & 0x3FFU));
      }
    }
  }
  return to;
}

}  // namespace text
