#pragma once

#include "screens/ErrorGuard.h"

namespace adapters::windows {

/// Every message of a window runs in here too. Notes errors in the debugger's output.
class ErrorGuard : public screens::ErrorGuard {
 public:
  ErrorGuard();
};

}  // namespace adapters::windows
