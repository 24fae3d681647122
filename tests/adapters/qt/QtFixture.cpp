#include "adapters/qt/QtFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <algorithm>

#include "adapters/qt/Convert.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"
#include "screens/GridPane.h"
#include "support/AllControls.h"

namespace contract {

using namespace adapters::qt;

namespace {

QWidget& KeyReceiver() {
  QWidget* popup = QApplication::activePopupWidget();
  return popup ? *popup : *QApplication::focusWidget();
}

void SendKey(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(&KeyReceiver(), &event);
}

Qt::KeyboardModifiers Modifiers(screens::Modifiers held) {
  return (held.shift ? Qt::ShiftModifier : Qt::NoModifier) |
         (held.control ? Qt::ControlModifier : Qt::NoModifier);
}

}  // namespace

ScreenTest::ScreenTest() : adapter(std::make_unique<Adapter>(desktop)), screen(adapter->screen) {}

ScreenTest::~ScreenTest() = default;

void ScreenTest::ShowForm() {
  form.Show(controls::Modality::kModeless);
  ASSERT_TRUE(QTest::qWaitForWindowActive(adapter->screen.WindowOf(form)));
}

void ScreenTest::Press(std::initializer_list<Key> keys, screens::Modifiers held) {
  // As in the enumeration, from kEnter on.
  constexpr Qt::Key kKeys[] = {Qt::Key_Return, Qt::Key_Escape,   Qt::Key_Backspace, Qt::Key_Insert,
                               Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left,      Qt::Key_Right,
                               Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home,      Qt::Key_End,
                               Qt::Key_Tab,    Qt::Key_F3,       Qt::Key_F4,        Qt::Key_F6,
                               Qt::Key_A,      Qt::Key_C,        Qt::Key_D,         Qt::Key_F,
                               Qt::Key_I,      Qt::Key_Y,        Qt::Key_Z};
  for (const Key named : keys) {
    // Keyboards have a name of their own for the way back.
    const bool back = named == Key::kTab && held.shift;
    const int at = static_cast<int>(named) - static_cast<int>(Key::kEnter);
    SendKey(back ? Qt::Key_Backtab : kKeys[at], Modifiers(held), {});
  }
}

void ScreenTest::Type(const std::string& text) {
  for (const QChar letter : ToQString(text)) SendKey(0, Qt::NoModifier, letter);
}

void ScreenTest::Paste() {
  SendKey(Qt::Key_V, Qt::ControlModifier, "\x16");
}

void ScreenTest::Click(controls::Control& control) {
  QTest::mouseClick(adapter->screen.WidgetOf(control)->viewport(), Qt::LeftButton);
}

void ScreenTest::MouseOnGrid(const screens::PointerEvent& what) {
  const bool press = what.action == PointerAction::kPress;
  const bool move = what.action == PointerAction::kMove;
  QEvent::Type type = what.clicks == 2 ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress;
  if (!press) type = move ? QEvent::MouseMove : QEvent::MouseButtonRelease;
  const auto button = static_cast<Qt::MouseButton>(what.button);
  const QPoint place(what.place.x, what.place.y);
  QWidget& view = *adapter->screen.WidgetOf(form.flx)->viewport();
  QMouseEvent event(type, place, view.mapToGlobal(place), move ? Qt::NoButton : button,
                    press || what.leftHeld ? button : Qt::NoButton, Modifiers(what.modifiers));
  QApplication::sendEvent(&view, &event);
}

void ScreenTest::TurnWheelOnGrid(int delta) {
  QWidget& view = *adapter->screen.WidgetOf(form.flx)->viewport();
  const QPoint place = view.rect().center();
  QWheelEvent event(place, view.mapToGlobal(place), {}, {0, delta}, {}, {}, Qt::NoScrollPhase,
                    false);
  QApplication::sendEvent(&view, &event);
}

void ScreenTest::AwaitAutoScroll() {
  const int before = form.flx.RowSel();
  EXPECT_TRUE(QTest::qWaitFor([&] { return form.flx.RowSel() > before; }));
}

void ScreenTest::DragWindowTo(int width, int height) {
  adapter->screen.WindowOf(form)->resize(width, height);
}

void ScreenTest::CloseWindow() {
  adapter->screen.WindowOf(form)->close();
}

const controls::Form& ScreenTest::ActiveForm() {
  QWidget* const window = QApplication::activeModalWidget();
  const controls::Form* const shown = adapter->screen.FormOf(window);
  if (!shown) throw std::logic_error("no form takes input");
  // Qt takes a window over the active one for active, too.
  EXPECT_TRUE(QTest::qWaitFor([window] { return QApplication::activeWindow() == window; }));
  return *shown;
}

void ScreenTest::Later(std::function<void()> action) {
  QTimer::singleShot(0, qApp, std::move(action));
}

void ScreenTest::Settle() {
  QCoreApplication::processEvents();
}

const screens::Pane& ScreenTest::PaneOf(controls::Control& control) {
  return adapter->screen.WidgetOf(control)->Content();
}

std::string ScreenTest::Shown(controls::Control& control) {
  const auto* const field = adapter->screen.WidgetOf(control)->findChild<QLineEdit*>();
  return field != nullptr ? ToUtf8(field->text()) : PaneOf(control).Describe().value;
}

std::pair<int, int> ScreenTest::WindowSize() {
  const QSize size = adapter->screen.WindowOf(form)->size();
  return {size.width(), size.height()};
}

std::string ScreenTest::WindowTitle() {
  return ToUtf8(adapter->screen.WindowOf(form)->windowTitle());
}

std::string ScreenTest::Focused() {
  const QWidget* focus = QApplication::focusWidget();
  while (focus && !dynamic_cast<const PaneWidget*>(focus)) focus = focus->parentWidget();
  return focus ? ToUtf8(focus->objectName()) : "nothing";
}

}  // namespace contract

namespace adapters::qt {

void QtTest::OnModalWindow(std::function<void(QWidget&)> action) {
  Later([action = std::move(action)] {
    QWidget* window = QApplication::activeModalWidget();
    ASSERT_NE(window, nullptr);
    action(*window);
  });
}

std::shared_ptr<const std::string> QtTest::AnswerDialog() {
  auto texts = std::make_shared<std::string>();
  OnMessage([this, texts](const controls::Form& message) {
    *texts = message.Caption() + "\n";
    for (controls::Control* control : support::AllControls(message)) {
      const auto* label = dynamic_cast<const controls::Label*>(control);
      if (label) *texts += label->Caption() + "\n";
    }
    Click(*message.FindControl("cmdYes"));
  });
  return texts;
}

QtOfficeTest::QtOfficeTest() {
  const std::string file = ToUtf8(folder.filePath("office.db"));
  demo::CreateSampleOffice(file, {.customers = 200, .today = desktop.Today(), .basePath = {}});
  connectionString = "sqlite:" + file;
}

std::unique_ptr<platform::Connection> QtOfficeTest::Create(const std::string& text) {
  return std::make_unique<sqlite::SqliteConnection>(text);
}

}  // namespace adapters::qt
