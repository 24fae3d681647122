#pragma once

#include <memory>
#include <optional>
#include <string>

#include "adapters/windows/CellTip.h"
#include "adapters/windows/ControlWindow.h"
#include "adapters/windows/GridGeometry.h"
#include "adapters/windows/Paint.h"
#include "controls/FlexGrid.h"

namespace adapters::windows {

/// Paints a FlexGrid from right to left, column 0 at the right edge, the vertical scroll bar at the
/// left. It keeps no copy of the cells: each painting asks the model for the rows that are in
/// sight. Scrolls by whole rows and, across, by pixels; fixed rows and columns stay in place.
/// Answers the messages of GridAutomation.h.
class GridWindow : public WindowOf<controls::FlexGrid> {
 public:
  GridWindow(controls::FlexGrid& model, const Surroundings& surroundings, HWND parent);
  const GridGeometry& Geometry() const { return geometry_; }

 protected:
  void Refresh(const controls::Change& change) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  struct Rows {  // those that show the block
    int first = 0;
    int last = -1;
  };

  // GridWindow.cpp
  void Measure();
  void UpdateScrollBars();
  void ScrollTo(int rowsAbove, int across);
  void Reveal(int row, int col);
  void ShowScrolled(const GridGeometry& before);
  void InvalidateRows(Rows rows) const;
  void InvalidateBlock();
  void ShowFocus(bool focused);
  std::wstring CellText(int row, int col) const;
  std::optional<LRESULT> OnAutomation(UINT message, WPARAM wParam, LPARAM lParam) const;

  // GridPainting.cpp
  void Paint() const;
  void PaintColumns(const Canvas& canvas, const RECT& dirty, bool fixed) const;
  void PaintCell(const Canvas& canvas, int row, int col) const;
  void PaintBlockFrame(const Canvas& canvas) const;
  void PaintFrame() const;

  // GridEvents.cpp
  std::optional<LRESULT> OnMouse(UINT message, WPARAM wParam, LPARAM lParam);
  void Press(POINT place, int button, WPARAM held);
  void Move(POINT place, WPARAM held);
  void Release();
  void DragTo(POINT place);
  void AutoScroll();
  void EndPressing();
  void OnScrollBar(int bar, int request);
  void OnWheel(bool across, int delta);
  bool OnKey(WPARAM key);
  bool ShowPointer() const;
  void ShowTipAt(POINT place);
  std::wstring TipText() const;

  static constexpr int kTextMargin = 4;  // at 96 dpi
  enum class Pressing { kNone, kCells, kBorder };
  GridGeometry geometry_;
  Rows shownBlock_;
  bool focused_ = false;
  Pressing pressing_ = Pressing::kNone;
  int draggedCol_ = 0;
  int dragRight_ = 0;  // right edge of the column whose border is dragged
  POINT lastDrag_{};
  int wheelRest_ = 0;
  GridGeometry::Cell tipCell_{-1, -1};
  std::unique_ptr<CellTip> tip_;
};

}  // namespace adapters::windows
