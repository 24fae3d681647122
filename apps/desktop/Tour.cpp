#include "Tour.h"

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTest>
#include <cstdio>

#include "adapters/qt/FlexGridView.h"
#include "adapters/qt/MessageDialog.h"

namespace desktop {

namespace {

constexpr int kStepDelay = 40;  // milliseconds, for the screen to settle

void SendKey(QWidget& widget, int key, const QString& text) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &event);
  }
}

/// Where keys go: to an open list or month page first, as on a real screen.
QWidget& KeyReceiver(QWidget& widget) {
  QWidget* popup = QApplication::activePopupWidget();
  return popup != nullptr ? *popup : widget;
}

}  // namespace

Tour::Tour(adapters::qt::QtScreen& screen, const QString& directory)
    : screen_(screen), directory_(directory) {
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, [this] { Next(); });
}

void Tour::Add(std::string what, std::function<void()> act) {
  steps_.push_back({std::move(what), std::move(act)});
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
  if (next_ == steps_.size()) {
    End();
    return;
  }
  const Step& step = steps_[next_++];
  std::printf("%2zu. %s\n", next_, step.what.c_str());
  std::fflush(stdout);
  // Beforehand: the step may open a modal form, in whose loop the next one plays.
  timer_.start(kStepDelay);
  try {
    step.act();
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
  if (dialog == nullptr) throw TourFailure("expected a dialog");
  return *dialog;
}

void Tour::SaveAs(const QString& fileName) {
  auto& dialog = dynamic_cast<QFileDialog&>(Dialog());
  auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
  Expect(name != nullptr, "a place for the file's name");
  name->setText(directory_.absoluteFilePath(fileName));
  SendKey(*name, Qt::Key_Return, QString());
}

void Tour::PictureOfDialog(const QString& name) {
  QWidget& dialog = Dialog();
  Expect(dynamic_cast<adapters::qt::MessageDialog*>(&dialog) == nullptr, "no message");
  Save(dialog.grab(), name);
}

void Tour::CloseDialog() {
  Dialog().close();
}

void Tour::Expect(bool holds, const std::string& what) {
  if (!holds) throw TourFailure("expected " + what);
}

QWidget& Tour::Reach(controls::Control& control) {
  QWidget* widget = screen_.WidgetOf(control);
  if (widget == nullptr || !widget->isVisible())
    throw TourFailure(control.Name() + " is not shown");
  if (!widget->isEnabled()) throw TourFailure(control.Name() + " is disabled");
  const QWidget* modal = QApplication::activeModalWidget();
  if (modal != nullptr && modal != widget->window()) {
    throw TourFailure(control.Name() + " is behind a modal window");
  }
  return *widget;
}

void Tour::ClickAt(QWidget& widget, const QPoint& place) {
  QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, place);
}

void Tour::Click(controls::Button& button) {
  QWidget& widget = Reach(button);
  ClickAt(widget, widget.rect().center());
}

void Tour::Type(controls::Control& control, const QString& typed) {
  QWidget& widget = Reach(control);
  widget.setFocus(Qt::TabFocusReason);
  for (const QChar& c : typed) SendKey(KeyReceiver(widget), Qt::Key_unknown, c);
}

void Tour::PressKey(controls::Control& control, Qt::Key key) {
  SendKey(KeyReceiver(Reach(control)), key, QString());
}

void Tour::ClickCell(controls::FlexGrid& grid, int row, int col) {
  auto& view = dynamic_cast<adapters::qt::FlexGridView&>(Reach(grid));
  const QRect place = view.CellPlace(row, col);
  Expect(!place.isEmpty(), "a visible cell in " + grid.Name());
  ClickAt(*view.viewport(), place.center());
}

void Tour::DoubleClickCell(controls::FlexGrid& grid, int row, int col) {
  ClickCell(grid, row, col);
  auto& view = dynamic_cast<adapters::qt::FlexGridView&>(Reach(grid));
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                     view.CellPlace(row, col).center());
}

void Tour::DragRows(controls::FlexGrid& grid, int firstRow, int lastRow, int col) {
  auto& view = dynamic_cast<adapters::qt::FlexGridView&>(Reach(grid));
  // The block's frame is painted where the keyboard is.
  view.window()->activateWindow();
  [[maybe_unused]] const bool active = QTest::qWaitForWindowActive(view.window(), 500);
  view.setFocus(Qt::MouseFocusReason);
  QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                    view.CellPlace(firstRow, col).center());
  QTest::mouseMove(view.viewport(), view.CellPlace(lastRow, col).center());
  QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                      view.CellPlace(lastRow, col).center());
}

void Tour::AnswerMessage(int button) {
  auto* dialog = dynamic_cast<adapters::qt::MessageDialog*>(QApplication::activeModalWidget());
  Expect(dialog != nullptr, "a message");
  const auto buttons = dialog->findChildren<QPushButton*>();
  Expect(button < buttons.size(), "a message with more buttons");
  ClickAt(*buttons[button], buttons[button]->rect().center());
}

void Tour::ResizeWindow(controls::Form& form, double factor) {
  QWidget* window = screen_.WindowOf(form);
  Expect(window != nullptr, "a window of " + form.Name());
  window->resize(window->size() * factor);
}

void Tour::Picture(controls::Form& form, const QString& name) {
  QWidget* base = screen_.WindowOf(form);
  Expect(base != nullptr && base->isVisible(), "a window of " + form.Name());
  std::vector<QWidget*> shown{base};
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    const bool over = widget->windowType() == Qt::Popup || widget->windowType() == Qt::ToolTip ||
                      dynamic_cast<adapters::qt::MessageDialog*>(widget) != nullptr;
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

void Tour::Save(const QPixmap& picture, const QString& name) {
  const QString file = QString("%1-%2.png").arg(++pictures_, 2, 10, QChar('0')).arg(name);
  if (!picture.save(directory_.filePath(file))) {
    throw TourFailure("cannot write " + directory_.filePath(file).toStdString());
  }
}

}  // namespace desktop
