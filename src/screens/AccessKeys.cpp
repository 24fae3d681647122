#include "screens/AccessKeys.h"

#include <algorithm>
#include <string>
#include <vector>

#include "controls/Controls.h"
#include "screens/TabOrder.h"
#include "text/Fold.h"
#include "text/Utf8.h"

namespace screens {

using controls::Button;
using controls::CheckBox;
using controls::Container;
using controls::Control;
using controls::Label;

namespace {

struct Letter {
  char latin;
  std::string_view persian;
};

/// The standard Persian keyboard, ISIRI 9147, by the Latin letters of its keys.
constexpr Letter kKeyboard[] = {
    {'q', "ض"}, {'w', "ص"}, {'e', "ث"}, {'r', "ق"}, {'t', "ف"}, {'y', "غ"}, {'u', "ع"},  {'i', "ه"},
    {'o', "خ"}, {'p', "ح"}, {'[', "ج"}, {']', "چ"}, {'a', "ش"}, {'s', "س"}, {'d', "ی"},  {'f', "ب"},
    {'g', "ل"}, {'h', "ا"}, {'j', "ت"}, {'k', "ن"}, {'l', "م"}, {';', "ک"}, {'\'', "گ"}, {'z', "ظ"},
    {'x', "ط"}, {'c', "ز"}, {'v', "ر"}, {'b', "ذ"}, {'n', "د"}, {'m', "پ"}, {',', "و"}};

bool Matches(const Control& control, std::string_view typed) {
  const std::string key = text::FoldForLookup(control.AccessKey());
  const std::string letter = text::FoldForLookup(typed);
  if (key.empty() || letter.empty()) return false;
  if (key == letter) return true;
  return std::ranges::any_of(kKeyboard, [&](const Letter& of) {
    return letter == std::string_view(&of.latin, 1) && key == text::FoldForLookup(of.persian);
  });
}

/// What takes the keyboard for the key of a control; null for a label that names nothing.
Control* Target(Control& control) {
  auto* const label = dynamic_cast<Label*>(&control);
  return label == nullptr ? &control : label->Named();
}

void CollectTargets(const Container& container, std::string_view typed,
                    std::vector<Control*>& targets) {
  for (Control* control : container.Controls()) {
    if (!control->Reachable()) continue;
    if (const auto* inner = dynamic_cast<const Container*>(control)) {
      CollectTargets(*inner, typed, targets);
    } else if (Matches(*control, typed)) {
      Control* const target = Target(*control);
      if (target != nullptr && TakesKeyboard(*target)) targets.push_back(target);
    }
  }
}

}  // namespace

std::optional<std::pair<std::size_t, std::size_t>> AccessKeySpan(std::string_view caption,
                                                                 std::string_view key) {
  const std::string sought = text::FoldForLookup(key);
  if (sought.empty()) return std::nullopt;
  for (std::size_t at = 0; at < caption.size();) {
    const std::size_t begin = at;
    text::TakeCharacter(caption, at);
    if (text::FoldForLookup(caption.substr(begin, at - begin)) == sought) {
      return std::pair(begin, at - begin);
    }
  }
  return std::nullopt;
}

bool PressAccessKey(controls::Form& form, std::string_view typed, const Control* focused) {
  std::vector<Control*> targets;
  CollectTargets(form, typed, targets);
  if (targets.empty()) return false;
  const auto at = std::ranges::find(targets, focused);
  Control* const target =
      at == targets.end() || at + 1 == targets.end() ? targets.front() : *(at + 1);
  // First, so that what was typed in the field that is left counts.
  target->SetFocus();
  if (auto* const button = dynamic_cast<Button*>(target)) {
    button->Click();
  } else if (auto* const box = dynamic_cast<CheckBox*>(target)) {
    box->Click();
  }
  return true;
}

bool PressShortcut(controls::Form& form, std::string_view key) {
  for (Control* control : form.Controls()) {
    auto* const button = dynamic_cast<Button*>(control);
    if (button == nullptr || key.empty() || button->Shortcut() != key) continue;
    if (!button->Reachable()) return false;
    button->Click();
    return true;
  }
  return false;
}

}  // namespace screens
