#pragma once

#include <sqlite3.h>

#include <chrono>

#include "platform/RunningStatement.h"

namespace adapters::sqlite {

/// What a statement's handle asks while it runs or waits for another program's lock: whether its
/// limit is over or the user has cancelled. It must outlive what it is set on.
class Watch {
 public:
  Watch(platform::RunningStatement& running, std::chrono::milliseconds limit,
        std::chrono::milliseconds busyTimeout)
      : running_(running), busyTimeout_(busyTimeout), end_(Clock::now() + limit) {}
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  /// From here on what the handle runs is interrupted once that is so; a lock is waited for as long
  /// as the handle does by itself, unless so.
  void SetOn(sqlite3* database);
  /// The handle waits by itself again.
  void TakeOff(sqlite3* database) const;

 private:
  using Clock = std::chrono::steady_clock;

  bool IsOver() { return !running_.GoesOn() || Clock::now() > end_; }
  bool WaitForLock(int times);

  platform::RunningStatement& running_;
  std::chrono::milliseconds busyTimeout_;
  Clock::time_point end_;
  Clock::time_point lockGivenUp_;
};

/// Set on the handle while this lives. Without a watch nothing is done.
class Watched {
 public:
  Watched(Watch* watch, sqlite3* database) : watch_(watch), database_(database) {
    if (watch_ != nullptr) watch_->SetOn(database_);
  }
  ~Watched() {
    if (watch_ != nullptr) watch_->TakeOff(database_);
  }
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched&) = delete;

 private:
  Watch* watch_;
  sqlite3* database_;
};

}  // namespace adapters::sqlite
