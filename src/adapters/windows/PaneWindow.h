#pragma once

#include "adapters/windows/PaneView.h"
#include "controls/Control.h"
#include "screens/Following.h"

namespace adapters::windows {

/// The window of a control: places itself on the window of the control's container and follows the
/// model. It survives the model, because a form may unload itself from within an event of one of
/// its own windows.
class PaneWindow : public PaneView {
 public:
  PaneWindow(controls::Control& control, const Surroundings& surroundings, HWND parent);
  /// The model is not touched from here on.
  void Detach();
  /// The scale is another one.
  void Rescale();

  /// Whether it and the frames around it are enabled; whether its form is does not count.
  bool Enabled() const override;

 protected:
  bool TakesKeys() const override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Apply(const controls::Change& change);
  void Place();

  controls::Control* control_;  // null once detached
  bool transparent_;            // for the mouse, where nothing is to be told
  screens::Following following_;
};

}  // namespace adapters::windows
