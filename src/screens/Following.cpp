#include "screens/Following.h"

#include <utility>

#include "controls/Controls.h"

namespace screens {

using controls::Aspect;
using controls::Change;
using controls::Control;
using controls::Frame;

void Following::Begin(Control& control, Apply apply) {
  for (const Aspect aspect :
       {Aspect::kBounds, Aspect::kColumns, Aspect::kItems, Aspect::kRows, Aspect::kText,
        Aspect::kSelection, Aspect::kEnabled, Aspect::kVisible}) {
    apply({aspect});
  }
  // Where a frame stands decides how the edges in it are rounded.
  if (auto* frame = dynamic_cast<Frame*>(&control.Parent())) {
    frame_ = frame->Subscribe([apply](const Change& change) {
      if (change.aspect == Aspect::kBounds) apply(change);
    });
  }
  control_ = control.Subscribe(std::move(apply));
}

void Following::End() {
  control_.Reset();
  frame_.Reset();
}

}  // namespace screens
