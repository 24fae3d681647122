#include "screens/AccessibleNames.h"

#include <string_view>

#include "controls/Controls.h"
#include "controls/FlexGrid.h"
#include "controls/Form.h"
#include "text/Text.h"

namespace screens {

using controls::Button;
using controls::CheckBox;
using controls::Container;
using controls::Control;
using controls::FlexGrid;
using controls::Frame;
using controls::Label;

namespace {

/// Captions of so many characters are signs when a tool tip says more.
constexpr std::size_t kLongestSign = 3;

std::string WithoutColon(std::string_view caption) {
  const std::size_t last = caption.find_last_not_of(": ");
  return std::string(text::Trim(caption.substr(0, last + 1)));
}

std::string Caption(const Control& control) {
  if (const auto* button = dynamic_cast<const Button*>(&control)) return button->Caption();
  if (const auto* box = dynamic_cast<const CheckBox*>(&control)) return box->Caption();
  if (const auto* label = dynamic_cast<const Label*>(&control)) return label->Caption();
  if (const auto* frame = dynamic_cast<const Frame*>(&control)) return frame->Caption();
  return {};
}

const Label* LabelOf(const Control& control, const Container& within) {
  for (const Control* other : within.Controls()) {
    const auto* label = dynamic_cast<const Label*>(other);
    if (label != nullptr && label->Named() == &control) return label;
    const auto* inner = dynamic_cast<const Container*>(other);
    if (inner != nullptr && (label = LabelOf(control, *inner)) != nullptr) return label;
  }
  return nullptr;
}

bool ShowsSign(const Control& control, std::string_view caption) {
  return dynamic_cast<const Button*>(&control) != nullptr && !control.ToolTip().empty() &&
         text::Length(caption) <= kLongestSign;
}

std::string NameOfFrame(const Control& control) {
  const auto* frame = dynamic_cast<const Frame*>(&control.Parent());
  return frame == nullptr ? std::string() : AccessibleName(*frame);
}

}  // namespace

std::string AccessibleName(const Control& control) {
  if (!control.AccessibleName().empty()) return control.AccessibleName();
  const std::string caption = Caption(control);
  if (ShowsSign(control, caption)) {
    const std::string list = NameOfFrame(control);
    return list.empty() ? control.ToolTip() : control.ToolTip() + "، " + list;
  }
  if (!caption.empty()) return WithoutColon(caption);
  if (const Label* label = LabelOf(control, control.ParentForm())) {
    return WithoutColon(label->Caption());
  }
  return dynamic_cast<const FlexGrid*>(&control) != nullptr ? NameOfFrame(control) : std::string();
}

std::string AccessibleDescription(const Control& control) {
  return ShowsSign(control, Caption(control)) ? std::string() : control.ToolTip();
}

std::string AccessKeyText(const Control& control) {
  std::string letter = control.AccessKey();
  const Label* label = letter.empty() ? LabelOf(control, control.ParentForm()) : nullptr;
  if (label != nullptr) letter = label->AccessKey();
  return letter.empty() ? std::string() : "Alt+" + letter;
}

}  // namespace screens
