#pragma once

#include <cstdint>

#include "platform/RuntimeError.h"

namespace support {

/// The number of the run-time error that the action ends with; 0 for none.
template <typename Action>
std::int32_t NumberOf(Action&& action) {
  try {
    action();
  } catch (const platform::RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace support
