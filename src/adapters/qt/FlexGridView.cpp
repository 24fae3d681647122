#include "adapters/qt/FlexGridView.h"

#include <QScrollBar>
#include <algorithm>

#include "adapters/qt/Theme.h"

namespace adapters::qt {

using controls::Aspect;
using controls::Change;
using controls::FlexGrid;

FlexGridView::FlexGridView(FlexGrid& model, const Surroundings& surroundings, QWidget* parent)
    : ViewOf(model, surroundings, parent) {
  setFrameStyle(QFrame::Box | QFrame::Plain);
  ShowFocus(false);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setMouseTracking(true);
  viewport()->setAutoFillBackground(false);
  rowHeight_ = std::max(ToPixels(*this, FlexGrid::kRowHeight), fontMetrics().height() + 2);
}

void FlexGridView::Refresh(const Change& change) {
  switch (change.aspect) {
    case Aspect::kColumns:
      MeasureColumns();
      UpdateScrollBars();
      viewport()->update();
      break;
    case Aspect::kRows:
      UpdateScrollBars();
      viewport()->update();
      break;
    case Aspect::kCells:
      UpdateRows(change.firstRow, change.lastRow);
      break;
    default:
      viewport()->update();
      break;
  }
}

void FlexGridView::ShowFocus(bool focused) {
  QPalette framed = palette();
  framed.setColor(QPalette::WindowText, focused ? theme::kAccent : theme::kLine);
  setPalette(framed);
  viewport()->update();
}

void FlexGridView::MeasureColumns() {
  columns_.clear();
  controls::Twips spare = ToTwips(*this, viewport()->width());
  for (int col = 0; col < Model()->Cols(); ++col) spare -= Model()->ColWidth(col);
  controls::Twips sum = 0;
  for (int col = 0; col < Model()->Cols(); ++col) {
    const bool stretches = col == Model()->StretchCol();
    const controls::Twips width = Model()->ColWidth(col) + (stretches ? std::max(0.0, spare) : 0.0);
    columns_.push_back({ToPixels(*this, sum), ToPixels(*this, sum + width)});
    sum += width;
  }
}

int FlexGridView::FixedHeight() const {
  return Model()->FixedRows() * rowHeight_;
}

int FlexGridView::FixedWidth() const {
  const int fixed = Model()->FixedCols();
  return fixed > 0 ? columns_[static_cast<std::size_t>(fixed) - 1].far : 0;
}

int FlexGridView::PageRows() const {
  if (!Model()) return 1;
  return std::max(1, (viewport()->height() - FixedHeight()) / rowHeight_);
}

void FlexGridView::UpdateScrollBars() {
  const int dataRows = Model()->Rows() - Model()->FixedRows();
  verticalScrollBar()->setRange(0, std::max(0, dataRows - PageRows()));
  verticalScrollBar()->setPageStep(PageRows());
  const int all = columns_.empty() ? 0 : columns_.back().far;
  horizontalScrollBar()->setRange(0, std::max(0, all - viewport()->width()));
  horizontalScrollBar()->setPageStep(std::max(1, viewport()->width() - FixedWidth()));
  horizontalScrollBar()->setSingleStep(40);
}

void FlexGridView::UpdateRows(int firstRow, int lastRow) {
  const int fixed = Model()->FixedRows();
  if (firstRow < fixed) {
    viewport()->update(0, 0, viewport()->width(), FixedHeight());
    firstRow = fixed;
  }
  firstRow = std::max(firstRow, fixed + verticalScrollBar()->value());
  lastRow = std::min(lastRow, LastRowInSight());
  if (firstRow > lastRow) return;
  viewport()->update(0, RowTop(firstRow) - 1, viewport()->width(),
                     (lastRow - firstRow + 1) * rowHeight_ + 2);
}

int FlexGridView::RowTop(int row) const {
  if (row < Model()->FixedRows()) return row * rowHeight_;
  return (row - verticalScrollBar()->value()) * rowHeight_;
}

int FlexGridView::LastRowInSight() const {
  const int below = (viewport()->height() - FixedHeight() + rowHeight_ - 1) / rowHeight_;
  return std::min(Model()->Rows(), Model()->FixedRows() + verticalScrollBar()->value() + below) - 1;
}

QRect FlexGridView::ColumnPlace(int col) const {
  const Edges& edges = columns_[static_cast<std::size_t>(col)];
  const int scrolled = col < Model()->FixedCols() ? 0 : horizontalScrollBar()->value();
  const int right = viewport()->width() - edges.near + scrolled;
  return {right - (edges.far - edges.near), 0, edges.far - edges.near, viewport()->height()};
}

std::vector<int> FlexGridView::ColumnsInSight(bool fixed) const {
  const int split = std::min(Model()->FixedCols(), static_cast<int>(columns_.size()));
  const int first = fixed ? 0 : split;
  const int last = fixed ? split : static_cast<int>(columns_.size());
  const int room = viewport()->width() - (fixed ? 0 : FixedWidth());
  std::vector<int> seen;
  for (int col = first; col < last; ++col) {
    const QRect place = ColumnPlace(col);
    if (place.width() > 0 && place.right() >= 0 && place.left() < room) seen.push_back(col);
  }
  return seen;
}

QRect FlexGridView::CellPlace(int row, int col) const {
  if (!Model() || row < 0 || row >= Model()->Rows() || col < 0 ||
      col >= static_cast<int>(columns_.size())) {
    return {};
  }
  QRect room = viewport()->rect();
  if (row >= Model()->FixedRows()) room.setTop(FixedHeight());
  if (col >= Model()->FixedCols()) room.setRight(room.right() - FixedWidth());
  const QRect column = ColumnPlace(col);
  return QRect(column.left(), RowTop(row), column.width(), rowHeight_) & room;
}

FlexGridView::Cell FlexGridView::CellAt(const QPoint& place) const {
  Cell cell{Model()->Rows(), Model()->Cols()};
  const int y = std::max(0, place.y());
  int row = y / rowHeight_;
  if (row >= Model()->FixedRows()) row += verticalScrollBar()->value();
  cell.row = std::min(row, Model()->Rows());
  for (const bool fixed : {true, false}) {
    for (const int col : ColumnsInSight(fixed)) {
      const QRect column = ColumnPlace(col);
      if (place.x() >= column.left() && place.x() <= column.right()) return {cell.row, col};
    }
  }
  // Right of the view is its first column.
  if (place.x() >= viewport()->width() && cell.col > 0) cell.col = 0;
  return cell;
}

void FlexGridView::EnsureVisible(int row, int col) {
  const int dataRow = row - Model()->FixedRows();
  if (dataRow >= 0) {
    QScrollBar& down = *verticalScrollBar();
    if (dataRow < down.value()) down.setValue(dataRow);
    if (dataRow >= down.value() + PageRows()) down.setValue(dataRow - PageRows() + 1);
  }
  if (col < Model()->FixedCols() || col >= static_cast<int>(columns_.size())) return;
  QScrollBar& across = *horizontalScrollBar();
  const Edges& edges = columns_[static_cast<std::size_t>(col)];
  if (edges.far - across.value() > viewport()->width()) {
    across.setValue(edges.far - viewport()->width());
  }
  if (edges.near - across.value() < FixedWidth()) across.setValue(edges.near - FixedWidth());
}

void FlexGridView::resizeEvent(QResizeEvent* event) {
  ViewOf::resizeEvent(event);
  if (!Model()) return;
  MeasureColumns();  // the stretched column takes what room there is
  UpdateScrollBars();
}

void FlexGridView::scrollContentsBy(int /*dx*/, int /*dy*/) {
  viewport()->update();
}

QString FlexGridView::CellText(int row, int col) const {
  QString text = ToQString(Model()->TextMatrix(row, col));
  text.replace(QLatin1Char('\n'), QLatin1Char(' '));
  text.remove(QLatin1Char('\r'));
  return text;
}

}  // namespace adapters::qt
