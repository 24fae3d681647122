#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "controls/FlexGrid.h"
#include "host/modMain.h"
#include "tools/MarkHistory.h"

namespace tools {

/// Whether a data row is marked: its first cell that is not fixed is yellow
/// (controls::palette::kMark), which is the only store of the mark. False for any other row. Moves
/// nothing.
bool IsRowMarked(const controls::FlexGrid& grid, int row);
/// How many rows are marked.
int MarkedRows(const controls::FlexGrid& grid);

/// The marks of a grid with one header row, as a user sets them: by three buttons, by pressing a
/// row with any button of the mouse, taken back by MarkHistory; and the sorting by a click on a
/// heading.
class RowMarks {
 public:
  /// Takes over the clicks of the buttons and the mouse events of the grid. A press marks nothing
  /// while `mayMark` says no.
  RowMarks(host::modMain& module, controls::FlexGrid& grid,
           const controls::FlexGrid::MarkButtons& buttons, std::function<bool()> mayMark = {});

  /// A row was marked or unmarked by one of these ways, perhaps one that was so before.
  std::function<void(int row, bool marked)> onMark;

  /// Marks these rows, or takes their marks away: each as by hand, in this order, all of them as
  /// one gesture. Throws 30009 at a row that does not exist; what comes before it is done.
  void Set(const std::vector<std::int32_t>& rows, bool marked);
  /// Sorts by the heading under the mouse, that column and all to its right as keys, the direction
  /// turned over by every call, at first ascending. Marks move with their rows. False, with nothing
  /// done, where the mouse is not on a heading or there is no data row.
  bool SortByHeader();

 private:
  void MarkRow(int row, bool marked);
  void MarkAll(const std::function<bool(int row)>& marked);
  void ToggleUnderMouse();

  host::modMain& module_;
  controls::FlexGrid& grid_;
  std::function<bool()> mayMark_;
  MarkHistory history_;
  std::int32_t lastSort_ = 0;
};

}  // namespace tools
