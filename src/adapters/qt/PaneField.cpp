#include "adapters/qt/PaneField.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <algorithm>
#include <utility>

#include "adapters/qt/Convert.h"
#include "adapters/qt/PaneView.h"

namespace adapters::qt {

PaneField::PaneField(PaneView& view) : QLineEdit(&view), view_(view) {
  // By which the style sheet knows it.
  setObjectName(QStringLiteral("paneField"));
  setFrame(false);
  // Without the absolute right, a text of digits alone stands at the left.
  setAlignment(Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute);
  // Not textEdited, which leaves out what is put in for the user by voice.
  connect(this, &QLineEdit::textChanged, this, [this] {
    if (!setting_) view_.Call([](screens::Pane& pane) { pane.Edited(); });
  });
}

void PaneField::Move(const screens::Rect& place) {
  // Beside a frame and scroll bars.
  setGeometry(view_.OnViewport(place).translated(view_.viewport()->pos()));
  hidden_ = false;
  view_.setFocusProxy(this);
  show();
}

void PaneField::Hide() {
  const bool focused = hasFocus();
  hidden_ = true;
  view_.setFocusProxy(nullptr);
  // Else Qt would give the keyboard to the next control.
  if (focused) view_.setFocus(Qt::OtherFocusReason);
  hide();
}

std::string PaneField::Text() const {
  return ToUtf8(text());
}

void PaneField::SetText(const std::string& text) {
  const QString wanted = ToQString(text);
  if (wanted == this->text()) return;
  const qsizetype cursor = hasFocus() ? cursorPosition() : 0;
  const bool outer = std::exchange(setting_, true);
  setText(wanted);
  setting_ = outer;
  setCursorPosition(static_cast<int>(std::min(cursor, wanted.size())));
}

QString PaneField::Taken(const QString& typed) const {
  return ToQString(view_.Content().Taken(ToUtf8(typed)));
}

QString PaneField::Pasted(const QString& text) const {
  return ToQString(view_.Content().Pasted(ToUtf8(text)));
}

void PaneField::Paste(QClipboard::Mode from) {
  if (!isReadOnly()) insert(Pasted(QGuiApplication::clipboard()->text(from)));
}

bool PaneField::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress && view_.PressKey(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  return QLineEdit::event(event);
}

void PaneField::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Paste)) return Paste(QClipboard::Clipboard);
  // A letter with Alt is an access key of the form's.
  if (event->modifiers() == Qt::AltModifier && event->key() < Qt::Key_Escape) {
    return event->ignore();
  }
  const QString taken = Taken(event->text());
  if (taken == event->text()) return QLineEdit::keyPressEvent(event);
  QKeyEvent changed(event->type(), event->key(), event->modifiers(), taken, event->isAutoRepeat());
  QLineEdit::keyPressEvent(&changed);
  event->setAccepted(changed.isAccepted());
}

void PaneField::inputMethodEvent(QInputMethodEvent* event) {
  const QString taken = Taken(event->commitString());
  if (taken == event->commitString()) return QLineEdit::inputMethodEvent(event);
  QInputMethodEvent changed(event->preeditString(), event->attributes());
  changed.setCommitString(taken, event->replacementStart(), event->replacementLength());
  QLineEdit::inputMethodEvent(&changed);
  event->setAccepted(changed.isAccepted());
}

void PaneField::mouseReleaseEvent(QMouseEvent* event) {
  const bool pastes =
      event->button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection();
  if (!pastes) return QLineEdit::mouseReleaseEvent(event);
  deselect();
  Paste(QClipboard::Selection);
}

void PaneField::contextMenuEvent(QContextMenuEvent* event) {
  QMenu* const menu = createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (QAction* action : menu->actions()) {
    if (!action->text().startsWith(QLineEdit::tr("&Paste"))) continue;
    disconnect(action, nullptr, this, nullptr);
    connect(action, &QAction::triggered, this, [this] { Paste(QClipboard::Clipboard); });
  }
  menu->popup(event->globalPos());
}

void PaneField::dropEvent(QDropEvent* event) {
  QMimeData taken;
  taken.setText(Pasted(event->mimeData()->text()));
  QDropEvent changed(event->position(), event->possibleActions(), &taken, event->buttons(),
                     event->modifiers());
  changed.setDropAction(event->dropAction());
  QLineEdit::dropEvent(&changed);
  event->setDropAction(changed.dropAction());
  event->setAccepted(changed.isAccepted());
}

void PaneField::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  view_.PassFocus(*event);
}

void PaneField::focusOutEvent(QFocusEvent* event) {
  // Under a list or menu of its own the caret goes on blinking.
  if (event->reason() == Qt::PopupFocusReason) return;
  QLineEdit::focusOutEvent(event);
  view_.PassFocus(*event);
}

}  // namespace adapters::qt
