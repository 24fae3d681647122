#pragma once

#include <string>
#include <vector>

namespace support {

/// Everything that reached the outside of the module, in order, one line each, for tests of what
/// comes before what: "statement: ...", "procedure: ...", "show FormMain modeless",
/// "message: title | text", "question: title | text", "pointer 11", and the like.
using Events = std::vector<std::string>;

}  // namespace support
