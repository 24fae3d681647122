#pragma once

#include <windows.h>

#include <memory>

#include "apps/tour/Hands.h"

namespace activexhost {

/// A window as it tells itself to screen readers (MSAA); null for one that says nothing, as
/// some tips do.
std::unique_ptr<tour::Thing> MakeThing(HWND window);

}  // namespace activexhost
