#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "controls/Control.h"
#include "platform/TextTable.h"

namespace controls {

/// Texts and colours of a FlexGrid's cells. Rows are reached through an index, so that sorting and
/// removing move no texts; all texts lie in one arena. It checks no bounds: the grid does.
///
/// A call that would need more than 4 GiB of text, or too many cells, throws RuntimeError 7 "Out of
/// memory" and changes nothing.
class FlexGridStore {
 public:
  static constexpr int kMaxCols = 32767;

  FlexGridStore(int rows, int cols);

  int Rows() const { return static_cast<int>(order_.size()); }
  int Cols() const { return cols_; }
  /// New rows and columns are empty and without colour.
  void SetRows(int rows);
  void SetCols(int cols);

  /// Stays the row's in Reorder; any other change of rows or columns may give it to another one.
  std::uint32_t RowId(int row) const { return order_[static_cast<std::size_t>(row)]; }

  std::string_view Text(int row, int col) const { return texts_.Text(CellAt(row, col)); }
  /// `text` may be a view of this store's own texts. Tells whether the text is another one.
  bool SetText(int row, int col, std::string_view text);

  /// 0 where no colour was set.
  Colour ColourAt(int row, int col) const {
    const RowColour& row_colour = colours_[order_[static_cast<std::size_t>(row)]];
    if (row_colour.first <= col && col <= row_colour.last) return row_colour.colour;
    return row_colour.IsMixed() ? MixedColourAt(row, col) : 0;
  }
  /// Colours the columns firstCol to lastCol of a row, 0 takes their colour away. Tells whether
  /// anything changed.
  bool SetColour(int row, int firstCol, int lastCol, Colour colour);

  /// The text's tab-separated parts fill the new row's cells; parts without a column are dropped.
  void AddRow(std::string_view text);
  void RemoveRow(int row);
  /// Row i from `firstRow` on becomes what row `firstRow + order[i]` was.
  void Reorder(int firstRow, const std::vector<std::uint32_t>& order);

  /// Becomes `fixedRows` empty rows above the table's rows, each of them `fixedCols` empty cells
  /// and then the table's `dataCols`. Texts stay where they are in the arena; colours are dropped.
  void Take(platform::TextTable table, int dataCols, int fixedRows, int fixedCols);

  std::size_t MemoryBytes() const;

 private:
  /// What rows are painted with: one colour from column `first` to `last` (0: none), or, where a
  /// row has several colours, a place in mixed_.
  struct RowColour {
    Colour colour = 0;
    std::uint16_t first = 0;
    std::uint16_t last = 0;
    bool IsMixed() const { return first > last; }
  };

  std::size_t CellIndex(int row, int col) const {
    return std::size_t{order_[static_cast<std::size_t>(row)]} * static_cast<std::size_t>(cols_) +
           static_cast<std::size_t>(col);
  }
  const platform::TextSlice& CellAt(int row, int col) const {
    return texts_.cells[CellIndex(row, col)];
  }
  Colour MixedColourAt(int row, int col) const;
  void SetMixedColour(std::uint32_t id, RowColour before, int firstCol, int lastCol, Colour colour);
  bool IsOwnText(std::string_view text) const;
  void WriteCell(platform::TextSlice& cell, std::string_view text);
  void ReserveText(std::size_t bytes);
  void ReserveRows(std::size_t rows);
  std::uint32_t TakeFreeId();
  void FreeRow(std::uint32_t id);
  void CheckCellCount(int rows, int cols) const;
  void LayOutAnew(int cols);
  void ReclaimText();

  int cols_;
  platform::TextTable texts_;       // cells of row id i start at i * cols_
  std::vector<RowColour> colours_;  // by row id
  std::unordered_map<std::uint32_t, std::vector<Colour>> mixed_;  // by row id
  std::vector<std::uint32_t> order_;                              // row number to row id
  std::vector<std::uint32_t> freeIds_;
  std::size_t liveBytes_ = 0;  // of the arena, what cells refer to
};

}  // namespace controls
