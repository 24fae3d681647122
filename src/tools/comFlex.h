#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "controls/Controls.h"
#include "controls/FlexGrid.h"
#include "host/modMain.h"
#include "tools/RowMarks.h"

namespace tools {

/// The selectable grid: a FlexGrid with four small buttons under it. A data row is marked when its
/// cell in the first non-fixed column is yellow; that colour is the only store of the mark. The
/// host fills the grid through getFlex and assumes one header row.
class comFlex : public controls::Frame {
 public:
  comFlex(controls::Container& parent, std::string name, host::modMain& module);

  controls::FlexGrid& getFlex() { return Flex; }
  /// Tells whether a row is marked. Moves the grid's current cell to that row, and leaves it there.
  /// Throws 30009 for a row that does not exist.
  bool IsSelected(std::int32_t inRow);
  void SetMarks(const std::vector<std::int32_t>& rows, bool marked) { marks_.Set(rows, marked); }

  /// A row has just been marked or unmarked; raised for every row that a command touches, also for
  /// one that was so before.
  std::function<void(std::int32_t row)> Selected;
  std::function<void(std::int32_t row)> UnSelected;

 private:
  controls::FlexGrid Flex{*this, "Flex"};  // here, as members are painted in their order

 public:
  controls::Button cmdSelectAll{*this, "cmdSelectAll", "++"};
  controls::Button cmdSelectNone{*this, "cmdSelectNone", "- -"};
  controls::Button cmdSelectInverse{*this, "cmdSelectInverse", "i"};
  controls::Button cmdExcel{*this, "cmdExcel", "x"};

 protected:
  /// The grid above, the buttons on the bottom edge, packed from the right one to the left.
  void Resized() override;

 private:
  RowMarks marks_;
};

}  // namespace tools
