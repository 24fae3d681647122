#include "adapters/sqlite/Rows.h"

#include <string>
#include <string_view>

#include "text/Text.h"

namespace adapters::sqlite {

namespace {

/// A moment's text "yyyymmdd hh:mm:ss" with its dashes; any other as it is.
void AppendMoment(platform::RowSet& rows, std::string_view stored) {
  std::string moment(stored);
  if (moment.size() > 8 && moment[8] == ' ') moment.insert(6, "-").insert(4, "-");
  rows.Append(moment);
}

void AppendCell(platform::RowSet& rows, sqlite3_stmt* statement, int column, Type::Kind type) {
  const int stored = sqlite3_column_type(statement, column);
  const bool isDay = type == Type::Kind::kDate || type == Type::Kind::kMoment;
  if (stored == SQLITE_NULL) {
    rows.AppendNull();
  } else if (stored == SQLITE_FLOAT) {
    rows.Append(text::DecimalText(sqlite3_column_double(statement, column)));
  } else if (stored == SQLITE_INTEGER && isDay) {
    rows.Append(DateText(sqlite3_column_int64(statement, column)));
  } else {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    const std::string_view cell =
        bytes == nullptr ? std::string_view() : std::string_view(bytes, size);
    if (type == Type::Kind::kMoment) {
      AppendMoment(rows, cell);
    } else {
      rows.Append(cell);
    }
  }
}

}  // namespace

platform::RowSet NoRows(const std::vector<ResultColumn>& columns) {
  std::vector<std::string> names;
  names.reserve(columns.size());
  for (const ResultColumn& column : columns) names.push_back(column.name);
  return platform::RowSet(std::move(names));
}

void AppendRow(platform::RowSet& rows, sqlite3_stmt* statement,
               const std::vector<ResultColumn>& columns) {
  int index = 0;
  for (const ResultColumn& column : columns) AppendCell(rows, statement, index++, column.type);
}

}  // namespace adapters::sqlite
