#pragma once

#include "platform/FileSystem.h"

namespace adapters::windows {

/// Files through the scripting file system object, "Scripting.FileSystemObject", which is made for
/// each use. A text file is written beside its place and put there by Close, so that a full disk
/// or a power cut leaves an older file whole. Failures: 76 no such folder, 75 the name is no
/// file's, 70 no right, 61 disk full, or the object's own number, in Persian with the path and the
/// system's words; 429 where the object is not registered.
class ScriptingFileSystem : public platform::FileSystem {
 public:
  bool FileExists(const std::string& path) override;
  /// Past the object, which reads texts alone.
  std::string ReadFile(const std::string& path) override;
  std::unique_ptr<platform::TextFile> CreateTextFile(const std::string& path) override;
};

}  // namespace adapters::windows
