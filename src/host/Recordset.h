#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Connection.h"

namespace host {

/// One of the data environment's reusable recordsets. Use: close it if it is open, open it with a
/// statement, read, close. A statement without rows (INSERT, UPDATE, DELETE) leaves it closed.
///
/// Failures, all RuntimeError: opening an open one or giving it another source 3705, reading or
/// closing a closed one 3704, no such field 3265, no row at the cursor 3021; what the database
/// refuses keeps its own number and leaves the recordset closed.
class Recordset {
 public:
  enum class State { kClosed = 0, kOpen = 1 };

  explicit Recordset(platform::Connection& connection) : connection_(connection) {}
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  State GetState() const { return open_ ? State::kOpen : State::kClosed; }
  const std::string& Source() const { return source_; }
  void SetSource(std::string source);
  /// Executes Source; the cursor stands on the first row.
  void Open();
  void Open(std::string source);
  void Close();
  void CloseIfOpen() {
    if (open_) Close();
  }

  /// How many rows the last statement, one without rows, says that it changed.
  std::optional<std::int64_t> AffectedRows() const { return rows_.AffectedRows(); }
  std::size_t RecordCount() const;
  bool Eof() const;
  void MoveFirst();
  /// Past the last row it is Eof; from there it throws 3021.
  void MoveNext();
  bool IsNull(std::string_view field) const;
  /// The field's text at the cursor, NULL as empty text; valid until the recordset is closed.
  std::string_view Text(std::string_view field) const;

  /// Gives the rows to a grid and closes the recordset.
  platform::RowSet TakeRows();

 private:
  void RequireOpen() const;
  void RequireRow() const;
  std::size_t FieldIndex(std::string_view field) const;

  platform::Connection& connection_;
  std::string source_;
  platform::RowSet rows_;
  std::size_t cursor_ = 0;
  bool open_ = false;
};

}  // namespace host
