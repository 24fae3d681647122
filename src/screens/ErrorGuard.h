#pragma once

#include <exception>
#include <functional>
#include <string>
#include <utility>

#include "controls/Screen.h"
#include "platform/RuntimeError.h"
#include "screens/ErrorTexts.h"

namespace screens {

/// Every call from a screen into a model runs in here, because no exception may cross the code that
/// waits for the user. A run-time error that no form trapped is shown with its number and
/// description, and the program goes on.
class ErrorGuard {
 public:
  /// What a toolkit brings; neither throws.
  struct Outlets {
    /// Notes each error's technical text where its developer looks.
    std::function<void(const std::string& technical)> note;
    /// Shows an error for which no message form could be shown.
    std::function<void(const ErrorTexts& texts)> lastResort;
  };
  explicit ErrorGuard(Outlets outlets) : outlets_(std::move(outlets)) {}
  ErrorGuard(const ErrorGuard&) = delete;
  ErrorGuard& operator=(const ErrorGuard&) = delete;

  template <typename Action>
  void Run(Action&& action) {
    const Nesting nesting(depth_);
    try {
      std::forward<Action>(action)();
    } catch (const platform::RuntimeError& error) {
      Tell(TextsOf(error, after_));
    } catch (const std::exception& error) {
      Tell(TextsOf(error, after_));
    }
  }

  /// The screen on which errors are shown; null before there is one and once it has ended. An
  /// hourglass of the work that failed is taken away.
  void SetScreen(controls::Screen* screen) { screen_ = screen; }

  /// What is said of the program after an error: that it goes on, which holds once a form is up, or
  /// that it ends.
  void SetProgramGoesOn(bool goesOn) { after_ = goesOn ? AfterError::kGoesOn : AfterError::kEnds; }

  /// How many calls into models are under way. While there is one, the view that made it must live.
  int Depth() const { return depth_; }

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
  /// Shows the user an error, until it was read.
  void Tell(const ErrorTexts& texts) noexcept;

  Outlets outlets_;
  controls::Screen* screen_ = nullptr;
  AfterError after_ = AfterError::kGoesOn;
  int depth_ = 0;
};

}  // namespace screens
