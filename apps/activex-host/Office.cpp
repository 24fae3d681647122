#include "Office.h"

#include <windows.h>

#include <shlobj.h>

#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "adapters/windows/Com.h"
#include "adapters/windows/Desktop.h"
#include "adapters/windows/Wide.h"
#include "demo/OfficeVersion.h"
#include "demo/SampleOffice.h"
#include "platform/RuntimeError.h"

namespace activexhost {

using adapters::windows::Utf8;
using adapters::windows::Wide;

namespace {

/// Those beside the program; what is there already may be the user's own work and stays.
void PutTemplates(const std::string& folder) {
  namespace fs = std::filesystem;
  for (const fs::directory_entry& carried :
       fs::directory_iterator(Wide(ProgramFolder() + "templates"))) {
    const fs::path place = fs::path(Wide(folder)) / carried.path().filename();
    if (fs::exists(place)) continue;
    std::error_code error;
    fs::copy_file(carried.path(), place, error);
    if (error) {
      throw platform::RuntimeError(platform::kPathFileAccess,
                                   error.message() + ": " + Utf8(place.wstring()));
    }
  }
}

}  // namespace

std::string ProgramFolder() {
  wchar_t path[MAX_PATH];
  const DWORD units = GetModuleFileNameW(nullptr, path, MAX_PATH);
  std::wstring folder(path, units);
  folder.resize(folder.find_last_of(L'\\') + 1);
  return Utf8(folder);
}

std::string SampleOfficePath() {
  wchar_t path[MAX_PATH];
  adapters::windows::Check(
      SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, path));
  const std::wstring folder = std::wstring(path) + L"\\promoter-office";
  CreateDirectoryW(folder.c_str(), nullptr);
  return Utf8(folder) + "\\office.db";
}

void EnsureSampleOffice(const std::string& path) {
  if (GetFileAttributesW(Wide(path).c_str()) != INVALID_FILE_ATTRIBUTES) return;
  std::printf("Making a sample office in %s ...\n", path.c_str());
  std::fflush(stdout);
  demo::SampleOptions options;
  options.today = adapters::windows::WinDesktop().Today();
  options.basePath = ProgramFolder() + "templates\\";
  demo::CreateSampleOffice(path, options);
}

void BringUpToDate(const std::string& connectionString) {
  constexpr std::string_view kEmbedded = "sqlite:";
  if (!connectionString.starts_with(kEmbedded)) return;
  const auto update = demo::BringUpToDate(connectionString.substr(kEmbedded.size()), PutTemplates);
  if (!update) return;
  std::printf("The office's file was of version %d and is of version %d now; as it was: %s\n",
              update->from, demo::kOfficeVersion, update->copy.c_str());
  std::fflush(stdout);
}

}  // namespace activexhost
