#pragma once

#include <functional>
#include <string_view>

#include "platform/Progress.h"
#include "report/Pages.h"

namespace screens {

/// Reaches all pages. False when the user stopped it, which keeps those that were reached.
bool LayOutRest(report::Pages& pages, platform::Progress& progress);

/// Hands the pages from `first` (from 0) up to `end` to `put`. False when the user stopped it. What
/// `put` throws travels through.
bool PutPages(report::Pages& pages, platform::Progress& progress, std::string_view what, int first,
              int end, const std::function<void(const controls::Sheet&)>& put);

}  // namespace screens
