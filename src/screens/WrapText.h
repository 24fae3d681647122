#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace screens {

/// `text` in lines that are no wider than `width`, as far as a single character is: broken at line
/// ends and at blanks, and within a word only where it is too wide alone. No line begins or ends
/// with a blank; an empty text is one empty line. What is set apart (U+202A ... U+202C) stays so on
/// each line over which it runs. `measure` tells how wide a text is on one line. UTF-8.
std::vector<std::string> WrapText(std::string_view text, int width,
                                  const std::function<int(std::string_view)>& measure);

}  // namespace screens
