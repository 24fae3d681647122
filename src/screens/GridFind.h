#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "controls/FlexGrid.h"

namespace screens {

/// The columns of a grid that have a width.
std::vector<int> ShownCols(const controls::FlexGrid& grid);

/// Looks for a text in all columns of a grid that are shown, folded as for any look-up. The rows
/// are read in slices, so that a long list keeps nobody waiting. Begin it anew when the rows are
/// others or in another order; where they became fewer it reads no more.
class GridFind {
 public:
  /// From a row on, round to the one before it. A text of nothing finds nothing.
  void Begin(const controls::FlexGrid& grid, std::string_view text, int from);
  /// Reads the next slice.
  void ReadOn(const controls::FlexGrid& grid);
  void ReadAll(const controls::FlexGrid& grid);
  /// These rows hold other texts. For a few of them, and once all are read.
  void ReadAgain(const controls::FlexGrid& grid, int firstRow, int lastRow);

  bool Seeks() const { return !sought_.empty(); }
  bool Reading() const { return Seeks() && read_ < rows_; }
  /// Whether it looks into the columns that the grid shows.
  bool CoversColumns(const controls::FlexGrid& grid) const { return cols_ == ShownCols(grid); }

  /// The first row found from the beginning on; -1 for none as yet.
  int First() const { return first_; }
  /// The first column of a row that holds the text; -1 where none does.
  int ColumnOf(const controls::FlexGrid& grid, int row) const;
  bool Holds(std::string_view text) const;

  // Once all rows are read.
  int Count() const { return static_cast<int>(found_.size()); }
  /// Of a row among those found, from 1; 0 where it is none of them.
  int PlaceOf(int row) const;
  /// The one found behind a row or before it, round at the end; -1 for none.
  int Behind(int row) const;
  int Before(int row) const;

 private:
  std::string sought_;          // folded
  mutable std::string folded_;  // of the cell at hand
  std::vector<int> cols_;
  std::vector<int> found_;     // in the order of the rows once all are read
  std::uint64_t edition_ = 0;  // of the grid's rows
  int from_ = 0;               // counted from the first data row, as the next two
  int rows_ = 0;
  int read_ = 0;
  int first_ = -1;
};

}  // namespace screens
