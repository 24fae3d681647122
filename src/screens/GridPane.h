#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "controls/FlexGrid.h"
#include "screens/FindLine.h"
#include "screens/GridFind.h"
#include "screens/GridGeometry.h"
#include "screens/SizedPane.h"

namespace screens {

/// Paints a FlexGrid and is its hand and keys. It keeps no copy of the cells: each painting asks
/// the model for the rows that are in sight.
///
/// Keys: arrows, pages, Home and End move the current cell, with Shift they frame a block; a blank
/// presses the mouse on the current row, so that a list which marks its rows marks it, with Shift
/// on all rows of the block; Enter is the double-click; F6 clicks the heading of the current
/// column; Ctrl+A, I and D press the list's buttons of that meaning; Ctrl+Z takes the last change
/// of marks back, Ctrl+Y or Ctrl+Shift+Z does it again; Ctrl+C copies the block. Letters look the
/// current column up: the next row that begins with them, else that holds them, folded as for any
/// look-up; F3 goes on, Esc ends it.
///
/// Ctrl+F opens a line above the rows, whose field then has the keyboard: what is typed there is
/// looked for in all columns of all rows from the current one on, and the first row found becomes
/// current. Enter or F3 goes on, with Shift back; Esc closes the line.
class GridPane : public SizedPane {
 public:
  /// `grid` lives until Detach.
  GridPane(controls::FlexGrid& grid, PaneHost& host);

  void Detach() override { grid_ = nullptr; }
  void Changed(const controls::Change& change) override;
  void Resized(Size size) override;
  void Paint(Surface& surface, const Rect& dirty) const override;
  void Pointer(const PointerEvent& event) override;
  void PointerLost() override;
  void Wheel(const WheelEvent& event) override;
  bool PressKey(const KeyEvent& event) override;
  void FocusChanged(bool focused) override;
  void Tick() override;
  void Edited() override;
  void Scrolled(Axis axis, int place) override;
  Cursor CursorAt(Point place) const override;
  Tip TipAt(Point place) const override;
  Accessible Describe() const override;
  Accessible DescribeField() const override;
  int PartCount() const override;
  Accessible DescribePart(int part) const override;
  int PartAt(Point place) const override;
  int FocusedPart() const override;
  void Act(int part) override;

  /// Where a cell is painted; empty when it does not exist, is hidden or scrolled away.
  Rect CellPlace(int row, int col) const;

 private:
  static constexpr int kTextMargin = 4;  // at 96 dpi, as the next one
  static constexpr int kColumnStep = 40;

  struct Span {  // of rows
    int first = 0;
    int last = -1;
  };
  enum class Pressing { kNothing, kCells, kHeading, kBorder, kBeside };

  // GridPane.cpp
  void Measure();
  int HeadingHeight(int rowHeight) const;
  void UpdateScrollBars();
  void ScrollTo(int rowsAbove, int across);
  void Reveal(int row, int col);
  void ShowScrolled(const GridGeometry& before);
  void RepaintRows(Span rows);
  void RepaintBlock();
  bool IsDataRow(int row) const;

  // GridPointer.cpp
  void Press(const PointerEvent& event);
  void Move(const PointerEvent& event);
  void Release(Point place);
  void DragTo(Point place);
  std::optional<int> BorderAt(Point place) const;

  // GridKeys.cpp
  bool Walk(const KeyEvent& event);
  bool PressWithControl(const KeyEvent& event);
  bool PressMarkButton(Key key);
  bool ChangeMarksBack(bool again);
  bool MarkRows(bool block);
  bool Open();
  bool SortByCurrentColumn();
  bool LookUp(std::string sought, bool goOn);
  bool EndLookUp();

  // GridFinding.cpp
  bool OpenFind();
  void CloseFind();
  void PressInFind(FindLine::Button button);
  bool PressKeyInFind(const KeyEvent& event);
  void FindAnew(bool jump);
  void FindAfter(const controls::Change& change);
  void ReadOn();
  void FindOn(bool back);
  void JumpTo(int row);
  void TellFound();
  void UpdateTimer();

  // GridPainting.cpp
  void PaintColumns(Surface& surface, const Rect& dirty, bool fixed) const;
  void PaintCell(Surface& surface, int row, int col) const;
  void PaintHeading(Surface& surface, std::string_view text, const Rect& room,
                    const TextStyle& style) const;
  void PaintFound(Surface& surface, std::string_view text, const Rect& room, Side side) const;
  void PaintBlockFrame(Surface& surface) const;
  void PaintEmptyText(Surface& surface) const;
  void PaintLookUp(Surface& surface) const;
  bool IsMarked(int row) const;
  /// The column in which ticks stand: the first visible one.
  int FirstCol() const;
  /// Where the texts of a column's data rows stand, a tick and the margins left out.
  Rect TextRoom(const Rect& cell, int row, int col) const;
  Rect LookUpPlace() const;
  std::string LookUpText() const;

  // GridAccessible.cpp
  int CellParts() const;
  int PartOf(GridGeometry::Cell cell) const;
  std::optional<GridGeometry::Cell> CellOf(int part) const;
  GridGeometry::Cell FocusedCell() const;
  std::string ActionOn(int row) const;
  void AnnounceFocus();
  void AnnounceChange(const controls::Change& change);

  controls::FlexGrid* grid_;
  GridGeometry geometry_;
  Span shownBlock_;
  bool focused_ = false;
  int announcedFocus_ = -1;  // part of the current cell that was announced last

  Pressing pressing_ = Pressing::kNothing;
  bool dragging_ = false;  // the mouse has left the place of the press
  Point pressedAt_;
  Point lastDrag_;
  int draggedCol_ = 0;
  int dragRight_ = 0;  // right edge of the column whose border is dragged

  std::string sought_;   // what F3 looks for
  bool typing_ = false;  // letters go on with it
  bool found_ = true;

  FindLine line_{Host(), [this](FindLine::Button button) { PressInFind(button); }};
  GridFind find_;
  bool jumps_ = false;      // to the first row found
  bool scrollsOn_ = false;  // the mouse drags outside of the cells
  int timer_ = 0;           // milliseconds
};

}  // namespace screens
