#include "screens/ErrorGuard.h"

namespace screens {

void ErrorGuard::Show(const platform::RuntimeError& error) noexcept {
  if (beforeShow_) beforeShow_();
  Tell(TextsOf(error, after_));
}

void ErrorGuard::Show(const std::exception& error) noexcept {
  if (beforeShow_) beforeShow_();
  Tell(TextsOf(error, after_));
}

}  // namespace screens
