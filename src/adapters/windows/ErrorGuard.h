#pragma once

#include "screens/ErrorGuard.h"

namespace adapters::windows {

/// Every message of a window runs in here too. Shows errors in the suite's message dialog, and
/// writes them to the debugger's output.
class ErrorGuard : public screens::ErrorGuard {
 protected:
  void Tell(const screens::ErrorTexts& texts) noexcept override;
};

}  // namespace adapters::windows
