#include "apps/connection/ConnectionOption.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>

namespace connection {

namespace {

std::string ReadFile(const std::string& path) {
  std::ifstream file(std::filesystem::path(std::u8string(path.begin(), path.end())),
                     std::ios::binary);
  if (!file) throw ConnectionMissing("The file of the connection string cannot be read: " + path);
  std::ostringstream read;
  read << file.rdbuf();
  std::string content = read.str();
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (content.starts_with(kByteOrderMark)) content.erase(0, kByteOrderMark.size());
  return content;
}

}  // namespace

std::string ConnectionOf(const std::string& option, const std::string& variable) {
  const bool isFile = option.starts_with('@');
  const bool isVariable = option == "env";
  const std::string text = isFile ? ReadFile(option.substr(1)) : isVariable ? variable : option;
  constexpr const char* kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) {
    throw ConnectionMissing("There is no connection string in " +
                            (isFile       ? option.substr(1)
                             : isVariable ? std::string(kVariable)
                                          : "what was given") +
                            ".");
  }
  return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

}  // namespace connection
