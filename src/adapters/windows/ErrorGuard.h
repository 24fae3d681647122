#pragma once

#include "controls/ErrorGuard.h"

namespace adapters::windows {

/// Every message of a window runs in here too. Shows errors in the suite's message dialog, and
/// writes them to the debugger's output.
class ErrorGuard : public controls::ErrorGuard {
 protected:
  void Tell(const controls::ErrorTexts& texts) noexcept override;
};

}  // namespace adapters::windows
