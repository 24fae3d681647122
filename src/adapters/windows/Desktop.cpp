#include "adapters/windows/Desktop.h"

#include <windows.h>

#include <cderr.h>
#include <commdlg.h>
// Else our member of this name would be called otherwise than in its class.
#undef LoadKeyboardLayout

#include <algorithm>
#include <vector>

#include "adapters/windows/Com.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

namespace {

constexpr std::size_t kPathUnits = 32768;

SYSTEMTIME Now() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return now;
}

}  // namespace

std::chrono::sys_days WinDesktop::Today() const {
  const SYSTEMTIME now = Now();
  return std::chrono::year(now.wYear) / std::chrono::month(now.wMonth) / std::chrono::day(now.wDay);
}

int WinDesktop::MinutesSinceMidnight() const {
  const SYSTEMTIME now = Now();
  return now.wHour * 60 + now.wMinute;
}

std::uint32_t WinDesktop::GetVersion() const {
  return ::GetVersion();
}

void WinDesktop::LoadKeyboardLayout(std::string_view layout) {
  LoadKeyboardLayoutA(std::string(layout).c_str(), KLF_ACTIVATE);
}

std::wstring WindowsFilter(std::string_view filter) {
  if (filter.empty()) return {};
  std::wstring parts = Wide(filter);
  if (parts.back() == L'|') parts.pop_back();
  if (std::count(parts.begin(), parts.end(), L'|') % 2 == 0) parts += L"|*.*";
  std::replace(parts.begin(), parts.end(), L'|', L'\0');
  return parts + std::wstring(2, L'\0');
}

std::string WinDesktop::ShowSave(const std::string& begin, std::string_view filter) {
  const std::wstring filters = WindowsFilter(filter);
  const std::wstring title = L"ذخيره در فايل";
  std::vector<wchar_t> path(kPathUnits, L'\0');
  const std::wstring place = Wide(begin).substr(0, kPathUnits - 1);
  const bool isFolder = place.ends_with(L'\\');
  if (!isFolder) std::copy(place.begin(), place.end(), path.begin());
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = GetActiveWindow();
  dialog.lpstrFilter = filters.empty() ? nullptr : filters.c_str();
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = static_cast<DWORD>(path.size());
  dialog.lpstrInitialDir = isFolder ? place.c_str() : nullptr;
  dialog.lpstrTitle = title.c_str();
  // The host's current folder is not the module's to change.
  dialog.Flags = OFN_HIDEREADONLY | OFN_EXPLORER | OFN_NOCHANGEDIR;
  if (GetSaveFileNameW(&dialog)) return Utf8(path.data());
  // A name to begin with that no file can have shows no dialog at all; it is asked for without one.
  if (CommDlgExtendedError() == FNERR_INVALIDFILENAME && !begin.empty()) {
    return ShowSave({}, filter);
  }
  throw platform::RuntimeError(platform::kFileDialogCancelled, "Cancel was selected.");
}

void WinDesktop::Start(const std::string& commandLine) {
  std::wstring line = Wide(commandLine);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESHOWWINDOW;
  start.wShowWindow = SW_SHOWNORMAL;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                      &process)) {
    const DWORD code = GetLastError();
    const bool missing = code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND;
    throw platform::RuntimeError(
        missing ? platform::kFileNotFound : platform::kInvalidProcedureCall,
        (missing ? "File not found: " : "Not started: ") + commandLine + " (" +
            SystemText(HRESULT_FROM_WIN32(code)) + ")",
        "WinDesktop");
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

}  // namespace adapters::windows
