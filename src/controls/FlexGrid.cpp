#include "controls/FlexGrid.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "controls/Controls.h"
#include "controls/FlexGridSort.h"
#include "platform/RuntimeError.h"

namespace controls {

namespace {

[[noreturn]] void Throw(std::int32_t number, const char* description) {
  throw platform::RuntimeError(number, description, "FlexGrid");
}

[[noreturn]] void ThrowInvalidProperty() {
  Throw(platform::kInvalidPropertyValue, "Invalid property value");
}

void CheckRow(int row, int rows) {
  if (row < 0 || row >= rows) Throw(platform::kInvalidRowValue, "Invalid Row value");
}

void CheckCol(int col, int cols) {
  if (col < 0 || col >= cols) Throw(platform::kInvalidColValue, "Invalid Col value");
}

}  // namespace

FlexGrid::FlexGrid(Container& parent, std::string name) : Control(parent, std::move(name)) {}

FlexGrid::~FlexGrid() = default;

void FlexGrid::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

void FlexGrid::SetRows(int rows) {
  if (rows < 0) ThrowInvalidProperty();
  if (rows == Rows()) return;
  store_.SetRows(rows);
  RowsChanged();
  if (fixedRows_ > rows) {
    fixedRows_ = rows;
    pending_.columns = true;
  }
  KeepSelectionInside();
  Publish();
}

void FlexGrid::SetCols(int cols) {
  if (cols < 0 || cols > FlexGridStore::kMaxCols) ThrowInvalidProperty();
  if (cols == Cols()) return;
  store_.SetCols(cols);
  columns_.resize(static_cast<std::size_t>(cols));
  fixedCols_ = std::min(fixedCols_, cols);
  if (stretchCol_ >= cols) stretchCol_ = -1;
  pending_.columns = true;
  RowsChanged();
  KeepSelectionInside();
  Publish();
}

void FlexGrid::SetFixedRows(int rows) {
  if (rows < 0) ThrowInvalidProperty();
  if (rows > 0 && rows >= Rows()) {
    Throw(30016, "FixedRows must be at least one less than Rows value");
  }
  if (rows == fixedRows_) return;
  fixedRows_ = rows;
  pending_.columns = true;
  Publish();
}

void FlexGrid::SetFixedCols(int cols) {
  if (cols < 0) ThrowInvalidProperty();
  if (cols > 0 && cols >= Cols()) {
    Throw(30017, "FixedCols must be at least one less than Cols value");
  }
  if (cols == fixedCols_) return;
  fixedCols_ = cols;
  pending_.columns = true;
  Publish();
}

void FlexGrid::SetRow(int row) {
  CheckRow(row, Rows());
  Select(row, col_, row, col_);
}

void FlexGrid::SetCol(int col) {
  CheckCol(col, Cols());
  Select(row_, col, row_, col);
}

void FlexGrid::SetRowSel(int row) {
  CheckRow(row, Rows());
  Select(row_, col_, row, colSel_);
}

void FlexGrid::SetColSel(int col) {
  CheckCol(col, Cols());
  Select(row_, col_, rowSel_, col);
}

void FlexGrid::Select(int row, int col, int rowSel, int colSel) {
  if (row == row_ && col == col_ && rowSel == rowSel_ && colSel == colSel_) return;
  row_ = row;
  col_ = col;
  rowSel_ = rowSel;
  colSel_ = colSel;
  pending_.selection = true;
  Publish();
}

void FlexGrid::KeepSelectionInside() {
  const int lastRow = std::max(Rows() - 1, 0);
  const int lastCol = std::max(Cols() - 1, 0);
  for (const auto& [place, last] : {std::pair(&row_, lastRow), std::pair(&rowSel_, lastRow),
                                    std::pair(&col_, lastCol), std::pair(&colSel_, lastCol)}) {
    if (*place <= last) continue;
    *place = last;
    pending_.selection = true;
  }
}

void FlexGrid::CheckCell(int row, int col) const {
  if (row < 0 || row >= Rows() || col < 0 || col >= Cols()) {
    Throw(platform::kSubscriptOutOfRange, "Subscript out of range");
  }
}

std::string_view FlexGrid::TextMatrix(int row, int col) const {
  CheckCell(row, col);
  return store_.Text(row, col);
}

void FlexGrid::SetTextMatrix(int row, int col, std::string_view text) {
  CheckCell(row, col);
  if (store_.SetText(row, col, text)) CellsChanged(row, row);
}

FlexGrid::Column& FlexGrid::ColumnAt(int col) {
  CheckCol(col, Cols());
  return columns_[static_cast<std::size_t>(col)];
}

const FlexGrid::Column& FlexGrid::ColumnAt(int col) const {
  CheckCol(col, Cols());
  return columns_[static_cast<std::size_t>(col)];
}

Twips FlexGrid::ColWidth(int col) const {
  return ColumnAt(col).width;
}

void FlexGrid::SetColWidth(int col, Twips width) {
  Column& column = ColumnAt(col);
  if (!(width >= 0)) ThrowInvalidProperty();
  if (column.width == width) return;
  column.width = width;
  pending_.columns = true;
  Publish();
}

FlexGrid::Alignment FlexGrid::ColAlignment(int col) const {
  return ColumnAt(col).alignment;
}

void FlexGrid::SetColAlignment(int col, Alignment alignment) {
  Column& column = ColumnAt(col);
  if (column.alignment == alignment) return;
  column.alignment = alignment;
  pending_.columns = true;
  Publish();
}

void FlexGrid::SetStretchCol(int col) {
  if (col != -1) CheckCol(col, Cols());
  if (std::exchange(stretchCol_, col) == col) return;
  pending_.columns = true;
  Publish();
}

void FlexGrid::SetEmptyText(std::string text) {
  if (text == emptyText_) return;
  emptyText_ = std::move(text);
  pending_.rows = true;
  Publish();
}

Colour FlexGrid::CellBackColor() const {
  return Rows() == 0 || Cols() == 0 ? 0 : store_.ColourAt(row_, col_);
}

void FlexGrid::SetCellBackColor(Colour colour) {
  if (Rows() == 0 || Cols() == 0) return;
  const bool whole = fillStyle_ == FillStyle::kRepeat;
  const Span rows = whole ? BlockRows() : Span{row_, row_};
  const Span cols = whole ? BlockCols() : Span{col_, col_};
  bool changed = false;
  for (int row = rows.first; row <= rows.last; ++row) {
    if (store_.SetColour(row, cols.first, cols.last, colour)) changed = true;
  }
  if (changed) CellsChanged(rows.first, rows.last);
}

void FlexGrid::SetBackColor(Colour colour) {
  if (std::exchange(backColor_, colour) != colour) CellsChanged(0, Rows() - 1);
}

void FlexGrid::SetHighLight(HighLight highLight) {
  if (std::exchange(highLight_, highLight) == highLight) return;
  pending_.selection = true;
  Publish();
}

void FlexGrid::SetRedraw(bool redraw) {
  redraw_ = redraw;
  Publish();
}

void FlexGrid::CellsChanged(int firstRow, int lastRow) {
  Span& cells = pending_.cells;
  if (cells.last < cells.first) {
    cells = {firstRow, lastRow};
  } else {
    cells = {std::min(cells.first, firstRow), std::max(cells.last, lastRow)};
  }
  Publish();
}

/// Not merely in another order.
void FlexGrid::RowsChanged() {
  ++rowsEdition_;
  pending_.rows = true;
}

void FlexGrid::Publish() {
  if (!redraw_) return;
  Pending changes = std::exchange(pending_, {});
  if (changes.columns) Notify(Aspect::kColumns);
  if (changes.rows) Notify(Aspect::kRows);
  if (!changes.rows && changes.cells.first <= changes.cells.last) {
    Notify({Aspect::kCells, changes.cells.first, changes.cells.last});
  }
  if (changes.selection) Notify(Aspect::kSelection);
}

void FlexGrid::Sort(int order) {
  if (order != 7 && order != 8) ThrowInvalidProperty();
  if (Rows() <= fixedRows_ || Cols() == 0) return;
  const Span cols = BlockCols();
  const auto direction = order == 7 ? SortDirection::kAscending : SortDirection::kDescending;
  const std::vector<std::uint32_t> rows =
      SortedRows(store_, fixedRows_, cols.first, cols.last, direction);
  if (std::is_sorted(rows.begin(), rows.end())) return;
  store_.Reorder(fixedRows_, rows);
  pending_.rows = true;
  Publish();
}

void FlexGrid::AddItem(std::string_view text) {
  store_.AddRow(text);
  RowsChanged();
  Publish();
}

void FlexGrid::RemoveItem(int row) {
  if (row < 0 || row >= Rows()) Throw(30002, "Grid does not contain that row");
  if (row < fixedRows_) Throw(30000, "Cannot do a RemoveItem on a fixed row");
  if (Rows() - fixedRows_ == 1) Throw(30015, "Cannot remove last non-fixed row");
  store_.RemoveRow(row);
  RowsChanged();
  KeepSelectionInside();
  Publish();
}

void FlexGrid::Bind(platform::RowSet rows) {
  const auto dataCols = rows.ColumnCount();
  if (dataCols > static_cast<std::size_t>(FlexGridStore::kMaxCols - fixedCols_)) {
    ThrowInvalidProperty();
  }
  FlexGridStore bound(0, 0);
  bound.Take(rows.ReleaseCells(), static_cast<int>(dataCols), fixedRows_, fixedCols_);
  if (fixedRows_ > 0) {
    int col = fixedCols_;
    for (const std::string& name : rows.Columns()) bound.SetText(0, col++, name);
  }
  store_ = std::move(bound);
  columns_.resize(static_cast<std::size_t>(Cols()));
  row_ = rowSel_ = fixedRows_;
  col_ = colSel_ = fixedCols_;
  KeepSelectionInside();
  pending_.columns = pending_.selection = true;
  RowsChanged();
  Publish();
}

FlexGrid::Span FlexGrid::BlockRows() const {
  return {std::min(row_, rowSel_), std::max(row_, rowSel_)};
}

FlexGrid::Span FlexGrid::BlockCols() const {
  return {std::min(col_, colSel_), std::max(col_, colSel_)};
}

Colour FlexGrid::EffectiveBackColor(int row, int col) const {
  const Colour colour = store_.ColourAt(row, col);
  if (colour != 0 && colour != backColor_) return colour;
  const bool band = row >= fixedRows_ && (row - fixedRows_) % 2 == 1;
  return band ? palette::kGridBand : backColor_;
}

std::size_t FlexGrid::MemoryBytes() const {
  return store_.MemoryBytes() + columns_.capacity() * sizeof(Column);
}

}  // namespace controls
