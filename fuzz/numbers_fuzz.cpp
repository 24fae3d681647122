// Numbers from what a person typed: never an exception but overflow, always finite, the same as the
// C library reads, and the same again from the text that a statement carries.

#include <cmath>

#include "Fuzz.h"
#include "host/modMain.h"
#include "platform/RuntimeError.h"
#include "text/Text.h"

namespace {

/// The longest beginning that is a decimal number, blanks left out; empty when there is none.
std::string DecimalBeginning(std::string_view text) {
  std::string plain;
  for (const char c : text) {
    if (c != ' ' && c != '\t' && c != '\n') plain += c == 'd' || c == 'D' ? 'e' : c;
  }
  std::size_t at = 0;
  const auto digits = [&] {
    const std::size_t from = at;
    while (at < plain.size() && plain[at] >= '0' && plain[at] <= '9') ++at;
    return at - from;
  };
  if (!plain.empty() && (plain[0] == '+' || plain[0] == '-')) ++at;
  std::size_t mantissa = digits();
  if (at < plain.size() && plain[at] == '.') {
    ++at;
    mantissa += digits();
  }
  if (mantissa == 0) return {};
  const std::size_t end = at;
  if (at < plain.size() && (plain[at] == 'e' || plain[at] == 'E')) {
    ++at;
    if (at < plain.size() && (plain[at] == '+' || plain[at] == '-')) ++at;
    if (digits() == 0) at = end;
  }
  return plain.substr(0, at);
}

bool Near(double a, double b) {
  return a == b || std::abs(a - b) <= 1e-14 * std::abs(b) + 1e-300;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = fuzz::Text(data, size);
  const double value = host::NumericValue(input);
  fuzz::Require(std::isfinite(value), "NumericValue is finite");
  const std::string carried = text::DecimalText(value);
  fuzz::Require(Near(host::NumericValue(carried), value), "DecimalText reads back", carried);
  try {
    fuzz::Require(host::NumericId(input) == std::trunc(value), "NumericId is the whole part");
  } catch (const platform::RuntimeError& error) {
    fuzz::Require(error.Number() == platform::kOverflow, "overflow is the only error");
    fuzz::Require(std::abs(value) > 2147483647.0, "only what is too large overflows");
  }
  const std::size_t first = input.find_first_not_of(" \t\n");
  if (first != std::string_view::npos && input[first] == '&') return 0;  // of another radix
  const std::string beginning = DecimalBeginning(input);
  fuzz::Require(Near(text::LeadingNumber(input), std::strtod(beginning.c_str(), nullptr)),
                "LeadingNumber is the C library's", beginning);
  return 0;
}
