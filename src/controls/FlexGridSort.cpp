#include "controls/FlexGridSort.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <string>

#include "text/PersianOrder.h"

namespace controls {

namespace {

// A row's sort key in one column: its first bytes as a number, so that most comparisons touch no
// text, and the place of all of it.
struct Entry {
  std::uint64_t prefix;
  std::size_t offset;
  std::uint32_t length;
  std::uint32_t row;
};

struct Run {
  std::size_t begin;
  std::size_t end;
};

// The bytes big end first, the missing ones 0, which is below all bytes of a key.
std::uint64_t PrefixOf(const char* key, std::size_t length) {
  std::uint64_t prefix = 0;
  for (std::size_t i = 0; i < sizeof(prefix); ++i) {
    prefix = prefix << 8U | (i < length ? static_cast<unsigned char>(key[i]) : 0U);
  }
  return prefix;
}

class ColumnSorter {
 public:
  ColumnSorter(const FlexGridStore& store, int firstRow, SortDirection direction)
      : store_(store), firstRow_(firstRow), direction_(direction) {}

  // Sorts rows[run] by one column; appends the runs of equal texts to `ties`.
  void Sort(std::vector<std::uint32_t>& rows, Run run, int col, std::vector<Run>& ties) {
    BuildKeys(rows, run, col);
    if (direction_ == SortDirection::kAscending) {
      std::sort(entries_.begin(), entries_.end(), [this](const Entry& a, const Entry& b) {
        const int order = Compare(a, b);
        return order < 0 || (order == 0 && a.row < b.row);
      });
    } else {
      std::sort(entries_.begin(), entries_.end(), [this](const Entry& a, const Entry& b) {
        const int order = Compare(b, a);
        return order < 0 || (order == 0 && a.row < b.row);
      });
    }
    std::size_t equalFrom = 0;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      rows[run.begin + i] = entries_[i].row;
      if (i + 1 < entries_.size() && Compare(entries_[i], entries_[i + 1]) == 0) continue;
      if (i > equalFrom) ties.push_back({run.begin + equalFrom, run.begin + i + 1});
      equalFrom = i + 1;
    }
  }

 private:
  void BuildKeys(const std::vector<std::uint32_t>& rows, Run run, int col) {
    keys_.clear();
    entries_.clear();
    entries_.reserve(run.end - run.begin);
    for (std::size_t i = run.begin; i < run.end; ++i) {
      const std::size_t offset = keys_.size();
      text::AppendSortKey(store_.Text(firstRow_ + static_cast<int>(rows[i]), col), keys_);
      const std::size_t length = keys_.size() - offset;
      entries_.push_back({PrefixOf(keys_.data() + offset, length), offset,
                          static_cast<std::uint32_t>(length), rows[i]});
    }
  }

  int Compare(const Entry& a, const Entry& b) const {
    if (a.prefix != b.prefix) return a.prefix < b.prefix ? -1 : 1;
    const std::size_t common = std::min(a.length, b.length);
    if (common > sizeof(a.prefix)) {
      const int order =
          std::memcmp(keys_.data() + a.offset + sizeof(a.prefix),
                      keys_.data() + b.offset + sizeof(a.prefix), common - sizeof(a.prefix));
      if (order != 0) return order;
    }
    if (a.length == b.length) return 0;
    return a.length < b.length ? -1 : 1;
  }

  const FlexGridStore& store_;
  int firstRow_;
  SortDirection direction_;
  std::string keys_;
  std::vector<Entry> entries_;
};

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
    for (const Run& run : runs) sorter.Sort(rows, run, col, ties);
    runs = std::move(ties);
  }
  return rows;
}

}  // namespace controls
