#pragma once

#include <span>
#include <vector>

#include "controls/FlexGrid.h"
#include "tools/Columns.h"

namespace tools {

/// What the columns of a grid leave free of its width, shared among some of them whenever the grid
/// gets another size.
class SpareWidth {
 public:
  explicit SpareWidth(controls::FlexGrid& grid) : grid_(grid) {}

  /// The grid was given these columns, with the widths that they need.
  void Start(std::span<const Column> columns);
  /// Gives every visible sharing column the same part of what the grid has to spare beside a scroll
  /// bar, on top of its own width: what it needs, or what a user dragged it to less the part that
  /// it had then. So the same size of the grid brings the same widths back. Where nothing is to
  /// spare the grid scrolls: no column gets less than it needs, or than it was dragged to. The
  /// others keep their width.
  void Share();

 private:
  struct Sharing {
    int col;
    controls::Twips needed;
    controls::Twips own;    // without its part of the spare width
    controls::Twips least;  // below what it needs where a user dragged it there
    controls::Twips shown;  // by us: any other width was dragged
  };

  controls::FlexGrid& grid_;
  std::vector<Sharing> columns_;
  controls::Twips part_ = 0;
};

}  // namespace tools
