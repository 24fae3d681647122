#pragma once

#include "controls/FlexGrid.h"
#include "host/modMain.h"

namespace tools {

/// While it lives, a grid's drawing is off and the hourglass shows; both come back in this order,
/// also when the work between them fails.
class BusyGrid {
 public:
  BusyGrid(host::modMain& module, controls::FlexGrid& grid) : module_(module), grid_(grid) {
    module_.SetMousePointer(controls::MousePointer::kHourglass);
    grid_.SetRedraw(false);
  }
  ~BusyGrid() {
    grid_.SetRedraw(true);
    module_.SetMousePointer(controls::MousePointer::kDefault);
  }
  BusyGrid(const BusyGrid&) = delete;
  BusyGrid& operator=(const BusyGrid&) = delete;

 private:
  host::modMain& module_;
  controls::FlexGrid& grid_;
};

}  // namespace tools
