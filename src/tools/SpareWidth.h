#pragma once

#include <vector>

#include "controls/FlexGrid.h"

namespace tools {

/// What the columns of a grid leave free of its width, shared among some of them whenever the grid
/// gets another size.
class SpareWidth {
 public:
  explicit SpareWidth(controls::FlexGrid& grid) : grid_(grid) {}

  /// The columns were given their widths, which is what they need; those of `sharing` share from
  /// now on.
  void Start(const std::vector<int>& sharing);
  /// Widens every sharing column that is visible by as much as the others, beginning from where it
  /// stands, also where a user dragged it to, so that the grid is filled beside a scroll bar; and
  /// narrows them again. None gets less than it needs, or than it was dragged to: rather the grid
  /// scrolls. All other columns stay as they are.
  void Share();

 private:
  struct Column {
    int col;
    controls::Twips needed;
    controls::Twips own;    // without its part of the spare width
    controls::Twips least;  // below what it needs where a user dragged it there
    controls::Twips shown;  // by us: any other width was dragged
  };

  controls::FlexGrid& grid_;
  std::vector<Column> columns_;
  controls::Twips part_ = 0;
};

}  // namespace tools
