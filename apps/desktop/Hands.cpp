#include "Hands.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QThread>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "Things.h"
#include "adapters/qt/Convert.h"

namespace desktop {

using adapters::qt::ToQString;
using adapters::qt::ToUtf8;
using screens::Key;
using tour::Failure;

namespace {

constexpr int kAnswer = 50;  // milliseconds

QWidget* WindowBelow(const QWidget& window) {
  QWindow* const below = window.windowHandle()->transientParent();
  const QWidgetList all = QApplication::topLevelWidgets();
  const auto at = std::ranges::find_if(all, [below](const QWidget* each) {
    return below != nullptr && each->windowHandle() == below;
  });
  return at == all.end() ? nullptr : *at;
}

bool IsShownWindow(const QWidget& widget) {
  const bool window = widget.windowType() == Qt::Window || widget.windowType() == Qt::Dialog;
  return window && widget.isVisible();
}

/// The window that nothing is modal for, if there is one, else the one with the keyboard.
QWidget* Front() {
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  QWidget* const active = QApplication::activeWindow();
  if (active != nullptr && IsShownWindow(*active)) return active;
  const QWidgetList all = QApplication::topLevelWidgets();
  const auto at =
      std::ranges::find_if(all, [](const QWidget* each) { return IsShownWindow(*each); });
  return at == all.end() ? nullptr : *at;
}

/// The window in front and those that it lies over.
QList<QWidget*> Stack() {
  QList<QWidget*> windows;
  for (QWidget* each = Front(); each != nullptr; each = WindowBelow(*each)) windows.append(each);
  return windows;
}

bool Covers(const QWidget& window, const QPoint& place) {
  return window.rect().contains(window.mapFromGlobal(place));
}

/// Those that the day has a use for.
constexpr std::pair<Key, Qt::Key> kKeys[] = {
    {Key::kSpace, Qt::Key_Space}, {Key::kEnter, Qt::Key_Return}, {Key::kEscape, Qt::Key_Escape},
    {Key::kUp, Qt::Key_Up},       {Key::kDown, Qt::Key_Down},    {Key::kLeft, Qt::Key_Left},
    {Key::kHome, Qt::Key_Home},   {Key::kEnd, Qt::Key_End},      {Key::kTab, Qt::Key_Tab},
    {Key::kF4, Qt::Key_F4},       {Key::kF6, Qt::Key_F6},        {Key::kC, Qt::Key_C},
    {Key::kF, Qt::Key_F},         {Key::kY, Qt::Key_Y},          {Key::kZ, Qt::Key_Z}};

Qt::Key QtKey(const screens::KeyEvent& stroke) {
  if (stroke.key == Key::kText) {
    return static_cast<Qt::Key>(ToQString(stroke.text).toUpper().at(0).unicode());
  }
  const auto* const found = std::ranges::find(kKeys, stroke.key, &std::pair<Key, Qt::Key>::first);
  if (found == std::end(kKeys)) throw Failure("this key is not at hand");
  return found->second;
}

/// Goes on without a loop of its own, whose depth would be taken for a modal window's.
void Wait(int milliseconds) {
  const QDeadlineTimer end(milliseconds);
  do {
    QCoreApplication::processEvents(QEventLoop::AllEvents, static_cast<int>(end.remainingTime()));
    QThread::msleep(1);
  } while (!end.hasExpired());
}

/// To a widget's window, which passes it on as it does what the window system sends.
void SendKey(QWindow& window, int key, const QString& text, Qt::KeyboardModifiers held) {
  const QPointer<QWindow> still(&window);
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    if (still == nullptr) return;
    QKeyEvent event(type, key, held, text);
    QCoreApplication::sendEvent(still, &event);
    QCoreApplication::processEvents();
  }
}

}  // namespace

Hands::Hands(tour::Play play, Open open) : tour::Hands(play, std::move(open)) {
  // As when a screen reader listens.
  QAccessible::setActive(true);
}

std::vector<std::unique_ptr<tour::Thing>> Hands::Windows() {
  std::vector<std::unique_ptr<tour::Thing>> windows;
  for (QWidget* window : Stack()) windows.push_back(MakeThing(*window));
  return windows;
}

bool Hands::Settled() {
  const QWidget* const active = QApplication::activeWindow();
  QWidget* const front = Front();
  const bool popup = active != nullptr && active->windowType() == Qt::Popup;
  if (active == nullptr || (active != front && !popup)) {
    if (front != nullptr) front->activateWindow();
    return false;
  }
  if (!popup) Leave(*front);
  return true;
}

void Hands::Leave(const QWidget& window) {
  if (pointed_ == nullptr || pointed_->window() == &window) return;
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(pointed_, &leave);
  pointed_ = nullptr;
}

void Hands::MoveMouse(Mouse action, screens::Point place) {
  const QPoint at(place.x, place.y);
  QWidget* target = QApplication::activePopupWidget();
  if (target == nullptr || !Covers(*target, at)) target = Stack().value(0);
  if (target == nullptr || !Covers(*target, at)) {
    throw Failure("the place to point at lies outside of the window in front");
  }
  QWindow* const window = target->windowHandle();
  const QPoint inside = target->mapFromGlobal(at);
  Leave(*target);
  pointed_ = target->childAt(inside);
  const auto send = [this, at, inside, still = QPointer<QWindow>(window)](QEvent::Type type) {
    if (still == nullptr) return;
    const bool move = type == QEvent::MouseMove;
    if (!move) held_ = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, inside, at, move ? Qt::NoButton : Qt::LeftButton, held_, {});
    QCoreApplication::sendEvent(still, &event);
  };
  switch (action) {
    case Mouse::kMove:
      send(QEvent::MouseMove);
      break;
    case Mouse::kDoubleClick:
      send(QEvent::MouseButtonPress);
      send(QEvent::MouseButtonRelease);
      send(QEvent::MouseButtonDblClick);
      send(QEvent::MouseButtonRelease);
      break;
    case Mouse::kPress:
      send(QEvent::MouseButtonPress);
      break;
    case Mouse::kRelease:
      send(QEvent::MouseButtonRelease);
      break;
  }
  QCoreApplication::processEvents();
}

void Hands::Press(const screens::KeyEvent& stroke) {
  if (QGuiApplication::focusWindow() == nullptr) throw Failure("no window has the keyboard");
  Qt::KeyboardModifiers held;
  held.setFlag(Qt::ShiftModifier, stroke.modifiers.shift);
  held.setFlag(Qt::ControlModifier, stroke.modifiers.control);
  held.setFlag(Qt::AltModifier, stroke.modifiers.alt);
  SendKey(*QGuiApplication::focusWindow(), QtKey(stroke),
          stroke.key == Key::kSpace ? QStringLiteral(" ") : ToQString(stroke.text), held);
}

void Hands::Picture(int windows, const std::string& path) {
  QList<QWidget*> shown = Stack().mid(0, windows);
  std::ranges::reverse(shown);
  const QWidget* const lowest = shown.value(0);
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    const bool over = widget->windowType() == Qt::Popup || widget->windowType() == Qt::ToolTip;
    if (widget->isVisible() && over) shown.append(widget);
  }
  QRect all;
  for (const QWidget* widget : shown) all |= widget->geometry();
  QPixmap picture(all.size());
  const QColor desk(120, 110, 100);
  picture.fill(desk);
  QPainter painter(&picture);
  painter.setPen(desk);
  for (QWidget* widget : shown) {
    painter.drawPixmap(widget->geometry().topLeft() - all.topLeft(), widget->grab());
    if (widget == lowest) continue;
    painter.drawRect(widget->geometry().translated(-all.topLeft()).adjusted(-1, -1, 0, 0));
  }
  painter.end();
  if (!picture.save(ToQString(path))) throw Failure("cannot write " + path);
}

void Hands::ResizeFront(double factor) {
  QWidget* const front = Stack().value(0);
  if (front == nullptr) throw Failure("expected a window");
  front->resize(front->size() * factor);
  // A window manager answers.
  Wait(kAnswer);
}

void Hands::SaveAs(const std::string& path) {
  auto* const dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
  if (dialog == nullptr) throw Failure("expected a Save As dialog");
  auto* const name = dialog->findChild<QLineEdit*>("fileNameEdit");
  if (name == nullptr) throw Failure("expected a place for the file's name");
  // Of an earlier tour: the program would ask whether to replace it.
  QFile::remove(ToQString(path));
  name->setText(ToQString(path));
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QCoreApplication::sendEvent(name, &enter);
}

std::string Hands::Clipboard() {
  return ToUtf8(QApplication::clipboard()->text());
}

int Hands::Depth() const {
  return QThread::currentThread()->loopLevel();
}

}  // namespace desktop
