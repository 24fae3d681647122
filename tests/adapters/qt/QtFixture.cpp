#include "adapters/qt/QtFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <algorithm>

#include "adapters/qt/Convert.h"
#include "adapters/qt/PanePopup.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"
#include "screens/GridPane.h"
#include "support/AllControls.h"

namespace contract {

using namespace adapters::qt;

namespace {

/// The open list or month page.
PaneView& OpenPopup() {
  return dynamic_cast<PaneView&>(*QApplication::activePopupWidget());
}

/// On the viewport.
QRect PartPlace(const PaneView& view, int part) {
  return view.OnViewport(view.Content().DescribePart(part).place);
}

QWidget& KeyReceiver() {
  QWidget* popup = QApplication::activePopupWidget();
  return popup ? *popup : *QApplication::focusWidget();
}

void SendKey(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(&KeyReceiver(), &event);
}

Place CentreOf(const QRect& place) {
  return {place.center().x(), place.center().y()};
}

Qt::KeyboardModifiers Modifiers(Held held) {
  if (held == Held::kNothing) return Qt::NoModifier;
  return held == Held::kShift ? Qt::ShiftModifier : Qt::ControlModifier;
}

}  // namespace

ScreenTest::ScreenTest() : adapter(std::make_unique<Adapter>(desktop)), screen(adapter->screen) {}

ScreenTest::~ScreenTest() = default;

void ScreenTest::ShowForm() {
  form.Show(controls::Modality::kModeless);
  ASSERT_TRUE(QTest::qWaitForWindowActive(adapter->screen.WindowOf(form)));
}

void ScreenTest::Press(std::initializer_list<Key> keys, Held held) {
  // As in the enumeration.
  constexpr Qt::Key kKeys[] = {Qt::Key_Return,   Qt::Key_Escape, Qt::Key_Tab,  Qt::Key_F4,
                               Qt::Key_Up,       Qt::Key_Down,   Qt::Key_Left, Qt::Key_PageUp,
                               Qt::Key_PageDown, Qt::Key_Home,   Qt::Key_End,  Qt::Key_Backspace,
                               Qt::Key_C,        Qt::Key_F};
  for (const Key key : keys) {
    // Keyboards have a name of their own for it.
    const bool back = key == Key::kTab && held == Held::kShift;
    SendKey(back ? Qt::Key_Backtab : kKeys[static_cast<int>(key)], Modifiers(held), {});
  }
}

void ScreenTest::Type(const std::string& text) {
  for (const QChar letter : ToQString(text)) SendKey(0, Qt::NoModifier, letter);
}

void ScreenTest::Retype(const std::string& text) {
  dynamic_cast<QLineEdit&>(*QApplication::focusWidget()).selectAll();
  Press({Key::kBackspace});
  Type(text);
}

void ScreenTest::Paste(const std::string& text) {
  QApplication::clipboard()->setText(ToQString(text));
  SendKey(Qt::Key_V, Qt::ControlModifier, "\x16");
}

void ScreenTest::Undo() {
  SendKey(Qt::Key_Z, Qt::ControlModifier, "\x1A");
}

void ScreenTest::Click(controls::Control& control) {
  QTest::mouseClick(adapter->screen.WidgetOf(control)->viewport(), Qt::LeftButton);
}

void ScreenTest::ClickMonthPage(Place at) {
  QTest::mouseClick(OpenPopup().viewport(), Qt::LeftButton, {}, QPoint(at.x, at.y));
}

void ScreenTest::ClickListRow(int row) {
  PaneView& list = OpenPopup();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, PartPlace(list, row).center());
}

void ScreenTest::MouseOnGrid(Mouse what, Place at, int button, Held held) {
  constexpr QEvent::Type kTypes[] = {QEvent::MouseButtonPress, QEvent::MouseMove,
                                     QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick};
  const Qt::MouseButton used = button == 1 ? Qt::LeftButton : Qt::RightButton;
  const QPoint place(at.x, at.y);
  QWidget& view = *adapter->screen.WidgetOf(form.flx)->viewport();
  QMouseEvent event(kTypes[static_cast<int>(what)], place, view.mapToGlobal(place),
                    what == Mouse::kMove ? Qt::NoButton : used,
                    what == Mouse::kRelease ? Qt::NoButton : used, Modifiers(held));
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

std::string ScreenTest::Shown(controls::Control& control) {
  const PaneWidget& widget = *adapter->screen.WidgetOf(control);
  const auto* const field = widget.findChild<QLineEdit*>();
  return field != nullptr ? ToUtf8(field->text()) : widget.Content().Describe().value;
}

Place ScreenTest::WindowSize() {
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

bool ScreenTest::DateRefused() {
  // Notes are the window's own children, lists are windows.
  const QWidgetList children =
      adapter->screen.WindowOf(form)->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
  return std::ranges::any_of(children, [](const QWidget* child) {
    return dynamic_cast<const PanePopup*>(child) != nullptr && child->isVisible();
  });
}

bool ScreenTest::MonthPageOpen() {
  return QApplication::activePopupWidget() != nullptr;
}

int ScreenTest::ListCount() {
  return QApplication::activePopupWidget() != nullptr ? OpenPopup().Content().PartCount() : -1;
}

Place ScreenTest::DayAt(int week, int weekday) {
  return CentreOf(PartPlace(OpenPopup(), 7 * week + weekday));
}

Place ScreenTest::At(int row, int col) {
  const PaneWidget& view = *adapter->screen.WidgetOf(form.flx);
  const auto& pane = dynamic_cast<const screens::GridPane&>(view.Content());
  const QRect place = view.OnViewport(pane.CellPlace(row, col));
  return place.isEmpty() ? Place() : CentreOf(place);
}

std::string ScreenTest::Copied() {
  // Qt's clipboard may keep the bare line breaks.
  return ToUtf8(QApplication::clipboard()->text().remove('\r').replace("\n", "\r\n"));
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
