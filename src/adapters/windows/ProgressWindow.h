#pragma once

#include <memory>
#include <string>

#include "adapters/windows/ErrorGuard.h"
#include "adapters/windows/Theme.h"
#include "platform/Progress.h"

namespace adapters::windows {

/// A small window with a bar and a button to stop, which appears once work has taken long enough
/// to make one wait. While it is up the thread's other windows take no input: Advance gives
/// messages to this window only, and what else was typed or clicked meanwhile is dropped.
class ProgressWindow : public platform::Progress {
 public:
  /// Both outlive the object.
  ProgressWindow(ErrorGuard& guard, const Theme& theme);
  ~ProgressWindow() override;
  void Begin(std::string_view what, std::size_t total) override;
  bool Advance(std::size_t done) override;
  void End() override;

 private:
  class Bar;
  ErrorGuard& guard_;
  const Theme& theme_;
  std::unique_ptr<Bar> bar_;
  std::wstring what_;
  std::size_t total_ = 0;
  unsigned long long begun_ = 0;  // in milliseconds of the system's; 0 when nothing is under way
  unsigned long long painted_ = 0;
};

}  // namespace adapters::windows
