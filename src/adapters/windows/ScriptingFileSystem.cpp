#include "adapters/windows/ScriptingFileSystem.h"

#include <memory>
#include <utility>

#include "adapters/windows/Com.h"
#include "adapters/windows/Wide.h"
#include "platform/FileErrors.h"

namespace adapters::windows {

namespace {

using platform::RuntimeError;

constexpr const char* kFileSystemObject = "Scripting.FileSystemObject";
constexpr DWORD kBlockBytes = 1 << 16;

RuntimeError Told(std::int32_t number, const std::string& path, const std::string& system) {
  return platform::FileError(number, path, system, kFileSystemObject);
}

/// Runs one step with the file at `path`, and tells its failure with that name.
template <typename Step>
auto About(const std::string& path, Step step) {
  try {
    return step();
  } catch (const RuntimeError& error) {
    throw Told(error.Number(), path, error.Description());
  }
}

std::int32_t NumberOfSystemError(DWORD code) {
  switch (code) {
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_WRITE_PROTECT:
      return platform::kPermissionDenied;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
      return platform::kPathNotFound;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return platform::kDiskFull;
    default:
      return platform::kPathFileAccess;
  }
}

/// Late-bound calls are dear, so texts are gathered into blocks.
class GatheredTextFile : public platform::TextFile {
 public:
  explicit GatheredTextFile(const std::string& path) : path_(path) {
    const DWORD attributes = GetFileAttributesW(Wide(path).c_str());
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (path.empty() || (exists && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)) {
      throw Told(platform::kPathFileAccess, path, {});
    }
    if (exists && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
      throw Told(platform::kPermissionDenied, path, {});
    }
    const Dispatch files = Dispatch::Create(kFileSystemObject);
    part_ = path + "." + std::to_string(GetCurrentProcessId()) + ".part";
    const bool overwrite = true;
    const bool unicode = true;
    stream_ = About(path, [&] {
      return Dispatch(files.Call("CreateTextFile", {part_, overwrite, unicode}).Object());
    });
  }
  GatheredTextFile(const GatheredTextFile&) = delete;
  GatheredTextFile& operator=(const GatheredTextFile&) = delete;
  ~GatheredTextFile() override {
    stream_ = {};
    if (!part_.empty()) DeleteFileW(Wide(part_).c_str());
  }

  void Write(std::string_view text) override {
    block_ += text;
    if (block_.size() >= kBlockBytes) Flush();
  }
  void WriteLineBreak() override { Write("\r\n"); }

  void Close() override {
    Flush();
    About(path_, [&] { std::exchange(stream_, {}).Call("Close"); });
    // The object's own MoveFile cannot replace a file.
    if (!MoveFileExW(Wide(part_).c_str(), Wide(path_).c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
      const DWORD code = GetLastError();
      throw Told(NumberOfSystemError(code), path_, SystemText(HRESULT_FROM_WIN32(code)));
    }
    part_.clear();
  }

 private:
  void Flush() {
    if (block_.empty()) return;
    About(path_, [&] { stream_.Call("Write", {block_}); });
    block_.clear();
  }

  std::string path_;
  std::string part_;  // empty once it stands in its place
  Dispatch stream_;
  std::string block_;
};

}  // namespace

bool ScriptingFileSystem::FileExists(const std::string& path) {
  return Dispatch::Create(kFileSystemObject).Call("FileExists", {path}).Flag();
}

std::string ScriptingFileSystem::ReadFile(const std::string& path) {
  const auto fail = [&] {
    throw RuntimeError(platform::kFileNotFound,
                       path + ": " + SystemText(HRESULT_FROM_WIN32(GetLastError())),
                       kFileSystemObject);
  };
  constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE opened = CreateFileW(Wide(path).c_str(), GENERIC_READ, kShared, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (opened == INVALID_HANDLE_VALUE) fail();
  const std::unique_ptr<void, decltype(&CloseHandle)> file(opened, CloseHandle);
  std::string bytes;
  std::string block(kBlockBytes, '\0');
  for (DWORD read = 0;;) {
    if (!::ReadFile(file.get(), block.data(), kBlockBytes, &read, nullptr)) fail();
    if (read == 0) return bytes;
    bytes.append(block, 0, read);
  }
}

std::unique_ptr<platform::TextFile> ScriptingFileSystem::CreateTextFile(const std::string& path) {
  return std::make_unique<GatheredTextFile>(path);
}

}  // namespace adapters::windows
