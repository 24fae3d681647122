#include "controls/FlexGridSort.h"

#include <algorithm>
#include <compare>
#include <cstddef>
#include <numeric>
#include <string>
#include <utility>

#include "text/PersianOrder.h"

namespace controls {

namespace {

struct Run {
  std::size_t begin;
  std::size_t end;
};

/// Orders rows by the sort keys of one column's texts, eight bytes of the keys at a time: a
/// comparison is one of numbers and reaches for no text.
class ColumnSorter {
 public:
  ColumnSorter(const FlexGridStore& store, int firstRow, SortDirection direction)
      : store_(store),
        firstRow_(firstRow),
        flip_(direction == SortDirection::kDescending ? ~std::uint64_t{0} : 0) {}

  // Sorts the rows of `run` by a column; appends the runs of equal texts to `ties`.
  void Sort(std::vector<std::uint32_t>& rows, Run run, int col, std::vector<Run>& ties) {
    BuildKeys(rows, run, col);
    std::vector<Part> parts = {{0, entries_.size(), 0}};
    while (!parts.empty()) {
      const Part part = parts.back();
      parts.pop_back();
      SortPart(part);
      for (std::size_t i = part.begin; i < part.end;) {
        std::size_t end = i + 1;
        while (end < part.end && entries_[end].bytes == entries_[i].bytes) ++end;
        // No end of a key looks like a part of another (bytes begin no character with 0), so when
        // one ends within these equal bytes, all do.
        const bool ended = LengthOf(entries_[i].key) < part.depth + kStep;
        if (end - i > 1 && ended) ties.push_back({run.begin + i, run.begin + end});
        if (end - i > 1 && !ended) parts.push_back({i, end, part.depth + kStep});
        i = end;
      }
    }
    const std::vector<std::uint32_t> before(rows.begin() + static_cast<std::ptrdiff_t>(run.begin),
                                            rows.begin() + static_cast<std::ptrdiff_t>(run.end));
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      rows[run.begin + i] = before[entries_[i].key];
    }
  }

 private:
  static constexpr std::size_t kStep = sizeof(std::uint64_t);
  struct Entry {
    std::uint64_t bytes;  // of the key, at the depth looked at
    std::uint32_t key;    // which one, in the order before the sort
  };
  // Entries whose keys are equal up to `depth`.
  struct Part {
    std::size_t begin;
    std::size_t end;
    std::size_t depth;
  };

  void BuildKeys(const std::vector<std::uint32_t>& rows, Run run, int col) {
    keys_.clear();
    ends_.clear();
    entries_.clear();
    for (std::size_t i = run.begin; i < run.end; ++i) {
      text::AppendSortKey(store_.Text(firstRow_ + static_cast<int>(rows[i]), col), keys_);
      entries_.push_back({0, static_cast<std::uint32_t>(ends_.size())});
      ends_.push_back(keys_.size());
    }
  }

  std::size_t BeginOf(std::uint32_t key) const { return key == 0 ? 0 : ends_[key - 1]; }
  std::size_t LengthOf(std::uint32_t key) const { return ends_[key] - BeginOf(key); }

  // The key's bytes from `depth` on as a number that orders like them; 0 beyond its end.
  std::uint64_t BytesAt(std::uint32_t key, std::size_t depth) const {
    const std::size_t begin = std::min(BeginOf(key) + depth, ends_[key]);
    const std::size_t count = std::min(ends_[key] - begin, kStep);
    std::uint64_t bytes = 0;
    for (std::size_t i = 0; i < kStep; ++i) {
      bytes = bytes << 8U | (i < count ? static_cast<unsigned char>(keys_[begin + i]) : 0U);
    }
    return bytes;
  }

  void SortPart(const Part& part) {
    const auto begin = entries_.begin() + static_cast<std::ptrdiff_t>(part.begin);
    const auto end = entries_.begin() + static_cast<std::ptrdiff_t>(part.end);
    bool differ = false;
    for (auto entry = begin; entry != end; ++entry) {
      entry->bytes = BytesAt(entry->key, part.depth) ^ flip_;
      differ = differ || entry->bytes != begin->bytes;
    }
    if (!differ) return;
    std::sort(begin, end, [](const Entry& a, const Entry& b) {
      return a.bytes < b.bytes || (a.bytes == b.bytes && a.key < b.key);
    });
  }

  const FlexGridStore& store_;
  int firstRow_;
  std::uint64_t flip_;  // turns the order of the bytes over, but not that of equal rows
  std::string keys_;
  std::vector<std::size_t> ends_;
  std::vector<Entry> entries_;
};

// So few rows are compared text by text: most differ early, and a key would be built for the whole
// text.
constexpr std::size_t kFew = 8;

// As ColumnSorter, with all columns from `firstCol` on at once.
void SortFew(const FlexGridStore& store, std::vector<std::uint32_t>& rows, Run run, int firstRow,
             int firstCol, int lastCol, SortDirection direction) {
  const auto begin = rows.begin() + static_cast<std::ptrdiff_t>(run.begin);
  const auto end = rows.begin() + static_cast<std::ptrdiff_t>(run.end);
  std::sort(begin, end, [&](std::uint32_t a, std::uint32_t b) {
    for (int col = firstCol; col <= lastCol; ++col) {
      const auto order = text::ComparePersian(store.Text(firstRow + static_cast<int>(a), col),
                                              store.Text(firstRow + static_cast<int>(b), col));
      if (std::is_neq(order)) {
        return std::is_lt(order) == (direction == SortDirection::kAscending);
      }
    }
    return a < b;
  });
}

}  // namespace

std::vector<std::uint32_t> SortedRows(const FlexGridStore& store, int firstRow, int firstCol,
                                      int lastCol, SortDirection direction) {
  std::vector<std::uint32_t> rows(static_cast<std::size_t>(store.Rows() - firstRow));
  std::iota(rows.begin(), rows.end(), 0U);
  ColumnSorter sorter(store, firstRow, direction);
  // Only rows that are equal so far are looked at in the next column.
  std::vector<Run> runs;
  if (rows.size() > 1) runs.push_back({0, rows.size()});
  for (int col = firstCol; col <= lastCol && !runs.empty(); ++col) {
    std::vector<Run> ties;
    for (const Run& run : runs) {
      if (run.end - run.begin <= kFew) {
        SortFew(store, rows, run, firstRow, col, lastCol, direction);
      } else {
        sorter.Sort(rows, run, col, ties);
      }
    }
    runs = std::move(ties);
  }
  return rows;
}

}  // namespace controls
