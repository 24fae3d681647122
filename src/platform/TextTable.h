#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// One cell's text as a place in an arena; eight bytes, so that a large table costs little more
/// than its texts. An absent text (SQL NULL) has the length kNull.
struct TextSlice {
  static constexpr std::uint32_t kNull = std::numeric_limits<std::uint32_t>::max();
  std::uint32_t offset = 0;
  std::uint32_t length = 0;
  bool IsNull() const { return length == kNull; }
};

/// Many texts in one allocation: the cells of a result in row order. Moved, never copied, from a
/// RowSet into a grid.
struct TextTable {
  std::string arena;
  std::vector<TextSlice> cells;

  /// Throws RuntimeError 7 "Out of memory" when the arena would pass 4 GiB.
  void Append(std::string_view text);
  void AppendNull() { cells.push_back({0, TextSlice::kNull}); }
  /// The text of a cell; empty for NULL.
  std::string_view Text(const TextSlice& slice) const {
    return slice.IsNull() ? std::string_view{}
                          : std::string_view(arena).substr(slice.offset, slice.length);
  }
};

}  // namespace platform
