#include "screens/ControlPane.h"

#include <algorithm>
#include <string>

#include "screens/AccessKeys.h"
#include "screens/AccessibleNames.h"
#include "screens/Palette.h"

namespace screens {

namespace {

constexpr const char* kZeroWidthJoiner = "\u200D";

}  // namespace

controls::Colour GroundOf(const controls::Control& control) {
  const controls::Container* container = &control.Parent();
  while (const auto* frame = dynamic_cast<const controls::Frame*>(container)) {
    if (frame->BorderStyle() == controls::Frame::Border::kLine) return palette::kFrame;
    container = &frame->Parent();
  }
  return palette::kFormGround;
}

void ControlPane::Changed(const controls::Change& change) {
  if (change.aspect == controls::Aspect::kText) Host().Announce(Tidings::kValue, -1);
  RepaintAll();
}

void ControlPane::FocusChanged(bool focused) {
  focused_ = focused;
  if (focused) Host().Announce(Tidings::kFocus, -1);
  RepaintAll();
}

Tip ControlPane::TipAt(Point /*place*/) const {
  return control_ == nullptr ? Tip{} : Tip{Area(), control_->ToolTip()};
}

void ControlPane::PaintCaption(Surface& surface, std::string_view caption, const Rect& box,
                               const TextStyle& style) const {
  surface.Text(caption, box, style);
  if (control_ == nullptr) return;
  const auto letter = AccessKeySpan(caption, control_->AccessKey());
  const int width = TextWidth(caption, style.weight);
  if (!letter || width > box.Width()) return;
  // As wide as the letters are where they are joined to the next one.
  const auto widthTo = [&](std::size_t end) {
    std::string part(caption.substr(0, end));
    if (end < caption.size()) part += kZeroWidthJoiner;
    return TextWidth(part, style.weight);
  };
  const int before = letter->first == 0 ? 0 : widthTo(letter->first);
  const int after = widthTo(letter->first + letter->second);
  const int right = style.side == Side::kCentre ? (box.left + box.right + width) / 2 : box.right;
  // Below the dots of letters.
  const int below = box.Middle().y + Host().LineHeight() / 2;
  surface.Fill({right - after, below, right - before, below + std::max(1, Design(1))},
               style.colour);
}

controls::Colour ControlPane::Ink() const {
  return Host().Enabled() ? palette::kText : palette::kMutedText;
}

controls::Colour ControlPane::Border() const {
  if (focused_) return palette::kAccent;
  return Host().Enabled() ? palette::kBorder : palette::kLine;
}

Accessible ControlPane::Described(Role role) const {
  Accessible described{.role = role, .place = Area()};
  if (control_ == nullptr) return described;
  described.name = AccessibleName(*control_);
  described.description = AccessibleDescription(*control_);
  described.keys = AccessKeyText(*control_);
  described.enabled = Host().Enabled();
  described.focused = focused_;
  return described;
}

}  // namespace screens
