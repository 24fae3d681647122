#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/Control.h"
#include "controls/FlexGridStore.h"
#include "platform/RowSet.h"

namespace controls {

class Button;

/// The grid that all lists of the module stand on. Rows and columns count from 0; the first
/// FixedRows rows and FixedCols columns are headings.
///
/// Failures are RuntimeErrors of the grid: 30009 "Invalid Row value" (Row, RowSel), 30010 "Invalid
/// Col value" (Col, ColSel, ColWidth, ColAlignment), 381 "Subscript out of range" (TextMatrix),
/// 30016 "FixedRows must be at least one less than Rows value", 30017 likewise for FixedCols and
/// Cols, 30000 "Cannot do a RemoveItem on a fixed row", 30002 "Grid does not contain that row", 380
/// "Invalid property value" (negative counts and widths, more than 32767 columns, an unknown sort),
/// 7 "Out of memory" (more than 4 GiB of text). What throws changes nothing.
///
/// Notifications: kCells names the rows whose texts or colours are others; kRows says that any row
/// may be another, and comes without kCells. Another number of columns comes as kColumns and kRows.
class FlexGrid : public Control {
 public:
  enum class FillStyle { kSingle = 0, kRepeat = 1 };
  enum class HighLight { kNever = 0, kAlways = 1, kWithFocus = 2 };
  enum class Alignment { kLeftCentre = 1, kCentreCentre = 4, kRightCentre = 7, kGeneral = 9 };
  static constexpr Twips kDefaultColWidth = 960;
  static constexpr Twips kRowHeight = 285;

  FlexGrid(Container& parent, std::string name);
  ~FlexGrid() override;
  void Accept(ControlVisitor& visitor) override;

  /// A new grid has 2 rows and 2 columns, one of each fixed. Fewer rows than fixed ones lowers
  /// FixedRows to Rows; the same for columns. Row and RowSel (Col, ColSel) beyond the last row
  /// become the last row. Zero rows leave Row at 0.
  int Rows() const { return store_.Rows(); }
  void SetRows(int rows);
  int Cols() const { return store_.Cols(); }
  void SetCols(int cols);
  /// Setting needs FixedRows < Rows (0 is always allowed).
  int FixedRows() const { return fixedRows_; }
  void SetFixedRows(int rows);
  int FixedCols() const { return fixedCols_; }
  void SetFixedCols(int cols);

  /// The current cell and the far corner of the block. Setting Row moves RowSel to it and ColSel to
  /// Col; setting Col moves ColSel to it and RowSel to Row: a block is set as Row, Col, then RowSel
  /// and ColSel. Fixed cells may be current.
  int Row() const { return row_; }
  void SetRow(int row);
  int Col() const { return col_; }
  void SetCol(int col);
  int RowSel() const { return rowSel_; }
  void SetRowSel(int row);
  int ColSel() const { return colSel_; }
  void SetColSel(int col);

  /// The view is valid until the grid's texts change.
  std::string_view TextMatrix(int row, int col) const;
  void SetTextMatrix(int row, int col, std::string_view text);

  /// 0 hides the column. Alignment holds for all rows of the column.
  Twips ColWidth(int col) const;
  void SetColWidth(int col, Twips width);
  Alignment ColAlignment(int col) const;
  void SetColAlignment(int col, Alignment alignment);
  /// The column that a view widens by whatever width the columns leave free; -1 for none. ColWidth
  /// stays what was set. A column that does not exist throws 30010.
  int StretchCol() const { return stretchCol_; }
  void SetStretchCol(int col);

  /// What a view says in the empty room of a grid without data rows; never a row of it. Empty at
  /// first.
  const std::string& EmptyText() const { return emptyText_; }
  void SetEmptyText(std::string text);

  /// Background of the current cell, 0 where none was set. Setting it colours the current cell, or
  /// with FillStyle kRepeat the whole block; 0 takes the colour away. A grid without rows or
  /// columns has no current cell: nothing is coloured.
  Colour CellBackColor() const;
  void SetCellBackColor(Colour colour);
  void SetFillStyle(FillStyle style) { fillStyle_ = style; }
  Colour BackColor() const { return backColor_; }
  void SetBackColor(Colour colour);
  /// What colour the texts of a data row have on a ground of its own or the grid's; none where it
  /// answers 0.
  std::function<Colour(int row)> rowTextColour;
  HighLight GetHighLight() const { return highLight_; }
  void SetHighLight(HighLight highLight);

  /// While off, nothing is notified; switching it on notifies once of all that changed.
  bool Redraw() const { return redraw_; }
  void SetRedraw(bool redraw);

  /// 7 sorts the data rows ascending, 8 descending, by the texts of the columns from Col to ColSel
  /// in the order of text::ComparePersian; stable both ways. Rows move with their colours, the
  /// current cell stays where it is. Any other number throws 380.
  void Sort(int order);

  /// Adds a row at the end; the text's tab-separated parts fill its cells.
  void AddItem(std::string_view text);
  /// Removes a data row. The last data row cannot be removed (30015 "Cannot remove last non-fixed
  /// row").
  void RemoveItem(int row);

  /// Takes a result's rows with the arena of their texts, none of which is copied by itself:
  /// FixedRows and FixedCols stay, Rows becomes FixedRows + its rows, Cols becomes FixedCols + its
  /// columns, the columns' names stand in row 0 (where there is a fixed row), all colours are
  /// dropped, Row and Col are the first data cell.
  void Bind(platform::RowSet rows);

  /// Where the mouse was at the last mouse event: -1 before any; Rows() below the last row and
  /// Cols() beyond the last column.
  int MouseRow() const { return mouseRow_; }
  int MouseCol() const { return mouseCol_; }

  /// Button 1 left, 2 right, 4 middle; shift 1, control 2, alt 4.
  std::function<void(int button, int shift)> onMouseDown;
  std::function<void()> onClick;
  std::function<void()> onDblClick;
  /// The buttons by which a form marks the grid's rows, all three of them set: a screen presses
  /// them for the keys that mean the same, and leaves room for a tick in the marked rows. They must
  /// live as long as the grid's screen.
  struct MarkButtons {
    Button* all = nullptr;
    Button* inverse = nullptr;
    Button* none = nullptr;
  };
  MarkButtons marking;
  /// How a screen takes changes of marks back, a gesture of the user's at a time.
  class MarkSteps {
   public:
    virtual ~MarkSteps() = default;
    /// What is marked between the two is one gesture. May be nested: the outermost counts.
    virtual void Begin() = 0;
    virtual void End() = 0;
    /// Takes the last gesture back, or does it again. Says which rows have changed by it: the first
    /// and the last of them, none where the last is before the first.
    virtual std::pair<int, int> Undo() = 0;
    virtual std::pair<int, int> Redo() = 0;
  };
  /// Null where marks are not taken back; lives as long as the buttons.
  MarkSteps* markSteps = nullptr;

  // For the screen. All of it does nothing while the grid is disabled.

  /// Order of a double click: MouseDown, Click, DblClick. A press on a data cell makes it current
  /// (with shift: the block's far corner) before onMouseDown is raised.
  void MouseDown(int row, int col, int button, int shift);
  void MouseDrag(int row, int col);
  /// Where the mouse is (or a key acts as if it were), no button pressed.
  void MouseMove(int row, int col);
  void Click();
  void DblClick();
  enum class Key { kUp, kDown, kLeft, kRight, kPageUp, kPageDown, kHome, kEnd, kTop, kBottom };
  /// The visible data column that `col` stands for: itself, else the next one, else the one before;
  /// forms may make a heading or a hidden cell current.
  int ShownCol(int col) const;
  /// Moves the current cell among the data cells, past hidden columns; `extend` moves the block's
  /// far corner instead. kLeft is towards the higher column number, since the grid reads from right
  /// to left. `pageRows` is how many rows the view shows.
  void PressKey(Key key, bool extend, int pageRows);
  /// The width to which a user dragged a visible column; at least 150 twips.
  void DragColWidth(int col, Twips width);

  // What a view paints, without moving the current cell. Rows and columns must exist.

  /// Colour set on a cell; where it is the grid's own or none, palette::kGridBand in every second
  /// data row.
  Colour EffectiveBackColor(int row, int col) const;
  bool InBlock(int row, int col) const;
  /// The texts of the block, hidden columns left out: tabs between columns, CR LF between rows. A
  /// tab or a line break within a text becomes a blank.
  std::string BlockText() const;

  /// Names a row wherever sorting moves it, as long as RowsEdition() stays what it is.
  std::uint32_t RowName(int row) const { return store_.RowId(row); }
  /// Another number once rows or columns were added, removed or bound anew.
  std::uint64_t RowsEdition() const { return rowsEdition_; }

  /// Bytes held by texts and bookkeeping.
  std::size_t MemoryBytes() const;

 private:
  struct Column {
    Twips width = kDefaultColWidth;
    Alignment alignment = Alignment::kGeneral;
  };
  struct Span {
    int first;
    int last;
  };
  // What has changed since the last notification.
  struct Pending {
    bool columns = false;
    bool rows = false;
    bool selection = false;
    Span cells{0, -1};
  };

  bool IsDataCell(int row, int col) const;
  Span BlockRows() const;
  Span BlockCols() const;
  void CheckCell(int row, int col) const;
  Column& ColumnAt(int col);
  const Column& ColumnAt(int col) const;
  void Select(int row, int col, int rowSel, int colSel);
  void KeepSelectionInside();
  void CellsChanged(int firstRow, int lastRow);
  void RowsChanged();
  void Publish();
  int VisibleCol(int from, int step, int otherwise) const;

  FlexGridStore store_{2, 2};
  std::vector<Column> columns_{2};
  Pending pending_;
  std::uint64_t rowsEdition_ = 0;
  int fixedRows_ = 1;
  int fixedCols_ = 1;
  int row_ = 1;
  int col_ = 1;
  int rowSel_ = 1;
  int colSel_ = 1;
  FillStyle fillStyle_ = FillStyle::kSingle;
  HighLight highLight_ = HighLight::kAlways;
  Colour backColor_ = palette::kGridRow;
  int stretchCol_ = -1;
  std::string emptyText_;
  int mouseRow_ = -1;
  int mouseCol_ = -1;
  bool dragging_ = false;  // the last press was on a data cell
  bool redraw_ = true;
};

}  // namespace controls
