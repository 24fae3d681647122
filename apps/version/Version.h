#pragma once

#include <string>
#include <string_view>

namespace version {

/// "1.1"
std::string_view Number();

/// What it was built from: the commit's first letters, with a "+" where files were changed since;
/// "unknown" outside of a checkout and of a source archive.
std::string_view Commit();

/// What --version prints: "promoter-desktop 1.1 (c57ffae91d00)\n".
std::string Line(std::string_view program);

}  // namespace version
