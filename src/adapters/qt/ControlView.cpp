#include "adapters/qt/ControlView.h"

namespace adapters::qt {

using controls::Aspect;
using controls::Change;
using controls::Control;

void ControlView::Follow(Control& control) {
  following_.Begin(control, [this, &control](const Change& change) { Apply(control, change); });
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
