#pragma once

#include "screens/ErrorGuard.h"

namespace adapters::qt {

/// Shows errors in the suite's message dialog, and writes them to the standard error output.
class ErrorGuard : public screens::ErrorGuard {
 protected:
  void Tell(const screens::ErrorTexts& texts) noexcept override;
};

}  // namespace adapters::qt
