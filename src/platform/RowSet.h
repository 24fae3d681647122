#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/TextTable.h"

namespace platform {

/// What one statement returned, whole: column names and cells as UTF-8 text. Numbers are decimal
/// text with "." as the decimal point, dates `yyyy-mm-dd` or `yyyy-mm-dd hh:mm:ss`, NULL absent.
/// A statement that returns no rows by nature (INSERT, UPDATE, DELETE) gives a RowSet without
/// columns; a query that found nothing has columns and no rows.
class RowSet {
 public:
  RowSet() = default;
  explicit RowSet(std::vector<std::string> columns) : columns_(std::move(columns)) {}

  bool ReturnsRows() const { return !columns_.empty(); }
  std::size_t ColumnCount() const { return columns_.size(); }
  std::size_t RowCount() const {
    return columns_.empty() ? 0 : table_.cells.size() / columns_.size();
  }
  const std::vector<std::string>& Columns() const { return columns_; }
  /// How many rows a statement without rows says that it changed; nothing where it does not say.
  std::optional<std::int64_t> AffectedRows() const { return affectedRows_; }
  void SetAffectedRows(std::int64_t rows) { affectedRows_ = rows; }
  /// First column of that name, letter case of Latin letters ignored.
  std::optional<std::size_t> ColumnIndex(std::string_view name) const;

  /// No bounds are checked: row < RowCount(), column < ColumnCount().
  std::optional<std::string_view> Cell(std::size_t row, std::size_t column) const {
    const TextSlice& slice = table_.cells[row * columns_.size() + column];
    if (slice.IsNull()) return std::nullopt;
    return table_.Text(slice);
  }
  /// The cell's text, NULL as empty text.
  std::string_view Text(std::size_t row, std::size_t column) const {
    return table_.Text(table_.cells[row * columns_.size() + column]);
  }

  /// Adapters fill a result cell by cell, in row order.
  void Append(std::string_view text) { table_.Append(text); }
  void AppendNull() { table_.AppendNull(); }

  /// Gives the cells away (to a grid); afterwards the row set has its columns and no rows.
  TextTable ReleaseCells() {
    TextTable released = std::move(table_);
    table_ = {};
    return released;
  }

 private:
  std::vector<std::string> columns_;
  TextTable table_;
  std::optional<std::int64_t> affectedRows_;
};

}  // namespace platform
