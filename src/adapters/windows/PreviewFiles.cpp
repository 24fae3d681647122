#include "adapters/windows/PreviewFiles.h"

#include <array>

#include "adapters/windows/Com.h"
#include "adapters/windows/Wide.h"
#include "platform/RuntimeError.h"

namespace adapters::windows {

namespace {

constexpr std::int32_t kDeviceIo = 57;

std::filesystem::path Folder() {
  std::array<wchar_t, MAX_PATH + 1> folder{};
  GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
  return std::filesystem::path(folder.data()) / L"DistPromoterProg";
}

void RemoveLeftovers(const std::filesystem::path& folder) {
  std::error_code none;
  for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
    DeleteFileW(entry.path().c_str());  // refused where a running program holds it
  }
}

[[noreturn]] void ThrowNotWritten(const std::filesystem::path& path) {
  throw platform::RuntimeError(kDeviceIo, "فايل گزارش نوشته نشد.\n" + Utf8(path.wstring()),
                               "report");
}

HANDLE Open(const std::filesystem::path& path, DWORD access, DWORD disposition) {
  return CreateFileW(path.c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                     FILE_ATTRIBUTE_TEMPORARY, nullptr);
}

/// A file of its own.
std::filesystem::path WriteNew(const std::filesystem::path& folder, const std::string& page) {
  for (DWORD number = GetTickCount();; ++number) {
    const auto path = folder / (L"report-" + std::to_wstring(number) + L".html");
    const HANDLE file = Open(path, GENERIC_WRITE, CREATE_NEW);
    if (file == INVALID_HANDLE_VALUE) {
      if (GetLastError() != ERROR_FILE_EXISTS) ThrowNotWritten(path);
      continue;
    }
    DWORD written = 0;
    const bool whole =
        WriteFile(file, page.data(), static_cast<DWORD>(page.size()), &written, nullptr) != FALSE &&
        written == page.size();
    CloseHandle(file);
    if (whole) return path;
    DeleteFileW(path.c_str());
    ThrowNotWritten(path);
  }
}

}  // namespace

PreviewFiles::~PreviewFiles() {
  if (kept_.empty()) return;
  for (const Kept& each : kept_) {
    if (each.held != INVALID_HANDLE_VALUE) CloseHandle(each.held);
    DeleteFileW(each.path.c_str());
  }
  RemoveDirectoryW(kept_.front().path.parent_path().c_str());  // unless it is somebody's still
}

std::filesystem::path PreviewFiles::Write(const std::string& page) {
  const std::filesystem::path folder = Folder();
  CreateDirectoryW(folder.c_str(), nullptr);
  RemoveLeftovers(folder);
  const std::filesystem::path path = WriteNew(folder, page);
  kept_.push_back({path, Open(path, GENERIC_READ, OPEN_EXISTING)});
  return path;
}

}  // namespace adapters::windows
