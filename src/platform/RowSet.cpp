#include "platform/RowSet.h"

#include <algorithm>

#include "text/Text.h"

namespace platform {

std::optional<std::size_t> RowSet::ColumnIndex(std::string_view name) const {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (std::equal(columns_[i].begin(), columns_[i].end(), name.begin(), name.end(),
                   [](char a, char b) { return text::Small(a) == text::Small(b); })) {
      return i;
    }
  }
  return std::nullopt;
}

}  // namespace platform
