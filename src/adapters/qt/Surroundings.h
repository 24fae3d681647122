#pragma once

#include "adapters/qt/ErrorGuard.h"
#include "adapters/qt/PageLetters.h"
#include "platform/Clock.h"

namespace adapters::qt {

/// What every pane's window needs besides its pane. All of it outlives the windows.
struct Surroundings {
  ErrorGuard& guard;
  const platform::Clock& clock;
  const PageLetters& letters;
};

}  // namespace adapters::qt
