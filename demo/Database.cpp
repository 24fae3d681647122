#include "demo/Database.h"

#include <sqlite3.h>

#include <algorithm>

#include "adapters/sqlite/Functions.h"
#include "platform/RuntimeError.h"

namespace demo {

namespace {

// What a data provider reports when it has no number of its own.
constexpr std::int32_t kProviderError = -2147467259;

}  // namespace

void Database::Close::operator()(sqlite3* database) const {
  sqlite3_close(database);
}

void Insert::Finalize::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

Database::Database(const std::string& path) {
  sqlite3* opened = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_EXCLUSIVE;
  const int result = sqlite3_open_v2(path.c_str(), &opened, flags, nullptr);
  handle_.reset(opened);
  if (result != SQLITE_OK || !adapters::sqlite::RegisterCollation(opened)) Fail();
}

void Database::Execute(std::string_view statements) {
  if (sqlite3_exec(handle_.get(), std::string(statements).c_str(), nullptr, nullptr, nullptr) !=
      SQLITE_OK) {
    Fail();
  }
}

void Database::Fail() const {
  throw platform::RuntimeError(kProviderError, sqlite3_errmsg(handle_.get()), "SQLite");
}

Insert::Insert(Database& database, std::string_view table, std::string_view columns)
    : database_(database) {
  std::string sql = "INSERT INTO ";
  sql.append(table).append(" (").append(columns).append(") VALUES (?");
  for (auto commas = std::count(columns.begin(), columns.end(), ','); commas > 0; --commas) {
    sql += ", ?";
  }
  sql += ")";
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v3(database.handle_.get(), sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT,
                         &prepared, nullptr) != SQLITE_OK) {
    database.Fail();
  }
  statement_.reset(prepared);
}

void Insert::Row(std::initializer_list<Value> values) {
  sqlite3_stmt* statement = statement_.get();
  int result = SQLITE_OK;
  int index = 0;
  for (const Value& value : values) {
    ++index;
    switch (value.kind_) {
      case Value::Kind::kNull:
        result |= sqlite3_bind_null(statement, index);
        break;
      case Value::Kind::kNumber:
        result |= sqlite3_bind_int64(statement, index, value.number_);
        break;
      case Value::Kind::kText:
        result |= sqlite3_bind_text64(statement, index, value.text_.data(), value.text_.size(),
                                      SQLITE_STATIC, SQLITE_UTF8);
        break;
    }
  }
  if (result != SQLITE_OK || sqlite3_step(statement) != SQLITE_DONE) database_.Fail();
  sqlite3_reset(statement);
}

}  // namespace demo
