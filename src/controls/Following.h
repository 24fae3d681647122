#pragma once

#include <functional>

#include "controls/Control.h"

namespace controls {

/// Keeps a screen's view in step with its control.
class Following {
 public:
  using Apply = std::function<void(const Change&)>;
  /// Applies every aspect once, bounds first, then each change as it comes. The control may end
  /// before this does.
  void Begin(Control& control, Apply apply);
  void End();

 private:
  Subscription control_;
  Subscription frame_;
};

}  // namespace controls
