#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

/// How the hosts read their command lines.
namespace options {

/// The command line cannot be understood; what() is one line for the user.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// As an error may show it: also a connection string may have been given in the wrong place.
std::string Quoted(const std::string& argument);

/// Options in turn, each with the values that are taken for it. UTF-8, without the program's name.
class Arguments {
 public:
  explicit Arguments(const std::vector<std::string>& arguments) : arguments_(arguments) {}

  /// Goes on to the next option; false when there is none.
  bool Next();
  const std::string& Option() const { return arguments_[option_]; }
  /// The next argument, for the option. Throws UsageError where there is none or it is empty.
  const std::string& Value();
  /// The same as a whole number. Throws UsageError for any other text.
  int Number(int lowest, int highest);

 private:
  const std::vector<std::string>& arguments_;
  std::size_t option_ = 0;
  std::size_t next_ = 0;
};

}  // namespace options
