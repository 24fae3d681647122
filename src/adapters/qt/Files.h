#pragma once

#include "platform/FileSystem.h"

namespace adapters::qt {

/// Files of this machine. A text file is written beside its place and put there by Close, so that
/// a full disk or a power cut leaves an older file whole. Failures: 76 no such folder, 75 the name
/// is a folder's, 70 no right, 61 disk full, 57 anything else, each with the path and the system's
/// words.
class QtFileSystem : public platform::FileSystem {
 public:
  bool FileExists(const std::string& path) override;
  std::string ReadFile(const std::string& path) override;
  std::unique_ptr<platform::TextFile> CreateTextFile(const std::string& path) override;
};

}  // namespace adapters::qt
