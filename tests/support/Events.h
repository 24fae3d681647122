#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace support {

/// Everything that reached the outside of the module, in order, one line each, for tests of what
/// comes before what: "statement: ...", "procedure: ...", "show FormMain modeless",
/// "message: title | text", "question: title | text", "pointer 11", and the like.
using Events = std::vector<std::string>;

/// Told of every call of a fake, by the member's name, before it is done; what it throws is the
/// call's failure.
using BeforeCall = std::function<void(std::string_view call)>;
inline void Tell(const BeforeCall& beforeCall, std::string_view call) {
  if (beforeCall) beforeCall(call);
}

}  // namespace support
