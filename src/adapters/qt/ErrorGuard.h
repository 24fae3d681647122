#pragma once

#include <exception>
#include <functional>
#include <utility>

#include "controls/ErrorTexts.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {

/// Every call from a widget into a model runs in here, because no exception may cross the event
/// loop. A run-time error that no form trapped is shown with its number and description, and the
/// program goes on.
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

  /// What is said of the program after an error: that it goes on, which holds once a form is up, or
  /// that it ends.
  void SetProgramGoesOn(bool goesOn) {
    after_ = goesOn ? controls::AfterError::kGoesOn : controls::AfterError::kEnds;
  }

  /// How many calls into models are under way. While there is one, the widget that made it must
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
  void Show(const platform::RuntimeError& error);
  void Show(const std::exception& error);

  std::function<void()> beforeShow_;
  controls::AfterError after_ = controls::AfterError::kGoesOn;
  int depth_ = 0;
};

}  // namespace adapters::qt
