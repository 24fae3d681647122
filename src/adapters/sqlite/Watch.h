#pragma once

#include <sqlite3.h>

#include <chrono>

#include "platform/RunningStatement.h"

namespace adapters::sqlite {

/// While it lives, what the handle runs is interrupted once the limit is over or the user has
/// cancelled; another program's lock is waited for as long as the handle did before, unless so.
class Watch {
 public:
  Watch(sqlite3* database, std::chrono::milliseconds limit, std::chrono::milliseconds busyTimeout,
        platform::RunningStatement& running);
  ~Watch();
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

 private:
  using Clock = std::chrono::steady_clock;

  bool IsOver() { return !running_.GoesOn() || Clock::now() > end_; }
  bool WaitForLock(int times);

  sqlite3* database_;
  std::chrono::milliseconds busyTimeout_;
  Clock::time_point end_;
  Clock::time_point lockGivenUp_;
  platform::RunningStatement& running_;
};

}  // namespace adapters::sqlite
