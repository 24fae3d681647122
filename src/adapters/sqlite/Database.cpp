#include "adapters/sqlite/Database.h"

#include <filesystem>
#include <string_view>
#include <system_error>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Functions.h"
#include "adapters/sqlite/Watch.h"

namespace adapters::sqlite {

namespace {

void RequireFile(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(PathOf(path), error);
  if (path.empty() || status.type() == std::filesystem::file_type::not_found) {
    throw MakeError(kCannotOpenDatabase, "فايل پايگاه داده " + Quoted(path) +
                                             " پيدا نشد. Cannot open database. (no such file)");
  }
  if (std::filesystem::is_directory(status)) {
    throw MakeError(kCannotOpenDatabase,
                    Quoted(path) +
                        " پوشه است، نه فايل پايگاه داده. Cannot open database. (it is a "
                        "directory)");
  }
}

DatabaseHandle Open(const std::string& name, int flags, std::chrono::milliseconds busyTimeout,
                    Watch* watch, const std::string& path) {
  sqlite3* opened = nullptr;
  const int result = sqlite3_open_v2(name.c_str(), &opened, flags, nullptr);
  DatabaseHandle database(opened);
  if (result != SQLITE_OK) throw LastError(opened, path);
  sqlite3_extended_result_codes(opened, 1);
  sqlite3_busy_timeout(opened, static_cast<int>(busyTimeout.count()));
  if (watch != nullptr) watch->SetOn(opened);
  sqlite3_db_config(opened, SQLITE_DBCONFIG_ENABLE_FKEY, 1, nullptr);
  sqlite3_db_config(opened, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  RegisterFunctions(opened);
  return database;
}

/// Another program's file, or an empty one, is left as it is: nothing is stored in it, not even how
/// it keeps its journal. Every office has the table that the permission procedure reads.
void RequireOffice(sqlite3* database, const std::string& path) {
  const StatementHandle statement = Prepare(database,
                                            "SELECT 1 FROM sqlite_schema WHERE lower(name) = "
                                            "'tblzomiruserpermission'",
                                            path);
  if (Step(statement, path)) return;
  throw MakeError(kCannotOpenDatabase, "پايگاه داده " + Quoted(path) +
                                           " از اين سامانه نيست. Cannot open database. (it has "
                                           "no table tblZomirUserPermission)");
}

constexpr const char* kUnchanging = "immutable";

/// The handle's file by an address that makes SQLite take no locks and expect no changes.
std::string UnchangingAddress(sqlite3* database) {
  std::string address = "file:";
  for (const char c : std::string_view(sqlite3_db_filename(database, "main"))) {
    if (c == '%' || c == '?' || c == '#') {
      constexpr std::string_view kDigits = "0123456789ABCDEF";
      const auto byte = static_cast<unsigned char>(c);
      address.append({'%', kDigits[byte >> 4U], kDigits[byte & 15U]});
    } else {
      address.push_back(c);
    }
  }
  return address.append("?").append(kUnchanging).append("=1");
}

/// Even reading a file with a write-ahead log needs a file beside it. In a folder where none may be
/// made, and none is left from a program that writes, the file is read as one that never changes.
bool IsUnreadableForItsLog(sqlite3* database) {
  const int code = sqlite3_extended_errcode(database);
  std::error_code error;
  return ((code & 0xFF) == SQLITE_READONLY || (code & 0xFF) == SQLITE_CANTOPEN) &&
         // What a program left half done in the file itself must be taken back first.
         code != SQLITE_READONLY_ROLLBACK && sqlite3_db_readonly(database, "main") == 1 &&
         !std::filesystem::exists(PathOf(LogPath(database)), error);
}

}  // namespace

DatabaseHandle OpenDatabase(const std::string& path, int flags,
                            std::chrono::milliseconds busyTimeout, Watch* watch) {
  if ((flags & SQLITE_OPEN_CREATE) == 0) RequireFile(path);
  DatabaseHandle database = Open(path, flags, busyTimeout, watch, path);
  // Reads the file for the first time: what is no database shows here.
  constexpr const char* kFirstRead = "PRAGMA schema_version";
  if (sqlite3_exec(database.get(), kFirstRead, nullptr, nullptr, nullptr) != SQLITE_OK) {
    if (!IsUnreadableForItsLog(database.get())) throw LastError(database.get(), path);
    const int readOnly = (flags & ~(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) |
                         SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
    database = Open(UnchangingAddress(database.get()), readOnly, busyTimeout, watch, path);
    Run(database.get(), kFirstRead, path);
  }
  if ((flags & SQLITE_OPEN_CREATE) == 0) RequireOffice(database.get(), path);
  if (sqlite3_db_readonly(database.get(), "main") == 0) {
    Run(database.get(), "PRAGMA journal_mode = WAL", path);
    // The log reaches the disk before a statement reports success: a power cut takes nothing that
    // the user saw stored.
    Run(database.get(), "PRAGMA synchronous = FULL", path);
  }
  return database;
}

bool IsWithoutLocks(sqlite3* database) {
  return sqlite3_uri_boolean(sqlite3_db_filename(database, "main"), kUnchanging, 0) != 0;
}

std::string LogPath(sqlite3* database) {
  return sqlite3_filename_wal(sqlite3_db_filename(database, "main"));
}

std::filesystem::path PathOf(const std::string& utf8) {
  return {std::u8string(utf8.begin(), utf8.end())};
}

StatementHandle Prepare(sqlite3* database, std::string_view sql, const std::string& file) {
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &prepared, nullptr) !=
      SQLITE_OK) {
    throw LastError(database, file);
  }
  return StatementHandle(prepared);
}

bool Step(const StatementHandle& statement, const std::string& file) {
  const int result = sqlite3_step(statement.get());
  if (result == SQLITE_ROW || result == SQLITE_DONE) return result == SQLITE_ROW;
  throw LastError(sqlite3_db_handle(statement.get()), file);
}

std::string_view ColumnText(const StatementHandle& statement, int column) {
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column));
  if (bytes == nullptr) return {};
  return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), column))};
}

void Run(sqlite3* database, const std::string& sql, const std::string& file) {
  if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw LastError(database, file);
  }
}

std::vector<std::string> IntegrityFaults(sqlite3* database, const std::string& file) {
  std::vector<std::string> faults;
  const StatementHandle check = Prepare(database, "PRAGMA integrity_check", file);
  int result = sqlite3_step(check.get());
  for (; result == SQLITE_ROW; result = sqlite3_step(check.get())) {
    faults.emplace_back(ColumnText(check, 0));
  }
  if ((result & 0xFF) == SQLITE_CORRUPT) {
    faults.emplace_back(sqlite3_errmsg(database));  // too much to go on
  } else if (result != SQLITE_DONE) {
    throw LastError(database, file);
  }
  if (faults == std::vector<std::string>{"ok"}) faults.clear();
  return faults;
}

}  // namespace adapters::sqlite
