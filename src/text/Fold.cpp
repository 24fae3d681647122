#include "text/Fold.h"

#include <cstddef>

#include "text/Text.h"
#include "text/Utf8.h"

namespace text {

namespace {

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
  for (std::size_t at = 0; at < s.size();) {
    const std::size_t begin = at;
    if (const char digit = LatinDigit(TakeCharacter(s, at)); digit != '\0') {
      result += digit;
    } else {
      result += s.substr(begin, at - begin);
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
  for (std::size_t at = 0; at < s.size();) {
    const std::size_t begin = at;
    const char32_t character = TakeCharacter(s, at);
    if (IsUnseen(character)) continue;
    if (IsBlank(character)) {
      blankWaits = !folded.empty();
      continue;
    }
    if (blankWaits) folded += ' ';
    blankWaits = false;
    if (const char digit = LatinDigit(character); digit != '\0') {
      folded += digit;
    } else if (IsBetween(character, U'A', U'Z')) {
      folded += Small(static_cast<char>(character));
    } else {
      const std::string_view letter = GroupLetter(character);
      folded += letter.empty() ? s.substr(begin, at - begin) : letter;
    }
  }
}

}  // namespace text
