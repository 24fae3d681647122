#pragma once

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "adapters/sqlite/Catalog.h"
#include "adapters/sqlite/Database.h"
#include "platform/Connection.h"
#include "platform/StatementLimit.h"

namespace adapters::sqlite {

/// The suite's database in a file. The connection string is `sqlite:` and the file's path (UTF-8);
/// the file must exist when the first statement runs. After a failure to open, or when the file was
/// moved or removed meanwhile (4060), the next statement opens it anew. Statements are in the
/// server's dialect (Translator.h) and fail with the server's numbers, followed by SQLite's own
/// words in parentheses; one that runs longer than `statementLimit` ends as on a silent server.
/// Columns declared DATE or DATETIME hold yyyymmdd and come out as yyyy-mm-dd.
class SqliteConnection : public platform::Connection {
 public:
  explicit SqliteConnection(std::string_view connectionString,
                            std::chrono::milliseconds busyTimeout = kBusyTimeout,
                            std::chrono::milliseconds statementLimit = platform::kStatementLimit);

  platform::RowSet Execute(std::string_view statement) override;
  std::int32_t CallProcedure(std::string_view name,
                             std::span<const platform::Parameter> parameters) override;

 private:
  sqlite3* Database();
  void RequireInPlace();
  void Write(sqlite3* database, sqlite3_stmt* statement, bool givesIdentity);

  std::string connectionString_;
  std::string file_;
  std::chrono::milliseconds busyTimeout_;
  std::chrono::milliseconds statementLimit_;
  DatabaseHandle database_;
  std::optional<Catalog> catalog_;  // of database_
  std::uint64_t log_ = 0;           // number of the file that holds the handle's log
};

}  // namespace adapters::sqlite
