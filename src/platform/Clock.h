#pragma once

#include <chrono>

namespace platform {

/// The machine's local date and time.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual std::chrono::sys_days Today() const = 0;
  /// Minutes since midnight, 0 to 1439.
  virtual int MinutesSinceMidnight() const = 0;
};

}  // namespace platform
