#include "adapters/sqlite/SqliteConnection.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Procedures.h"
#include "adapters/sqlite/TokenReader.h"
#include "adapters/sqlite/Translator.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

constexpr std::string_view kPrefix = "sqlite:";
constexpr const char* kLog = "-wal";

/// What tells a file from others that have or had its name; 0 where there is none, or no such
/// number.
std::uint64_t FileNumber(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

bool IsDateColumn(sqlite3_stmt* statement, int column) {
  const char* declared = sqlite3_column_decltype(statement, column);
  if (declared == nullptr) return false;
  const std::string type = LowerName(declared);
  return type == "date" || type == "datetime";
}

/// yyyymmdd, perhaps with a time behind a blank, as yyyy-mm-dd; any other text as it is.
void AppendDate(platform::RowSet& rows, std::string_view stored) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const std::string_view day = stored.substr(0, 8);
  const std::string_view time = stored.substr(day.size());
  if (day.size() < 8 || !std::all_of(day.begin(), day.end(), isDigit) ||
      (!time.empty() && time.front() != ' ')) {
    rows.Append(stored);
    return;
  }
  std::string date;
  date.append(day, 0, 4).append("-").append(day, 4, 2).append("-").append(day, 6, 2).append(time);
  rows.Append(date);
}

void AppendCell(platform::RowSet& rows, sqlite3_stmt* statement, int column, bool isDate) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
      rows.AppendNull();
      return;
    case SQLITE_FLOAT:
      rows.Append(text::DecimalText(sqlite3_column_double(statement, column)));
      return;
    default: {
      const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
      const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
      const std::string_view cell =
          bytes == nullptr ? std::string_view() : std::string_view(bytes, size);
      if (isDate) {
        AppendDate(rows, cell);
      } else {
        rows.Append(cell);
      }
    }
  }
}

platform::RowSet Read(sqlite3* database, sqlite3_stmt* statement, const std::string& file) {
  const int count = sqlite3_column_count(statement);
  std::vector<std::string> names;
  std::vector<bool> isDate;
  for (int column = 0; column < count; ++column) {
    names.emplace_back(sqlite3_column_name(statement, column));
    isDate.push_back(IsDateColumn(statement, column));
  }
  platform::RowSet rows(std::move(names));
  int result = sqlite3_step(statement);
  for (; result == SQLITE_ROW; result = sqlite3_step(statement)) {
    for (int column = 0; column < count; ++column) {
      AppendCell(rows, statement, column, isDate[static_cast<std::size_t>(column)]);
    }
  }
  if (result != SQLITE_DONE) throw LastError(database, file);
  return rows;
}

}  // namespace

SqliteConnection::SqliteConnection(std::string_view connectionString,
                                   std::chrono::milliseconds busyTimeout)
    : connectionString_(connectionString), busyTimeout_(busyTimeout) {
  if (connectionString.starts_with(kPrefix)) file_ = connectionString.substr(kPrefix.size());
}

/// A file that was renamed or removed under an open handle would take rows that nobody finds again.
/// What its log holds goes into it, and the log away, lest it be taken for that of a file put in
/// its place; unless that file has one of its own by now.
void SqliteConnection::RequireInPlace() {
  int moved = 0;
  sqlite3_file_control(database_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  if (moved == 0) return;
  if (log_ != 0 && log_ == FileNumber(file_ + kLog)) {
    sqlite3_wal_checkpoint_v2(database_.get(), "main", SQLITE_CHECKPOINT_TRUNCATE, nullptr,
                              nullptr);
    for (const char* part : {kLog, "-shm"}) std::remove((file_ + part).c_str());
  }
  database_.reset();
  throw MakeError(
      kCannotOpenDatabase,
      "فايل پايگاه داده " + Quoted(file_) +
          " جابه‌جا يا پاك شده است و چيزي ثبت نشد. Cannot open "
          "database. (the file was moved or removed)");
}

sqlite3* SqliteConnection::Database() {
  if (database_) RequireInPlace();
  if (!database_) {
    if (!connectionString_.starts_with(kPrefix)) {
      throw MakeError(kCannotOpenDatabase,
                      // Not shown: it may be a server's, with a password.
                      "رشته اتصال نام فايل پايگاه داده ندارد. Cannot open database. "
                      "(the connection string must be sqlite:FILE)");
    }
    database_ = OpenDatabase(file_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, busyTimeout_);
    log_ = FileNumber(file_ + kLog);
  }
  return database_.get();
}

platform::RowSet SqliteConnection::Execute(std::string_view statement) {
  sqlite3* database = Database();
  const Translation translation = Translate(statement);
  const StatementHandle prepared = Prepare(database, translation.sql, file_);
  if (translation.returnsRows) return Read(database, prepared.get(), file_);
  Write(database, prepared.get(), translation.insertedTable);
  return {};
}

/// SQLite counts every inserted row as an identity; the server only those of an identity column,
/// and none of a statement that failed.
void SqliteConnection::Write(sqlite3* database, sqlite3_stmt* statement,
                             const std::string& insertedTable) {
  const sqlite3_int64 identity = sqlite3_last_insert_rowid(database);
  // Asked before, because nothing may fail once the rows are stored.
  const bool givesIdentity = insertedTable.empty() || HasIdentity(database, insertedTable);
  if (sqlite3_step(statement) != SQLITE_DONE) {
    const platform::RuntimeError error = LastError(database, file_);
    sqlite3_reset(statement);
    sqlite3_set_last_insert_rowid(database, identity);
    throw error;
  }
  if (!givesIdentity) sqlite3_set_last_insert_rowid(database, identity);
}

bool SqliteConnection::HasIdentity(sqlite3* database, const std::string& table) {
  const StatementHandle statement =
      Prepare(database,
              "SELECT count(*) = 1 AND lower(max(type)) = 'integer' FROM pragma_table_info(?1) "
              "WHERE pk > 0",
              file_);
  sqlite3_bind_text64(statement.get(), 1, table.data(), table.size(), SQLITE_STATIC, SQLITE_UTF8);
  if (sqlite3_step(statement.get()) != SQLITE_ROW) throw LastError(database, file_);
  return sqlite3_column_int(statement.get(), 0) != 0;
}

std::int32_t SqliteConnection::CallProcedure(std::string_view name,
                                             std::span<const platform::Parameter> parameters) {
  return CallStoredProcedure(Database(), name, parameters, file_);
}

}  // namespace adapters::sqlite
