#include "adapters/sqlite/SqliteConnection.h"

#include <vector>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Procedures.h"
#include "adapters/sqlite/Translator.h"
#include "adapters/sqlite/Watch.h"
#include "platform/RunningStatement.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

constexpr std::string_view kPrefix = "sqlite:";

/// A moment's text "yyyymmdd hh:mm:ss" with its dashes; any other as it is.
void AppendMoment(platform::RowSet& rows, std::string_view stored) {
  std::string moment(stored);
  if (moment.size() > 8 && moment[8] == ' ') moment.insert(6, "-").insert(4, "-");
  rows.Append(moment);
}

void AppendCell(platform::RowSet& rows, sqlite3_stmt* statement, int column, Type::Kind type) {
  const int stored = sqlite3_column_type(statement, column);
  const bool isDay = type == Type::Kind::kDate || type == Type::Kind::kMoment;
  if (stored == SQLITE_NULL) {
    rows.AppendNull();
  } else if (stored == SQLITE_FLOAT) {
    rows.Append(text::DecimalText(sqlite3_column_double(statement, column)));
  } else if (stored == SQLITE_INTEGER && isDay) {
    rows.Append(DateText(sqlite3_column_int64(statement, column)));
  } else {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    const std::string_view cell =
        bytes == nullptr ? std::string_view() : std::string_view(bytes, size);
    if (type == Type::Kind::kMoment) {
      AppendMoment(rows, cell);
    } else {
      rows.Append(cell);
    }
  }
}

platform::RowSet Read(sqlite3* database, sqlite3_stmt* statement,
                      const std::vector<ResultColumn>& columns, const std::string& file) {
  std::vector<std::string> names;
  for (const ResultColumn& column : columns) names.push_back(column.name);
  platform::RowSet rows(std::move(names));
  int result = sqlite3_step(statement);
  for (; result == SQLITE_ROW; result = sqlite3_step(statement)) {
    int index = 0;
    for (const ResultColumn& column : columns) AppendCell(rows, statement, index++, column.type);
  }
  if (result != SQLITE_DONE) throw LastError(database, file);
  return rows;
}

}  // namespace

SqliteConnection::SqliteConnection(std::string_view connectionString,
                                   std::chrono::milliseconds busyTimeout,
                                   std::chrono::milliseconds statementLimit,
                                   platform::Progress* progress)
    : connectionString_(connectionString),
      file_(connectionString_.starts_with(kPrefix) ? connectionString_.substr(kPrefix.size()) : "",
            busyTimeout),
      busyTimeout_(busyTimeout),
      statementLimit_(statementLimit),
      progress_(progress) {}

DatabaseFile& SqliteConnection::File() {
  if (!connectionString_.starts_with(kPrefix)) {
    throw MakeError(kCannotOpenDatabase,
                    // Not shown: it may be a server's, with a password.
                    "رشته اتصال نام فايل پايگاه داده ندارد. Cannot open database. "
                    "(the connection string must be sqlite:FILE)");
  }
  return file_;
}

template <typename Work>
auto SqliteConnection::Run(const Work& work) {
  using platform::Cancelled;
  DatabaseFile& file = File();
  platform::RunningStatement running(progress_);
  Watch watch(running, statementLimit_, busyTimeout_);
  Cancelled left = Cancelled::kReading;
  try {
    return file.Use(
        [&](sqlite3* database, Catalog& catalog) { return work(database, catalog, left); }, &watch);
  } catch (const platform::RuntimeError& error) {
    if (!running.Cancelled()) throw;
    throw platform::CancelledError(left, {}, error.Source());
  }
}

platform::RowSet SqliteConnection::Execute(std::string_view statement) {
  return Run([&](sqlite3* database, Catalog& catalog, platform::Cancelled& left) {
    return ExecuteOn(database, catalog, statement, left);
  });
}

platform::RowSet SqliteConnection::ExecuteOn(sqlite3* database, Catalog& catalog,
                                             std::string_view statement,
                                             platform::Cancelled& left) {
  const Translation translation = Translate(statement, catalog);
  StatementHandle prepared;
  try {
    prepared = Prepare(database, translation.sql, file_.Path());
  } catch (const platform::RuntimeError&) {
    catalog.Forget();  // another program may have changed a table
    throw;
  }
  if (!translation.columns.empty()) {
    return Read(database, prepared.get(), translation.columns, file_.Path());
  }
  left = platform::Cancelled::kTakenBack;
  Write(database, prepared.get(), translation.givesIdentity);
  return {};
}

/// SQLite counts every inserted row as an identity; the server only those of an identity column,
/// and none of a statement that failed.
void SqliteConnection::Write(sqlite3* database, sqlite3_stmt* statement, bool givesIdentity) {
  const sqlite3_int64 identity = sqlite3_last_insert_rowid(database);
  if (sqlite3_step(statement) != SQLITE_DONE) {
    const platform::RuntimeError error = LastError(database, file_.Path());
    sqlite3_reset(statement);
    sqlite3_set_last_insert_rowid(database, identity);
    throw error;
  }
  if (!givesIdentity) sqlite3_set_last_insert_rowid(database, identity);
}

std::int32_t SqliteConnection::CallProcedure(std::string_view name,
                                             std::span<const platform::Parameter> parameters) {
  return Run([&](sqlite3* database, Catalog&, platform::Cancelled& left) {
    left = platform::Cancelled::kTakenBack;
    return CallStoredProcedure(database, name, parameters, file_.Path());
  });
}

}  // namespace adapters::sqlite
