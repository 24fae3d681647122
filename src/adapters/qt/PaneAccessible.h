#pragma once

#include "screens/Accessible.h"

namespace adapters::qt {

class PaneView;

/// Screen readers find the panes from here on, through the bridge that Qt has on every platform.
/// What they ask is answered by the pane at that moment; parts of a table get an object of their
/// own only when one of them is asked for.
void ServeScreenReaders();

/// Tells them what has changed in a pane, `part` -1, or in a part of it.
void TellScreenReader(PaneView& view, screens::Tidings what, int part);

/// Gives the field in a pane, which answers for itself, the pane's name and description.
void NameField(PaneView& view);

}  // namespace adapters::qt
