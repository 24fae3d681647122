#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

namespace adapters::windows {

/// Pages for the browser, which hold customers' data: files in a folder of ours under the user's
/// folder for temporary files, removed with this object. Whatever a program that ended otherwise
/// has left there goes when the next page is written.
class PreviewFiles {
 public:
  PreviewFiles() = default;
  ~PreviewFiles();
  PreviewFiles(const PreviewFiles&) = delete;
  PreviewFiles& operator=(const PreviewFiles&) = delete;

  /// The new file's path. Throws RuntimeError 57 when it cannot be written.
  std::filesystem::path Write(const std::string& page);

 private:
  struct Kept {
    std::filesystem::path path;
    HANDLE held;  // others may read the file and not remove it
  };
  std::vector<Kept> kept_;
};

}  // namespace adapters::windows
