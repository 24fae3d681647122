#include "screens/DatePane.h"

#include <algorithm>
#include <string>
#include <utility>

namespace screens {

using calendar::SolarHijriDate;
using controls::Aspect;
using controls::DateBox;

DatePane::DatePane(DateBox& box, PaneHost& host)
    : PaneOfKind(box, host, Sign::kCalendar, Holds::kField) {}

void DatePane::Detach() {
  PaneOfKind::Detach();
  edited_ = false;
  ClosePage();
}

void DatePane::Changed(const controls::Change& change) {
  FieldPane::Changed(change);
  if (Shown() == nullptr) return;
  if (change.aspect == Aspect::kText) ShowDate();
  if (change.aspect == Aspect::kEnabled && !Host().Enabled()) {
    ClosePage();
    if (edited_) ShowDate();
  }
}

void DatePane::ShowDate() {
  edited_ = false;
  SetRefused(false);
  if (Shown() != nullptr) Host().Field().SetText(Shown()->Text());
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
  page_->Browser().onClose = [this] { ClosePage(); };
  page_->Browser().onPicked = [this](const SolarHijriDate& day) {
    edited_ = false;
    if (Shown() == nullptr) return;
    // As if typed: the model decides whether it may change.
    Shown()->EnterTyped(day.Text());
    ShowDate();
  };
}

void DatePane::Toggle() {
  if (PageOpen()) return ClosePage();
  if (Shown() == nullptr || !Host().Enabled() || !Commit(Typing::kLeft) || Shown() == nullptr)
    return;
  if (!popup_) MakePage();
  popup_->Show(page_->Wanted());
  // Once it is there, so that its day is told.
  page_->Browser().Open(Shown()->Date(), SolarHijriDate::FromDays(Host().Today()));
  Host().Announce(Tidings::kOpened, -1);
}

bool DatePane::Commit(Typing how) {
  if (Shown() == nullptr || (!edited_ && how == Typing::kLeft)) return true;
  const std::string refusal = Shown()->EnterTyped(Host().Field().Text(), how);
  if (Shown() == nullptr) return true;
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
  if (Shown() == nullptr) return false;
  if (event.key == Key::kEnter && (edited_ || Shown()->onChange)) {
    if (Commit(Typing::kEnter)) Host().Field().SelectAll();
    return true;
  }
  if (event.key == Key::kEscape && edited_) {
    ShowNote({});
    ShowDate();
    return true;
  }
  return event.modifiers.None() && Step(event.key);
}

bool DatePane::Step(Key key) {
  constexpr std::pair<Key, DateBox::Key> kSteps[] = {{Key::kUp, DateBox::Key::kUp},
                                                     {Key::kDown, DateBox::Key::kDown},
                                                     {Key::kPageUp, DateBox::Key::kPageUp},
                                                     {Key::kPageDown, DateBox::Key::kPageDown}};
  const auto* const step = std::ranges::find(kSteps, key, &std::pair<Key, DateBox::Key>::first);
  if (step == std::end(kSteps)) return false;
  if (Commit(Typing::kLeft) && Shown() != nullptr) Shown()->PressKey(step->second, Host().Today());
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
  if (tip.text.empty() && Shown() != nullptr && !PageOpen()) {
    tip = {Area(), std::string(Shown()->WeekdayName())};
  }
  return tip;
}

Accessible DatePane::Describe() const {
  Accessible described = DescribedOpener(PageOpen(), Host().Field().Text());
  if (described.description.empty() && Shown() != nullptr) {
    described.description = std::string(Shown()->WeekdayName());
  }
  return described;
}

}  // namespace screens
