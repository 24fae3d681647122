#include "adapters/qt/DateBoxWidget.h"

#include <QKeyEvent>
#include <optional>

#include "adapters/qt/MonthPopup.h"

namespace adapters::qt {

using calendar::SolarHijriDate;
using controls::Aspect;
using controls::Change;
using controls::DateBox;

DateBoxWidget::DateBoxWidget(DateBox& model, const Surroundings& surroundings, QWidget* parent)
    : ViewOf(model, surroundings, parent, Sign::kCalendar), popup_(new MonthPopup(this)) {
  setMaxLength(20);
  connect(this, &QLineEdit::textEdited, this, [this] {
    edited_ = true;
    SetRefused(false);
    ShowNote({});
  });
  popup_->onPicked = [this](const SolarHijriDate& day) {
    edited_ = false;
    // As if typed: the model decides whether it may change.
    if (Call([&](DateBox& box) { box.EnterTyped(day.Text()); })) ShowDate();
  };
}

void DateBoxWidget::Detach() {
  ViewOf::Detach();
  edited_ = false;
  popup_->hide();
}

void DateBoxWidget::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText) ShowDate();
  if (change.aspect == Aspect::kEnabled && !Model()->Enabled()) {
    popup_->hide();
    if (edited_) ShowDate();
  }
}

void DateBoxWidget::ShowDate() {
  edited_ = false;
  SetRefused(false);
  const QString wanted = ToQString(Model()->Text());
  setToolTip(ToQString(Model()->ToolTip().empty() ? Model()->WeekdayName()
                                                  : std::string_view(Model()->ToolTip())));
  if (wanted == text()) return;
  setText(wanted);
}

void DateBoxWidget::Toggle() {
  if (popup_->isVisible()) {
    popup_->hide();
    return;
  }
  if (!Model() || !isEnabled() || !Commit() || !Model()) return;
  popup_->Open(Model()->Date(), SolarHijriDate::FromDays(Around().clock.Today()));
  popup_->move(PopupPlace(popup_->size()));
  popup_->show();
}

bool DateBoxWidget::Commit(DateBox::Typing how) {
  if (!edited_ && how == DateBox::Typing::kLeft) return true;
  std::string refusal;
  const std::string typed = ToUtf8(text());
  if (!Call([&](DateBox& box) { refusal = box.EnterTyped(typed, how); })) return true;
  if (refusal.empty()) {
    ShowDate();
    return true;
  }
  SetRefused(true);
  ShowNote(ToQString(refusal));
  return false;
}

void DateBoxWidget::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && Model() && (edited_ || Model()->onChange)) {
    if (Commit(DateBox::Typing::kEnter)) selectAll();
    return;
  }
  if (edited_ && event->key() == Qt::Key_Escape) {
    ShowNote({});
    ShowDate();
    return;
  }
  std::optional<DateBox::Key> step;
  if (event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier) {
    if (event->key() == Qt::Key_Up) step = DateBox::Key::kUp;
    if (event->key() == Qt::Key_Down) step = DateBox::Key::kDown;
    if (event->key() == Qt::Key_PageUp) step = DateBox::Key::kPageUp;
    if (event->key() == Qt::Key_PageDown) step = DateBox::Key::kPageDown;
  }
  if (!step) {
    ViewOf::keyPressEvent(event);
    return;
  }
  if (Commit()) Call([&](DateBox& box) { box.PressKey(*step, Around().clock.Today()); });
}

void DateBoxWidget::focusOutEvent(QFocusEvent* event) {
  ViewOf::focusOutEvent(event);
  if (event->reason() == Qt::PopupFocusReason || !edited_) return;
  // The old date comes back; the note stays a little, so that the user sees why.
  if (!Commit() && Model()) ShowDate();
}

}  // namespace adapters::qt
