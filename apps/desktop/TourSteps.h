#pragma once

#include "Tour.h"
#include "module/Module.h"

namespace desktop {

/// A planner's day: a new program, a batch of visits, the visits in the editor.
void AddSteps(Tour& tour, module::Module& module);

}  // namespace desktop
