#include "text/Utf8.h"

#include <array>

namespace text {

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

}  // namespace text
