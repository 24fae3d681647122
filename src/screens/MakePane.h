#pragma once

#include <memory>

#include "controls/Control.h"
#include "screens/Pane.h"

namespace screens {

/// The pane of a control of any kind, which lives until Pane::Detach.
std::unique_ptr<Pane> MakePane(controls::Control& control, PaneHost& host);

}  // namespace screens
