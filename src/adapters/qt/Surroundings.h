#pragma once

#include "adapters/qt/ErrorGuard.h"
#include "adapters/qt/PageLetters.h"
#include "platform/Desktop.h"

namespace adapters::qt {

/// What every pane's window needs besides its pane. All of it outlives the windows.
struct Surroundings {
  ErrorGuard& guard;
  const platform::Desktop& desktop;
  const PageLetters& letters;
};

}  // namespace adapters::qt
