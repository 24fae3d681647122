#pragma once

// Calls on the grid beside the same calls on a plain grid of vectors: after every call both must
// show the same, also in what they refuse, and a view that re-reads only what the notifications
// name must be up to date.

#include <algorithm>
#include <compare>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "controls/FlexGrid.h"
#include "platform/ResumeNext.h"
#include "support/LoneContainer.h"
#include "text/PersianOrder.h"

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
  for (int col = 0; col < grid.Cols(); ++col) {
    const Colour colour = grid.EffectiveBackColor(row, col);
    const bool band = colour == controls::palette::kGridBand;  // no cell is coloured so
    cells.push_back({std::string(grid.TextMatrix(row, col)), band ? 0 : colour});
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

inline bool Within(int n, int a, int b) {
  return n >= std::min(a, b) && n <= std::max(a, b);
}

// The semantics written down plainly. Each call returns the number of its error, 0 for none.
struct PlainGrid : Picture {
  int Rows() const { return static_cast<int>(rows.size()); }
  bool Has(int atRow, int atCol) const {
    return atRow >= 0 && atRow < Rows() && atCol >= 0 && atCol < cols;
  }
  Cell& At(int atRow, int atCol) { return rows[Size(atRow)][Size(atCol)]; }

  int SetRows(int n) {
    if (n < 0) return 380;
    rows.resize(Size(n), std::vector<Cell>(Size(cols)));
    return Clamp();
  }
  int SetCols(int n) {
    if (n < 0) return 380;
    for (auto& cells : rows) cells.resize(Size(n));
    cols = n;
    return Clamp();
  }
  int SetFixedRows(int n) { return n < 0 ? 380 : Mark(fixedRows, n, std::max(Rows(), 1), 30016); }
  int SetFixedCols(int n) { return n < 0 ? 380 : Mark(fixedCols, n, std::max(cols, 1), 30017); }
  int SetRow(int n) { return Move(row, n, Rows(), 30009); }
  int SetCol(int n) { return Move(col, n, cols, 30010); }
  int SetRowSel(int n) { return Mark(rowSel, n, Rows(), 30009); }
  int SetColSel(int n) { return Mark(colSel, n, cols, 30010); }
  int SetText(int atRow, int atCol, const std::string& text) {
    if (!Has(atRow, atCol)) return 381;
    At(atRow, atCol).text = text;
    return 0;
  }
  int Paint(Colour colour, bool block) {
    for (int r = 0; r < Rows(); ++r) {
      for (int c = 0; c < cols; ++c) {
        const bool inBlock = Within(r, row, rowSel) && Within(c, col, colSel);
        if (block ? inBlock : r == row && c == col) At(r, c).colour = colour;
      }
    }
    return 0;
  }
  int Sort(int order) {
    if (order != 7 && order != 8) return 380;
    if (cols == 0) return 0;
    std::stable_sort(rows.begin() + fixedRows, rows.end(), [&](const auto& a, const auto& b) {
      for (std::size_t c = Size(std::min(col, colSel)); c <= Size(std::max(col, colSel)); ++c) {
        const auto result = text::ComparePersian(a[c].text, b[c].text);
        if (std::is_neq(result)) return order == 7 ? std::is_lt(result) : std::is_gt(result);
      }
      return false;
    });
    return 0;
  }
  int AddItem(const std::vector<std::string>& parts) {
    std::vector<Cell> cells(Size(cols));
    for (std::size_t c = 0; c < std::min(cells.size(), parts.size()); ++c) cells[c].text = parts[c];
    rows.push_back(cells);
    return 0;
  }
  int RemoveItem(int n) {
    if (n < 0 || n >= Rows()) return 30002;
    if (n < fixedRows) return 30000;
    if (Rows() == fixedRows + 1) return 30015;
    rows.erase(rows.begin() + n);
    return Clamp();
  }
  int Bind(const std::vector<std::string>& names, const std::vector<std::string>& texts) {
    cols = fixedCols + static_cast<int>(names.size());
    rows.assign(Size(fixedRows), std::vector<Cell>(Size(cols)));
    const auto put = [&](auto& cells, std::size_t i, const std::string& text) {
      cells[Size(fixedCols) + i % names.size()].text = text;
    };
    for (std::size_t i = 0; i < names.size() && fixedRows > 0; ++i) put(rows[0], i, names[i]);
    for (std::size_t i = 0; i < texts.size(); ++i) {
      if (i % names.size() == 0) rows.emplace_back(Size(cols));
      put(rows.back(), i, texts[i]);
    }
    row = rowSel = fixedRows;
    col = colSel = fixedCols;
    return Clamp();
  }

 private:
  static int Mark(int& mark, int n, int count, int error) {
    if (n < 0 || n >= count) return error;
    mark = n;
    return 0;
  }
  int Move(int& mark, int n, int count, int error) {
    const int refused = Mark(mark, n, count, error);
    if (refused == 0) rowSel = row, colSel = col;
    return refused;
  }
  int Clamp() {
    fixedRows = std::min(fixedRows, Rows());
    fixedCols = std::min(fixedCols, cols);
    for (int* r : {&row, &rowSel}) *r = std::clamp(*r, 0, std::max(Rows() - 1, 0));
    for (int* c : {&col, &colSel}) *c = std::clamp(*c, 0, std::max(cols - 1, 0));
    return 0;
  }
};

inline void Require(bool holds, const char* what) {
  if (!holds) throw std::logic_error(what);
}

class Trial {
 public:
  explicit Trial(unsigned seed) : random_(seed) {
    grid_.SetBackColor(0);
    subscription_ = grid_.Subscribe([this](const controls::Change& change) {
      Require(grid_.Redraw(), "notified while drawing is off");
      Read(grid_, change, shown_);
    });
  }

  /// One call and all comparisons; throws std::logic_error for a difference.
  void Step() {
    const int call = Upto(85);
    if (call < 33) {
      CallWithNumber();
    } else if (call < 63) {
      SetText(call < 60);
    } else if (call < 72) {
      AddItem();
    } else if (call < 81) {
      Paint();
    } else if (call < 84) {
      Bind();
    } else {
      grid_.SetRedraw(!grid_.Redraw());
    }
    const Picture now = PictureOf(grid_);
    Require(now == static_cast<const Picture&>(plain_), "the grids differ");
    if (!grid_.Redraw()) return;
    Require(shown_ == now, "the view was not told");
    const bool hasCell = plain_.Has(plain_.row, plain_.col);
    Require(grid_.CellBackColor() == (hasCell ? plain_.At(plain_.row, plain_.col).colour : 0),
            "CellBackColor");
  }

 private:
  int Upto(int most) { return static_cast<int>(random_() % static_cast<unsigned>(most + 1)); }
  // One of `count`, seldom one beside them.
  int Near(int count) { return Upto(count + 2) - 1; }

  std::string RandomText() {
    static const std::string kBeginning = "شرکت پخش سراسری نمونه، شعبه ";
    static const std::vector<std::string> kTexts = {
        "",     "",           "a",      "علی",      "علي",
        "مریم", "1392/07/05", "漢漢漢", kBeginning, kBeginning + "تهران"};
    // Long ones make the grid reclaim the room of what was written over.
    if (Upto(15) == 0) return std::string(Size(Upto(9000)), static_cast<char>('a' + Upto(25)));
    return kTexts[Size(Upto(9))];
  }

  static void Both(const std::function<void()>& act, int expected) {
    Require(platform::ResumeNext(act) == expected, "another error");
  }

  void CallWithNumber() {
    struct Call {
      void (FlexGrid::*real)(int);
      int (PlainGrid::*plain)(int);
      int argument;
    };
    const int row = Near(plain_.Rows());
    const int col = Near(plain_.cols);
    const std::vector<Call> calls = {
        {&FlexGrid::SetRow, &PlainGrid::SetRow, row},
        {&FlexGrid::SetCol, &PlainGrid::SetCol, col},
        {&FlexGrid::SetRowSel, &PlainGrid::SetRowSel, row},
        {&FlexGrid::SetColSel, &PlainGrid::SetColSel, col},
        {&FlexGrid::RemoveItem, &PlainGrid::RemoveItem, row},
        {&FlexGrid::Sort, &PlainGrid::Sort, Upto(9) == 0 ? Upto(9) : 7 + Upto(1)},
        {&FlexGrid::SetFixedRows, &PlainGrid::SetFixedRows, row},
        {&FlexGrid::SetFixedCols, &PlainGrid::SetFixedCols, col},
        {&FlexGrid::SetRows, &PlainGrid::SetRows, Upto(30) - 1},
        {&FlexGrid::SetCols, &PlainGrid::SetCols, Upto(7) - 1},
    };
    // The shape changes seldom.
    const Call& call = calls[Size(Upto(Upto(3) == 0 ? 9 : 5))];
    Both([&] { (grid_.*call.real)(call.argument); }, (plain_.*call.plain)(call.argument));
  }

  void SetText(bool anyText) {
    const int row = Near(plain_.Rows());
    const int col = Near(plain_.cols);
    const int from = Upto(plain_.Rows());
    if (anyText) {
      const std::string text = RandomText();
      Both([&] { grid_.SetTextMatrix(row, col, text); }, plain_.SetText(row, col, text));
    } else if (plain_.Has(from, 0)) {
      // A text of the grid's own must not be lost while its room is moved.
      const std::string text = plain_.At(from, 0).text;
      Both(
          [&] { grid_.SetTextMatrix(row, col, grid_.TextMatrix(from, 0).substr(text.size() / 3)); },
          plain_.SetText(row, col, text.substr(text.size() / 3)));
      Both([&] { grid_.AddItem(grid_.TextMatrix(from, 0)); },
           plain_.AddItem({plain_.At(from, 0).text}));
    }
  }

  void AddItem() {
    const std::vector<std::string> parts = {RandomText(), RandomText(), RandomText()};
    Both([&] { grid_.AddItem(parts[0] + "\t" + parts[1] + "\t" + parts[2]); },
         plain_.AddItem(parts));
  }

  void Paint() {
    using enum FlexGrid::FillStyle;
    const Colour colour = std::vector<Colour>{0, 65535, 255}[Size(Upto(2))];
    const bool block = Upto(1) == 0;
    grid_.SetFillStyle(block ? kRepeat : kSingle);
    Both([&] { grid_.SetCellBackColor(colour); }, plain_.Paint(colour, block));
  }

  void Bind() {
    const std::vector<std::string> names(Size(Upto(4)), "عنوان");
    std::vector<std::string> texts(names.size() * Size(Upto(20)));
    platform::RowSet result(names);
    for (std::string& text : texts) {
      text = RandomText();
      text.empty() ? result.AppendNull() : result.Append(text);
    }
    Both([&] { grid_.Bind(std::move(result)); }, plain_.Bind(names, texts));
  }

  std::mt19937 random_;
  support::LoneContainer container_;
  FlexGrid grid_{container_, "grid"};
  PlainGrid plain_;
  Picture shown_;
  controls::Subscription subscription_;
};

}  // namespace gridtrial
