#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace adapters::server {

/// A connection string taken apart.
struct LimitedString {
  std::string rest;  ///< what a driver or provider may see
  std::chrono::seconds limit;
};

/// How long a statement may run by `connectionString`, an ODBC or an OLE DB one:
/// `Statement Timeout=600`, in seconds, else platform::kStatementLimit. `rest` is the string
/// without that word, else as it is. Throws RuntimeError 3706 for anything but 1 to 86400.
LimitedString TakeStatementLimit(std::string_view connectionString);

}  // namespace adapters::server
