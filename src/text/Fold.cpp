#include "text/Fold.h"

#include <cstddef>

namespace text {

namespace {

bool IsTail(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// One character: its bytes, and its code point (0xFFFD for a byte that begins none).
struct Character {
  std::string_view bytes;
  char32_t code;
};

Character TakeCharacter(std::string_view& rest) {
  const auto lead = static_cast<unsigned char>(rest.front());
  const std::size_t size = lead < 0x80   ? 1
                           : lead < 0xC0 ? 0
                           : lead < 0xE0 ? 2
                           : lead < 0xF0 ? 3
                                         : 4;
  Character character{rest.substr(0, 1), size == 1 ? lead : U'\uFFFD'};
  if (size > 1 && rest.size() >= size) {
    char32_t code = lead & (0x7FU >> size);
    std::size_t read = 1;
    for (; read < size && IsTail(rest[read]); ++read) {
      code = code << 6U | (static_cast<unsigned char>(rest[read]) & 0x3FU);
    }
    if (read == size) character = {rest.substr(0, size), code};
  }
  rest.remove_prefix(character.bytes.size());
  return character;
}

bool IsBetween(char32_t c, char32_t first, char32_t last) {
  return first <= c && c <= last;
}

// A Persian or Arabic digit as a Latin one, 0 for any other character.
char LatinDigit(char32_t c) {
  if (IsBetween(c, U'\u06F0', U'\u06F9')) return static_cast<char>('0' + (c - U'\u06F0'));
  if (IsBetween(c, U'\u0660', U'\u0669')) return static_cast<char>('0' + (c - U'\u0660'));
  return '\0';
}

bool IsBlank(char32_t c) {
  return c == U' ' || IsBetween(c, U'\t', U'\r') || c == U'\u00A0' ||
         IsBetween(c, U'\u2000', U'\u200A') || c == U'\u202F' || c == U'\u3000';
}

// Zero-width and direction marks, tatweel and harakat.
bool IsUnseen(char32_t c) {
  return c == U'\u00AD' || IsBetween(c, U'\u200B', U'\u200F') ||
         IsBetween(c, U'\u202A', U'\u202E') || IsBetween(c, U'\u2060', U'\u2069') ||
         c == U'\uFEFF' || c == U'\u0640' || IsBetween(c, U'\u0610', U'\u061A') ||
         IsBetween(c, U'\u064B', U'\u065F') || c == U'\u0670' || IsBetween(c, U'\u06D6', U'\u06DC');
}

// The letter that stands for a whole group in a look-up; empty for a letter that stands alone.
std::string_view GroupLetter(char32_t c) {
  switch (c) {
    case U'\u0622':  // alef with madda, hamza above and below, wasla
    case U'\u0623':
    case U'\u0625':
    case U'\u0671':
      return "\u0627";
    case U'\u0624':  // waw with hamza
      return "\u0648";
    case U'\u0626':  // yeh with hamza, without dots, Arabic
    case U'\u0649':
    case U'\u064A':
      return "\u06CC";
    case U'\u0643':  // Arabic kaf
      return "\u06A9";
    case U'\u0629':  // teh marbuta, heh with yeh above
    case U'\u06C0':
      return "\u0647";
    default:
      return {};
  }
}

}  // namespace

std::string LatinDigits(std::string_view s) {
  std::string result;
  result.reserve(s.size());
  while (!s.empty()) {
    const Character character = TakeCharacter(s);
    if (const char digit = LatinDigit(character.code); digit != '\0') {
      result += digit;
    } else {
      result += character.bytes;
    }
  }
  return result;
}

std::string FoldForLookup(std::string_view s) {
  std::string folded;
  FoldForLookup(s, folded);
  return folded;
}

void FoldForLookup(std::string_view s, std::string& folded) {
  folded.clear();
  folded.reserve(s.size());
  bool blankWaits = false;
  while (!s.empty()) {
    const Character character = TakeCharacter(s);
    if (IsUnseen(character.code)) continue;
    if (IsBlank(character.code)) {
      blankWaits = !folded.empty();
      continue;
    }
    if (blankWaits) folded += ' ';
    blankWaits = false;
    if (const char digit = LatinDigit(character.code); digit != '\0') {
      folded += digit;
    } else if (IsBetween(character.code, U'A', U'Z')) {
      folded += static_cast<char>(character.code - U'A' + U'a');
    } else {
      const std::string_view letter = GroupLetter(character.code);
      folded += letter.empty() ? character.bytes : letter;
    }
  }
}

}  // namespace text
