#include "adapters/qt/FieldWithButton.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QVariant>
#include <algorithm>

#include "adapters/qt/Signs.h"
#include "adapters/qt/Theme.h"

namespace adapters::qt {

namespace {

constexpr int kButtonWidth = 20;
constexpr int kNoteMilliseconds = 5000;

class SignButton : public QToolButton {
 public:
  SignButton(FieldWithButton::Sign sign, QWidget* parent) : QToolButton(parent), sign_(sign) {
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QToolButton::paintEvent(event);
    QPainter painter(this);
    const QColor ink = isEnabled() ? theme::kText : theme::kLine;
    const QPointF centre = QRectF(rect()).center();
    if (sign_ == FieldWithButton::Sign::kArrow) {
      PaintDropArrow(painter, centre, ink);
    } else {
      PaintCalendar(painter, centre, ink);
    }
  }

 private:
  FieldWithButton::Sign sign_;
};

}  // namespace

FieldWithButton::FieldWithButton(Sign sign, QWidget* parent)
    : QLineEdit(parent), button_(new SignButton(sign, this)) {
  setAlignment(Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute);
  setTextMargins(kButtonWidth, 0, 0, 0);
  connect(button_, &QToolButton::clicked, this, [this] {
    setFocus(Qt::MouseFocusReason);
    Toggle();
  });
}

void FieldWithButton::resizeEvent(QResizeEvent* event) {
  QLineEdit::resizeEvent(event);
  button_->setGeometry(2, 2, kButtonWidth, std::max(0, height() - 4));
}

void FieldWithButton::keyPressEvent(QKeyEvent* event) {
  const bool altDown = event->key() == Qt::Key_Down && (event->modifiers() & Qt::AltModifier);
  if (event->key() == Qt::Key_F4 || altDown) {
    Toggle();
    return;
  }
  QLineEdit::keyPressEvent(event);
}

void FieldWithButton::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  if (event->type() == QEvent::EnabledChange) button_->update();
}

void FieldWithButton::ShowNote(const QString& text) {
  delete note_;
  if (text.isEmpty()) return;
  auto* note = new QLabel(text, window());
  note_ = note;
  note->setObjectName(QStringLiteral("note"));
  note->setTextFormat(Qt::PlainText);
  note->setAttribute(Qt::WA_TransparentForMouseEvents);
  note->adjustSize();
  const QPoint corner = mapTo(window(), QPoint(width() - note->width(), height() + 2));
  const int rightMost = std::max(0, window()->width() - note->width());
  const bool below = corner.y() + note->height() <= window()->height();
  note->move(std::clamp(corner.x(), 0, rightMost),
             below ? corner.y() : std::max(0, corner.y() - height() - note->height() - 4));
  note->show();
  note->raise();
  QTimer::singleShot(kNoteMilliseconds, note, &QObject::deleteLater);
}

void FieldWithButton::SetRefused(bool refused) {
  if (property("refused").toBool() == refused) return;
  setProperty("refused", refused);
  style()->unpolish(this);
  style()->polish(this);
}

QPoint FieldWithButton::PopupPlace(const QSize& size) const {
  QPoint place = mapToGlobal(QPoint(width() - size.width(), height()));
  const QRect room = screen()->availableGeometry();
  if (place.y() + size.height() > room.bottom()) {
    place.setY(mapToGlobal(QPoint(0, 0)).y() - size.height());
  }
  place.setX(
      std::clamp(place.x(), room.left(), std::max(room.left(), room.right() - size.width())));
  place.setY(std::max(place.y(), room.top()));
  return place;
}

}  // namespace adapters::qt
