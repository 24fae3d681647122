#include "adapters/sqlite/SqliteConnection.h"

#include <algorithm>
#include <vector>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Procedures.h"
#include "adapters/sqlite/TokenReader.h"
#include "adapters/sqlite/Translator.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

constexpr std::string_view kPrefix = "sqlite:";

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
    : connectionString_(connectionString),
      file_(connectionString_.starts_with(kPrefix) ? connectionString_.substr(kPrefix.size()) : "",
            busyTimeout) {}

DatabaseFile& SqliteConnection::File() {
  if (!connectionString_.starts_with(kPrefix)) {
    throw MakeError(kCannotOpenDatabase,
                    // Not shown: it may be a server's, with a password.
                    "رشته اتصال نام فايل پايگاه داده ندارد. Cannot open database. "
                    "(the connection string must be sqlite:FILE)");
  }
  return file_;
}

platform::RowSet SqliteConnection::Execute(std::string_view statement) {
  return File().Use([&](sqlite3* database) { return ExecuteOn(database, statement); });
}

platform::RowSet SqliteConnection::ExecuteOn(sqlite3* database, std::string_view statement) {
  const Translation translation = Translate(statement);
  const StatementHandle prepared = Prepare(database, translation.sql, file_.Path());
  if (translation.returnsRows) return Read(database, prepared.get(), file_.Path());
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
    const platform::RuntimeError error = LastError(database, file_.Path());
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
              file_.Path());
  sqlite3_bind_text64(statement.get(), 1, table.data(), table.size(), SQLITE_STATIC, SQLITE_UTF8);
  if (sqlite3_step(statement.get()) != SQLITE_ROW) throw LastError(database, file_.Path());
  return sqlite3_column_int(statement.get(), 0) != 0;
}

std::int32_t SqliteConnection::CallProcedure(std::string_view name,
                                             std::span<const platform::Parameter> parameters) {
  return File().Use([&](sqlite3* database) {
    return CallStoredProcedure(database, name, parameters, file_.Path());
  });
}

}  // namespace adapters::sqlite
