#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

namespace support {

/// All bytes of a file, none when there is no such file.
inline std::string Content(const std::filesystem::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

/// A folder of its own for one test's files, removed with them.
class TestFolder {
 public:
  TestFolder() {
    const std::filesystem::path all = std::filesystem::temp_directory_path();
    for (int number = 0; path_.empty(); ++number) {
      const auto free = all / ("promoter-" + std::to_string(number));
      if (std::filesystem::create_directory(free)) path_ = free;
    }
  }
  ~TestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  /// Its path in UTF-8.
  std::string File(std::string_view name) const {
    const auto whole = (path_ / std::u8string(name.begin(), name.end())).u8string();
    return {whole.begin(), whole.end()};
  }
  auto FileCount() const { return std::distance(std::filesystem::directory_iterator(path_), {}); }

 private:
  std::filesystem::path path_;
};

}  // namespace support
