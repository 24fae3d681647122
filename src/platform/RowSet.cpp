#include "platform/RowSet.h"

#include <algorithm>

namespace platform {

namespace {

char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::optional<std::size_t> RowSet::ColumnIndex(std::string_view name) const {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (std::equal(columns_[i].begin(), columns_[i].end(), name.begin(), name.end(),
                   [](char a, char b) { return LowerAscii(a) == LowerAscii(b); })) {
      return i;
    }
  }
  return std::nullopt;
}

}  // namespace platform
