#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace demo {

/// A new database file to write an office into. What fails throws platform::RuntimeError with
/// SQLite's description.
class Database {
 public:
  /// Creates the file, which must not exist.
  explicit Database(const std::string& path);

  void Execute(std::string_view statements);
  [[noreturn]] void Fail() const;

 private:
  friend class Insert;
  struct Close {
    void operator()(sqlite3* database) const;
  };
  std::unique_ptr<sqlite3, Close> handle_;
};

/// What goes into a column. Texts are read while the row is written, not kept.
class Value {
 public:
  Value(std::nullopt_t) {}
  Value(std::int64_t number) : kind_(Kind::kNumber), number_(number) {}
  Value(int number) : Value(std::int64_t{number}) {}
  Value(std::string_view text) : kind_(Kind::kText), text_(text) {}
  Value(const std::string& text) : Value(std::string_view(text)) {}
  Value(const char* text) : Value(std::string_view(text)) {}
  Value(const std::optional<std::string>& text) {
    if (text) *this = Value(std::string_view(*text));
  }

 private:
  friend class Insert;
  enum class Kind { kNull, kNumber, kText };
  Kind kind_ = Kind::kNull;
  std::int64_t number_ = 0;
  std::string_view text_;
};

/// A prepared insert into the named columns of one table.
class Insert {
 public:
  /// columns as SQL writes them: "ID, Code, Name".
  Insert(Database& database, std::string_view table, std::string_view columns);
  void Row(std::initializer_list<Value> values);

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  Database& database_;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

}  // namespace demo
