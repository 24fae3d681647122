#pragma once

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "adapters/sqlite/DatabaseFile.h"
#include "platform/Connection.h"

namespace adapters::sqlite {

/// The suite's database in a file. The connection string is `sqlite:` and the file's path (UTF-8);
/// the file must exist when the first statement runs. After a failure to open, or when the file was
/// moved or removed meanwhile (4060), the next statement opens it anew. Without the right to write
/// in its folder the file can be read all the same (DatabaseFile). Statements are in the server's
/// dialect (Translator.h) and fail with the server's numbers, followed by SQLite's own words in
/// parentheses. Columns declared DATE or DATETIME hold yyyymmdd and come out as yyyy-mm-dd.
class SqliteConnection : public platform::Connection {
 public:
  explicit SqliteConnection(std::string_view connectionString,
                            std::chrono::milliseconds busyTimeout = kBusyTimeout);

  platform::RowSet Execute(std::string_view statement) override;
  std::int32_t CallProcedure(std::string_view name,
                             std::span<const platform::Parameter> parameters) override;

 private:
  DatabaseFile& File();
  platform::RowSet ExecuteOn(sqlite3* database, std::string_view statement);
  void Write(sqlite3* database, sqlite3_stmt* statement, const std::string& insertedTable);
  bool HasIdentity(sqlite3* database, const std::string& table);

  std::string connectionString_;
  DatabaseFile file_;
};

}  // namespace adapters::sqlite
