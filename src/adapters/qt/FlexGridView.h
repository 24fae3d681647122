#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <optional>
#include <vector>

#include "adapters/qt/ControlView.h"
#include "controls/FlexGrid.h"

namespace adapters::qt {

/// Paints a FlexGrid from right to left, column 0 at the right edge. It keeps no copy of the
/// cells: each painting asks the model for the rows that are in sight. Scrolls by whole rows and,
/// across, by pixels; fixed rows and columns stay in place.
class FlexGridView : public ViewOf<QAbstractScrollArea, controls::FlexGrid> {
 public:
  FlexGridView(controls::FlexGrid& model, const Surroundings& surroundings, QWidget* parent);

  /// Where a cell is painted, in the viewport's coordinates; empty when it is hidden or scrolled
  /// away.
  QRect CellPlace(int row, int col) const;
  /// The cell under a point of the viewport: Rows() below the last row, Cols() beyond the last
  /// column.
  struct Cell {
    int row = 0;
    int col = 0;
  };
  Cell CellAt(const QPoint& place) const;
  /// Rows that one page of the view shows whole, without the fixed ones; at least 1.
  int PageRows() const;

 protected:
  void Refresh(const controls::Change& change) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  struct Edges {  // of a column, in pixels from the view's right edge before scrolling
    int near = 0;
    int far = 0;
  };
  void ShowFocus(bool focused);
  void MeasureColumns();
  void UpdateScrollBars();
  void UpdateRows(int firstRow, int lastRow);
  void EnsureVisible(int row, int col);
  int FixedHeight() const;
  int FixedWidth() const;
  int RowTop(int row) const;
  int LastRowInSight() const;
  /// Left and right pixel of a column in the viewport, scrolling seen to.
  QRect ColumnPlace(int col) const;
  std::vector<int> ColumnsInSight(bool fixed) const;
  std::optional<int> ColumnBorderAt(const QPoint& place) const;
  void PaintCell(QPainter& painter, int row, int col) const;
  void PaintColumns(QPainter& painter, const QRect& clip, bool fixed) const;
  void PaintBlockFrame(QPainter& painter) const;
  QString CellText(int row, int col) const;
  void DragTo(const QPoint& place);

  enum class Pressing { kNone, kCells, kBorder };
  std::vector<Edges> columns_;
  int rowHeight_ = 19;
  Pressing pressing_ = Pressing::kNone;
  int draggedCol_ = 0;
  int dragRight_ = 0;  // right pixel of the column whose border is dragged
  QPoint lastDrag_;
  int wheelRest_ = 0;
  QBasicTimer autoScroll_;
};

}  // namespace adapters::qt
