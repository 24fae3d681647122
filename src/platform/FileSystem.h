#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace platform {

/// A Unicode text file being written: UTF-16LE with a byte order mark. Failures are RuntimeErrors
/// with the system's words.
class TextFile {
 public:
  /// Without Close before it, what was written is dropped and an older file stays as it was.
  virtual ~TextFile() = default;
  virtual void Write(std::string_view text) = 0;
  /// CR LF.
  virtual void WriteLineBreak() = 0;
  /// Puts the finished file in its place.
  virtual void Close() = 0;
};

/// Files as the scripting file system object sees them.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  virtual bool FileExists(const std::string& path) = 0;
  /// All bytes of a file. Throws RuntimeError 53 where there is none or it cannot be read, with the
  /// path and the system's words.
  virtual std::string ReadFile(const std::string& path) = 0;
  /// Creates a Unicode text file over an existing one.
  virtual std::unique_ptr<TextFile> CreateTextFile(const std::string& path) = 0;
};

}  // namespace platform
