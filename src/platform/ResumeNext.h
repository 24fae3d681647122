#pragma once

#include <cstdint>
#include <utility>

#include "platform/RuntimeError.h"

namespace platform {

/// Runs one statement "with errors resumed": a RuntimeError ends the statement and is dropped.
/// Returns its number, 0 when there was none. One statement a call, as the next one must still run.
template <typename Statement>
std::int32_t ResumeNext(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
    return 0;
  } catch (const RuntimeError& error) {
    return error.Number();
  }
}

}  // namespace platform
