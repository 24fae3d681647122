#pragma once

#include <vector>

#include "controls/Controls.h"
#include "controls/Form.h"

namespace support {

/// The controls of a form, those in its frames too, in painting order.
inline std::vector<controls::Control*> AllControls(const controls::Container& on) {
  std::vector<controls::Control*> all;
  for (controls::Control* control : on.Controls()) {
    all.push_back(control);
    if (const auto* frame = dynamic_cast<const controls::Frame*>(control)) {
      const std::vector<controls::Control*> inner = AllControls(*frame);
      all.insert(all.end(), inner.begin(), inner.end());
    }
  }
  return all;
}

}  // namespace support
