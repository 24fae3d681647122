#include "Tour.h"

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTest>
#include <algorithm>
#include <cstdio>

#include "adapters/qt/Convert.h"
#include "adapters/qt/PaneWidget.h"
#include "screens/GridPane.h"

namespace desktop {

using adapters::qt::PaneWidget;
using adapters::qt::ToQString;
using adapters::qt::ToUtf8;
using tour::Expect;
using tour::Failure;

namespace {

constexpr int kStepDelay = 40;  // milliseconds, for the screen to settle

void SendKey(QWidget& widget, int key, const QString& text) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &event);
  }
}

void ClickAt(QWidget& widget, const QPoint& place) {
  QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, place);
}

Qt::Key QtKey(tour::Key key) {
  using enum tour::Key;
  switch (key) {
    case kEnter:
      return Qt::Key_Return;
    case kEscape:
      return Qt::Key_Escape;
    case kUp:
      return Qt::Key_Up;
    case kDown:
      return Qt::Key_Down;
    case kEnd:
      return Qt::Key_End;
    case kBackspace:
      return Qt::Key_Backspace;
    case kF4:
      return Qt::Key_F4;
  }
  return Qt::Key_unknown;
}

bool IsMessage(const QWidget* window) {
  return window != nullptr && window->objectName() == QStringLiteral("MessageForm");
}

/// A step's long work shows its progress.
bool IsWorking() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  return std::ranges::any_of(windows, [](const QWidget* window) {
    return window->isVisible() && window->objectName() == QStringLiteral("ProgressForm");
  });
}

/// On the viewport.
QRect CellPlace(const PaneWidget& grid, int row, int col) {
  return grid.OnViewport(
      dynamic_cast<const screens::GridPane&>(grid.Content()).CellPlace(row, col));
}

/// Where keys go: to an open list or month page first, as on a real screen.
QWidget& KeyReceiver(PaneWidget& widget) {
  QWidget* popup = QApplication::activePopupWidget();
  return popup != nullptr ? *popup : widget.KeyReceiver();
}

}  // namespace

Tour::Tour(adapters::qt::QtScreen& screen, Stage stage, const QString& directory)
    : screen_(screen),
      stage_(std::move(stage)),
      directory_(directory),
      script_(tour::PlannersDay(*this)) {
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, [this] { Next(); });
}

void Tour::Start() {
  if (!directory_.mkpath(".")) {
    Fail("cannot make the folder " + directory_.path().toStdString());
    return;
  }
  timer_.start(kStepDelay);
}

void Tour::Next() {
  if (failed_) return;
  // Long work lets events through, and with them this timer; the step that began it is not over.
  if (IsWorking()) {
    timer_.start(kStepDelay);
    return;
  }
  if (script_.Ended()) {
    End();
    return;
  }
  // Beforehand: the step may open a modal form, in whose loop the next one plays.
  timer_.start(kStepDelay);
  try {
    script_.PlayNext();
  } catch (const std::exception& error) {
    Fail(error.what());
  }
}

void Tour::End() {
  ended_ = true;
  std::printf("The tour is over: %d pictures in %s.\n", pictures_,
              directory_.path().toUtf8().constData());
  QApplication::exit();
}

void Tour::Fail(const std::string& what) {
  failed_ = true;
  std::fprintf(stderr, "The tour stopped: %s\n", what.c_str());
  // Loops of modal forms are nested; the program ends without unwinding their events.
  std::fflush(nullptr);
  std::_Exit(EXIT_FAILURE);
}

QWidget& Tour::Dialog() const {
  QWidget* dialog = QApplication::activeModalWidget();
  if (dialog == nullptr) throw Failure("expected a dialog");
  return *dialog;
}

controls::Form& Tour::FormOf(const std::string& name) const {
  controls::Form* form = stage_.form(name);
  if (form == nullptr) throw Failure("there is no " + name);
  return *form;
}

controls::Control& Tour::ControlOf(const std::string& path) const {
  std::size_t dot = path.find('.');
  controls::Container* container = &FormOf(path.substr(0, dot));
  while (container != nullptr && dot != std::string::npos) {
    const std::size_t begin = dot + 1;
    dot = path.find('.', begin);
    controls::Control* control = container->FindControl(path.substr(begin, dot - begin));
    if (control != nullptr && dot == std::string::npos) return *control;
    container = dynamic_cast<controls::Container*>(control);
  }
  throw Failure("there is no " + path);
}

controls::FlexGrid& Tour::GridOf(const std::string& path) const {
  return dynamic_cast<controls::FlexGrid&>(ControlOf(path));
}

PaneWidget& Tour::Reach(const std::string& path) {
  PaneWidget* widget = screen_.WidgetOf(ControlOf(path));
  if (widget == nullptr || !widget->isVisible()) throw Failure(path + " is not shown");
  if (!widget->isEnabled()) throw Failure(path + " is disabled");
  const QWidget* modal = QApplication::activeModalWidget();
  if (modal != nullptr && modal != widget->window()) {
    throw Failure(path + " is behind a modal window");
  }
  return *widget;
}

void Tour::Click(const std::string& button) {
  QWidget& viewport = *Reach(button).viewport();
  ClickAt(viewport, viewport.rect().center());
}

void Tour::Type(const std::string& control, const std::string& text) {
  PaneWidget& widget = Reach(control);
  widget.setFocus(Qt::TabFocusReason);
  for (const QChar& c : ToQString(text)) SendKey(KeyReceiver(widget), Qt::Key_unknown, c);
}

void Tour::PressKey(const std::string& control, tour::Key key) {
  SendKey(KeyReceiver(Reach(control)), QtKey(key), QString());
}

void Tour::ClickCell(const std::string& grid, int row, int col) {
  PaneWidget& view = Reach(grid);
  const QRect place = CellPlace(view, row, col);
  Expect(!place.isEmpty(), "a visible cell in " + grid);
  ClickAt(*view.viewport(), place.center());
}

void Tour::DoubleClickCell(const std::string& grid, int row, int col) {
  ClickCell(grid, row, col);
  PaneWidget& view = Reach(grid);
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                     CellPlace(view, row, col).center());
}

void Tour::DragRows(const std::string& grid, int firstRow, int lastRow, int col) {
  PaneWidget& view = Reach(grid);
  // The block's frame is painted where the keyboard is.
  view.window()->activateWindow();
  [[maybe_unused]] const bool active = QTest::qWaitForWindowActive(view.window(), 500);
  view.setFocus(Qt::MouseFocusReason);
  QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                    CellPlace(view, firstRow, col).center());
  QTest::mouseMove(view.viewport(), CellPlace(view, lastRow, col).center());
  QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                      CellPlace(view, lastRow, col).center());
}

void Tour::ResizeWindow(const std::string& form, double factor) {
  QWidget* window = screen_.WindowOf(FormOf(form));
  Expect(window != nullptr, "a window of " + form);
  window->resize(window->size() * factor);
}

void Tour::AnswerMessage(int button) {
  const QWidget* message = QApplication::activeModalWidget();
  Expect(IsMessage(message), "a message");
  auto* answer = message->findChild<PaneWidget*>(button == 0 ? "cmdYes" : "cmdNo");
  Expect(answer != nullptr && answer->isVisible(), "a message with more buttons");
  ClickAt(*answer->viewport(), answer->viewport()->rect().center());
}

void Tour::SaveAs(const std::string& fileName) {
  auto& dialog = dynamic_cast<QFileDialog&>(Dialog());
  auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
  Expect(name != nullptr, "a place for the file's name");
  const QString path = directory_.absoluteFilePath(ToQString(fileName));
  // Of an earlier tour: the program would ask whether to replace it.
  QFile::remove(path);
  name->setText(path);
  SendKey(*name, Qt::Key_Return, QString());
}

bool Tour::IsShown(const std::string& form) {
  return FormOf(form).Visible();
}

bool Tour::IsEnabled(const std::string& control) {
  const QWidget* widget = screen_.WidgetOf(ControlOf(control));
  return widget != nullptr && widget->isEnabled();
}

std::string Tour::Text(const std::string& control) {
  const PaneWidget* widget = screen_.WidgetOf(ControlOf(control));
  Expect(widget != nullptr, "a window with " + control);
  return widget->Content().Describe().value;
}

int Tour::Rows(const std::string& grid) {
  return GridOf(grid).Rows();
}

std::string Tour::CellText(const std::string& grid, int row, int col) {
  return std::string(GridOf(grid).TextMatrix(row, col));
}

std::pair<int, int> Tour::BlockRows(const std::string& grid) {
  return std::minmax({GridOf(grid).Row(), GridOf(grid).RowSel()});
}

void Tour::Picture(const std::string& form, const std::string& name) {
  QWidget* base = screen_.WindowOf(FormOf(form));
  Expect(base != nullptr && base->isVisible(), "a window of " + form);
  std::vector<QWidget*> shown{base};
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    const bool over = widget->windowType() == Qt::Popup || widget->windowType() == Qt::ToolTip ||
                      IsMessage(widget);
    if (widget->isVisible() && over) shown.push_back(widget);
  }
  QRect all;
  for (const QWidget* widget : shown) all |= widget->geometry();
  QPixmap picture(all.size());
  picture.fill(QColor(120, 110, 100));
  QPainter painter(&picture);
  for (QWidget* widget : shown) {
    painter.drawPixmap(widget->geometry().topLeft() - all.topLeft(), widget->grab());
    if (widget != base) {
      painter.setPen(QColor(120, 110, 100));
      painter.drawRect(widget->geometry().translated(-all.topLeft()).adjusted(-1, -1, 0, 0));
    }
  }
  painter.end();
  Save(picture, name);
}

void Tour::PictureAndCloseDialog(const std::string& name) {
  QWidget& dialog = Dialog();
  Expect(!IsMessage(&dialog), "no message");
  Save(dialog.grab(), name);
  dialog.close();
}

void Tour::Save(const QPixmap& picture, const std::string& name) {
  const QString file =
      QString("%1-%2.png").arg(++pictures_, 2, 10, QChar('0')).arg(ToQString(name));
  if (!picture.save(directory_.filePath(file))) {
    throw Failure("cannot write " + directory_.filePath(file).toStdString());
  }
}

}  // namespace desktop
