#include "text/CellText.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "text/Text.h"

namespace text {

namespace {

void AppendPadded(std::string& out, unsigned value, std::size_t width) {
  std::array<char, 12> digits{};
  const auto* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  const auto count = static_cast<std::size_t>(end - digits.data());
  if (count < width) out.append(width - count, '0');
  out.append(digits.data(), count);
}

}  // namespace

void AppendDay(std::string& out, int year, unsigned month, unsigned day) {
  AppendPadded(out, static_cast<unsigned>(std::max(0, year)), 4);
  AppendPadded(out += '-', month, 2);
  AppendPadded(out += '-', day, 2);
}

void AppendTimeOfDay(std::string& out, unsigned hour, unsigned minute, unsigned second) {
  if (hour == 0 && minute == 0 && second == 0) return;
  AppendPadded(out += ' ', hour, 2);
  AppendPadded(out += ':', minute, 2);
  AppendPadded(out += ':', second, 2);
}

void AppendHex(std::string& out, std::span<const std::byte> bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  for (const std::byte byte : bytes) {
    out += kDigits[std::to_integer<unsigned>(byte >> 4U)];
    out += kDigits[std::to_integer<unsigned>(byte & std::byte{0x0F})];
  }
}

std::string RealText(float value) {
  std::array<char, 64> digits{};
  const auto* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  double shown = 0;
  std::from_chars(digits.data(), end, shown);
  return DecimalText(shown);
}

}  // namespace text
