#include "adapters/sqlite/Watch.h"

#include <algorithm>

namespace adapters::sqlite {

void Watch::SetOn(sqlite3* database) {
  constexpr int kStepsBetween = 10000;  // about a tenth of a millisecond
  const auto isOver = [](void* self) { return static_cast<Watch*>(self)->IsOver() ? 1 : 0; };
  const auto waitMore = [](void* self, int times) {
    return static_cast<Watch*>(self)->WaitForLock(times) ? 1 : 0;
  };
  sqlite3_progress_handler(database, kStepsBetween, isOver, this);
  sqlite3_busy_handler(database, waitMore, this);
}

void Watch::TakeOff(sqlite3* database) const {
  sqlite3_progress_handler(database, 0, nullptr, nullptr);
  sqlite3_busy_timeout(database, static_cast<int>(busyTimeout_.count()));
}

bool Watch::WaitForLock(int times) {
  constexpr int kLongestPause = 20;
  if (times == 0) lockGivenUp_ = Clock::now() + busyTimeout_;
  if (!running_.GoesOn() || Clock::now() >= lockGivenUp_) return false;
  sqlite3_sleep(std::min(times + 1, kLongestPause));
  return true;
}

}  // namespace adapters::sqlite
