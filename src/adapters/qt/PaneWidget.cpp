#include "adapters/qt/PaneWidget.h"

#include "adapters/qt/Convert.h"
#include "adapters/qt/Theme.h"
#include "screens/MakePane.h"
#include "screens/PixelPlace.h"
#include "screens/TabOrder.h"

namespace adapters::qt {

using controls::Aspect;
using controls::Change;
using controls::Control;

PaneWidget::PaneWidget(Control& control, const Surroundings& surroundings, QWidget* parent)
    : PaneView(surroundings, parent) {
  setObjectName(ToQString(control.Name()));
  if (screens::IsKeyboardKind(control)) setFocusPolicy(Qt::StrongFocus);
  SetPane(screens::MakePane(control, Host()));
  following_.Begin(control, [this, &control](const Change& change) { Apply(control, change); });
}

void PaneWidget::Detach() {
  following_.End();
  Call([](screens::Pane& pane) { pane.Detach(); });
}

void PaneWidget::Apply(const Control& control, const Change& change) {
  if (change.aspect == Aspect::kBounds) {
    const screens::Scale scale = FormScale(logicalDpiX());
    const auto [left, top, right, bottom] = screens::PlaceInContainer(
        control, [&](controls::Twips twips) { return scale.Pixels(twips); });
    setGeometry(left, top, right - left, bottom - top);
  }
  if (change.aspect == Aspect::kEnabled) {
    // Qt looks for the keyboard in this widget alone, not in its field or its controls.
    const QWidget* const focus = window()->focusWidget();
    const bool inside = focus == this || isAncestorOf(focus);
    if (!control.Enabled() && inside) focusNextPrevChild(true);
    setEnabled(control.Enabled());  // which tells the pane
    return;
  }
  if (change.aspect == Aspect::kVisible) setVisible(control.Visible());
  Call([&](screens::Pane& pane) { pane.Changed(change); });
}

}  // namespace adapters::qt
