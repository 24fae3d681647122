#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Plain helpers over UTF-8 text, the same on every machine: no locale is read.
namespace text {

inline bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
inline bool IsLatinLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
/// A capital Latin letter as the small one, anything else as it is.
inline char Small(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
std::string Small(std::string_view s);

/// Removes blanks (U+0020 alone) at both ends.
std::string_view Trim(std::string_view s);

/// Replaces every occurrence of `from` (not empty).
std::string Replace(std::string_view s, std::string_view from, std::string_view to);

/// The number that a text begins with, 0 when it begins with none. Blanks, tabs and line feeds are
/// skipped wherever they stand, also between digits; an optional sign, digits with one ".", and an
/// exponent (E or D, its sign and digits) are read until the first character that fits no more.
/// "&H" and "&O" at the very beginning start hexadecimal and octal numbers; as in the languages
/// that write them so, what fills 16 or 32 bits is negative ("&HFFFF" is -1). Digits are the Latin
/// ones alone. Never throws; too large gives infinity.
double LeadingNumber(std::string_view s);

/// A number as decimal text the way statements carry it: "." as the decimal point, no exponent for
/// whole numbers below 1E15, no trailing zeros, no grouping, up to 15 significant digits. Larger
/// numbers and very small fractions take one ("1E+15", "1E-05").
std::string DecimalText(double value);

/// `count` characters (not bytes) from the first-based position `start`; shorter at the end.
std::string_view Mid(std::string_view s, std::size_t start, std::size_t count);

/// Number of characters (code points).
std::size_t Length(std::string_view s);

}  // namespace text
