#pragma once

#include <windows.h>

#include "adapters/windows/ErrorGuard.h"

namespace activexhost {

/// Puts the project's own message dialog in the place of the suite's message component where that
/// is not installed, for this program alone: the module says nothing without it. The registration
/// is volatile and goes with this object, the user's registry is left as it was.
class StandIns {
 public:
  /// Throws RuntimeError.
  StandIns();
  ~StandIns();
  StandIns(const StandIns&) = delete;
  StandIns& operator=(const StandIns&) = delete;

 private:
  adapters::windows::ErrorGuard guard_;
  HKEY root_ = nullptr;  // where the component is registered; null when the suite's own is there
  DWORD cookie_ = 0;
};

}  // namespace activexhost
