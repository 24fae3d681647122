#include "controls/ErrorGuard.h"

namespace controls {

void ErrorGuard::Show(const platform::RuntimeError& error) noexcept {
  if (beforeShow_) beforeShow_();
  Tell(TextsOf(error, after_));
}

void ErrorGuard::Show(const std::exception& error) noexcept {
  if (beforeShow_) beforeShow_();
  Tell(TextsOf(error, after_));
}

}  // namespace controls
