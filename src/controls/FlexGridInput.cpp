// What a user does with the grid, and what it gives to the clipboard.

#include <algorithm>
#include <string>

#include "controls/FlexGrid.h"

namespace controls {

namespace {

constexpr Twips kLeastDraggedWidth = 150;
constexpr int kShift = 1;

void AppendOnOneLine(std::string_view text, std::string& out) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool lineEnd = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (lineEnd) continue;  // its line feed becomes the blank
    const bool breaks = text[i] == '\t' || text[i] == '\r' || text[i] == '\n';
    out.push_back(breaks ? ' ' : text[i]);
  }
}

}  // namespace

bool FlexGrid::IsDataCell(int row, int col) const {
  return row >= fixedRows_ && row < Rows() && col >= fixedCols_ && col < Cols();
}

void FlexGrid::MouseDown(int row, int col, int button, int shift) {
  if (!Enabled()) return;
  MouseMove(row, col);
  dragging_ = IsDataCell(row, col);
  if (dragging_) {
    const bool extend = (shift & kShift) != 0;
    Select(extend ? row_ : row, extend ? col_ : col, row, col);
  }
  if (onMouseDown) onMouseDown(button, shift);
}

void FlexGrid::MouseMove(int row, int col) {
  if (!Enabled()) return;
  mouseRow_ = std::clamp(row, -1, Rows());
  mouseCol_ = std::clamp(col, -1, Cols());
}

void FlexGrid::MouseDrag(int row, int col) {
  if (!Enabled()) return;
  MouseMove(row, col);
  // A handler may have emptied the grid since the press.
  if (!dragging_ || Rows() <= fixedRows_ || Cols() <= fixedCols_) return;
  Select(row_, col_, std::clamp(row, fixedRows_, Rows() - 1),
         std::clamp(col, fixedCols_, Cols() - 1));
}

void FlexGrid::Click() {
  if (Enabled() && onClick) onClick();
}

void FlexGrid::DblClick() {
  if (Enabled() && onDblClick) onDblClick();
}

// The first visible data column from `from` on in the direction of `step`, else `otherwise`.
int FlexGrid::VisibleCol(int from, int step, int otherwise) const {
  for (int col = from; col >= fixedCols_ && col < Cols(); col += step) {
    if (ColWidth(col) > 0) return col;
  }
  return otherwise;
}

int FlexGrid::ShownCol(int col) const {
  col = std::max(col, fixedCols_);
  return VisibleCol(col, 1, VisibleCol(col, -1, col));
}

void FlexGrid::PressKey(Key key, bool extend, int pageRows) {
  if (!Enabled() || Rows() <= fixedRows_ || Cols() <= fixedCols_) return;
  const int lastRow = Rows() - 1;
  const int lastCol = Cols() - 1;
  const int page = std::clamp(pageRows, 1, Rows());
  int row = extend ? rowSel_ : row_;
  int col = ShownCol(extend ? colSel_ : col_);
  switch (key) {
    case Key::kUp:
      row -= 1;
      break;
    case Key::kDown:
      row += 1;
      break;
    case Key::kPageUp:
      row -= page;
      break;
    case Key::kPageDown:
      row += page;
      break;
    case Key::kTop:
      row = fixedRows_;
      break;
    case Key::kBottom:
      row = lastRow;
      break;
    case Key::kLeft:
      col = VisibleCol(col + 1, 1, col);
      break;
    case Key::kRight:
      col = VisibleCol(col - 1, -1, col);
      break;
    case Key::kHome:
      col = VisibleCol(fixedCols_, 1, col);
      break;
    case Key::kEnd:
      col = VisibleCol(lastCol, -1, col);
      break;
  }
  row = std::clamp(row, fixedRows_, lastRow);
  Select(extend ? row_ : row, extend ? col_ : col, row, col);
}

void FlexGrid::DragColWidth(int col, Twips width) {
  if (!Enabled() || ColWidth(col) == 0) return;
  SetColWidth(col, std::max(width, kLeastDraggedWidth));
}

bool FlexGrid::InBlock(int row, int col) const {
  const Span rows = BlockRows();
  const Span cols = BlockCols();
  return rows.first <= row && row <= rows.last && cols.first <= col && col <= cols.last;
}

std::string FlexGrid::BlockText() const {
  std::string text;
  if (Rows() == 0 || Cols() == 0) return text;
  const Span rows = BlockRows();
  const Span cols = BlockCols();
  for (int row = rows.first; row <= rows.last; ++row) {
    if (row != rows.first) text += "\r\n";
    bool isFirst = true;
    for (int col = cols.first; col <= cols.last; ++col) {
      if (ColWidth(col) == 0) continue;
      if (!isFirst) text.push_back('\t');
      isFirst = false;
      AppendOnOneLine(store_.Text(row, col), text);
    }
  }
  return text;
}

}  // namespace controls
