#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Connection.h"

namespace host {

/// One of the data environment's reusable recordsets. Use: run a statement, read, close.
///
/// Failures, all RuntimeError: reading or closing a closed one 3704, no such field 3265, no row at
/// the cursor 3021; what the database refuses keeps its own number and leaves the recordset closed.
class Recordset {
 public:
  explicit Recordset(platform::Connection& connection) : connection_(connection) {}
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  /// Closes what is open and executes the statement; the cursor stands on the first row. One
  /// without rows (INSERT, UPDATE, DELETE) leaves it closed.
  void Run(std::string_view statement);
  void Close();

  /// How many rows the last statement, one without rows, says that it changed.
  std::optional<std::int64_t> AffectedRows() const { return rows_.AffectedRows(); }
  std::size_t RecordCount() const;
  bool Eof() const;
  /// Past the last row it is Eof; from there it throws 3021.
  void MoveNext();
  /// The field's text at the cursor, NULL as empty text; valid until the recordset is closed.
  std::string_view Text(std::string_view field) const;

  /// Gives the rows to a grid and closes the recordset.
  platform::RowSet TakeRows();

 private:
  void RequireOpen() const;
  void RequireRow() const;
  std::size_t FieldIndex(std::string_view field) const;

  platform::Connection& connection_;
  platform::RowSet rows_;
  std::size_t cursor_ = 0;
  bool open_ = false;
};

}  // namespace host
