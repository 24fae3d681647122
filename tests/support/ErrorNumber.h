#pragma once

#include <cstdint>

#include "platform/RuntimeError.h"

namespace support {

/// The run-time error that the action ends with; of number 0 and without words for none.
template <typename Action>
platform::RuntimeError FailureOf(Action&& action) {
  try {
    action();
  } catch (const platform::RuntimeError& error) {
    return error;
  }
  return {0, ""};
}

template <typename Action>
std::int32_t NumberOf(Action&& action) {
  return FailureOf(action).Number();
}

}  // namespace support
