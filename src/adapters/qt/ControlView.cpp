#include "adapters/qt/ControlView.h"

namespace adapters::qt {

using controls::Aspect;
using controls::Change;
using controls::Control;

void ControlView::Follow(Control& control) {
  for (const Aspect aspect :
       {Aspect::kBounds, Aspect::kColumns, Aspect::kItems, Aspect::kRows, Aspect::kText,
        Aspect::kSelection, Aspect::kEnabled, Aspect::kVisible}) {
    Apply(control, {aspect});
  }
  subscription_ =
      control.Subscribe([this, &control](const Change& change) { Apply(control, change); });
  // Where a frame stands decides how the edges in it are rounded.
  if (auto* frame = dynamic_cast<controls::Frame*>(&control.Parent())) {
    frameSubscription_ = frame->Subscribe([this, &control](const Change& change) {
      if (change.aspect == Aspect::kBounds) Apply(control, change);
    });
  }
}

void ControlView::Apply(Control& control, const Change& change) {
  QWidget& widget = Widget();
  switch (change.aspect) {
    case Aspect::kBounds:
      widget.setGeometry(PixelBounds(widget, control));
      widget.setToolTip(ToQString(control.ToolTip()));
      break;
    case Aspect::kEnabled:
      widget.setEnabled(control.Enabled());
      break;
    case Aspect::kVisible:
      widget.setVisible(control.Visible());
      break;
    default:
      break;
  }
  Refresh(change);
}

}  // namespace adapters::qt
