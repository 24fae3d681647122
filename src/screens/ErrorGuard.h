#pragma once

#include <exception>
#include <functional>
#include <utility>

#include "platform/RuntimeError.h"
#include "screens/ErrorTexts.h"

namespace screens {

/// Every call from a screen into a model runs in here, because no exception may cross the code that
/// waits for the user. A run-time error that no form trapped is shown with its number and
/// description, and the program goes on.
class ErrorGuard {
 public:
  ErrorGuard() = default;
  virtual ~ErrorGuard() = default;
  ErrorGuard(const ErrorGuard&) = delete;
  ErrorGuard& operator=(const ErrorGuard&) = delete;

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

  /// What is said of the program after an error: that it goes on, which holds once a form is up, or
  /// that it ends.
  void SetProgramGoesOn(bool goesOn) { after_ = goesOn ? AfterError::kGoesOn : AfterError::kEnds; }

  /// How many calls into models are under way. While there is one, the view that made it must live.
  int Depth() const { return depth_; }

  /// Called before an error is shown (the screen takes the hourglass away); empty to drop it.
  /// Throws nothing.
  void SetBeforeShow(std::function<void()> beforeShow) { beforeShow_ = std::move(beforeShow); }

 protected:
  /// Shows the user an error, until it was read.
  virtual void Tell(const ErrorTexts& texts) noexcept = 0;

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

  std::function<void()> beforeShow_;
  AfterError after_ = AfterError::kGoesOn;
  int depth_ = 0;
};

}  // namespace screens
