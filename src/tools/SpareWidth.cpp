#include "tools/SpareWidth.h"

#include <algorithm>

namespace tools {

using controls::Twips;

namespace {

constexpr Twips kScrollBar = 300;

}  // namespace

void SpareWidth::Start(std::span<const Column> columns) {
  columns_.clear();
  part_ = 0;
  int col = 0;
  for (const Column& column : columns) {
    const Twips width = column.width;
    if (column.takesSpare) columns_.push_back({col, width, width, width, width});
    ++col;
  }
}

void SpareWidth::Share() {
  Twips spare = grid_.Width() - kScrollBar;
  for (int col = 0; col < grid_.Cols(); ++col) spare -= grid_.ColWidth(col);
  std::vector<Sharing*> visible;
  for (Sharing& column : columns_) {
    const Twips width = grid_.ColWidth(column.col);
    if (width == 0) continue;
    if (width != column.shown) {
      column.own = width - part_;
      column.least = std::min(column.needed, width);
    }
    spare += width - column.own;
    visible.push_back(&column);
  }

  std::vector<Sharing*> growing = visible;
  for (bool settled = false; !settled;) {
    part_ = growing.empty() ? 0 : std::max(0.0, spare / static_cast<double>(growing.size()));
    // One that was dragged narrow waits at its least until its part is worth more.
    const auto waiting =
        std::partition(growing.begin(), growing.end(),
                       [this](const Sharing* each) { return each->own + part_ >= each->least; });
    settled = waiting == growing.end();
    for (auto each = waiting; each != growing.end(); ++each) spare -= (*each)->least - (*each)->own;
    growing.erase(waiting, growing.end());
  }
  for (Sharing* column : visible) {
    column->shown = std::max(column->least, column->own + part_);
    grid_.SetColWidth(column->col, column->shown);
  }
}

}  // namespace tools
