#include "screens/GridGeometry.h"

#include <algorithm>
#include <cmath>

namespace screens {

void GridGeometry::MeasureColumns(Size view, const Scale& scale) {
  view_ = view;
  columns_.clear();
  controls::Twips spare = scale.Twips(view.width);
  for (int col = 0; col < grid_.Cols(); ++col) spare -= grid_.ColWidth(col);
  // Edges are rounded, not widths, so that a fraction of a pixel does not add up.
  controls::Twips sum = 0;
  for (int col = 0; col < grid_.Cols(); ++col) {
    const bool stretches = col == grid_.StretchCol();
    const controls::Twips width = grid_.ColWidth(col) + (stretches ? std::max(0.0, spare) : 0.0);
    columns_.push_back({scale.Pixels(sum), scale.Pixels(sum + width)});
    sum += width;
  }
}

void GridGeometry::MeasureRows(int rowHeight, int headingHeight, int top) {
  top_ = top;
  rowHeight_ = rowHeight;
  headingHeight_ = headingHeight;
  KeepInside();
}

void GridGeometry::KeepInside() {
  ScrollTo(above_, across_);
}

int GridGeometry::Columns() const {
  return std::min(grid_.Cols(), static_cast<int>(columns_.size()));
}

int GridGeometry::ColumnWidth(int col) const {
  if (col < 0 || col >= Columns()) return 0;
  const Edges& edges = columns_[static_cast<std::size_t>(col)];
  return edges.end - edges.begin;
}

int GridGeometry::FixedWidth() const {
  const int fixed = std::min(grid_.FixedCols(), Columns());
  return fixed > 0 ? columns_[static_cast<std::size_t>(fixed) - 1].end : 0;
}

int GridGeometry::FixedBottom() const {
  const int fixed = grid_.FixedRows();
  return top_ + (fixed == 0 ? 0 : headingHeight_ + (fixed - 1) * rowHeight_);
}

int GridGeometry::PageRows() const {
  return std::max(1, (Height() - FixedBottom()) / rowHeight_);
}

int GridGeometry::MostRowsAbove() const {
  return std::max(0, grid_.Rows() - grid_.FixedRows() - PageRows());
}

int GridGeometry::MostAcross() const {
  return std::max(0, ColumnsWidth() - Width());
}

bool GridGeometry::ScrollTo(int rowsAbove, int across) {
  const int newAbove = std::clamp(rowsAbove, 0, MostRowsAbove());
  const int newAcross = std::clamp(across, 0, MostAcross());
  if (newAbove == above_ && newAcross == across_) return false;
  above_ = newAbove;
  across_ = newAcross;
  return true;
}

bool GridGeometry::Reveal(int row, int col) {
  int above = above_;
  int across = across_;
  const int dataRow = row - grid_.FixedRows();
  if (dataRow >= 0) above = std::clamp(above, dataRow - PageRows() + 1, dataRow);
  if (col >= grid_.FixedCols() && col < Columns()) {
    const Edges& edges = columns_[static_cast<std::size_t>(col)];
    across = std::max(across, edges.end - Width());
    // Where the column is wider than its room, its beginning counts.
    across = std::min(across, edges.begin - FixedWidth());
  }
  return ScrollTo(above, across);
}

int GridGeometry::RowTop(int row) const {
  const int fixed = grid_.FixedRows();
  if (row >= fixed) return FixedBottom() + (row - fixed - above_) * rowHeight_;
  return row <= 0 ? top_ : top_ + headingHeight_ + (row - 1) * rowHeight_;
}

int GridGeometry::LastRowInSight() const {
  return std::min(grid_.Rows(), grid_.FixedRows() + above_ + PageRows()) - 1;
}

Rect GridGeometry::ColumnPlace(int col) const {
  const Edges& edges = columns_[static_cast<std::size_t>(col)];
  const int moved = Width() + (col < grid_.FixedCols() ? 0 : across_);
  return {moved - edges.end, 0, moved - edges.begin, Height()};
}

std::vector<int> GridGeometry::ColumnsInSight(bool fixed) const {
  const int split = std::min(grid_.FixedCols(), Columns());
  const Rect room = Room(fixed, true);
  std::vector<int> seen;
  for (int col = fixed ? 0 : split; col < (fixed ? split : Columns()); ++col) {
    const Rect place = ColumnPlace(col);
    if (place.right > place.left && place.right > room.left && place.left < room.right) {
      seen.push_back(col);
    }
  }
  return seen;
}

Rect GridGeometry::Room(bool fixedCols, bool withFixedRows) const {
  return {0, withFixedRows ? top_ : FixedBottom(), Width() - (fixedCols ? 0 : FixedWidth()),
          std::min(Height(), RowsBottom())};
}

Rect GridGeometry::CellPlace(int row, int col) const {
  if (row < 0 || row >= grid_.Rows() || col < 0 || col >= Columns()) return {};
  const Rect room = Room(col < grid_.FixedCols(), row < grid_.FixedRows());
  Rect place = ColumnPlace(col);
  place.top = RowTop(row);
  place.bottom = place.top + RowHeight(row);
  return place.Common(room);
}

GridGeometry::Cell GridGeometry::CellAt(Point place) const {
  const int fixedRows = grid_.FixedRows();
  const int below = std::max(0, place.y) - FixedBottom();
  int row = below >= 0 ? fixedRows + above_ + below / rowHeight_
                       : std::max(0, fixedRows - 1 - (-below - 1) / rowHeight_);
  row = place.y >= RowsBottom() ? grid_.Rows() : std::min(row, grid_.Rows());
  for (const bool fixed : {true, false}) {
    for (const int col : ColumnsInSight(fixed)) {
      const Rect column = ColumnPlace(col);
      if (place.x >= column.left && place.x < column.right) return {row, col};
    }
  }
  return {row, place.x >= Width() ? 0 : grid_.Cols()};
}

std::optional<int> GridGeometry::BorderAt(Point place, int reach) const {
  if (place.y < top_ || place.y >= FixedBottom()) return std::nullopt;
  for (const bool fixed : {true, false}) {
    for (const int col : ColumnsInSight(fixed)) {
      if (std::abs(place.x - ColumnPlace(col).left) <= reach) return col;
    }
  }
  return std::nullopt;
}

Rect GridGeometry::RowsPlace(int firstRow, int lastRow) const {
  const int fixed = grid_.FixedRows();
  Rect place{0, 0, Width(), 0};
  if (firstRow < fixed) {
    place.top = RowTop(firstRow);
    const int last = std::min(lastRow, fixed - 1);
    place.bottom = RowTop(last) + RowHeight(last);
  }
  const int first = std::max(firstRow, fixed + above_);
  const int last = std::min(lastRow, LastRowInSight());
  if (first <= last) {
    if (place.bottom == 0) place.top = RowTop(first) - 1;
    place.bottom = RowTop(last) + rowHeight_ + 1;
  }
  return place.Empty() ? Rect{} : place;
}

Rect GridGeometry::BlockPlace(int firstRow, int firstCol, int lastRow, int lastCol) const {
  if (lastCol >= Columns()) return {};
  // A frame of 100,000 rows is longer than some displays can draw.
  constexpr int kBeyond = 8;
  const Rect place{std::max(ColumnPlace(lastCol).left, -kBeyond),
                   std::max(RowTop(firstRow), -kBeyond),
                   std::min(ColumnPlace(firstCol).right, Width() + kBeyond),
                   std::min(RowTop(lastRow) + rowHeight_, Height() + kBeyond)};
  return place.Empty() ? Rect{} : place;
}

}  // namespace screens
