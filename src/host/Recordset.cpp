#include "host/Recordset.h"

#include <utility>

#include "platform/RuntimeError.h"

namespace host {

namespace {

using platform::RuntimeError;

constexpr const char* kSourceName = "Recordset";

}  // namespace

void Recordset::Run(std::string_view statement) {
  if (open_) Close();
  rows_ = connection_.Execute(statement);
  open_ = rows_.ReturnsRows();
  cursor_ = 0;
}

void Recordset::Close() {
  RequireOpen();
  rows_ = {};
  open_ = false;
}

std::size_t Recordset::RecordCount() const {
  RequireOpen();
  return rows_.RowCount();
}

bool Recordset::Eof() const {
  RequireOpen();
  return cursor_ >= rows_.RowCount();
}

void Recordset::MoveNext() {
  RequireRow();
  ++cursor_;
}

std::string_view Recordset::Text(std::string_view field) const {
  const std::size_t column = FieldIndex(field);
  RequireRow();
  return rows_.Text(cursor_, column);
}

platform::RowSet Recordset::TakeRows() {
  RequireOpen();
  platform::RowSet rows = std::move(rows_);
  Close();
  return rows;
}

void Recordset::RequireOpen() const {
  if (open_) return;
  throw RuntimeError(platform::kObjectClosed, "Operation is not allowed when the object is closed.",
                     kSourceName);
}

void Recordset::RequireRow() const {
  if (!Eof()) return;
  throw RuntimeError(platform::kNoCurrentRecord,
                     "Either BOF or EOF is True, or the current record has been deleted. Requested "
                     "operation requires a current record.",
                     kSourceName);
}

std::size_t Recordset::FieldIndex(std::string_view field) const {
  RequireOpen();
  if (const auto column = rows_.ColumnIndex(field)) return *column;
  throw RuntimeError(
      platform::kNoSuchField,
      "Item cannot be found in the collection corresponding to the requested name or ordinal.",
      kSourceName);
}

}  // namespace host
