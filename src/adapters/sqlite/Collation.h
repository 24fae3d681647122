#pragma once

#include <string_view>

namespace adapters::sqlite {

/// The one order of texts: below, above or at 0 as `a` stands before `b`, behind it or is equal.
/// Letter case of Latin letters and blanks at the end do not count; then text::ComparePersian
/// decides, and for letters that it takes for one (both kinds of yeh and kaf, the digits' three)
/// the code point, so that they are not equal.
int CompareTexts(std::string_view a, std::string_view b);

}  // namespace adapters::sqlite
