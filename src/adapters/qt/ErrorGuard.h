#pragma once

#include "controls/ErrorGuard.h"

namespace adapters::qt {

/// Shows errors in the suite's message dialog, and writes them to the standard error output.
class ErrorGuard : public controls::ErrorGuard {
 protected:
  void Tell(const controls::ErrorTexts& texts) noexcept override;
};

}  // namespace adapters::qt
