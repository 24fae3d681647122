#include "adapters/sqlite/Collation.h"

#include <algorithm>
#include <compare>
#include <cstddef>

#include "text/PersianOrder.h"
#include "text/Text.h"
#include "text/Utf8.h"

namespace adapters::sqlite {

namespace {

bool IsCapital(char c) {
  return text::Small(c) != c;
}
bool IsTail(std::string_view text, std::size_t at) {
  return at < text.size() && text::IsTail(text[at]);
}

std::string_view WithoutBlanksAtEnd(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

int Sign(std::weak_ordering order) {
  return std::is_lt(order) ? -1 : std::is_gt(order) ? 1 : 0;
}

/// Of texts that differ.
int CompareSmall(std::string_view a, std::string_view b) {
  const int order = Sign(text::ComparePersian(a, b));
  return order != 0 ? order : Sign(a <=> b);
}

}  // namespace

int CompareTexts(std::string_view a, std::string_view b) {
  if (a == b) return 0;
  a = WithoutBlanksAtEnd(a);
  b = WithoutBlanksAtEnd(b);
  const auto isSame = [](char x, char y) { return text::Small(x) == text::Small(y); };
  auto same = static_cast<std::size_t>(
      std::mismatch(a.begin(), a.end(), b.begin(), b.end(), isSame).first - a.begin());
  if (same == a.size() && same == b.size()) return 0;
  // From the beginning of the first characters that differ.
  while (same > 0 && (IsTail(a, same) || IsTail(b, same))) --same;
  a.remove_prefix(same);
  b.remove_prefix(same);
  if (std::none_of(a.begin(), a.end(), IsCapital) && std::none_of(b.begin(), b.end(), IsCapital)) {
    return CompareSmall(a, b);
  }
  return CompareSmall(text::Small(a), text::Small(b));
}

}  // namespace adapters::sqlite
