#pragma once

#include <stdexcept>
#include <string>

namespace connection {

/// The environment variable that holds a connection string: other users of a machine can list the
/// arguments of its processes, not their environment.
inline constexpr const char* kVariable = "DISTPROMOTER_CONNECTION";

/// No connection string is where it should be; what() is one line for the user.
class ConnectionMissing : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The connection string that the value of an option means: "@FILE" what the file holds, "env" what
/// the variable holds (`variable`, empty when it is not set), else the value itself. Blanks and
/// line ends around it do not count. UTF-8. Throws ConnectionMissing.
std::string ConnectionOf(const std::string& option, const std::string& variable);

}  // namespace connection
