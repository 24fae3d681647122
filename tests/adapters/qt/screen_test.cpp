#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "adapters/qt/PaneWidget.h"
#include "adapters/qt/QtFixture.h"
#include "adapters/qt/Theme.h"
#include "contract/ScreenContract.h"

namespace adapters::qt {
namespace {

TEST_F(QtTest, FormDestroyed_WhileItsWindowIsUp_LeavesNothingThatTouchesIt) {
  auto other = std::make_unique<contract::SampleForm>(screen, cities);
  other->Show(controls::Modality::kModeless);
  ASSERT_TRUE(QTest::qWaitForWindowActive(adapter->screen.WindowOf(*other)));
  other->datFrom.SetFocus();
  Type("1403");
  other.reset();
  Settle();
  ShowForm();
}

TEST_F(QtTest, Unload_InAClick_KeepsTheButtonUntilItReturned) {
  ShowForm();
  const QPointer<QWidget> button = adapter->screen.WidgetOf(form.cmdOK);
  form.cmdOK.onClick = [&] {
    form.Unload();
    EXPECT_TRUE(button);
  };
  Click(form.cmdOK);
  Settle();
  EXPECT_FALSE(button);
}

TEST_F(QtTest, ModalForm_ShownAsAnotherHasClosed_ComesUpOverTheOneThatIsLeft) {
  contract::SampleForm first(screen, cities);
  contract::SampleForm second(screen, cities);
  ShowForm();
  const QWindow* const left = adapter->screen.WindowOf(form)->windowHandle();
  int seen = 0;
  for (contract::SampleForm* const each : {&first, &second}) {
    Later([&, each] {
      ++seen;
      EXPECT_EQ(adapter->screen.WindowOf(*each)->windowHandle()->transientParent(), left);
      each->Hide();
    });
    each->Show(controls::Modality::kModal);
  }
  EXPECT_EQ(seen, 2);
}

TEST_F(QtTest, ModalForm_OfWhichNoPlaceIsKept_ComesUpOverTheOneBefore) {
  static struct : screens::PlaceStore {  // outlives the screen
    std::string Read(const std::string& /*form*/) const override { return ""; }
    void Write(const std::string& /*form*/, const std::string& /*text*/) override {}
  } nothing;
  adapter->screen.RememberPlaces(nothing);
  ShowForm();
  QWidget* const below = adapter->screen.WindowOf(form);
  below->move(40, 30);
  contract::SampleForm over(screen, cities);
  Later([&] {
    // Both are of one size.
    EXPECT_EQ(adapter->screen.WindowOf(over)->pos(), below->geometry().topLeft());
    over.Hide();
  });
  over.Show(controls::Modality::kModal);
}

TEST_F(QtTest, LastForm_Unloaded_EndsTheProgram) {
  contract::SampleForm other(screen, cities);
  ShowForm();
  other.Show(controls::Modality::kModeless);
  bool unloadedBoth = false;
  QTimer::singleShot(0, [&] { form.Unload(); });
  QTimer::singleShot(50, [&] {
    unloadedBoth = true;
    other.Unload();
  });
  QApplication::setQuitOnLastWindowClosed(true);
  QApplication::exec();
  QApplication::setQuitOnLastWindowClosed(false);
  EXPECT_TRUE(unloadedBoth);
}

TEST_F(QtTest, TextBoxOfLatinDigits_FilledByInputMethodMenuOrDrop_ShowsThem) {
  form.txtName.SetLatinDigits(true);
  ShowForm();
  form.txtName.SetFocus();
  QInputMethodEvent committed;
  committed.setCommitString("۵");
  QApplication::sendEvent(QApplication::focusWidget(), &committed);
  EXPECT_EQ(form.txtName.Text(), "5");
  auto& line = dynamic_cast<QLineEdit&>(*QApplication::focusWidget());
  QGuiApplication::clipboard()->setText("۶");
  QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
  QApplication::sendEvent(&line, &asked);
  auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
  for (QAction* action : menu.actions()) {
    if (action->text().startsWith(QLineEdit::tr("&Paste"))) action->trigger();
  }
  menu.close();
  QMimeData dragged;
  dragged.setText("۷\n");
  QDragEnterEvent entered(line.rect().center(), Qt::CopyAction, &dragged, Qt::LeftButton, {});
  QApplication::sendEvent(&line, &entered);
  QDropEvent dropped(line.rect().center(), Qt::CopyAction, &dragged, Qt::LeftButton, {});
  QApplication::sendEvent(&line, &dropped);
  EXPECT_THAT(form.txtName.Text(), testing::AnyOf("567 ", "7 56", "57 6"));
  EXPECT_EQ(Shown(form.txtName), form.txtName.Text());
  Undo();
  EXPECT_EQ(Shown(form.txtName).find("۷"), std::string::npos) << "not even for a moment";
}

TEST_F(QtTest, Form_OnADesktopOfLargerLetters_IsLargerByAsMuch) {
  const QFont designed = QApplication::font();
  const controls::Twips before = screen.TextWidth("شماره رايانه اي");
  QFont larger = designed;
  larger.setPointSizeF(1.5 * designed.pointSizeF());
  QApplication::setFont(larger);
  ShowForm();
  EXPECT_EQ(WindowSize(), std::pair(1050, 780));
  EXPECT_EQ(adapter->screen.WidgetOf(form.flx)->width(), 1020);
  EXPECT_NEAR(screen.TextWidth("شماره رايانه اي"), before, before / 20);
  DragWindowTo(1200, 900);
  EXPECT_EQ(std::pair(form.Width(), form.Height()), std::pair(12000.0, 9000.0));
  QApplication::setFont(designed);
}

TEST_F(QtTest, GridCells_OfAnyGround_AreShownOnItOrOnItsDarkCounterpart) {
  form.flx.SetRow(1);
  form.flx.SetCellBackColor(controls::palette::kMark);
  form.flx.SetHighLight(controls::FlexGrid::HighLight::kNever);
  ShowForm();
  QWidget& view = *adapter->screen.WidgetOf(form.flx)->viewport();
  const contract::Place at = At(1, 1);
  EXPECT_EQ(view.grab().toImage().pixelColor(at.x, at.y), QColor(255, 255, 0));
  const QImage framed = adapter->screen.WidgetOf(form.flx)->grab().toImage();
  EXPECT_EQ(framed.pixelColor(0, 0), Painted(screens::palette::kLine));
  const QPalette light = QApplication::palette();
  QApplication::setPalette(QPalette(Qt::black));
  EXPECT_EQ(view.grab().toImage().pixelColor(at.x, at.y),
            Painted(controls::palette::kMark, screens::palette::Scheme::kDark));
  QApplication::setPalette(light);
}

TEST_F(QtTest, List_ForReaders_NamesTheFieldItsSearchOpensAndSelectsNoColumn) {
  ShowForm();
  form.flx.SetFocus();
  Press({contract::Key::kF}, contract::kControl);
  QAccessibleInterface& list =
      *QAccessible::queryAccessibleInterface(adapter->screen.WidgetOf(form.flx));
  ASSERT_GT(list.childCount(), 0);
  EXPECT_EQ(ToUtf8(list.child(0)->text(QAccessible::Name)), "جستجو در ليست");
  QAccessibleTableInterface* const table = list.tableInterface();
  ASSERT_NE(table, nullptr);
  EXPECT_FALSE(table->selectColumn(0));
}

}  // namespace
}  // namespace adapters::qt
