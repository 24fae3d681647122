#include <gmock/gmock.h>

#include <QClipboard>
#include <QScrollBar>

#include "adapters/qt/FlexGridView.h"
#include "adapters/qt/QtFixture.h"

namespace adapters::qt {
namespace {

using controls::FlexGrid;
using testing::ElementsAre;

class GridViewTest : public QtTest {
 protected:
  void SetUp() override {
    FlexGrid& grid = form.flx;
    grid.SetRows(100001);
    grid.SetCols(4);
    grid.SetColWidth(0, 750);
    grid.SetColWidth(1, 0);
    grid.SetColWidth(2, 3000);
    grid.SetColWidth(3, 1500);
    grid.SetTextMatrix(2, 2, "علی");
    grid.onMouseDown = [this](int button, int shift) {
      events.push_back("down " + std::to_string(button) + " " + std::to_string(shift));
    };
    grid.onClick = [this] { events.push_back("click"); };
    grid.onDblClick = [this] { events.push_back("double"); };
    ShowForm();
    view = &WidgetOf<FlexGridView>(grid);
    grid.SetFocus();
  }
  QPoint At(int row, int col) const { return view->CellPlace(row, col).center(); }
  void Mouse(QEvent::Type type, const QPoint& place, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers modifiers = {}) {
    const Qt::MouseButton changed = type == QEvent::MouseMove ? Qt::NoButton : button;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
    QMouseEvent event(type, place, view->viewport()->mapToGlobal(place), changed, held, modifiers);
    QApplication::sendEvent(view->viewport(), &event);
  }
  FlexGridView* view = nullptr;
  std::vector<std::string> events;
};

TEST_F(GridViewTest, Cells_LieRightToLeftAndShowTheirGround) {
  const QRect first = view->CellPlace(1, 0);
  EXPECT_EQ(first.right(), view->viewport()->width() - 1);
  EXPECT_TRUE(view->CellPlace(1, 1).isEmpty()) << "a hidden column";
  EXPECT_EQ(view->CellPlace(1, 2).right() + 1, first.left());
  EXPECT_EQ(view->CellPlace(1, 2).width(), 200);
  form.flx.SetRow(4);
  form.flx.SetCol(2);
  form.flx.SetCellBackColor(controls::palette::kMark);
  form.flx.SetRow(1);
  const QImage picture = view->viewport()->grab().toImage();
  const auto groundOf = [&](int row) {
    return picture.pixelColor(view->CellPlace(row, 2).topLeft() + QPoint(3, 3));
  };
  EXPECT_EQ(groundOf(4), QColor(255, 255, 0));
  EXPECT_NE(groundOf(5), groundOf(6)) << "bands";
}

TEST_F(GridViewTest, ScrolledFarDown_ShowsTheLastRowsAndFindsThemUnderTheMouse) {
  view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum());
  EXPECT_TRUE(view->CellPlace(1, 2).isEmpty());
  const QRect last = view->CellPlace(100000, 2);
  ASSERT_FALSE(last.isEmpty());
  EXPECT_EQ(view->CellAt(last.center()).row, 100000);
  EXPECT_EQ(view->CellAt(last.center()).col, 2);
  EXPECT_EQ(view->CellAt(At(0, 2)).row, 0) << "headings stay in place";
  EXPECT_EQ(view->CellAt({1, last.center().y()}).col, 4) << "beyond the last column";
}

TEST_F(GridViewTest, DoubleClick_GivesMouseDownClickDblClick) {
  const QPoint place = At(2, 2);
  for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                  QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
    Mouse(type, place);
  }
  EXPECT_THAT(events, ElementsAre("down 1 0", "click", "double"));
  EXPECT_EQ(form.flx.Row(), 2);
  EXPECT_EQ(form.flx.Col(), 2);
}

TEST_F(GridViewTest, Drag_MakesABlockThatCtrlCCopies) {
  form.flx.SetTextMatrix(3, 3, "b");
  Mouse(QEvent::MouseButtonPress, At(2, 2));
  Mouse(QEvent::MouseMove, At(3, 3));
  Mouse(QEvent::MouseButtonRelease, At(3, 3));
  EXPECT_EQ(form.flx.RowSel(), 3);
  EXPECT_EQ(form.flx.ColSel(), 3);
  Press(*view, Qt::Key_C, Qt::ControlModifier);
  QString copied = QApplication::clipboard()->text();
  copied.remove('\r');
  EXPECT_EQ(copied, "علی\t\n\tb");
}

TEST_F(GridViewTest, ColumnBorder_Dragged_ChangesTheWidthAndClicksNothing) {
  const QRect heading = view->CellPlace(0, 2);
  Mouse(QEvent::MouseButtonPress, {heading.left(), heading.center().y()});
  Mouse(QEvent::MouseMove, {heading.left() - 40, heading.center().y()});
  Mouse(QEvent::MouseButtonRelease, {heading.left() - 40, heading.center().y()});
  EXPECT_NEAR(form.flx.ColWidth(2), 3600, 15);
  EXPECT_EQ(view->CellPlace(1, 3).right() + 1, view->CellPlace(1, 2).left());
  EXPECT_TRUE(events.empty());
}

TEST_F(GridViewTest, Keys_MoveTheCurrentCellAndKeepItInSight) {
  form.flx.SetRow(1);
  form.flx.SetCol(2);
  Press(*view, Qt::Key_Left);
  EXPECT_EQ(form.flx.Col(), 3);
  Press(*view, Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(form.flx.Row(), 100000);
  EXPECT_FALSE(view->CellPlace(100000, 3).isEmpty());
  Press(*view, Qt::Key_PageUp, Qt::ShiftModifier);
  EXPECT_EQ(form.flx.Row(), 100000);
  EXPECT_EQ(form.flx.RowSel(), 100000 - view->PageRows());
  EXPECT_FALSE(view->CellPlace(form.flx.RowSel(), 3).isEmpty());
}

TEST_F(GridViewTest, EmptyGrid_PaintedAndClicked_IsHarmless) {
  form.flx.SetRows(0);
  QCoreApplication::processEvents();
  Mouse(QEvent::MouseButtonPress, {60, 60});
  Press(*view, Qt::Key_Down);
  EXPECT_EQ(form.flx.MouseRow(), 0);
  form.flx.SetCols(0);
  view->viewport()->repaint();
}

}  // namespace
}  // namespace adapters::qt
