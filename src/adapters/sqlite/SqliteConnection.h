#pragma once

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "adapters/sqlite/DatabaseFile.h"
#include "platform/Connection.h"
#include "platform/Progress.h"
#include "platform/RunningStatement.h"
#include "platform/StatementLimit.h"

namespace adapters::sqlite {

/// The suite's database in a file. The connection string is `sqlite:` and the file's path (UTF-8);
/// the file must exist when the first statement runs. After a failure to open, or when the file was
/// moved or removed meanwhile (4060), the next statement opens it anew. Without the right to write
/// in its folder the file can be read all the same (DatabaseFile). Statements are in the server's
/// dialect (Translator.h) and fail with the server's numbers, followed by SQLite's own words in
/// parentheses; one that runs longer than `statementLimit` ends as on a silent server. `progress`
/// (RunningStatement.h) is asked while a statement runs or waits for another program's lock, also
/// while it opens the file; what the user cancels has stored nothing.
/// Dates come out as yyyy-mm-dd.
class SqliteConnection : public platform::Connection {
 public:
  explicit SqliteConnection(std::string_view connectionString,
                            std::chrono::milliseconds busyTimeout = kBusyTimeout,
                            std::chrono::milliseconds statementLimit = platform::kStatementLimit,
                            platform::Progress* progress = nullptr);

  platform::RowSet Execute(std::string_view statement) override;
  std::unique_ptr<platform::RowReader> Open(std::string_view statement) override;
  std::int32_t CallProcedure(std::string_view name,
                             std::span<const platform::Parameter> parameters) override;

 private:
  DatabaseFile& File();
  /// `work` notes what it leaves behind should the user cancel it.
  template <typename Work>
  auto Run(const Work& work);
  platform::RowSet ExecuteOn(sqlite3* database, Catalog& catalog, std::string_view statement,
                             platform::Cancelled& left);
  void Write(sqlite3* database, sqlite3_stmt* statement, bool givesIdentity);

  std::string connectionString_;
  DatabaseFile file_;
  std::chrono::milliseconds busyTimeout_;
  std::chrono::milliseconds statementLimit_;
  platform::Progress* progress_;
};

}  // namespace adapters::sqlite
