#pragma once

#include <sqlite3.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/Types.h"

namespace adapters::sqlite {

struct Column {
  std::string name;
  Type type;
  bool identity = false;  ///< its values are given, none may be set
  bool inKey = false;     ///< the primary one

  /// SQLite may take none, or give one, where the server wants one.
  bool Required() const { return inKey && !identity; }
};

struct Table {
  std::string name;  ///< as it was made
  bool view = false;
  std::vector<Column> columns;
};

/// The tables and views of an open database, each read from its schema when it is first asked for.
class Catalog {
 public:
  Catalog(sqlite3* database, std::string file) : database_(database), file_(std::move(file)) {}

  /// Letter case does not count. Throws 208; SQLite's own tables are none.
  const Table& Find(const std::string& name);
  /// Each table is read anew from here on.
  void Forget() { tables_.clear(); }
  bool IsInUniqueKey(const Table& table, const Column& column);
  /// The database's file, for errors.
  const std::string& File() const { return file_; }

 private:
  Table Read(const std::string& lowerName);

  sqlite3* database_;
  std::string file_;
  std::map<std::string, Table, std::less<>> tables_;
};

}  // namespace adapters::sqlite
