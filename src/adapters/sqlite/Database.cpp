#include "adapters/sqlite/Database.h"

#include <filesystem>
#include <system_error>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Functions.h"

namespace adapters::sqlite {

namespace {

void RequireFile(const std::string& path) {
  const std::filesystem::path file(std::u8string(path.begin(), path.end()));
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  if (path.empty() || status.type() == std::filesystem::file_type::not_found) {
    throw MakeError(kCannotOpenDatabase, "فایل پایگاه داده «" + path +
                                             "» پیدا نشد. Cannot open database. (no such file)");
  }
  if (std::filesystem::is_directory(status)) {
    throw MakeError(kCannotOpenDatabase,
                    "«" + path +
                        "» پوشه است، نه فایل پایگاه داده. Cannot open database. (it is a "
                        "directory)");
  }
}

void Run(sqlite3* database, const char* sql, const std::string& path) {
  if (sqlite3_exec(database, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw LastError(database, path);
  }
}

}  // namespace

DatabaseHandle OpenDatabase(const std::string& path, int flags,
                            std::chrono::milliseconds busyTimeout) {
  if ((flags & SQLITE_OPEN_CREATE) == 0) RequireFile(path);
  sqlite3* opened = nullptr;
  const int result = sqlite3_open_v2(path.c_str(), &opened, flags, nullptr);
  DatabaseHandle database(opened);
  if (result != SQLITE_OK) throw LastError(opened, path);
  sqlite3_extended_result_codes(opened, 1);
  sqlite3_busy_timeout(opened, static_cast<int>(busyTimeout.count()));
  sqlite3_db_config(opened, SQLITE_DBCONFIG_ENABLE_FKEY, 1, nullptr);
  sqlite3_db_config(opened, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  RegisterFunctions(opened);
  // Reads the file for the first time: what is no database shows here.
  Run(opened, "PRAGMA schema_version", path);
  if (sqlite3_db_readonly(opened, "main") == 0) {
    Run(opened, "PRAGMA journal_mode = WAL", path);
    Run(opened, "PRAGMA synchronous = NORMAL", path);
  }
  return database;
}

StatementHandle Prepare(sqlite3* database, std::string_view sql, const std::string& file) {
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &prepared, nullptr) !=
      SQLITE_OK) {
    throw LastError(database, file);
  }
  return StatementHandle(prepared);
}

}  // namespace adapters::sqlite
