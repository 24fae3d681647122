// What mouse and keys do in the grid view.

#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimerEvent>
#include <QToolTip>
#include <algorithm>
#include <cstdlib>

#include "adapters/qt/FlexGridView.h"

namespace adapters::qt {

using controls::FlexGrid;

namespace {

constexpr int kBorderReach = 4;
constexpr int kAutoScrollMilliseconds = 50;
constexpr int kWheelRows = 3;

int ButtonNumber(Qt::MouseButton button) {
  if (button == Qt::RightButton) return 2;
  return button == Qt::MiddleButton ? 4 : 1;
}

int ShiftNumber(Qt::KeyboardModifiers modifiers) {
  int shift = 0;
  if (modifiers & Qt::ShiftModifier) shift |= 1;
  if (modifiers & Qt::ControlModifier) shift |= 2;
  if (modifiers & Qt::AltModifier) shift |= 4;
  return shift;
}

std::optional<FlexGrid::Key> GridKey(const QKeyEvent& event) {
  const bool control = event.modifiers() & Qt::ControlModifier;
  switch (event.key()) {
    case Qt::Key_Up:
      return control ? FlexGrid::Key::kTop : FlexGrid::Key::kUp;
    case Qt::Key_Down:
      return control ? FlexGrid::Key::kBottom : FlexGrid::Key::kDown;
    case Qt::Key_Left:
      return control ? FlexGrid::Key::kEnd : FlexGrid::Key::kLeft;
    case Qt::Key_Right:
      return control ? FlexGrid::Key::kHome : FlexGrid::Key::kRight;
    case Qt::Key_PageUp:
      return FlexGrid::Key::kPageUp;
    case Qt::Key_PageDown:
      return FlexGrid::Key::kPageDown;
    case Qt::Key_Home:
      return control ? FlexGrid::Key::kTop : FlexGrid::Key::kHome;
    case Qt::Key_End:
      return control ? FlexGrid::Key::kBottom : FlexGrid::Key::kEnd;
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<int> FlexGridView::ColumnBorderAt(const QPoint& place) const {
  if (!Model() || place.y() >= FixedHeight() || place.y() < 0) return std::nullopt;
  for (const bool fixed : {true, false}) {
    for (const int col : ColumnsInSight(fixed)) {
      if (std::abs(place.x() - ColumnPlace(col).left()) <= kBorderReach) return col;
    }
  }
  return std::nullopt;
}

void FlexGridView::mousePressEvent(QMouseEvent* event) {
  if (!Model()) return;
  const QPoint place = event->position().toPoint();
  const auto border = ColumnBorderAt(place);
  if (border && event->button() == Qt::LeftButton) {
    pressing_ = Pressing::kBorder;
    draggedCol_ = *border;
    dragRight_ = ColumnPlace(*border).right();
    return;
  }
  if (event->button() == Qt::LeftButton) pressing_ = Pressing::kCells;
  const Cell cell = CellAt(place);
  const int button = ButtonNumber(event->button());
  const int shift = ShiftNumber(event->modifiers());
  Call([&](FlexGrid& grid) { grid.MouseDown(cell.row, cell.col, button, shift); });
}

void FlexGridView::mouseMoveEvent(QMouseEvent* event) {
  if (!Model()) return;
  const QPoint place = event->position().toPoint();
  // The release is lost when the press opened a modal window.
  if (!(event->buttons() & Qt::LeftButton)) pressing_ = Pressing::kNone;
  if (pressing_ == Pressing::kBorder) {
    const controls::Twips width = ToTwips(*this, std::max(0, dragRight_ - place.x() + 1));
    Call([&](FlexGrid& grid) {
      if (draggedCol_ < grid.Cols()) grid.DragColWidth(draggedCol_, width);
    });
    return;
  }
  if (pressing_ == Pressing::kCells) {
    DragTo(place);
    if (viewport()->rect().contains(place)) {
      autoScroll_.stop();
    } else if (!autoScroll_.isActive()) {
      autoScroll_.start(kAutoScrollMilliseconds, this);
    }
    return;
  }
  viewport()->setCursor(ColumnBorderAt(place) ? Qt::SplitHCursor : Qt::ArrowCursor);
}

/// Where the mouse is outside of the cells, the nearest one in sight counts.
void FlexGridView::DragTo(const QPoint& place) {
  lastDrag_ = place;
  const QRect inside = viewport()->rect();
  const Cell cell =
      CellAt({std::clamp(place.x(), 0, std::max(0, inside.right())),
              std::clamp(place.y(), FixedHeight(), std::max(FixedHeight(), inside.bottom()))});
  if (cell.row == Model()->MouseRow() && cell.col == Model()->MouseCol()) return;
  Call([&](FlexGrid& grid) { grid.MouseDrag(cell.row, cell.col); });
}

void FlexGridView::timerEvent(QTimerEvent* event) {
  if (event->timerId() != autoScroll_.timerId()) {
    ViewOf::timerEvent(event);
    return;
  }
  if (!Model() || pressing_ != Pressing::kCells) {
    autoScroll_.stop();
    return;
  }
  QScrollBar& down = *verticalScrollBar();
  QScrollBar& across = *horizontalScrollBar();
  if (lastDrag_.y() < FixedHeight()) down.setValue(down.value() - 1);
  if (lastDrag_.y() >= viewport()->height()) down.setValue(down.value() + 1);
  if (lastDrag_.x() < 0) across.setValue(across.value() + across.singleStep());
  if (lastDrag_.x() >= viewport()->width()) across.setValue(across.value() - across.singleStep());
  DragTo(lastDrag_);
}

void FlexGridView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const Pressing pressing = pressing_;
  pressing_ = Pressing::kNone;
  autoScroll_.stop();
  if (pressing == Pressing::kCells) Call([](FlexGrid& grid) { grid.Click(); });
}

void FlexGridView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) {
    mousePressEvent(event);
    return;
  }
  if (!Model() || ColumnBorderAt(event->position().toPoint())) return;
  Call([](FlexGrid& grid) { grid.DblClick(); });
}

void FlexGridView::wheelEvent(QWheelEvent* event) {
  if (event->modifiers() & Qt::ShiftModifier || event->angleDelta().y() == 0) {
    const int delta =
        event->angleDelta().x() != 0 ? event->angleDelta().x() : event->angleDelta().y();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + delta / 3);
  } else {
    // Fine wheels and touch pads send parts of a notch.
    wheelRest_ += event->angleDelta().y() * kWheelRows;
    const int rows = wheelRest_ / QWheelEvent::DefaultDeltasPerStep;
    wheelRest_ -= rows * QWheelEvent::DefaultDeltasPerStep;
    verticalScrollBar()->setValue(verticalScrollBar()->value() - rows);
  }
  event->accept();
}

void FlexGridView::keyPressEvent(QKeyEvent* event) {
  if (!Model()) return;
  if (event->matches(QKeySequence::Copy)) {
    Call([](FlexGrid& grid) { QApplication::clipboard()->setText(ToQString(grid.BlockText())); });
    return;
  }
  const auto key = GridKey(*event);
  if (!key || event->modifiers() & Qt::AltModifier) {
    event->ignore();
    return;
  }
  const bool extend = event->modifiers() & Qt::ShiftModifier;
  const bool there = Call([&](FlexGrid& grid) { grid.PressKey(*key, extend, PageRows()); });
  if (there) EnsureVisible(Model()->RowSel(), Model()->ColSel());
}

void FlexGridView::focusInEvent(QFocusEvent* event) {
  ViewOf::focusInEvent(event);
  ShowFocus(true);
}

void FlexGridView::focusOutEvent(QFocusEvent* event) {
  ViewOf::focusOutEvent(event);
  ShowFocus(false);
}

bool FlexGridView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip && Model()) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const Cell cell = CellAt(help->pos());
    QString tip = toolTip();
    if (cell.row < Model()->Rows() && cell.col < Model()->Cols()) {
      const QString text = CellText(cell.row, cell.col);
      const QRect place = CellPlace(cell.row, cell.col);
      if (fontMetrics().horizontalAdvance(text) > place.width() - 8) tip = text;
    }
    QToolTip::showText(help->globalPos(), tip, viewport());
    return true;
  }
  return ViewOf::viewportEvent(event);
}

}  // namespace adapters::qt
