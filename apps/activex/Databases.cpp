#include "Databases.h"

#include <windows.h>

#include <array>

#include "adapters/windows/Settings.h"
#include "adapters/windows/Wide.h"

namespace activex {

namespace {

/// Where the environment or the administrator wants a log; else none.
std::string WantedLog() {
  std::array<wchar_t, 1024> named{};
  GetEnvironmentVariableW(L"DISTPROMOTER_LOG", named.data(), static_cast<DWORD>(named.size()));
  const std::string file = adapters::windows::Utf8(named.data());
  return file.empty() ? adapters::windows::Setting(L"Log") : file;
}

}  // namespace

Databases::Databases(platform::Progress* progress)
    : connection::Connections<adapters::windows::AdoConnection>(WantedLog(), progress) {}

}  // namespace activex
