#pragma once

#include "adapters/qt/PaneView.h"
#include "controls/Control.h"
#include "screens/Following.h"

namespace adapters::qt {

/// The window of a control: a pane in its place on the form, in step with the model. It survives
/// the model, because a form may unload itself from within an event of one of its own controls.
class PaneWidget : public PaneView {
 public:
  PaneWidget(controls::Control& control, const Surroundings& surroundings, QWidget* parent);
  /// The model is not touched again.
  void Detach();

 private:
  void Apply(const controls::Control& control, const controls::Change& change);
  screens::Following following_;
};

}  // namespace adapters::qt
