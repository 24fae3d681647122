#pragma once

#include <string_view>

namespace adapters::sqlite {

/// The server's LIKE on UTF-8: % any characters, _ one, [abc] and [a-z] one of a set, [^abc] one
/// outside it, ranges in the order of texts (Collation.h); Latin letters match in either case. A
/// set that is not closed matches nothing.
bool Like(std::string_view text, std::string_view pattern);

}  // namespace adapters::sqlite
