// Random calls on the grid beside the same calls on a plain grid of vectors: after every call both
// must show the same, also in what they refuse, and a view that re-reads only what the
// notifications name must be up to date.

#include <gtest/gtest.h>

#include <algorithm>
#include <compare>
#include <random>
#include <string>
#include <vector>

#include "controls/FlexGrid.h"
#include "controls/FlexGridHarness.h"
#include "text/PersianOrder.h"

namespace {

using controls::Aspect;
using controls::Colour;
using controls::FlexGrid;

struct Cell {
  std::string text;
  Colour colour = 0;
  bool operator==(const Cell&) const = default;
};

struct Column {
  double width = FlexGrid::kDefaultColWidth;
  FlexGrid::Alignment alignment = FlexGrid::Alignment::kGeneral;
  bool operator==(const Column&) const = default;
};

// What can be seen of a grid.
struct Picture {
  std::vector<std::vector<Cell>> rows;
  std::vector<Column> columns;
  int fixedRows = 1, fixedCols = 1;
  int row = 1, col = 1, rowSel = 1, colSel = 1;
  bool operator==(const Picture&) const = default;
};

class PlainGrid {
 public:
  Picture p{.rows = std::vector(2, std::vector<Cell>(2)), .columns = std::vector<Column>(2)};
  bool repeat = false;

  int Rows() const { return static_cast<int>(p.rows.size()); }
  int Cols() const { return static_cast<int>(p.columns.size()); }

  int SetRows(int n) {
    if (n < 0) return 380;
    p.rows.resize(Size(n), std::vector<Cell>(p.columns.size()));
    p.fixedRows = std::min(p.fixedRows, n);
    Clamp();
    return 0;
  }
  int SetCols(int n) {
    if (n < 0) return 380;
    for (auto& row : p.rows) row.resize(Size(n));
    p.columns.resize(Size(n));
    p.fixedCols = std::min(p.fixedCols, n);
    Clamp();
    return 0;
  }
  int SetFixedRows(int n) {
    if (n < 0) return 380;
    if (n != 0 && n >= Rows()) return 30016;
    p.fixedRows = n;
    return 0;
  }
  int SetFixedCols(int n) {
    if (n < 0) return 380;
    if (n != 0 && n >= Cols()) return 30017;
    p.fixedCols = n;
    return 0;
  }
  int SetRow(int n) {
    if (n < 0 || n >= Rows()) return 30009;
    p.row = p.rowSel = n;
    p.colSel = p.col;
    return 0;
  }
  int SetCol(int n) {
    if (n < 0 || n >= Cols()) return 30010;
    p.col = p.colSel = n;
    p.rowSel = p.row;
    return 0;
  }
  int SetRowSel(int n) {
    if (n < 0 || n >= Rows()) return 30009;
    p.rowSel = n;
    return 0;
  }
  int SetColSel(int n) {
    if (n < 0 || n >= Cols()) return 30010;
    p.colSel = n;
    return 0;
  }
  int SetText(int row, int col, const std::string& text) {
    if (row < 0 || row >= Rows() || col < 0 || col >= Cols()) return 381;
    p.rows[Size(row)][Size(col)].text = text;
    return 0;
  }
  int SetWidth(int col, double width) {
    if (col < 0 || col >= Cols()) return 30010;
    if (width < 0) return 380;
    p.columns[Size(col)].width = width;
    return 0;
  }
  int SetAlignment(int col, FlexGrid::Alignment alignment) {
    if (col < 0 || col >= Cols()) return 30010;
    p.columns[Size(col)].alignment = alignment;
    return 0;
  }
  int SetColour(Colour colour) {
    for (int row = 0; row < Rows(); ++row) {
      for (int col = 0; col < Cols(); ++col) {
        const bool inBlock = row >= std::min(p.row, p.rowSel) && row <= std::max(p.row, p.rowSel) &&
                             col >= std::min(p.col, p.colSel) && col <= std::max(p.col, p.colSel);
        const bool isCurrent = row == p.row && col == p.col;
        if (repeat ? inBlock : isCurrent) p.rows[Size(row)][Size(col)].colour = colour;
      }
    }
    return 0;
  }
  int Sort(int order) {
    if (order != 7 && order != 8) return 380;
    if (Cols() == 0) return 0;
    const int first = std::min(p.col, p.colSel);
    const int last = std::max(p.col, p.colSel);
    std::stable_sort(p.rows.begin() + p.fixedRows, p.rows.end(), [&](const auto& a, const auto& b) {
      for (int col = first; col <= last; ++col) {
        const auto result = text::ComparePersian(a[Size(col)].text, b[Size(col)].text);
        if (std::is_neq(result)) return order == 7 ? std::is_lt(result) : std::is_gt(result);
      }
      return false;
    });
    return 0;
  }
  int AddItem(const std::string& text, int index) {
    if (index < 0 || index > Rows()) return 30002;
    if (index < p.fixedRows) return 30001;
    std::vector<Cell> row(p.columns.size());
    std::size_t col = 0;
    for (const char c : text) {
      if (c == '\t') {
        ++col;
      } else if (col < row.size()) {
        row[col].text.push_back(c);
      }
    }
    p.rows.insert(p.rows.begin() + index, row);
    return 0;
  }
  int RemoveItem(int row) {
    if (row < 0 || row >= Rows()) return 30002;
    if (row < p.fixedRows) return 30000;
    if (Rows() == p.fixedRows + 1) return 30015;
    p.rows.erase(p.rows.begin() + row);
    Clamp();
    return 0;
  }
  int Bind(const std::vector<std::string>& names, const std::vector<std::string>& texts) {
    const std::size_t width = Size(p.fixedCols) + names.size();
    p.columns.resize(width);
    p.rows.assign(Size(p.fixedRows), std::vector<Cell>(width));
    for (std::size_t i = 0; i < names.size() && p.fixedRows > 0; ++i) {
      p.rows[0][Size(p.fixedCols) + i].text = names[i];
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
      if (i % names.size() == 0) p.rows.emplace_back(width);
      p.rows.back()[Size(p.fixedCols) + i % names.size()].text = texts[i];
    }
    p.row = p.rowSel = p.fixedRows;
    p.col = p.colSel = p.fixedCols;
    Clamp();
    return 0;
  }

 private:
  static std::size_t Size(int n) { return static_cast<std::size_t>(n); }
  void Clamp() {
    for (int* row : {&p.row, &p.rowSel}) *row = std::clamp(*row, 0, std::max(Rows() - 1, 0));
    for (int* col : {&p.col, &p.colSel}) *col = std::clamp(*col, 0, std::max(Cols() - 1, 0));
  }
};

// EffectiveBackColor with a ground and a band that no cell is painted with.
constexpr Colour kGround = 1;

Cell CellOf(const FlexGrid& grid, int row, int col) {
  const Colour colour = grid.EffectiveBackColor(row, col);
  return {std::string(grid.TextMatrix(row, col)), colour == kGround ? 0 : colour};
}

std::vector<Cell> RowOf(const FlexGrid& grid, int row) {
  std::vector<Cell> cells;
  cells.reserve(static_cast<std::size_t>(grid.Cols()));
  for (int col = 0; col < grid.Cols(); ++col) cells.push_back(CellOf(grid, row, col));
  return cells;
}

// A view that knows the grid by its notifications alone.
class View {
 public:
  explicit View(FlexGrid& grid) : grid_(grid) {
    for (const Aspect aspect : {Aspect::kColumns, Aspect::kRows, Aspect::kSelection})
      Read({aspect});
    subscription_ = grid.Subscribe([this](const controls::Change& change) {
      ++notified;
      Read(change);
    });
  }
  const Picture& Shown() const { return shown_; }
  int notified = 0;

 private:
  void Read(const controls::Change& change) {
    switch (change.aspect) {
      case Aspect::kColumns:
        shown_.columns.clear();
        for (int col = 0; col < grid_.Cols(); ++col) {
          shown_.columns.push_back({grid_.ColWidth(col), grid_.ColAlignment(col)});
        }
        for (auto& row : shown_.rows) row.resize(shown_.columns.size());
        shown_.fixedRows = grid_.FixedRows();
        shown_.fixedCols = grid_.FixedCols();
        break;
      case Aspect::kRows:
        shown_.rows.clear();
        for (int row = 0; row < grid_.Rows(); ++row) shown_.rows.push_back(RowOf(grid_, row));
        break;
      case Aspect::kCells:
        for (int row = change.firstRow; row <= change.lastRow; ++row) {
          shown_.rows.at(static_cast<std::size_t>(row)) = RowOf(grid_, row);
        }
        break;
      case Aspect::kSelection:
        shown_.row = grid_.Row();
        shown_.col = grid_.Col();
        shown_.rowSel = grid_.RowSel();
        shown_.colSel = grid_.ColSel();
        break;
      default:
        ADD_FAILURE() << "unexpected notification " << static_cast<int>(change.aspect);
    }
  }

  FlexGrid& grid_;
  Picture shown_;
  controls::Subscription subscription_;
};

class Trial {
 public:
  explicit Trial(unsigned seed) : random_(seed) {
    grid_.SetBackColor(kGround);
    grid_.SetBandColor(kGround);
  }

  void Step() {
    const int choice = Upto(99);
    const int row = Upto(plain_.Rows() + 2) - 1;
    const int col = Upto(plain_.Cols() + 2) - 1;
    if (choice < 30) {
      const std::string text = RandomText();
      Both([&] { grid_.SetTextMatrix(row, col, text); }, plain_.SetText(row, col, text));
    } else if (choice < 34) {
      SetOwnText(row, col);
    } else if (choice < 60) {
      StepSelection(choice, row, col);
    } else if (choice < 68) {
      const Colour colour = std::vector<Colour>{0, 65535, 255}[Index(3)];
      Both([&] { grid_.SetCellBackColor(colour); }, plain_.SetColour(colour));
    } else if (choice < 73) {
      const int order = Upto(9) == 0 ? Upto(9) : 7 + Upto(1);
      Both([&] { grid_.Sort(order); }, plain_.Sort(order));
    } else if (choice < 88) {
      StepRows(choice, row);
    } else if (choice < 97) {
      StepShape(choice, row, col);
    } else {
      grid_.SetRedraw(!grid_.Redraw());
    }
    Check();
  }

 private:
  int Upto(int most) { return static_cast<int>(random_() % static_cast<unsigned>(most + 1)); }
  std::size_t Index(std::size_t size) { return random_() % size; }

  std::string RandomText() {
    static const std::vector<std::string> kTexts = {
        "", "a", "علی", "علي", "مریم", "1392/07/05", "تهران، خیابان آزادی"};
    // Long ones make the grid reclaim the room of what was written over.
    if (Upto(15) == 0) return std::string(Index(9000), static_cast<char>('a' + Upto(25)));
    return kTexts[Index(kTexts.size())];
  }

  void Both(const std::function<void()>& act, int expected) { ASSERT_EQ(ErrorOf(act), expected); }

  void SetOwnText(int row, int col) {
    if (plain_.Rows() == 0 || plain_.Cols() == 0) return;
    const int fromRow = Upto(plain_.Rows() - 1);
    const int fromCol = Upto(plain_.Cols() - 1);
    const std::string text =
        plain_.p.rows[static_cast<std::size_t>(fromRow)][static_cast<std::size_t>(fromCol)].text;
    const std::size_t cut = Index(text.size() + 1);
    Both([&] { grid_.SetTextMatrix(row, col, grid_.TextMatrix(fromRow, fromCol).substr(cut)); },
         plain_.SetText(row, col, text.substr(cut)));
  }

  void StepSelection(int choice, int row, int col) {
    if (choice < 41) {
      Both([&] { grid_.SetRow(row); }, plain_.SetRow(row));
    } else if (choice < 48) {
      Both([&] { grid_.SetCol(col); }, plain_.SetCol(col));
    } else if (choice < 53) {
      Both([&] { grid_.SetRowSel(row); }, plain_.SetRowSel(row));
    } else if (choice < 58) {
      Both([&] { grid_.SetColSel(col); }, plain_.SetColSel(col));
    } else {
      plain_.repeat = !plain_.repeat;
      grid_.SetFillStyle(plain_.repeat ? FlexGrid::FillStyle::kRepeat
                                       : FlexGrid::FillStyle::kSingle);
    }
  }

  void StepRows(int choice, int row) {
    if (choice < 70 && plain_.Rows() > 0 && plain_.Cols() > 0) {
      const int from = Upto(plain_.Rows() - 1);
      const std::string text = plain_.p.rows[static_cast<std::size_t>(from)][0].text;
      Both([&] { grid_.AddItem(grid_.TextMatrix(from, 0)); }, plain_.AddItem(text, plain_.Rows()));
    } else if (choice < 78) {
      const std::string text = RandomText() + "\t" + RandomText() + "\t" + RandomText();
      Both([&] { grid_.AddItem(text); }, plain_.AddItem(text, plain_.Rows()));
    } else if (choice < 82) {
      const std::string text = RandomText();
      Both([&] { grid_.AddItem(text, row); }, plain_.AddItem(text, row));
    } else {
      Both([&] { grid_.RemoveItem(row); }, plain_.RemoveItem(row));
    }
  }

  void StepShape(int choice, int row, int col) {
    if (choice == 88) {
      const int rows = Upto(14) - 1;
      Both([&] { grid_.SetRows(rows); }, plain_.SetRows(rows));
    } else if (choice == 89) {
      const int cols = Upto(7) - 1;
      Both([&] { grid_.SetCols(cols); }, plain_.SetCols(cols));
    } else if (choice == 90) {
      Both([&] { grid_.SetFixedRows(row); }, plain_.SetFixedRows(row));
    } else if (choice == 91) {
      Both([&] { grid_.SetFixedCols(col); }, plain_.SetFixedCols(col));
    } else if (choice == 92) {
      const double width = 100.0 * (Upto(5) - 1);
      Both([&] { grid_.SetColWidth(col, width); }, plain_.SetWidth(col, width));
    } else if (choice == 93) {
      const auto alignment = FlexGrid::Alignment::kCentreCentre;
      Both([&] { grid_.SetColAlignment(col, alignment); }, plain_.SetAlignment(col, alignment));
    } else if (choice == 94) {
      StepBind();
    }
  }

  void StepBind() {
    std::vector<std::string> names(Index(5), "عنوان");
    std::vector<std::string> texts(names.size() * Index(6));
    platform::RowSet result(names);
    for (std::string& text : texts) {
      text = RandomText();
      if (text.empty()) {
        result.AppendNull();
      } else {
        result.Append(text);
      }
    }
    Both([&] { grid_.Bind(std::move(result)); }, plain_.Bind(names, texts));
  }

  Picture Read() const {
    Picture now;
    now.fixedRows = grid_.FixedRows();
    now.fixedCols = grid_.FixedCols();
    now.row = grid_.Row();
    now.col = grid_.Col();
    now.rowSel = grid_.RowSel();
    now.colSel = grid_.ColSel();
    for (int row = 0; row < grid_.Rows(); ++row) now.rows.push_back(RowOf(grid_, row));
    for (int col = 0; col < grid_.Cols(); ++col) {
      now.columns.push_back({grid_.ColWidth(col), grid_.ColAlignment(col)});
    }
    return now;
  }

  void Check() {
    ASSERT_EQ(Read(), plain_.p);
    if (grid_.Redraw()) {
      ASSERT_EQ(view_.Shown(), plain_.p);
      ASSERT_EQ(grid_.CellBackColor(), CurrentColour());
    } else {
      ASSERT_EQ(view_.notified, notifiedBefore_);
    }
    notifiedBefore_ = view_.notified;
  }

  Colour CurrentColour() const {
    if (plain_.Rows() == 0 || plain_.Cols() == 0) return 0;
    return plain_.p
        .rows[static_cast<std::size_t>(plain_.p.row)][static_cast<std::size_t>(plain_.p.col)]
        .colour;
  }

  std::mt19937 random_;
  LoneContainer container_;
  FlexGrid grid_{container_, "grid"};
  PlainGrid plain_;
  View view_{grid_};
  int notifiedBefore_ = 0;
};

class FlexGridModel : public testing::TestWithParam<unsigned> {};

TEST_P(FlexGridModel, randomCalls_besidePlainGrid_sameToEveryReaderAndView) {
  Trial trial(GetParam());
  for (int step = 0; step < 3000; ++step) {
    ASSERT_NO_FATAL_FAILURE(trial.Step()) << "step " << step;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, FlexGridModel, testing::Range(1U, 13U));

}  // namespace
