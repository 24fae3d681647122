#include "screens/GridFind.h"

#include <algorithm>

#include "text/Fold.h"

namespace screens {

using controls::FlexGrid;

namespace {

constexpr int kSliceCells = 40000;  // some milliseconds

}  // namespace

std::vector<int> ShownCols(const FlexGrid& grid) {
  std::vector<int> shown;
  for (int col = 0; col < grid.Cols(); ++col) {
    if (grid.ColWidth(col) > 0) shown.push_back(col);
  }
  return shown;
}

void GridFind::Begin(const FlexGrid& grid, std::string_view text, int from) {
  sought_ = text::FoldForLookup(text);
  cols_ = ShownCols(grid);
  found_.clear();
  rows_ = std::max(0, grid.Rows() - grid.FixedRows());
  from_ = std::max(0, from - grid.FixedRows());
  edition_ = grid.RowsEdition();
  read_ = 0;
  first_ = -1;
}

bool GridFind::Holds(std::string_view text) const {
  if (!Seeks() || text.empty()) return false;
  text::FoldForLookup(text, folded_);
  return folded_.find(sought_) != std::string::npos;
}

int GridFind::ColumnOf(const FlexGrid& grid, int row) const {
  const auto col =
      std::ranges::find_if(cols_, [&](int each) { return Holds(grid.TextMatrix(row, each)); });
  return col == cols_.end() ? -1 : *col;
}

void GridFind::ReadOn(const FlexGrid& grid) {
  if (!Reading() || edition_ != grid.RowsEdition()) return;
  const int slice = std::max(1, kSliceCells / std::max(1, static_cast<int>(cols_.size())));
  for (const int end = std::min(rows_, read_ + slice); read_ < end; ++read_) {
    const int row = grid.FixedRows() + (from_ + read_) % rows_;
    if (ColumnOf(grid, row) < 0) continue;
    if (first_ < 0) first_ = row;
    found_.push_back(row);
  }
  // Those before the beginning came last.
  if (!Reading()) std::rotate(found_.begin(), std::ranges::min_element(found_), found_.end());
}

void GridFind::ReadAll(const FlexGrid& grid) {
  while (Reading() && edition_ == grid.RowsEdition()) ReadOn(grid);
}

void GridFind::ReadAgain(const FlexGrid& grid, int firstRow, int lastRow) {
  for (int row = std::max(firstRow, grid.FixedRows()); row <= lastRow; ++row) {
    const auto place = std::ranges::lower_bound(found_, row);
    const bool was = place != found_.end() && *place == row;
    const bool is = ColumnOf(grid, row) >= 0;
    if (was && !is) found_.erase(place);
    if (is && !was) found_.insert(place, row);
  }
}

int GridFind::PlaceOf(int row) const {
  const auto place = std::ranges::lower_bound(found_, row);
  if (place == found_.end() || *place != row) return 0;
  return static_cast<int>(place - found_.begin()) + 1;
}

int GridFind::Behind(int row) const {
  if (found_.empty()) return -1;
  const auto place = std::ranges::upper_bound(found_, row);
  return place == found_.end() ? found_.front() : *place;
}

int GridFind::Before(int row) const {
  if (found_.empty()) return -1;
  const auto place = std::ranges::lower_bound(found_, row);
  return place == found_.begin() ? found_.back() : *std::prev(place);
}

}  // namespace screens
