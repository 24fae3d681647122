#pragma once

#include "controls/FlexGrid.h"
#include "host/modMain.h"

namespace tools {

/// Keeps a grid's drawing off while it lives; afterwards it is as it was before, also when the work
/// in between fails. May be nested: the outermost draws.
class RedrawOff {
 public:
  explicit RedrawOff(controls::FlexGrid& grid) : grid_(grid), before_(grid.Redraw()) {
    grid_.SetRedraw(false);
  }
  ~RedrawOff() { grid_.SetRedraw(before_); }
  RedrawOff(const RedrawOff&) = delete;
  RedrawOff& operator=(const RedrawOff&) = delete;

 private:
  controls::FlexGrid& grid_;
  bool before_;
};

/// The hourglass while it lives, also when the work in between fails. May be nested: it goes with
/// the outermost.
class Hourglass {
 public:
  explicit Hourglass(host::modMain& module) : module_(module) { module_.BeginWork(); }
  ~Hourglass() { module_.EndWork(); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

 private:
  host::modMain& module_;
};

/// Both, for long work on a grid: the drawing comes back first, then the pointer.
class BusyGrid {
 public:
  BusyGrid(host::modMain& module, controls::FlexGrid& grid)
      : hourglass_(module), redrawOff_(grid) {}

 private:
  Hourglass hourglass_;
  RedrawOff redrawOff_;
};

}  // namespace tools
