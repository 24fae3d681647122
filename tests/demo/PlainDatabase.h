#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

#include "adapters/sqlite/Functions.h"

namespace demo {

/// An office's file as SQLite itself sees it, with its collation, but without the dialect of the
/// suite's server. Foreign
/// keys are enforced.
class PlainDatabase {
 public:
  using Rows = std::vector<std::vector<std::string>>;  // NULL is "NULL"

  /// Made when it is not there; by the usual calls for files unless told.
  explicit PlainDatabase(const std::string& file, const char* vfs = nullptr) {
    sqlite3_open_v2(file.c_str(), &database_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, vfs);
    adapters::sqlite::RegisterCollation(database_);
    Query("PRAGMA foreign_keys = ON");
  }
  ~PlainDatabase() { sqlite3_close(database_); }
  PlainDatabase(const PlainDatabase&) = delete;
  PlainDatabase& operator=(const PlainDatabase&) = delete;

  /// The rows, or one cell with what the database says against the query.
  Rows Query(const std::string& sql) {
    Rows rows;
    const auto add = [](void* to, int count, char** cells, char**) {
      auto& row = static_cast<Rows*>(to)->emplace_back();
      for (int i = 0; i < count; ++i) row.emplace_back(cells[i] ? cells[i] : "NULL");
      return 0;
    };
    const int result = sqlite3_exec(database_, sql.c_str(), add, &rows, nullptr);
    return result == SQLITE_OK ? rows : Rows{{sqlite3_errmsg(database_)}};
  }
  /// As a text, "cell|cell;" a row.
  std::string Text(const std::string& sql) {
    std::string text;
    for (const auto& row : Query(sql)) {
      for (const std::string& cell : row) text += cell + "|";
      text.back() = ';';
    }
    return text;
  }

 private:
  sqlite3* database_ = nullptr;
};

}  // namespace demo
