#include "adapters/qt/BasicWidgets.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QTextOption>
#include <algorithm>

#include "adapters/qt/Signs.h"
#include "adapters/qt/Theme.h"

namespace adapters::qt {

using controls::Aspect;
using controls::Change;

namespace {

/// The screen settles the height of a combo box: that of the forms' other fields.
constexpr controls::Twips kComboHeight = 375;

}  // namespace

LabelWidget::LabelWidget(controls::Label& model, const Surroundings& surroundings, QWidget* parent)
    : ViewOf(model, surroundings, parent) {
  setTextFormat(Qt::PlainText);
}

void LabelWidget::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText) {
    setText(ToQString(Model()->Caption()));
    Qt::Alignment across = Qt::AlignRight;
    if (Model()->TextAlignment() == controls::Label::Alignment::kCentre) across = Qt::AlignHCenter;
    if (Model()->TextAlignment() == controls::Label::Alignment::kLeft) across = Qt::AlignLeft;
    setAlignment(across | Qt::AlignVCenter | Qt::AlignAbsolute);
  }
  if (change.aspect == Aspect::kBounds) setWordWrap(height() >= 2 * fontMetrics().lineSpacing());
}

LineWidget::LineWidget(controls::TextBox& model, const Surroundings& surroundings, QWidget* parent)
    : ViewOf(model, surroundings, parent) {
  // Without the absolute right, a text of digits alone stands at the left.
  setAlignment(Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute);
  connect(this, &QLineEdit::textEdited, this, [this](const QString& typed) {
    // The menu's paste and a drop come as they are, which the model may not have taken so.
    if (Call([&](controls::TextBox& box) { box.SetText(box.Pasted(ToUtf8(typed))); })) ShowText();
  });
}

void LineWidget::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText) ShowText();
}

void LineWidget::ShowText() {
  const QString wanted = ToQString(Model()->Text());
  if (wanted == text()) return;
  const qsizetype cursor = hasFocus() ? cursorPosition() : 0;
  setText(wanted);
  setCursorPosition(static_cast<int>(std::min(cursor, wanted.size())));
}

void LineWidget::focusInEvent(QFocusEvent* event) {
  ViewOf::focusInEvent(event);
  if (Model() && Model()->SelectAllOnFocus()) selectAll();
}

QString LineWidget::Taken(const QString& text) const {
  return Model() ? ToQString(Model()->Taken(ToUtf8(text))) : text;
}

void LineWidget::keyPressEvent(QKeyEvent* event) {
  const bool pastes = event->matches(QKeySequence::Paste);
  if (pastes && Model()) {
    return insert(ToQString(Model()->Pasted(ToUtf8(QGuiApplication::clipboard()->text()))));
  }
  const QString taken = Taken(event->text());
  if (taken == event->text()) return ViewOf::keyPressEvent(event);
  QKeyEvent changed(event->type(), event->key(), event->modifiers(), taken, event->isAutoRepeat());
  ViewOf::keyPressEvent(&changed);
  event->setAccepted(changed.isAccepted());
}

void LineWidget::inputMethodEvent(QInputMethodEvent* event) {
  const QString taken = Taken(event->commitString());
  if (taken == event->commitString()) return ViewOf::inputMethodEvent(event);
  QInputMethodEvent changed(event->preeditString(), event->attributes());
  changed.setCommitString(taken, event->replacementStart(), event->replacementLength());
  ViewOf::inputMethodEvent(&changed);
  event->setAccepted(changed.isAccepted());
}

MemoWidget::MemoWidget(controls::TextBox& model, const Surroundings& surroundings, QWidget* parent)
    : ViewOf(model, surroundings, parent) {
  QTextOption option = document()->defaultTextOption();
  option.setTextDirection(Qt::RightToLeft);
  option.setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  document()->setDefaultTextOption(option);
  setTabChangesFocus(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(this, &QPlainTextEdit::textChanged, this, [this] { Typed(); });
}

void MemoWidget::Typed() {
  if (showing_ || !Model()) return;
  Call([&](controls::TextBox& box) { box.SetText(ToUtf8(toPlainText())); });
}

void MemoWidget::Refresh(const Change& change) {
  if (change.aspect != Aspect::kText) return;
  // The edit widget knows one kind of line end only.
  QString wanted = ToQString(Model()->Text());
  wanted.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  if (wanted == toPlainText()) return;
  const int cursor = textCursor().position();
  showing_ = true;
  setPlainText(wanted);
  showing_ = false;
  QTextCursor moved = textCursor();
  moved.setPosition(std::min(cursor, static_cast<int>(wanted.size())));
  setTextCursor(moved);
}

void MemoWidget::focusInEvent(QFocusEvent* event) {
  ViewOf::focusInEvent(event);
  if (Model() && Model()->SelectAllOnFocus()) selectAll();
}

ButtonWidget::ButtonWidget(controls::Button& model, const Surroundings& surroundings,
                           QWidget* parent)
    : ViewOf(model, surroundings, parent) {
  connect(this, &QPushButton::clicked, this,
          [this] { Call([](controls::Button& button) { button.Click(); }); });
}

void ButtonWidget::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText) setText(ToQString(Model()->Caption()));
}

void ButtonWidget::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
    return;
  }
  ViewOf::keyPressEvent(event);
}

CheckWidget::CheckWidget(controls::CheckBox& model, const Surroundings& surroundings,
                         QWidget* parent)
    : ViewOf(model, surroundings, parent) {}

void CheckWidget::Refresh(const Change& change) {
  if (change.aspect != Aspect::kText) return;
  setText(ToQString(Model()->Caption()));
  setChecked(Model()->Checked());
}

void CheckWidget::nextCheckState() {
  if (Call([](controls::CheckBox& box) { box.Click(); })) setChecked(Model()->Checked());
}

ComboWidget::ComboWidget(controls::ComboBox& model, const Surroundings& surroundings,
                         QWidget* parent)
    : ViewOf(model, surroundings, parent) {
  connect(this, &QComboBox::activated, this, [this](int index) {
    const bool there = Call([&](controls::ComboBox& box) {
      if (index < box.ListCount()) box.SetListIndex(index);
    });
    if (there) setCurrentIndex(Model()->ListIndex());
  });
}

void ComboWidget::Refresh(const Change& change) {
  switch (change.aspect) {
    case Aspect::kBounds:
      resize(width(), ToPixels(*this, kComboHeight));
      break;
    case Aspect::kItems: {
      clear();
      for (int i = 0; i < Model()->ListCount(); ++i) addItem(ToQString(Model()->List(i)));
      setCurrentIndex(Model()->ListIndex());
      break;
    }
    case Aspect::kText:
      setCurrentIndex(Model()->ListIndex());
      break;
    default:
      break;
  }
}

void ComboWidget::paintEvent(QPaintEvent* event) {
  ViewOf::paintEvent(event);
  QPainter painter(this);
  const bool mirrored = layoutDirection() == Qt::RightToLeft;
  PaintDropArrow(painter, QPointF(mirrored ? 12 : width() - 12, height() / 2.0),
                 isEnabled() ? theme::kText : theme::kLine);
}

FrameWidget::FrameWidget(controls::Frame& model, const Surroundings& surroundings, QWidget* parent)
    : ViewOf(model, surroundings, parent) {}

void FrameWidget::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText || change.aspect == Aspect::kBounds) update();
}

void FrameWidget::paintEvent(QPaintEvent* /*event*/) {
  if (!Model() || Model()->BorderStyle() == controls::Frame::Border::kNone) return;
  const QString caption = ToQString(Model()->Caption());
  const int lineTop = caption.isEmpty() ? 0 : fontMetrics().height() / 2;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(theme::kLine);
  painter.setBrush(ToQColor(controls::palette::kFrame));
  painter.drawRoundedRect(QRectF(0.5, lineTop + 0.5, width() - 1.0, height() - lineTop - 1.0), 5,
                          5);
  if (caption.isEmpty()) return;
  const int textWidth = fontMetrics().horizontalAdvance(caption);
  const QRect place(width() - textWidth - 20, 0, textWidth + 12, fontMetrics().height());
  // The caption interrupts the line: form ground above it, frame ground below.
  painter.fillRect(QRect(place.left(), lineTop, place.width(), 2),
                   ToQColor(controls::palette::kFrame));
  painter.setPen(isEnabled() ? theme::kDeepAccent : theme::kMutedText);
  painter.drawText(place, Qt::AlignCenter, caption);
}

}  // namespace adapters::qt
