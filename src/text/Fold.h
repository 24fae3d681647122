#pragma once

#include <string>
#include <string_view>

namespace text {

/// Persian and Arabic digits as Latin ones; everything else as it is.
std::string LatinDigits(std::string_view s);

/// The form in which two texts are the same to a person who looks something up: both kinds of yeh
/// and of kaf equal, alef, waw and yeh with a madda or hamza as the bare letter, teh marbuta as
/// heh, all digits Latin, Latin letters small, zero-width and direction marks, tatweel and harakat
/// dropped, runs of blanks as one, no blanks at the ends.
std::string FoldForLookup(std::string_view s);
/// The same, written over `folded`: many texts in turn take no memory each.
void FoldForLookup(std::string_view s, std::string& folded);

}  // namespace text
