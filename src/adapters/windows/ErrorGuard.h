#pragma once

#include <exception>
#include <functional>
#include <utility>

#include "platform/RuntimeError.h"

namespace controls {
struct ErrorTexts;
}

namespace adapters::windows {

/// Every message of a window and every call from one into a model runs in here, because no
/// exception may cross Windows' own code. A run-time error that no form trapped is shown with its
/// number and description, and the program goes on.
class ErrorGuard {
 public:
  template <typename Action>
  void Run(Action&& action) {
    const Nesting nesting(depth_);
    try {
      std::forward<Action>(action)();
    } catch (const platform::RuntimeError& error) {
      Show(error);
    } catch (const std::exception& error) {
      Show(error);
    }
  }

  /// How many messages and calls are under way. While there is one, the window that made it must
  /// live.
  int Depth() const { return depth_; }

  /// Called before an error is shown (the screen takes the hourglass away); empty to drop it.
  void SetBeforeShow(std::function<void()> beforeShow) { beforeShow_ = std::move(beforeShow); }

 private:
  class Nesting {
   public:
    explicit Nesting(int& depth) : depth_(depth) { ++depth_; }
    ~Nesting() { --depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

   private:
    int& depth_;
  };
  void Show(const platform::RuntimeError& error) noexcept;
  void Show(const std::exception& error) noexcept;
  void ShowDialog(const controls::ErrorTexts& texts) noexcept;

  std::function<void()> beforeShow_;
  int depth_ = 0;
};

}  // namespace adapters::windows
