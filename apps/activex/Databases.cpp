#include "Databases.h"

#include <windows.h>

#include <array>
#include <chrono>
#include <iostream>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/windows/AdoConnection.h"
#include "adapters/windows/Settings.h"
#include "adapters/windows/Wide.h"

namespace activex {

namespace {

using adapters::log::StatementLog;

/// Where the environment or the administrator wants one; else none.
std::shared_ptr<StatementLog> WantedLog() {
  std::array<wchar_t, 1024> named{};
  GetEnvironmentVariableW(L"DISTPROMOTER_LOG", named.data(), static_cast<DWORD>(named.size()));
  std::string file = adapters::windows::Utf8(named.data());
  if (file.empty()) file = adapters::windows::Setting(L"Log");
  if (file.empty()) return nullptr;
  const auto now = [] {
    return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
  };
  return std::make_shared<StatementLog>(file, now, std::cerr);
}

}  // namespace

Databases::Databases(platform::Progress* progress) : progress_(progress), log_(WantedLog()) {}

std::unique_ptr<platform::Connection> Databases::Create(const std::string& connectionString) {
  std::unique_ptr<platform::Connection> made;
  if (connectionString.starts_with("sqlite:")) {
    made = std::make_unique<adapters::sqlite::SqliteConnection>(
        connectionString, adapters::sqlite::kBusyTimeout, platform::kStatementLimit, progress_);
  } else {
    made = std::make_unique<adapters::windows::AdoConnection>(
        connectionString, outages_.Of(connectionString), progress_);
  }
  return adapters::log::Logged(std::move(made), connectionString, log_);
}

}  // namespace activex
