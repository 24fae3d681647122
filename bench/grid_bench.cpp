// The grid with a customer list of 100,000 rows and 12 columns, beside reading the same list into
// plain strings, and in a pane with room for 40 rows.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "controls/FlexGrid.h"
#include "platform/RowSet.h"
#include "screens/GridFind.h"
#include "screens/GridPane.h"

namespace {

using controls::FlexGrid;

constexpr int kRows = 100000;
constexpr int kCols = 12;
constexpr int kNameCol = 2;

class LoneContainer : public controls::Container {
 public:
  controls::Form& OwnForm() override { throw std::logic_error("no form"); }
};

using Words = std::array<const char*, 8>;
constexpr Words kGiven = {"محمد", "علی", "فاطمه", "زهرا", "رضا", "حسین", "مریم", "امیر"};
constexpr Words kFamily = {"احمدی", "محمدی", "رضایی", "کریمی", "گنجی", "پاکزاد", "چمنی", "یزدانی"};
constexpr Words kTown = {"تهران", "شیراز", "اصفهان", "تبریز", "مشهد", "رشت", "یزد", "کرمان"};
constexpr Words kStreet = {"آزادی",  "انقلاب",   "شریعتی", "بهار",
                           "گلستان", "پاسداران", "ولیعصر", "سعدی"};
constexpr Words kWork = {"سوپرمارکت", "خواربار", "قنادی",   "رستوران",
                         "داروخانه",  "کافه",    "نانوایی", "میوه"};

platform::RowSet MakeCustomers() {
  std::mt19937 random(1392);
  const auto any = [&random](const Words& words) { return words[random() % words.size()]; };
  const auto number = [&random](unsigned from, unsigned to) {
    return std::to_string(from + random() % (to - from));
  };
  platform::RowSet customers({"Row", "Code", "Name", "Address", "CellPhone", "Phone1", "Phone2",
                              "PathName", "RegionName", "WorkActivityName", "CreateDate", "ID"});
  for (int row = 1; row <= kRows; ++row) {
    const std::string town = any(kTown);
    customers.Append(std::to_string(row));
    customers.Append(number(100000, 999999));
    customers.Append(std::string(any(kGiven)) + " " + any(kFamily) + " " + number(1, 999));
    customers.Append(town + "، خیابان " + any(kStreet) + "، کوچه " + number(1, 90) + "، پلاک " +
                     number(1, 400));
    customers.Append("0912" + number(1000000, 9999999));
    customers.Append("021" + number(10000000, 99999999));
    if (row % 3 == 0) {
      customers.Append("021" + number(10000000, 99999999));
    } else {
      customers.AppendNull();
    }
    customers.Append("مسیر " + number(1, 60) + " " + any(kStreet));
    customers.Append(town);
    customers.Append(any(kWork));
    customers.Append("1392/0" + number(1, 9) + "/" + number(10, 29));
    customers.Append(std::to_string(200000 + row));
  }
  return customers;
}

const platform::RowSet& Customers() {
  static const platform::RowSet customers = MakeCustomers();
  return customers;
}

double TextBytes() {
  double bytes = 0;
  for (std::size_t row = 0; row < Customers().RowCount(); ++row) {
    for (std::size_t col = 0; col < kCols; ++col) {
      bytes += static_cast<double>(Customers().Text(row, col).size());
    }
  }
  return bytes;
}

void ReportMemory(benchmark::State& state, double bytes) {
  state.counters["bytes"] = bytes;
  state.counters["textBytes"] = TextBytes();
  state.counters["bytesPerTextByte"] = bytes / TextBytes();
}

void FillByRows(FlexGrid& grid) {
  grid.SetRedraw(false);
  grid.SetCols(kCols);
  grid.SetRows(1);
  for (int row = 1; row <= kRows; ++row) {
    grid.AddItem("");
    for (int col = 0; col < kCols; ++col) {
      grid.SetTextMatrix(
          row, col,
          Customers().Text(static_cast<std::size_t>(row - 1), static_cast<std::size_t>(col)));
    }
  }
  grid.SetRedraw(true);
}

// A row set filled cell by cell, as an adapter does it, and given to the grid.
void FillByBind(FlexGrid& grid) {
  platform::RowSet result(Customers().Columns());
  for (std::size_t row = 0; row < kRows; ++row) {
    for (std::size_t col = 0; col < kCols; ++col) result.Append(Customers().Text(row, col));
  }
  grid.SetFixedCols(0);
  grid.Bind(std::move(result));
}

void PaintRow(FlexGrid& grid, int row, controls::Colour colour) {
  grid.SetHighLight(FlexGrid::HighLight::kNever);
  grid.SetFillStyle(FlexGrid::FillStyle::kRepeat);
  grid.SetRow(row);
  grid.SetCol(grid.FixedCols());
  grid.SetColSel(grid.Cols() - 1);
  grid.SetCellBackColor(colour);
}

void ReadIntoStrings(benchmark::State& state) {
  double bytes = 0;
  (void)Customers();
  while (state.KeepRunning()) {
    std::vector<std::string> cells;
    for (std::size_t row = 0; row < kRows; ++row) {
      for (std::size_t col = 0; col < kCols; ++col) cells.emplace_back(Customers().Text(row, col));
    }
    benchmark::DoNotOptimize(cells.data());
    bytes = static_cast<double>(cells.capacity() * sizeof(std::string));
    for (const std::string& cell : cells) {
      if (cell.capacity() > 15) bytes += static_cast<double>(cell.capacity() + 1);
    }
  }
  ReportMemory(state, bytes);
}

void Fill(benchmark::State& state, void (*fill)(FlexGrid&)) {
  LoneContainer container;
  double bytes = 0;
  (void)Customers();
  while (state.KeepRunning()) {
    FlexGrid grid(container, "flx");
    fill(grid);
    benchmark::DoNotOptimize(grid.Rows());
    bytes = static_cast<double>(grid.MemoryBytes());
  }
  ReportMemory(state, bytes);
}

void MarkAllRows(benchmark::State& state) {
  LoneContainer container;
  FlexGrid grid(container, "flx");
  FillByRows(grid);
  controls::Colour colour = 0;
  while (state.KeepRunning()) {
    colour = colour == controls::palette::kMark ? grid.BackColor() : controls::palette::kMark;
    grid.SetRedraw(false);
    for (int row = 1; row <= kRows; ++row) PaintRow(grid, row, colour);
    grid.SetRedraw(true);
  }
  state.counters["bytes"] = static_cast<double>(grid.MemoryBytes());
}

void AskEveryRowWhetherMarked(benchmark::State& state) {
  LoneContainer container;
  FlexGrid grid(container, "flx");
  FillByRows(grid);
  for (int row = 1; row <= kRows; row += 2) PaintRow(grid, row, controls::palette::kMark);
  while (state.KeepRunning()) {
    int marked = 0;
    grid.SetRedraw(false);
    for (int row = 1; row <= kRows; ++row) {
      grid.SetRow(row);
      grid.SetCol(grid.FixedCols());
      if (grid.CellBackColor() == controls::palette::kMark) ++marked;
    }
    grid.SetRedraw(true);
    if (marked != kRows / 2) state.SkipWithError("wrong count of marked rows");
  }
}

void SortByName(benchmark::State& state) {
  LoneContainer container;
  while (state.KeepRunning()) {
    state.PauseTiming();
    FlexGrid grid(container, "flx");
    FillByRows(grid);
    grid.SetCol(kNameCol);
    grid.SetColSel(kCols - 1);
    state.ResumeTiming();
    grid.Sort(7);
  }
}

// What SortByName's first column would cost as bare bytes, in the wrong order.
void SortNamesAsBytes(benchmark::State& state) {
  while (state.KeepRunning()) {
    state.PauseTiming();
    std::vector<std::string> names;
    for (std::size_t row = 0; row < kRows; ++row)
      names.emplace_back(Customers().Text(row, kNameCol));
    state.ResumeTiming();
    std::sort(names.begin(), names.end());
    benchmark::DoNotOptimize(names.data());
  }
}

void ReadAllCells(benchmark::State& state) {
  LoneContainer container;
  FlexGrid grid(container, "flx");
  FillByRows(grid);
  while (state.KeepRunning()) {
    std::size_t bytes = 0;
    for (int row = 0; row < grid.Rows(); ++row) {
      for (int col = 0; col < grid.Cols(); ++col) bytes += grid.TextMatrix(row, col).size();
    }
    benchmark::DoNotOptimize(bytes);
  }
}

struct NoSurface : screens::Surface {
  void Fill(const screens::Rect&, controls::Colour) override { ++painted; }
  void Text(std::string_view text, const screens::Rect&, const screens::TextStyle&) override {
    painted += text.size();
  }
  void Stroke(std::initializer_list<screens::Dot>, double, controls::Colour) override {}
  void RoundBox(const screens::Rect&, int, controls::Colour, controls::Colour, int) override {}
  void PushClip(const screens::Rect&) override {}
  void PopClip() override {}
  std::size_t painted = 0;
};

struct NoHost : screens::PaneHost {
  screens::Scale GetScale() const override { return screens::Scale(96); }
  int LineHeight() const override { return 15; }
  int TextWidth(std::string_view text, screens::Weight) const override {
    return static_cast<int>(text.size());
  }
  bool Enabled() const override { return true; }
  void Repaint(const screens::Rect&) override {}
  void ScrollPart(const screens::Rect&, int) override {}
  void SetScrollBar(screens::Axis, const screens::ScrollRange&) override {}
  void SetTimer(int) override {}
  void CopyToClipboard(const std::string&) override {}
  screens::TextField& Field() override { throw std::logic_error("a grid has no field"); }
  std::unique_ptr<screens::Popup> MakePopup(screens::PopupKind,
                                            const screens::PaneMaker&) override {
    return nullptr;
  }
  screens::Size PopupRoom(screens::PopupKind) const override { return {}; }
  void TakeFocus() override {}
  std::chrono::sys_days Today() const override { return {}; }
  void Announce(screens::Tidings, int) override {}
};

// What the pane itself costs of showing another page: the toolkit's painting is not in it.
void PaintAPage(benchmark::State& state) {
  LoneContainer container;
  FlexGrid grid(container, "flx");
  FillByRows(grid);
  NoHost host;
  screens::GridPane pane(grid, host);
  pane.Resized({1000, 41 * 19});
  NoSurface surface;
  int place = 0;
  while (state.KeepRunning()) {
    place = (place + 997) % kRows;
    pane.Scrolled(screens::Axis::kDown, place);
    pane.Paint(surface, {0, 0, 1000, 41 * 19});
  }
  benchmark::DoNotOptimize(surface.painted);
}

// A letter typed that no name holds: every row is looked at.
void LookUpInVain(benchmark::State& state) {
  LoneContainer container;
  FlexGrid grid(container, "flx");
  FillByRows(grid);
  grid.SetCol(kNameCol);
  NoHost host;
  screens::GridPane pane(grid, host);
  pane.Resized({1000, 41 * 19});
  while (state.KeepRunning()) {
    pane.PressKey({screens::Key::kText, {}, "ژ"});
    pane.PressKey({screens::Key::kEscape, {}, {}});
  }
}

// A text that no cell holds, typed into the line above: every cell is folded, in slices.
void FindInVain(benchmark::State& state) {
  LoneContainer container;
  FlexGrid grid(container, "flx");
  FillByRows(grid);
  screens::GridFind find;
  double longest = 0;
  while (state.KeepRunning()) {
    find.Begin(grid, "ژ", 1);
    while (find.Reading()) {
      // On this process's processor, as the other figures.
      const std::clock_t begin = std::clock();
      find.ReadOn(grid);
      const double slice = static_cast<double>(std::clock() - begin) * 1000 / CLOCKS_PER_SEC;
      longest = std::max(longest, slice);
    }
  }
  state.counters["longestSliceMs"] = longest;
}

BENCHMARK(ReadIntoStrings)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Fill, byRows, FillByRows)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Fill, byBind, FillByBind)->Unit(benchmark::kMillisecond);
BENCHMARK(MarkAllRows)->Unit(benchmark::kMillisecond);
BENCHMARK(AskEveryRowWhetherMarked)->Unit(benchmark::kMillisecond);
BENCHMARK(SortByName)->Unit(benchmark::kMillisecond);
BENCHMARK(SortNamesAsBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadAllCells)->Unit(benchmark::kMillisecond);
BENCHMARK(PaintAPage)->Unit(benchmark::kMillisecond);
BENCHMARK(LookUpInVain)->Unit(benchmark::kMillisecond);
BENCHMARK(FindInVain)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
