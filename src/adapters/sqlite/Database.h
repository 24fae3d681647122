#pragma once

#include <sqlite3.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace adapters::sqlite {

class Watch;

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using DatabaseHandle = std::unique_ptr<sqlite3, CloseDatabase>;
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// How long a statement waits for another program's lock.
inline constexpr std::chrono::milliseconds kBusyTimeout{5000};

/// Opens a file (UTF-8 path) with the suite's functions registered, foreign keys enforced, a
/// write-ahead log that is on the disk when a statement returns, and a quoted name never taken for
/// a text. `flags` are SQLITE_OPEN_...; without SQLITE_OPEN_CREATE the file must exist and be one
/// of the suite's, any other is not written to. A file that may only be read opens for reading.
/// Another program's lock is waited for; `watch` is asked meanwhile, and left on the handle. Throws
/// RuntimeError 4060, or 1222 when another program holds the file, its first sentence Persian.
DatabaseHandle OpenDatabase(const std::string& path, int flags,
                            std::chrono::milliseconds busyTimeout = kBusyTimeout,
                            Watch* watch = nullptr);

/// In a folder where none of the files that locks need may be made or is there, a file with a
/// write-ahead log is read as one that never changes: SQLite neither asks for locks nor notices
/// what other programs write.
bool IsWithoutLocks(sqlite3* database);

/// Where SQLite keeps a handle's write-ahead log, absolute and with links resolved.
std::string LogPath(sqlite3* database);

std::filesystem::path PathOf(const std::string& utf8);

/// Compiles one statement of SQLite's own dialect; `file` is named in the error.
StatementHandle Prepare(sqlite3* database, std::string_view sql, const std::string& file);

/// Goes to the statement's next row; false behind the last.
bool Step(const StatementHandle& statement, const std::string& file);

/// A column of the row, empty for NULL; lives until the next step.
std::string_view ColumnText(const StatementHandle& statement, int column);

/// Runs statements of SQLite's own dialect that give no rows.
void Run(sqlite3* database, const std::string& sql, const std::string& file);

/// What SQLite finds damaged, in its words, a line each; none in a file that is whole.
std::vector<std::string> IntegrityFaults(sqlite3* database, const std::string& file);

}  // namespace adapters::sqlite
