#pragma once

#include "screens/ErrorGuard.h"

namespace adapters::qt {

/// Notes errors on the standard error output.
class ErrorGuard : public screens::ErrorGuard {
 public:
  ErrorGuard();
};

}  // namespace adapters::qt
