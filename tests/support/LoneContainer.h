#pragma once

#include <stdexcept>

#include "controls/Control.h"

namespace support {

/// A place for a control that stands on no form.
class LoneContainer : public controls::Container {
 public:
  controls::Form& OwnForm() override { throw std::logic_error("no form"); }
};

}  // namespace support
