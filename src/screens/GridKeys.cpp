// What keys do on the grid.

#include <algorithm>
#include <string>
#include <utility>

#include "controls/Controls.h"
#include "screens/GridPane.h"
#include "text/Fold.h"
#include "text/Utf8.h"

namespace screens {

using controls::FlexGrid;

namespace {

std::optional<FlexGrid::Key> WalkingKey(const KeyEvent& event) {
  using enum FlexGrid::Key;
  const bool control = event.modifiers.control;
  switch (event.key) {
    case Key::kUp:
      return control ? kTop : kUp;
    case Key::kDown:
      return control ? kBottom : kDown;
    case Key::kLeft:
      return control ? kEnd : kLeft;
    case Key::kRight:
      return control ? kHome : kRight;
    case Key::kPageUp:
      return kPageUp;
    case Key::kPageDown:
      return kPageDown;
    case Key::kHome:
      return control ? kTop : kHome;
    case Key::kEnd:
      return control ? kBottom : kEnd;
    default:
      return std::nullopt;
  }
}

/// Takes the last letter away.
void DropLetter(std::string& utf8) {
  while (!utf8.empty() && text::IsTail(utf8.back())) utf8.pop_back();
  if (!utf8.empty()) utf8.pop_back();
}

/// Makes what is marked while it lives one step to take back, also where the pane is left by its
/// grid meanwhile.
class Gesture {
 public:
  explicit Gesture(FlexGrid::MarkSteps* steps) : steps_(steps) {
    if (steps_ != nullptr) steps_->Begin();
  }
  ~Gesture() {
    if (steps_ != nullptr) steps_->End();
  }
  Gesture(const Gesture&) = delete;
  Gesture& operator=(const Gesture&) = delete;

 private:
  FlexGrid::MarkSteps* steps_;
};

/// Gives the grid back its block, with the drawing off meanwhile.
class BlockKept {
 public:
  /// `grid` becomes null should the grid end meanwhile.
  explicit BlockKept(FlexGrid* const& grid)
      : grid_(grid),
        redraw_(grid->Redraw()),
        row_(grid->Row()),
        col_(grid->Col()),
        rowSel_(grid->RowSel()),
        colSel_(grid->ColSel()) {
    grid->SetRedraw(false);
  }
  ~BlockKept() {
    if (grid_ == nullptr) return;
    // A handler may have changed the rows.
    if (std::max(row_, rowSel_) < grid_->Rows() && std::max(col_, colSel_) < grid_->Cols()) {
      grid_->SetRow(row_);
      grid_->SetCol(col_);
      grid_->SetRowSel(rowSel_);
      grid_->SetColSel(colSel_);
    }
    grid_->SetRedraw(redraw_);
  }
  BlockKept(const BlockKept&) = delete;
  BlockKept& operator=(const BlockKept&) = delete;

 private:
  FlexGrid* const& grid_;
  bool redraw_;
  int row_, col_, rowSel_, colSel_;
};

}  // namespace

bool GridPane::PressKey(const KeyEvent& event) {
  if (grid_ == nullptr || event.modifiers.alt) return false;
  if (line_.IsOpen()) return PressKeyInFind(event);
  if (Walk(event)) return true;
  if (event.modifiers.control) return PressWithControl(event);
  switch (event.key) {
    case Key::kEnter:
      return Open();
    case Key::kF6:
      return SortByCurrentColumn();
    case Key::kSpace:
      if (grid_->onMouseDown) return MarkRows(event.modifiers.shift);
      return LookUp((typing_ ? sought_ : "") + " ", false);
    case Key::kText:
      return LookUp((typing_ ? sought_ : "") + event.text, false);
    case Key::kBackspace:
      if (!typing_) return false;
      DropLetter(sought_);
      return sought_.empty() ? EndLookUp() : LookUp(sought_, false);
    case Key::kF3:
      return LookUp(sought_, true);
    case Key::kEscape:
      return EndLookUp();
    default:
      return false;
  }
}

bool GridPane::Walk(const KeyEvent& event) {
  const auto key = WalkingKey(event);
  if (!key) return false;
  EndLookUp();
  grid_->PressKey(*key, event.modifiers.shift, geometry_.PageRows());
  Reveal(grid_->RowSel(), grid_->ColSel());
  return true;
}

bool GridPane::PressWithControl(const KeyEvent& event) {
  switch (event.key) {
    case Key::kC:
    case Key::kInsert:
      Host().CopyToClipboard(grid_->BlockText());
      return true;
    case Key::kF:
      return OpenFind();
    case Key::kZ:
      return ChangeMarksBack(event.modifiers.shift);
    case Key::kY:
      return ChangeMarksBack(true);
    default:
      return PressMarkButton(event.key);
  }
}

/// The last gesture's marks, or with `again` those that were taken back.
bool GridPane::ChangeMarksBack(bool again) {
  FlexGrid::MarkSteps* const steps = grid_->markSteps;
  if (steps == nullptr) return false;
  EndLookUp();
  std::pair<int, int> changed;
  {
    const BlockKept kept(grid_);
    changed = again ? steps->Redo() : steps->Undo();
  }
  if (grid_ == nullptr || changed.second < changed.first) return true;
  // Seen by whoever did it.
  const auto [first, last] = changed;
  const bool above = last < grid_->FixedRows() + geometry_.RowsAbove();
  if (above || first > geometry_.LastRowInSight()) Reveal(first, -1);
  return true;
}

bool GridPane::PressMarkButton(Key key) {
  const FlexGrid::MarkButtons& buttons = grid_->marking;
  controls::Button* const button = key == Key::kA   ? buttons.all
                                   : key == Key::kI ? buttons.inverse
                                   : key == Key::kD ? buttons.none
                                                    : nullptr;
  if (button == nullptr) return false;
  const BlockKept kept(grid_);
  button->Click();
  return true;
}

// The current row, or with `block` all rows of the block: those that have no mark get one, or where
// all have one they lose it.
bool GridPane::MarkRows(bool block) {
  EndLookUp();
  // A list that was just filled stands on its heading: it begins with its first row.
  if (grid_->Row() < grid_->FixedRows()) grid_->PressKey(FlexGrid::Key::kTop, false, 1);
  const auto [first, last] = std::minmax({grid_->Row(), block ? grid_->RowSel() : grid_->Row()});
  if (!IsDataRow(first)) return false;
  Reveal(grid_->RowSel(), grid_->ColSel());
  bool allMarked = true;
  for (int row = first; row <= last && allMarked; ++row) allMarked = IsMarked(row);
  const BlockKept kept(grid_);
  const Gesture gesture(grid_->markSteps);
  for (int row = first; grid_ != nullptr && row <= last && row < grid_->Rows(); ++row) {
    if (IsMarked(row) != allMarked) continue;
    grid_->MouseDown(row, grid_->FixedCols(), static_cast<int>(MouseButton::kLeft), 0);
    if (grid_ != nullptr) grid_->Click();
  }
  return true;
}

bool GridPane::Open() {
  if (!grid_->onDblClick || !IsDataRow(grid_->Row())) return false;
  EndLookUp();
  Reveal(grid_->Row(), grid_->Col());
  grid_->MouseMove(grid_->Row(), grid_->ShownCol(grid_->Col()));
  grid_->DblClick();
  return true;
}

bool GridPane::SortByCurrentColumn() {
  if (!grid_->onClick || grid_->FixedRows() == 0) return false;
  EndLookUp();
  const int col = grid_->ShownCol(grid_->Col());
  grid_->MouseDown(0, col, static_cast<int>(MouseButton::kLeft), 0);
  if (grid_ != nullptr) grid_->Click();
  if (grid_ == nullptr || col >= grid_->Cols()) return true;
  grid_->SetCol(col);
  Reveal(grid_->Row(), col);
  return true;
}

// Typed letters look from the current row on for one that begins with them, else holds them; going
// on takes the next that holds them.
bool GridPane::LookUp(std::string sought, bool goOn) {
  const int firstRow = grid_->FixedRows();
  const int rows = grid_->Rows() - firstRow;
  const std::string folded = text::FoldForLookup(sought);
  if (rows <= 0 || grid_->Cols() <= grid_->FixedCols() || folded.empty()) return false;
  sought_ = std::move(sought);
  typing_ = true;
  const int col = grid_->ShownCol(grid_->Col());
  const int from = std::max(0, grid_->Row() - firstRow + (goOn ? 1 : 0));
  int hit = -1;
  for (int i = 0; i < rows; ++i) {
    const int row = firstRow + (from + i) % rows;
    const std::size_t at = text::FoldForLookup(grid_->TextMatrix(row, col)).find(folded);
    if (at == std::string::npos || (at != 0 && hit >= 0)) continue;
    hit = row;
    if (at == 0 || goOn) break;
  }
  found_ = hit >= 0;
  RepaintAll();
  if (hit < 0) return true;
  grid_->SetRow(hit);
  grid_->SetCol(col);
  Reveal(hit, col);
  return true;
}

bool GridPane::EndLookUp() {
  if (!typing_) return false;
  typing_ = false;
  RepaintAll();
  return true;
}

}  // namespace screens
