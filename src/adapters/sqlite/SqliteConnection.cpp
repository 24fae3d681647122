#include "adapters/sqlite/SqliteConnection.h"

#include <utility>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Procedures.h"
#include "adapters/sqlite/Rows.h"
#include "adapters/sqlite/StepwiseReader.h"
#include "adapters/sqlite/Translator.h"
#include "adapters/sqlite/Watch.h"
#include "platform/RunningStatement.h"

namespace adapters::sqlite {

namespace {

constexpr std::string_view kPrefix = "sqlite:";

platform::RowSet ReadAll(sqlite3* database, sqlite3_stmt* statement,
                         const std::vector<ResultColumn>& columns, const std::string& file) {
  platform::RowSet rows = NoRows(columns);
  int result = sqlite3_step(statement);
  for (; result == SQLITE_ROW; result = sqlite3_step(statement))
    AppendRow(rows, statement, columns);
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

std::unique_ptr<platform::RowReader> SqliteConnection::Open(std::string_view statement) {
  using Reader = std::unique_ptr<platform::RowReader>;
  Reader reader = Run([&](sqlite3* database, Catalog& catalog, platform::Cancelled&) -> Reader {
    // Of a file that is opened anew for each statement none may stay open.
    if (IsWithoutLocks(database)) return nullptr;
    Translation translation = Translate(statement, catalog);
    if (translation.columns.empty()) return nullptr;
    try {
      return StepwiseReader::Open(file_.Path(), std::move(translation),
                                  {busyTimeout_, statementLimit_}, progress_);
    } catch (const platform::RuntimeError&) {
      catalog.Forget();
      throw;
    }
  });
  return reader ? std::move(reader) : Connection::Open(statement);
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
    return ReadAll(database, prepared.get(), translation.columns, file_.Path());
  }
  left = platform::Cancelled::kTakenBack;
  Write(database, prepared.get(), translation.givesIdentity);
  platform::RowSet none;
  none.SetAffectedRows(sqlite3_changes64(database));
  return none;
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
