#include "host/Recordset.h"

#include <utility>

#include "platform/RuntimeError.h"

namespace host {

namespace {

using platform::RuntimeError;

constexpr const char* kSourceName = "Recordset";

void RefuseWhenOpen(bool open) {
  if (!open) return;
  throw RuntimeError(platform::kObjectOpen, "Operation is not allowed when the object is open.",
                     kSourceName);
}

}  // namespace

void Recordset::SetSource(std::string source) {
  RefuseWhenOpen(open_);
  source_ = std::move(source);
}

void Recordset::Open() {
  RefuseWhenOpen(open_);
  platform::RowSet rows = connection_.Execute(source_);
  open_ = rows.ReturnsRows();
  rows_ = std::move(rows);
  cursor_ = 0;
}

void Recordset::Open(std::string source) {
  SetSource(std::move(source));
  Open();
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

void Recordset::MoveFirst() {
  RequireOpen();
  cursor_ = 0;
}

void Recordset::MoveNext() {
  RequireRow();
  ++cursor_;
}

bool Recordset::IsNull(std::string_view field) const {
  const std::size_t column = FieldIndex(field);
  RequireRow();
  return !rows_.Cell(cursor_, column).has_value();
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
