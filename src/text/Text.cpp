#include "text/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "text/Utf8.h"

namespace text {

namespace {

// Reads a text without the characters that a number may hold anywhere.
class NumberReader {
 public:
  explicit NumberReader(std::string_view rest) : rest_(rest) {}

  // The next character, 0 at the end.
  char Peek() {
    while (!rest_.empty() &&
           (rest_.front() == ' ' || rest_.front() == '\t' || rest_.front() == '\n')) {
      rest_.remove_prefix(1);
    }
    return rest_.empty() ? '\0' : rest_.front();
  }
  char Take() {
    const char c = Peek();
    if (!rest_.empty()) rest_.remove_prefix(1);
    return c;
  }
  // `small` is a small letter; a capital one is taken for it.
  bool TakeIf(char small) {
    if (Small(Peek()) != small) return false;
    Take();
    return true;
  }

 private:
  std::string_view rest_;
};

int DigitOf(char c) {
  if (IsDigit(c)) return c - '0';
  if (IsLatinLetter(c)) return Small(c) - 'a' + 10;
  return std::numeric_limits<int>::max();
}

double RadixNumber(NumberReader reader, int radix) {
  double value = 0;
  while (DigitOf(reader.Peek()) < radix) value = value * radix + DigitOf(reader.Take());
  // The narrowest integer that holds the digits takes them as its bits.
  if (value >= 0x8000 && value <= 0xFFFF) return value - 0x10000;
  if (value >= 0x80000000 && value <= 0xFFFFFFFF) return value - 4294967296.0;
  return value;
}

// A decimal number as std::from_chars reads it, and what decides whether it is too large or too
// small for a double.
struct Decimal {
  std::string digits;
  bool negative = false;
  bool large = false;
};

Decimal ReadDecimal(NumberReader reader) {
  Decimal decimal;
  if (reader.Peek() == '-' || reader.Peek() == '+') decimal.negative = reader.Take() == '-';
  bool pointSeen = false;
  bool digitSeen = false;
  for (char c = reader.Peek(); IsDigit(c) || (c == '.' && !pointSeen); c = reader.Peek()) {
    pointSeen = pointSeen || c == '.';
    digitSeen = digitSeen || IsDigit(c);
    decimal.large = decimal.large || (!pointSeen && c != '0');
    decimal.digits += reader.Take();
  }
  if (!digitSeen) return {};
  if (!reader.TakeIf('e') && !reader.TakeIf('d')) return decimal;
  std::string exponent = "e";
  if (reader.Peek() == '-' || reader.Peek() == '+') exponent += reader.Take();
  const bool negative = exponent.back() == '-';
  const std::size_t signs = exponent.size();
  while (IsDigit(reader.Peek())) exponent += reader.Take();
  if (exponent.size() == signs) return decimal;
  if (exponent.find_first_not_of('0', signs) != std::string::npos) decimal.large = !negative;
  decimal.digits += exponent;
  return decimal;
}

}  // namespace

std::string_view Trim(std::string_view s) {
  const std::size_t first = s.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return s.substr(first, s.find_last_not_of(' ') - first + 1);
}

std::string Small(std::string_view s) {
  std::string small(s);
  for (char& c : small) c = Small(c);
  return small;
}

std::string Replace(std::string_view s, std::string_view from, std::string_view to) {
  std::string result;
  result.reserve(s.size());
  std::size_t at = 0;
  for (std::size_t hit = s.find(from); hit != std::string_view::npos; hit = s.find(from, at)) {
    result.append(s.substr(at, hit - at)).append(to);
    at = hit + from.size();
  }
  return result.append(s.substr(at));
}

double LeadingNumber(std::string_view s) {
  NumberReader reader(s);
  if (reader.Peek() == '&') {
    reader.Take();
    if (reader.TakeIf('h')) return RadixNumber(reader, 16);
    return reader.TakeIf('o') ? RadixNumber(reader, 8) : 0;
  }
  const Decimal decimal = ReadDecimal(reader);
  double value = 0;
  const char* const end = decimal.digits.data() + decimal.digits.size();
  const auto read = std::from_chars(decimal.digits.data(), end, value);
  if (read.ec == std::errc::result_out_of_range) {
    value = decimal.large ? std::numeric_limits<double>::infinity() : 0;
  }
  return decimal.negative ? -value : value;
}

std::string DecimalText(double value) {
  if (value == 0) return "0";
  if (!std::isfinite(value)) return std::isnan(value) ? "NAN" : value > 0 ? "INF" : "-INF";
  std::array<char, 32> buffer{};
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                     std::chars_format::general, 15);
  return Replace({buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data())}, "e", "E");
}

std::string_view Mid(std::string_view s, std::size_t start, std::size_t count) {
  std::size_t first = 0;
  for (; start > 1 && first < s.size(); --start) TakeCharacter(s, first);
  std::size_t last = first;
  for (; count > 0 && last < s.size(); --count) TakeCharacter(s, last);
  return s.substr(first, last - first);
}

std::size_t Length(std::string_view s) {
  std::size_t length = 0;
  for (std::size_t at = 0; at < s.size(); ++length) TakeCharacter(s, at);
  return length;
}

}  // namespace text
