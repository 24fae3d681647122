#include "adapters/sqlite/Watch.h"

#include <algorithm>

namespace adapters::sqlite {

Watch::Watch(sqlite3* database, std::chrono::milliseconds limit,
             std::chrono::milliseconds busyTimeout, platform::RunningStatement& running)
    : database_(database),
      busyTimeout_(busyTimeout),
      end_(Clock::now() + limit),
      running_(running) {
  constexpr int kStepsBetween = 10000;  // about a tenth of a millisecond
  const auto isOver = [](void* self) { return static_cast<Watch*>(self)->IsOver() ? 1 : 0; };
  const auto waitMore = [](void* self, int times) {
    return static_cast<Watch*>(self)->WaitForLock(times) ? 1 : 0;
  };
  sqlite3_progress_handler(database_, kStepsBetween, isOver, this);
  sqlite3_busy_handler(database_, waitMore, this);
}

Watch::~Watch() {
  sqlite3_progress_handler(database_, 0, nullptr, nullptr);
  sqlite3_busy_timeout(database_, static_cast<int>(busyTimeout_.count()));
}

bool Watch::WaitForLock(int times) {
  constexpr int kLongestPause = 20;
  if (times == 0) lockGivenUp_ = Clock::now() + busyTimeout_;
  if (!running_.GoesOn() || Clock::now() >= lockGivenUp_) return false;
  sqlite3_sleep(std::min(times + 1, kLongestPause));
  return true;
}

}  // namespace adapters::sqlite
