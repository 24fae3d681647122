#include "screens/SelectorPane.h"

#include <numeric>
#include <string_view>

#include "text/Text.h"

namespace screens {

using controls::Aspect;
using controls::Selector;

namespace {

bool IsBlank(std::string_view text) {
  return text::Trim(text::Replace(text, "\u00A0", " ")).empty();
}

}  // namespace

SelectorPane::SelectorPane(Selector& selector, PaneHost& host)
    : PaneOfKind(selector, host, Sign::kArrow, Holds::kField),
      drop_(host, *this, [this] { ChooseCurrent(); }) {}

void SelectorPane::Detach() {
  PaneOfKind::Detach();
  edited_ = false;
  rows_.clear();
  drop_.Close();
}

void SelectorPane::Changed(const controls::Change& change) {
  FieldPane::Changed(change);
  if (Shown() == nullptr) return;
  if (change.aspect == Aspect::kText) ShowSelected();
  if (change.aspect == Aspect::kEnabled && !Host().Enabled()) Close(Leaving::kRestore);
  // The model read its list anew or dropped it: rows kept here may not be there any more.
  if (change.aspect == Aspect::kItems && drop_.Open()) {
    ShowRows(edited_ ? Host().Field().Text() : std::string());
  }
}

void SelectorPane::ShowSelected() {
  edited_ = false;
  if (Shown() == nullptr) return;
  // The name may have to be read, which may fail: then nothing is shown.
  std::string name;
  try {
    name = Shown()->DisplayText();
  } catch (...) {
    Host().Field().SetText({});
    throw;
  }
  Host().Field().SetText(name);
}

ListRow SelectorPane::At(int row) const {
  const std::size_t index = rows_[static_cast<std::size_t>(row)];
  if (Shown() == nullptr || index >= Shown()->List().size()) return {};
  const Selector::Row& found = Shown()->List()[index];
  return {found.name, found.detail};
}

void SelectorPane::Edited() {
  edited_ = true;
  const std::string typed = Host().Field().Text();
  if (drop_.Open()) {
    ShowRows(typed);
  } else if (!typed.empty()) {
    Open();
  }
}

void SelectorPane::Toggle() {
  if (drop_.Open()) {
    Close(Leaving::kRestore);
  } else {
    Open();
  }
}

void SelectorPane::Open() {
  if (Shown() == nullptr || !Host().Enabled()) return;
  Shown()->LoadList();
  if (Shown() != nullptr) ShowRows(edited_ ? Host().Field().Text() : std::string());
}

void SelectorPane::ShowRows(const std::string& typed) {
  const std::vector<Selector::Row>& list = Shown()->List();
  if (IsBlank(typed)) {
    rows_.resize(list.size());
    std::iota(rows_.begin(), rows_.end(), std::size_t{0});
  } else {
    rows_ = Shown()->Narrow(typed);
  }
  int current = typed.empty() || rows_.empty() ? -1 : 0;
  for (std::size_t i = 0; current < 0 && Shown()->HasSelection() && i < rows_.size(); ++i) {
    if (list[rows_[i]].id == Shown()->SelectedID()) current = static_cast<int>(i);
  }
  drop_.Show(current, Area().Width());
}

void SelectorPane::ChooseCurrent() {
  if (Shown() == nullptr || drop_.Current() < 0) return;
  const std::size_t row = rows_[static_cast<std::size_t>(drop_.Current())];
  edited_ = false;
  drop_.Close();
  Shown()->Choose(row);
  // The same id again notifies nobody, yet the typed text has to go.
  ShowSelected();
}

void SelectorPane::Close(Leaving leaving) {
  drop_.Close();
  if (!edited_) return;
  if (leaving == Leaving::kSettle) {
    Settle();
  } else {
    ShowSelected();
  }
}

void SelectorPane::Settle() {
  const bool emptied = edited_ && IsBlank(Host().Field().Text());
  edited_ = false;
  if (emptied && Shown() != nullptr) Shown()->ChooseNone();
  ShowSelected();
}

void SelectorPane::Wheel(const WheelEvent& event) {
  if (drop_.Open()) drop_.Wheel(event);
}

bool SelectorPane::PressKey(const KeyEvent& event) {
  if (drop_.Open() && PressKeyInList(event)) return true;
  if (event.modifiers.None() && !drop_.Open() &&
      (event.key == Key::kDown || event.key == Key::kUp)) {
    Open();
    return true;
  }
  if (edited_ && event.key == Key::kEnter) {
    Settle();
    return true;
  }
  if (edited_ && event.key == Key::kEscape) {
    ShowSelected();
    return true;
  }
  return FieldPane::PressKey(event);
}

bool SelectorPane::PressKeyInList(const KeyEvent& event) {
  switch (event.key) {
    case Key::kEnter:
      if (drop_.Current() >= 0) {
        ChooseCurrent();
      } else {
        Close(Leaving::kSettle);
      }
      return true;
    case Key::kEscape:
      Close(Leaving::kRestore);
      return true;
    case Key::kTab:
      if (edited_ && !IsBlank(Host().Field().Text()) && drop_.Current() >= 0) {
        ChooseCurrent();
      } else {
        Close(Leaving::kSettle);
      }
      return false;  // the form moves on
    default:
      return drop_.PressKey(event);
  }
}

void SelectorPane::FocusChanged(bool focused) {
  FieldPane::FocusChanged(focused);
  if (!focused) Close(Leaving::kSettle);
}

Accessible SelectorPane::Describe() const {
  return DescribedOpener(drop_.Open(), Host().Field().Text());
}

}  // namespace screens
