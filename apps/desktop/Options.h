#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace desktop {

/// What the command line asks for.
struct Options {
  std::string database;       // file to open; empty: the sample office
  int customers = 5000;       // of a sample office that has to be made
  std::int32_t user = 1;      // who works with the module
  std::int32_t program = 0;   // program to open; 0: the editor opens empty
  std::string tourDirectory;  // empty: no tour
  bool help = false;
};

/// The command line cannot be understood; what() is one line for the user.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// `arguments` without the program's name. Throws UsageError.
Options ParseOptions(const std::vector<std::string>& arguments);

/// What --help prints.
const char* HelpText();

}  // namespace desktop
