#include "screens/ControlPane.h"

#include "screens/AccessKeys.h"
#include "screens/AccessibleNames.h"
#include "screens/Palette.h"

namespace screens {

controls::Colour GroundOf(const controls::Control& control) {
  const controls::Container* container = &control.Parent();
  while (const auto* frame = dynamic_cast<const controls::Frame*>(container)) {
    if (frame->BorderStyle() == controls::Frame::Border::kLine) return palette::kFrame;
    container = &frame->Parent();
  }
  return palette::kFormGround;
}

void ControlPane::Changed(const controls::Change& change) {
  if (change.aspect == controls::Aspect::kText) host_.Announce(Tidings::kValue, -1);
  RepaintAll();
}

void ControlPane::Resized(Size size) {
  size_ = size;
  RepaintAll();
}

void ControlPane::FocusChanged(bool focused) {
  focused_ = focused;
  if (focused) host_.Announce(Tidings::kFocus, -1);
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
  const int width = host_.TextWidth(caption, style.weight);
  if (!letter || width > box.Width()) return;
  const int before = host_.TextWidth(caption.substr(0, letter->first), style.weight);
  const int after =
      host_.TextWidth(caption.substr(0, letter->first + letter->second), style.weight);
  const int right = style.side == Side::kCentre ? (box.left + box.right + width) / 2 : box.right;
  const int below = box.Middle().y + host_.LineHeight() / 2 - Design(1);
  surface.Fill({right - after, below, right - before, below + Design(1)}, style.colour);
}

Accessible ControlPane::Described(Role role) const {
  Accessible described{.role = role, .place = Area()};
  if (control_ == nullptr) return described;
  described.name = AccessibleName(*control_);
  described.description = AccessibleDescription(*control_);
  described.keys = AccessKeyText(*control_);
  described.enabled = host_.Enabled();
  described.focused = focused_;
  return described;
}

}  // namespace screens
