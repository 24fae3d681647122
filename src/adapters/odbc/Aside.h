#pragma once

#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <type_traits>
#include <utility>

#include "adapters/server/Session.h"
#include "platform/RunningStatement.h"

namespace adapters::odbc {

/// A thread that is joined where it came to its end, and else left to itself.
class LooseThread {
 public:
  template <typename Body>
  explicit LooseThread(Body body) : thread_(std::move(body)) {}
  ~LooseThread() {
    if (thread_.joinable()) thread_.detach();
  }
  LooseThread(const LooseThread&) = delete;
  LooseThread& operator=(const LooseThread&) = delete;
  void Join() { thread_.join(); }

 private:
  std::thread thread_;
};

/// Runs `work`, calls of a driver that block, on a thread of its own, and returns what it returns
/// or throws what it throws; the thread that calls keeps asking `running`. Once the user has
/// cancelled, `cancel` is called from time to time, and the end is a Failure in any case: after
/// `limit` without waiting any longer, with the session dead. `work` owns all that it uses, as it
/// may then outlast this. Without anybody who waits there is no other thread.
template <typename Work>
std::invoke_result_t<Work> RunAside(platform::RunningStatement& running, Work work,
                                    const std::function<void()>& cancel,
                                    std::chrono::milliseconds limit) {
  using Clock = std::chrono::steady_clock;
  using Result = std::invoke_result_t<Work>;
  constexpr std::chrono::milliseconds kBetweenLooks{20};
  constexpr std::chrono::milliseconds kBetweenCancels{250};
  struct Task {
    std::mutex mutex;
    std::condition_variable ended;
    bool over = false;
    std::optional<Result> result;
    std::exception_ptr failure;
  };
  if (!running.Watched()) return work();

  const auto task = std::make_shared<Task>();
  LooseThread thread([task, work = std::move(work)]() mutable {
    std::optional<Result> result;
    std::exception_ptr failure;
    try {
      result.emplace(work());
    } catch (...) {
      failure = std::current_exception();
    }
    const std::lock_guard lock(task->mutex);
    task->result = std::move(result);
    task->failure = std::move(failure);
    task->over = true;
    task->ended.notify_one();
  });

  std::optional<Clock::time_point> cancelledAt;
  Clock::time_point cancelAgain;
  std::unique_lock lock(task->mutex);
  while (!task->ended.wait_for(lock, kBetweenLooks, [&] { return task->over; })) {
    lock.unlock();
    if (!running.GoesOn()) {
      const Clock::time_point now = Clock::now();
      if (!cancelledAt) cancelledAt = now;
      if (now - *cancelledAt >= limit) throw server::Stopped("ODBC", true);
      if (now >= cancelAgain) {
        cancel();
        cancelAgain = now + kBetweenCancels;
      }
    }
    lock.lock();
  }
  lock.unlock();
  thread.Join();
  if (task->failure) std::rethrow_exception(std::exchange(task->failure, nullptr));
  // What a driver returns of rows that it was told to stop reading may not be all of them.
  if (cancelledAt) throw server::Stopped("ODBC", false);
  return std::move(*task->result);
}

}  // namespace adapters::odbc
