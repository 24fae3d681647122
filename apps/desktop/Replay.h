#pragma once

#include <iosfwd>
#include <string_view>

#include "platform/Connection.h"

namespace desktop {

/// Sends a script (UTF-8, one statement a batch, batches separated by a line "go") to a connection,
/// batch by batch and whatever becomes of each, and prints a line for each: its number, its row
/// count and a digest of its rows, or the number and text of its error. At the end a total. The
/// digest depends on the cells of the rows alone, not on the rows' order, so that two engines which
/// hold the same data can be compared line by line. True when every batch ran.
bool Replay(std::string_view script, platform::Connection& connection, std::ostream& out);

}  // namespace desktop
