#pragma once

#include <string>
#include <string_view>

namespace adapters::windows {

/// `message` with every password of a connection string starred out, also one that stands there as
/// the string quotes it. The string may be OLE DB's (quotes) or ODBC's (braces). A password of less
/// than four bytes may be a part of any word: it is starred out only where it stands alone.
std::string WithoutPasswords(std::string_view message, std::string_view connectionString);

}  // namespace adapters::windows
