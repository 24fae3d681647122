#include "screens/TabOrder.h"

#include <algorithm>

#include "controls/Controls.h"

namespace screens {

using controls::Container;
using controls::Control;
using controls::Form;
using controls::Frame;
using controls::Label;
using controls::ProgressBar;

namespace {

bool ComesBefore(const Control* a, const Control* b) {
  return a->TabIndex() < b->TabIndex();
}

/// A control, or all parts of a frame that has one place in the order: by their index, those
/// without one as they were declared.
void AddInOrder(Control& control, std::vector<Control*>& order) {
  const auto* frame = dynamic_cast<const Frame*>(&control);
  if (frame == nullptr) {
    order.push_back(&control);
    return;
  }
  std::vector<Control*> parts = frame->Controls();
  std::stable_sort(parts.begin(), parts.end(), ComesBefore);
  for (Control* part : parts) AddInOrder(*part, order);
}

/// The controls with an index, also those inside frames without one.
void CollectIndexed(const Container& container, std::vector<Control*>& indexed) {
  for (Control* control : container.Controls()) {
    if (control->TabIndex() >= 0) {
      indexed.push_back(control);
    } else if (const auto* frame = dynamic_cast<const Frame*>(control)) {
      CollectIndexed(*frame, indexed);
    }
  }
}

}  // namespace

std::vector<Control*> TabSequence(const Form& form) {
  std::vector<Control*> indexed;
  CollectIndexed(form, indexed);
  std::stable_sort(indexed.begin(), indexed.end(), ComesBefore);
  std::vector<Control*> order;
  for (Control* control : indexed) AddInOrder(*control, order);
  return order;
}

bool IsKeyboardKind(const Control& control) {
  return dynamic_cast<const Label*>(&control) == nullptr &&
         dynamic_cast<const Frame*>(&control) == nullptr &&
         dynamic_cast<const ProgressBar*>(&control) == nullptr;
}

bool TakesKeyboard(const Control& control) {
  return IsKeyboardKind(control) && control.Reachable();
}

Control* NextStop(const Form& form, const Control* from, int step) {
  const std::vector<Control*> order = TabSequence(form);
  const int count = static_cast<int>(order.size());
  int at = static_cast<int>(std::ranges::find(order, from) - order.begin());
  if (at == count && step > 0) at = -1;
  for (int tried = 0; tried < count; ++tried) {
    at = (at + step + count) % count;
    Control* const control = order[static_cast<std::size_t>(at)];
    if (TakesKeyboard(*control)) return control;
  }
  return nullptr;
}

Control* FirstStop(const Form& form) {
  Control* const first = form.FirstFocus();
  return first != nullptr && TakesKeyboard(*first) ? first : NextStop(form, nullptr, 1);
}

}  // namespace screens
