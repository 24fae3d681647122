#pragma once

#include <string>

namespace platform {

/// Starts programs of the system.
class ProcessLauncher {
 public:
  virtual ~ProcessLauncher() = default;
  /// Starts a command line in a normal, focused window and does not wait for it.
  virtual void Start(const std::string& commandLine) = 0;
};

}  // namespace platform
