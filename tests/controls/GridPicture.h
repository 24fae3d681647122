#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "controls/FlexGrid.h"

namespace gridtrial {

using controls::Aspect;
using controls::Colour;
using controls::FlexGrid;

struct Cell {
  std::string text;
  Colour colour = 0;
  bool operator==(const Cell&) const = default;
};

/// What can be seen of a grid.
struct Picture {
  std::vector<std::vector<Cell>> rows{2, std::vector<Cell>(2)};
  int cols = 2;
  int fixedRows = 1, fixedCols = 1;
  int row = 1, col = 1, rowSel = 1, colSel = 1;
  bool operator==(const Picture&) const = default;
};

inline std::size_t Size(int n) {
  return static_cast<std::size_t>(n);
}

inline std::vector<Cell> RowOf(const FlexGrid& grid, int row) {
  std::vector<Cell> cells;
  cells.reserve(Size(grid.Cols()));
  for (int col = 0; col < grid.Cols(); ++col) {
    cells.push_back({std::string(grid.TextMatrix(row, col)), grid.EffectiveBackColor(row, col)});
  }
  return cells;
}

/// Re-reads what a notification names.
inline void Read(const FlexGrid& grid, const controls::Change& change, Picture& picture) {
  if (change.aspect == Aspect::kColumns) {
    picture.cols = grid.Cols();
    picture.fixedRows = grid.FixedRows();
    picture.fixedCols = grid.FixedCols();
  } else if (change.aspect == Aspect::kRows) {
    picture.rows.clear();
    for (int row = 0; row < grid.Rows(); ++row) picture.rows.push_back(RowOf(grid, row));
  } else if (change.aspect == Aspect::kCells) {
    for (int row = change.firstRow; row <= change.lastRow; ++row) {
      picture.rows.at(Size(row)) = RowOf(grid, row);
    }
  } else if (change.aspect == Aspect::kSelection) {
    picture.row = grid.Row();
    picture.col = grid.Col();
    picture.rowSel = grid.RowSel();
    picture.colSel = grid.ColSel();
  }
}

inline Picture PictureOf(const FlexGrid& grid) {
  Picture picture;
  for (const Aspect aspect : {Aspect::kColumns, Aspect::kRows, Aspect::kSelection}) {
    Read(grid, {aspect}, picture);
  }
  return picture;
}

/// What a view shows that re-reads only what the grid's notifications name.
class Mirror {
 public:
  explicit Mirror(FlexGrid& grid)
      : grid_(grid), shown_(PictureOf(grid)), subscription_(grid.Subscribe([this](const auto& c) {
          Read(grid_, c, shown_);
          if (c.aspect == Aspect::kColumns) Read(grid_, {Aspect::kRows}, shown_);  // bands shift
          changed_ = true;
        })) {}
  Mirror(const Mirror&) = delete;
  Mirror& operator=(const Mirror&) = delete;

  const Picture& Shown() const { return shown_; }
  /// Whether the grid has notified since this was asked last.
  bool TakeChanged() { return std::exchange(changed_, false); }
  bool IsUpToDate() const { return shown_ == PictureOf(grid_); }

 private:
  FlexGrid& grid_;
  Picture shown_;
  bool changed_ = false;
  controls::Subscription subscription_;
};

}  // namespace gridtrial
