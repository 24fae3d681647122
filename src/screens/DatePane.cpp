#include "screens/DatePane.h"

#include <string>

namespace screens {

using calendar::SolarHijriDate;
using controls::Aspect;
using controls::DateBox;

DatePane::DatePane(DateBox& box, PaneHost& host)
    : FieldPane(box, host, Sign::kCalendar), box_(&box) {
  host.Field();
}

void DatePane::Detach() {
  FieldPane::Detach();
  box_ = nullptr;
  edited_ = false;
  ClosePage();
}

void DatePane::Changed(const controls::Change& change) {
  FieldPane::Changed(change);
  if (box_ == nullptr) return;
  if (change.aspect == Aspect::kText) ShowDate();
  if (change.aspect == Aspect::kEnabled && !Host().Enabled()) {
    ClosePage();
    if (edited_) ShowDate();
  }
}

void DatePane::Resized(Size size) {
  FieldPane::Resized(size);
  Host().Field().Move(Inside());
}

void DatePane::ShowDate() {
  edited_ = false;
  SetRefused(false);
  if (box_ != nullptr) Host().Field().SetText(box_->Text());
}

void DatePane::Edited() {
  edited_ = true;
  SetRefused(false);
  ShowNote({});
}

void DatePane::ClosePage() {
  if (!PageOpen()) return;
  popup_->Hide();
  Host().Announce(Tidings::kClosed, -1);
}

void DatePane::MakePage() {
  popup_ = Host().MakePopup(PopupKind::kDropDown, [this](PaneHost& host) {
    auto page = std::make_unique<MonthPane>(host);
    page_ = page.get();
    return page;
  });
  page_->onClose = [this] { ClosePage(); };
  page_->onPicked = [this](const SolarHijriDate& day) {
    edited_ = false;
    if (box_ == nullptr) return;
    // As if typed: the model decides whether it may change.
    box_->EnterTyped(day.Text());
    ShowDate();
  };
}

void DatePane::Toggle() {
  if (PageOpen()) return ClosePage();
  if (box_ == nullptr || !Host().Enabled() || !Commit(Typing::kLeft) || box_ == nullptr) return;
  if (!popup_) MakePage();
  popup_->Show(page_->Wanted());
  // Once it is there, so that its day is told.
  page_->Open(box_->Date(), SolarHijriDate::FromDays(Host().Today()));
  Host().Announce(Tidings::kOpened, -1);
}

bool DatePane::Commit(Typing how) {
  if (box_ == nullptr || (!edited_ && how == Typing::kLeft)) return true;
  const std::string refusal = box_->EnterTyped(Host().Field().Text(), how);
  if (box_ == nullptr) return true;
  if (refusal.empty()) {
    ShowDate();
    return true;
  }
  SetRefused(true);
  ShowNote(refusal);
  return false;
}

void DatePane::Wheel(const WheelEvent& event) {
  if (PageOpen()) page_->Wheel(event);
}

bool DatePane::PressKey(const KeyEvent& event) {
  if (PageOpen()) {
    // The keys of an open page mean no letters. Tab closes it and goes on.
    page_->PressKey(event);
    return event.key != Key::kTab;
  }
  if (FieldPane::PressKey(event)) return true;
  if (box_ == nullptr) return false;
  if (event.key == Key::kEnter && (edited_ || box_->onChange)) {
    if (Commit(Typing::kEnter)) Host().Field().SelectAll();
    return true;
  }
  if (event.key == Key::kEscape && edited_) {
    ShowNote({});
    ShowDate();
    return true;
  }
  const bool plain = !event.modifiers.alt && !event.modifiers.control && !event.modifiers.shift;
  return plain && Step(event);
}

bool DatePane::Step(const KeyEvent& event) {
  DateBox::Key step{};
  switch (event.key) {
    case Key::kUp:
      step = DateBox::Key::kUp;
      break;
    case Key::kDown:
      step = DateBox::Key::kDown;
      break;
    case Key::kPageUp:
      step = DateBox::Key::kPageUp;
      break;
    case Key::kPageDown:
      step = DateBox::Key::kPageDown;
      break;
    default:
      return false;
  }
  if (Commit(Typing::kLeft) && box_ != nullptr) box_->PressKey(step, Host().Today());
  return true;
}

void DatePane::FocusChanged(bool focused) {
  FieldPane::FocusChanged(focused);
  if (focused) return;
  ClosePage();
  // The old date comes back; the note stays a little, so that the user sees why.
  if (edited_ && !Commit(Typing::kLeft)) ShowDate();
}

Tip DatePane::TipAt(Point place) const {
  Tip tip = FieldPane::TipAt(place);
  if (tip.text.empty() && box_ != nullptr && !PageOpen()) {
    tip = {Area(), std::string(box_->WeekdayName())};
  }
  return tip;
}

Accessible DatePane::Describe() const {
  Accessible described = Described(Role::kComboBox);
  described.focusable = described.expandable = true;
  described.expanded = PageOpen();
  described.action = described.expanded ? "بستن" : "باز كردن";
  described.value = Host().Field().Text();
  if (described.description.empty() && box_ != nullptr) {
    described.description = std::string(box_->WeekdayName());
  }
  return described;
}

void DatePane::Act(int /*part*/) {
  Host().TakeFocus();
  Toggle();
}

}  // namespace screens
