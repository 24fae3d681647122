#include "adapters/qt/PanePopup.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <cmath>

#include "adapters/qt/Convert.h"
#include "screens/PopupPlace.h"

namespace adapters::qt {

using screens::PopupKind;

namespace {

constexpr int kNoteGap = 2;

/// A note stands on the form; a list ends with its pane.
QWidget* ParentFor(PaneView& owner, PopupKind kind) {
  return kind == PopupKind::kNote ? owner.window() : &owner;
}

}  // namespace

PanePopup::PanePopup(PaneView& owner, const Surroundings& surroundings, PopupKind kind,
                     const screens::PaneMaker& make)
    : PaneView(surroundings, ParentFor(owner, kind)), owner_(owner), kind_(kind) {
  if (kind == PopupKind::kNote) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
  } else {
    setWindowFlags(Qt::Popup);
    setAttribute(Qt::WA_NoMouseReplay);
    SetFramed();
    owner.window()->installEventFilter(this);
  }
  SetPane(make(Host()));
}

PanePopup::~PanePopup() {
  open_ = false;
}

void PanePopup::Show(screens::Size wanted) {
  const qreal ratio = devicePixelRatioF();
  const screens::Size size{static_cast<int>(std::ceil(wanted.width / ratio)),
                           static_cast<int>(std::ceil(wanted.height / ratio))};
  const bool note = kind_ == PopupKind::kNote;
  const QPoint corner =
      note ? owner_.mapTo(owner_.window(), QPoint()) : owner_.mapToGlobal(QPoint());
  const QRect room = note ? owner_.window()->rect() : owner_.screen()->availableGeometry();
  setGeometry(ToQRect(screens::PopupPlace(ToRect(QRect(corner, owner_.size())), size,
                                          note ? kNoteGap : 0, ToRect(room))));
  open_ = true;
  show();
  if (note) raise();
}

void PanePopup::Hide() {
  open_ = false;
  hide();
}

void PanePopup::Leave() {
  owner_.Call([](screens::Pane& pane) { pane.PopupLeft(); });
  Hide();
}

void PanePopup::hideEvent(QHideEvent* event) {
  PaneView::hideEvent(event);
  if (open_) Leave();
}

bool PanePopup::eventFilter(QObject* watched, QEvent* event) {
  if (open_ && watched == owner_.window() && event->type() == QEvent::Move) Leave();
  return PaneView::eventFilter(watched, event);
}

bool PanePopup::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::InputMethodQuery:
      QCoreApplication::sendEvent(&owner_.KeyReceiver(), event);
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      // On the pane it would have come to the viewport.
      if (!rect().contains(static_cast<QMouseEvent*>(event)->position().toPoint())) Leave();
      return true;
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
      return true;
    default:
      return PaneView::event(event);
  }
}

}  // namespace adapters::qt
