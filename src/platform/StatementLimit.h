#pragma once

#include <chrono>

namespace platform {

/// How long a statement may run before its connection gives it up, on every engine, unless the
/// connection string says otherwise. A batch of half a year takes minutes on a slow server.
inline constexpr std::chrono::seconds kStatementLimit{300};

}  // namespace platform
