#pragma once

#include <functional>

#include "controls/Control.h"

namespace screens {

/// Keeps a screen's view in step with its control.
class Following {
 public:
  using Apply = std::function<void(const controls::Change&)>;
  /// Applies every aspect once, bounds first, then each change as it comes. The control may end
  /// before this does.
  void Begin(controls::Control& control, Apply apply);
  void End();

 private:
  controls::Subscription control_;
  controls::Subscription frame_;
};

}  // namespace screens
