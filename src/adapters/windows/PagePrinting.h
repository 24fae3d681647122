#pragma once

#include "adapters/windows/Theme.h"
#include "platform/Progress.h"
#include "report/Pages.h"

namespace adapters::windows {

/// Lets the user choose a printer and pages, and prints all of them or, when the user stops it,
/// takes the job back. The pages are finished. Throws RuntimeError 482 when there is no printer or
/// it refuses.
void PrintPages(report::Pages& pages, platform::Progress& progress, const Theme& look);

/// On the printer of a device context, from the page `first` (from 0) up to `end`.
void PrintPages(report::Pages& pages, platform::Progress& progress, const Theme& look, HDC printer,
                int first, int end);

}  // namespace adapters::windows
