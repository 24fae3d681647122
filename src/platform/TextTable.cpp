#include "platform/TextTable.h"

#include "platform/RuntimeError.h"

namespace platform {

void TextTable::Append(std::string_view text) {
  if (text.size() >= TextSlice::kNull - arena.size()) {
    throw RuntimeError(7, "Out of memory");
  }
  cells.push_back(
      {static_cast<std::uint32_t>(arena.size()), static_cast<std::uint32_t>(text.size())});
  arena.append(text);
}

}  // namespace platform
