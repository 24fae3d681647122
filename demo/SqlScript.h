#pragma once

#include <string_view>
#include <vector>

namespace demo {

/// The batches of a script, as they stand in it, without the line ends around them: parts between
/// lines that hold nothing but "go", in either case, blanks around it allowed. Parts without
/// anything but blanks and line ends are left out.
std::vector<std::string_view> Batches(std::string_view script);

}  // namespace demo
