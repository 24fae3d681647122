#pragma once

#include <functional>
#include <stdexcept>

#include "controls/FlexGrid.h"
#include "platform/RuntimeError.h"

/// A place for a grid that stands on no form.
class LoneContainer : public controls::Container {
 public:
  controls::Form& OwnForm() override { throw std::logic_error("no form"); }
};

/// Number of the error that `act` throws, 0 when it throws none.
inline int ErrorOf(const std::function<void()>& act) {
  try {
    act();
    return 0;
  } catch (const platform::RuntimeError& error) {
    return error.Number();
  }
}
