#pragma once

#include <optional>
#include <vector>

#include "controls/FlexGrid.h"
#include "screens/Rect.h"
#include "screens/Scale.h"

namespace screens {

/// Where the cells of a grid lie in its pane: from right to left, column 0 at the right edge, fixed
/// rows and columns in place, the others scrolled by whole rows and, across, by pixels. Only rows
/// that the pane has room for as a whole are in sight, but at least one. The first row, where it is
/// fixed, may be higher: its headings have as many lines as they need. Above them all may be room
/// for something else.
///
/// The widths of the columns are taken by Measure; rows and counts are asked of the grid each time,
/// so that nothing of a grid is asked for that it has not got any more.
class GridGeometry {
 public:
  struct Cell {
    int row = 0;
    int col = 0;
  };

  /// `grid` must outlive this, or at least every call of it.
  explicit GridGeometry(const controls::FlexGrid& grid) : grid_(grid) {}

  /// Takes the pane's size and the columns' widths; the stretched column takes the room that is
  /// left. MeasureRows follows.
  void MeasureColumns(Size view, const Scale& scale);
  /// Scrolls back as far as there is nothing to show. The rows begin at `top`.
  void MeasureRows(int rowHeight, int headingHeight, int top = 0);
  /// Scrolls back where the rows became fewer.
  void KeepInside();

  int RowHeight() const { return rowHeight_; }
  int RowHeight(int row) const {
    return row == 0 && grid_.FixedRows() > 0 ? headingHeight_ : rowHeight_;
  }
  int Width() const { return view_.width; }
  int Height() const { return view_.height; }
  int FixedWidth() const;
  /// Where the fixed rows end.
  int FixedBottom() const;
  int ColumnWidth(int col) const;
  /// Width of all columns together.
  int ColumnsWidth() const { return columns_.empty() ? 0 : columns_.back().end; }
  /// Rows that one page shows whole, without the fixed ones; at least 1.
  int PageRows() const;

  /// Data rows above the first one shown, and pixels that the columns are moved to the right.
  int RowsAbove() const { return above_; }
  int Across() const { return across_; }
  int MostRowsAbove() const;
  int MostAcross() const;
  /// Both keep to what there is to show; true when anything moved.
  bool ScrollTo(int rowsAbove, int across);
  /// Scrolls as little as shows the cell.
  bool Reveal(int row, int col);

  int LastRowInSight() const;
  /// Where the room of the rows ends; what is left below shows nothing.
  int RowsBottom() const { return FixedBottom() + PageRows() * rowHeight_; }
  int RowTop(int row) const;
  /// Left and right edge of a column over the whole height.
  Rect ColumnPlace(int col) const;
  std::vector<int> ColumnsInSight(bool fixed) const;
  /// The room of the cells that scroll across (or do not) below the fixed rows (or with them), down
  /// to the end of the rows.
  Rect Room(bool fixedCols, bool withFixedRows) const;
  /// Empty when the cell is hidden, scrolled away or does not exist.
  Rect CellPlace(int row, int col) const;
  /// Rows() below the last row, Cols() beyond the last column; right of the view is column 0.
  Cell CellAt(Point place) const;
  /// The column whose left border is at a place in the headings.
  std::optional<int> BorderAt(Point place, int reach) const;
  /// What rows take of the pane, the lines of a frame around them included; empty where none of
  /// them is in sight.
  Rect RowsPlace(int firstRow, int lastRow) const;
  /// Where the frame around a block is drawn: from the right column to the left one; cut off near
  /// the pane where the block is longer.
  Rect BlockPlace(int firstRow, int firstCol, int lastRow, int lastCol) const;

 private:
  struct Edges {  // of a column, from the pane's right edge before scrolling
    int begin = 0;
    int end = 0;
  };
  int Columns() const;

  const controls::FlexGrid& grid_;
  std::vector<Edges> columns_;
  Size view_;
  int rowHeight_ = 19;
  int headingHeight_ = 19;
  int top_ = 0;
  int above_ = 0;
  int across_ = 0;
};

}  // namespace screens
