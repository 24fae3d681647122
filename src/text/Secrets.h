#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace text {

/// `text` with "***" wherever one of `secrets` stands; an empty one counts for nothing. A secret
/// of less than four bytes may be a part of any word: it is starred out only where it stands alone.
std::string StarredOut(std::string_view text, std::vector<std::string> secrets);

}  // namespace text
