#include "adapters/sqlite/Like.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace adapters::sqlite {

namespace {

/// Reads one character at `position` and moves behind it; a byte that begins none is taken alone.
std::uint32_t TakeCharacter(std::string_view s, std::size_t& position) {
  const auto byte = [&](std::size_t i) -> std::uint32_t {
    return static_cast<unsigned char>(s[i]);
  };
  const std::uint32_t lead = byte(position++);
  if (lead >= 'A' && lead <= 'Z') return lead - 'A' + 'a';
  if (lead < 0xC0) return lead;
  const std::size_t following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  std::uint32_t character = lead & (0x3FU >> following);
  for (std::size_t i = 0; i < following && position < s.size(); ++i) {
    character = (character << 6U) | (byte(position++) & 0x3FU);
  }
  return character;
}

/// Whether `character` is in the set that begins behind "["; moves `position` behind its "]".
bool InSet(std::uint32_t character, std::string_view pattern, std::size_t& position) {
  const std::size_t end = pattern.find(']', position);
  if (end == std::string_view::npos) {
    position = pattern.size();
    return false;
  }
  const std::string_view set = pattern.substr(0, end);
  const bool negated = position < end && set[position] == '^';
  if (negated) ++position;
  bool found = false;
  while (position < end) {
    const std::uint32_t first = TakeCharacter(set, position);
    std::uint32_t last = first;
    if (position + 1 < end && set[position] == '-') {
      ++position;
      last = TakeCharacter(set, position);
    }
    found = found || (first <= character && character <= last);
  }
  position = end + 1;
  return found != negated;
}

}  // namespace

bool Like(std::string_view text, std::string_view pattern) {
  constexpr std::size_t kNone = std::string_view::npos;
  std::size_t t = 0;
  std::size_t p = 0;
  // Where to go on when a character does not match: behind the last %, one character further.
  std::size_t retryText = kNone;
  std::size_t retryPattern = kNone;
  while (t < text.size() || p < pattern.size()) {
    if (p < pattern.size() && pattern[p] == '%') {
      retryPattern = ++p;
      retryText = t;
      if (p == pattern.size()) return true;
      continue;
    }
    bool matches = false;
    if (p < pattern.size() && t < text.size()) {
      const std::uint32_t character = TakeCharacter(text, t);
      if (pattern[p] == '_') {
        ++p;
        matches = true;
      } else if (pattern[p] == '[') {
        ++p;
        matches = InSet(character, pattern, p);
      } else {
        matches = TakeCharacter(pattern, p) == character;
      }
    }
    if (matches) continue;
    if (retryText == kNone || retryText >= text.size()) return false;
    TakeCharacter(text, retryText);
    t = retryText;
    p = retryPattern;
  }
  return true;
}

}  // namespace adapters::sqlite
