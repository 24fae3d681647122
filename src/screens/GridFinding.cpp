// The line in which a text is looked for in the whole grid.

#include <string>

#include "screens/GridPane.h"

namespace screens {

using controls::Aspect;

namespace {

constexpr int kReadMilliseconds = 10;
constexpr int kScrollMilliseconds = 50;
// So many rows are read at once where their texts may have changed.
constexpr int kFewRows = 100;

}  // namespace

bool GridPane::OpenFind() {
  if (!line_.IsOpen()) {
    EndLookUp();
    line_.Open();
    Measure();
    if (IsDataRow(grid_->Row())) Reveal(grid_->Row(), grid_->ShownCol(grid_->Col()));
    FindAnew(false);
    Host().Announce(Tidings::kContent, -1);
  }
  Host().TakeFocus();
  Host().Field().SelectAll();
  AnnounceFocus();
  return true;
}

void GridPane::CloseFind() {
  find_ = {};
  UpdateTimer();
  line_.Close();
  Measure();
  Host().Announce(Tidings::kContent, -1);
  announcedFocus_ = -1;
  AnnounceFocus();
}

void GridPane::PressInFind(FindLine::Button button) {
  if (grid_ == nullptr) return;
  if (button == FindLine::Button::kClose) return CloseFind();
  FindOn(button == FindLine::Button::kPrevious);
}

// The field has the keyboard: all else is its own.
bool GridPane::PressKeyInFind(const KeyEvent& event) {
  const bool shift = event.modifiers.shift;
  if (event.modifiers.control) return event.key == Key::kF && OpenFind();
  switch (event.key) {
    case Key::kEnter:
    case Key::kF3:
      FindOn(shift);
      return true;
    case Key::kEscape:
      CloseFind();
      return true;
    case Key::kUp:
    case Key::kDown:
    case Key::kPageUp:
    case Key::kPageDown:
      return !shift && Walk(event);
    default:
      return false;
  }
}

void GridPane::Edited() {
  if (grid_ != nullptr && line_.IsOpen()) FindAnew(true);
}

void GridPane::FindAnew(bool jump) {
  jumps_ = jump;
  find_.Begin(*grid_, Host().Field().Text(), grid_->Row());
  RepaintAll();  // the cells that hold the text
  ReadOn();
}

/// Rows or texts are others, or only the current row is.
void GridPane::FindAfter(const controls::Change& change) {
  switch (change.aspect) {
    case Aspect::kRows:
      return FindAnew(false);
    case Aspect::kColumns:
      if (!find_.CoversColumns(*grid_)) FindAnew(false);
      return;
    case Aspect::kCells:
      if (find_.Reading() || change.lastRow - change.firstRow >= kFewRows) return FindAnew(false);
      find_.ReadAgain(*grid_, change.firstRow, change.lastRow);
      return TellFound();
    case Aspect::kSelection:
      jumps_ = false;
      return TellFound();
    default:
      return;
  }
}

void GridPane::ReadOn() {
  find_.ReadOn(*grid_);
  if (jumps_ && find_.First() >= 0) {
    jumps_ = false;
    JumpTo(find_.First());
  }
  UpdateTimer();
  TellFound();
}

void GridPane::FindOn(bool back) {
  find_.ReadAll(*grid_);
  jumps_ = false;
  UpdateTimer();
  JumpTo(back ? find_.Before(grid_->Row()) : find_.Behind(grid_->Row()));
  TellFound();
}

void GridPane::JumpTo(int row) {
  const int found = IsDataRow(row) ? find_.ColumnOf(*grid_, row) : -1;
  if (found < 0) return;
  const int col = grid_->ShownCol(found);
  grid_->SetRow(row);
  grid_->SetCol(col);
  Reveal(row, col);
}

void GridPane::TellFound() {
  std::string found;
  const bool nothing = find_.Seeks() && !find_.Reading() && find_.Count() == 0;
  if (nothing) {
    found = FindLine::kNothing;
  } else if (find_.Reading()) {
    found = "…";
  } else if (find_.Seeks()) {
    const std::string count = std::to_string(find_.Count());
    const int place = find_.PlaceOf(grid_->Row());
    found = place > 0 ? std::to_string(place) + " از " + count : count + " سطر";
  }
  if (line_.Show(found, nothing)) {
    Host().Announce(Tidings::kName, CellParts() + FindLine::kFoundPart);
  }
}

/// One timer for reading on and for scrolling on.
void GridPane::UpdateTimer() {
  int wanted = 0;
  if (grid_ != nullptr && scrollsOn_) wanted = kScrollMilliseconds;
  if (grid_ != nullptr && find_.Reading()) wanted = kReadMilliseconds;
  if (wanted == timer_) return;
  Host().SetTimer(0);
  timer_ = wanted;
  if (wanted != 0) Host().SetTimer(wanted);
}

}  // namespace screens
