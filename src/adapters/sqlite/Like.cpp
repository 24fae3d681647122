#include "adapters/sqlite/Like.h"

#include <cstddef>

#include "adapters/sqlite/Collation.h"
#include "text/Utf8.h"

namespace adapters::sqlite {

namespace {

/// The bytes of the character at `position`, which moves behind it.
std::string_view TakeCharacter(std::string_view s, std::size_t& position) {
  const std::size_t from = position;
  text::TakeCharacter(s, position);
  return s.substr(from, position - from);
}

bool IsSame(std::string_view a, std::string_view b) {
  return a == b || (a.size() == 1 && b.size() == 1 && CompareTexts(a, b) == 0);
}

/// Whether `character` is in the set that begins behind "["; moves `position` behind its "]".
bool InSet(std::string_view character, std::string_view pattern, std::size_t& position) {
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
    const std::string_view first = TakeCharacter(set, position);
    if (position + 1 < end && set[position] == '-') {
      ++position;
      const std::string_view last = TakeCharacter(set, position);
      found = found || (CompareTexts(first, character) <= 0 && CompareTexts(character, last) <= 0);
    } else {
      found = found || IsSame(first, character);
    }
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
      const std::string_view character = TakeCharacter(text, t);
      if (pattern[p] == '_') {
        ++p;
        matches = true;
      } else if (pattern[p] == '[') {
        ++p;
        matches = InSet(character, pattern, p);
      } else {
        matches = IsSame(TakeCharacter(pattern, p), character);
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
