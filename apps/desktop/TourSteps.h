#pragma once

#include "Tour.h"
#include "module/Module.h"

namespace desktop {

/// A planner's day: a new program, a batch of visits, search and export, final and back, print,
/// document, deletion.
void AddSteps(Tour& tour, module::Module& module);

}  // namespace desktop
