// What the mouse does on the grid.

#include <algorithm>
#include <cmath>

#include "screens/GridPane.h"

namespace screens {

namespace {

// At 96 dpi.
constexpr int kBorderReach = 4;
constexpr int kDragReach = 4;

int ShiftNumber(const Modifiers& held) {
  return (held.shift ? 1 : 0) | (held.control ? 2 : 0) | (held.alt ? 4 : 0);
}

}  // namespace

void GridPane::Pointer(const PointerEvent& event) {
  if (grid_ == nullptr) return;
  if (line_.IsOpen() && pressing_ == Pressing::kNothing && line_.Pointer(event)) return;
  switch (event.action) {
    case PointerEvent::Action::kPress:
      Press(event);
      break;
    case PointerEvent::Action::kMove:
      Move(event);
      break;
    case PointerEvent::Action::kRelease:
      if (event.button == MouseButton::kLeft) Release(event.place);
      break;
    case PointerEvent::Action::kLeave:
      break;
  }
}

std::optional<int> GridPane::BorderAt(Point place) const {
  return geometry_.BorderAt(place, Design(kBorderReach));
}

void GridPane::Press(const PointerEvent& event) {
  EndLookUp();
  const bool left = event.button == MouseButton::kLeft;
  const auto border = left ? BorderAt(event.place) : std::nullopt;
  if (border) {
    pressing_ = Pressing::kBorder;
    draggedCol_ = *border;
    dragRight_ = geometry_.ColumnPlace(*border).right;
    return;
  }
  const auto [row, col] = geometry_.CellAt(event.place);
  const bool onData = IsDataRow(row);
  // On a heading two quick clicks are two clicks: it sorts both ways.
  if (left && event.clicks == 2 && onData && row == grid_->MouseRow()) {
    grid_->DblClick();
    return;
  }
  if (left) {
    const bool heading = row < grid_->FixedRows();
    pressing_ = onData ? Pressing::kCells : heading ? Pressing::kHeading : Pressing::kBeside;
    pressedAt_ = lastDrag_ = event.place;
    dragging_ = false;
  }
  // Beside the data cells the row becomes current too: a double click there is for it.
  if (onData && (col < grid_->FixedCols() || col >= grid_->Cols())) {
    event.modifiers.shift ? grid_->SetRowSel(row) : grid_->SetRow(row);
  }
  grid_->MouseDown(row, col, static_cast<int>(event.button), ShiftNumber(event.modifiers));
}

void GridPane::Move(const PointerEvent& event) {
  // The release is lost when the press opened a modal window.
  if (!event.leftHeld) return PointerLost();
  if (pressing_ == Pressing::kBorder) {
    if (draggedCol_ >= grid_->Cols()) return;
    grid_->DragColWidth(draggedCol_,
                        Host().GetScale().Twips(std::max(0, dragRight_ - event.place.x)));
  } else if (pressing_ == Pressing::kCells) {
    const int reach = Design(kDragReach);
    dragging_ = dragging_ || std::abs(event.place.x - pressedAt_.x) > reach ||
                std::abs(event.place.y - pressedAt_.y) > reach;
    if (!dragging_) return;
    DragTo(event.place);
    const bool inside = Area().Contains(event.place);
    scrollsOn_ = !inside;
    UpdateTimer();
  }
}

/// Where the mouse is outside of the cells, the nearest one in sight counts.
void GridPane::DragTo(Point place) {
  lastDrag_ = place;
  const int top = geometry_.FixedBottom();
  const int right = std::max(0, Area().right - 1);
  const int bottom = std::max(top, geometry_.RowsBottom() - 1);
  const auto [row, col] =
      geometry_.CellAt({std::clamp(place.x, 0, right), std::clamp(place.y, top, bottom)});
  if (row == grid_->MouseRow() && col == grid_->MouseCol()) return;
  grid_->MouseDrag(row, col);
}

void GridPane::Tick() {
  if (grid_ != nullptr && find_.Reading()) return ReadOn();
  if (grid_ == nullptr || !scrollsOn_) return UpdateTimer();
  int above = geometry_.RowsAbove();
  int across = geometry_.Across();
  const int step = Design(kColumnStep);
  if (lastDrag_.y < geometry_.FixedBottom()) --above;
  if (lastDrag_.y >= Area().bottom) ++above;
  if (lastDrag_.x < 0) across += step;
  if (lastDrag_.x >= Area().right) across -= step;
  ScrollTo(above, across);
  DragTo(lastDrag_);
}

void GridPane::Release(Point place) {
  const Pressing pressing = pressing_;
  PointerLost();
  if (pressing == Pressing::kNothing || pressing == Pressing::kBorder) return;
  // A heading that the mouse has left is not meant any more.
  if (pressing == Pressing::kHeading && place.y >= geometry_.FixedBottom()) return;
  grid_->Click();
}

void GridPane::PointerLost() {
  line_.PointerLost();
  if (pressing_ == Pressing::kNothing) return;
  pressing_ = Pressing::kNothing;
  scrollsOn_ = false;
  UpdateTimer();
}

Cursor GridPane::CursorAt(Point place) const {
  return grid_ != nullptr && BorderAt(place) ? Cursor::kColumnBorder : Cursor::kArrow;
}

}  // namespace screens
