#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace text {

/// The order that a Persian reader expects, by a rank table of our own: blank and punctuation
/// first, digits (the three kinds equal), Latin letters (case-sensitive), then the letters
/// آ ا ب پ ت ث ج چ ح خ د ذ ر ز ژ س ش ص ض ط ظ ع غ ف ق ک گ ل م ن و ه ی with both kinds of yeh and
/// kaf equal; hamza and its carriers ء أ إ ؤ ئ follow ا, and ة ۀ follow ه; whatever is in no rank
/// comes last, by code point. Texts that differ only in such equal letters compare equal. Any bytes
/// may be compared; those that are no UTF-8 come last of all.
std::weak_ordering ComparePersian(std::string_view a, std::string_view b);

/// Bytes whose plain comparison (memcmp order) is ComparePersian's order; for sorting many texts.
/// Appends to `key`.
void AppendSortKey(std::string_view s, std::string& key);

}  // namespace text
