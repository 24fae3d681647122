#pragma once

#include <string>

namespace adapters::windows {

/// A text that an administrator keeps in the registry key Software\DistPromoterProg, the user's,
/// else the machine's; empty where there is none. References to the environment in it are resolved.
std::string Setting(const wchar_t* name);

}  // namespace adapters::windows
