#include "adapters/sqlite/Catalog.h"

#include <algorithm>
#include <array>

#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/TokenReader.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

/// Which older files declare INTEGER, as they do an int.
constexpr std::string_view kSumsTable = "tblaccountdocumentdetail";
constexpr std::array<std::string_view, 2> kSums{"debit", "credit"};

class Reading {
 public:
  Reading(sqlite3* database, std::string_view sql, const std::string& name, const std::string& file)
      : database_(database), file_(file), statement_(Prepare(database, sql, file)) {
    sqlite3_bind_text64(statement_.get(), 1, name.data(), name.size(), SQLITE_STATIC, SQLITE_UTF8);
  }
  bool Next() {
    const int result = sqlite3_step(statement_.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) throw LastError(database_, file_);
    return result == SQLITE_ROW;
  }
  std::string Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
    return text == nullptr ? std::string() : text;
  }
  bool Is(int column) const { return sqlite3_column_int(statement_.get(), column) != 0; }

 private:
  sqlite3* database_;
  const std::string& file_;
  StatementHandle statement_;
};

}  // namespace

const Table& Catalog::Find(const std::string& name) {
  const std::string lower = text::Small(name);
  if (const auto found = tables_.find(lower); found != tables_.end()) return found->second;
  Table table = Read(lower);
  if (table.columns.empty()) throw MissingObject(name, file_);
  return tables_.emplace(lower, std::move(table)).first->second;
}

Table Catalog::Read(const std::string& lowerName) {
  Table table;
  Reading columns(database_,
                  "SELECT t.name, t.type = 'view', instr(upper(t.sql), 'AUTOINCREMENT'), c.name, "
                  "c.type, c.pk FROM sqlite_schema t, pragma_table_info(t.name) c WHERE "
                  "lower(t.name) = ?1 AND t.type IN ('table', 'view') AND substr(t.name, 1, 7) <> "
                  "'sqlite_'",
                  lowerName, file_);
  while (columns.Next()) {
    table.name = columns.Text(0);
    table.view = columns.Is(1);
    const std::string declared = columns.Text(4);
    Column column{.name = columns.Text(3), .type = DeclaredType(declared)};
    column.inKey = columns.Is(5);
    column.identity = column.inKey && columns.Is(2);
    // What an expression of a view is, SQLite does not say; in the suite's all are texts.
    const bool isText = table.view && (declared.empty() || column.type.Is(Type::Kind::kBlob));
    if (isText) column.type = TextType(0);
    if (lowerName == kSumsTable && std::ranges::count(kSums, text::Small(column.name)) != 0) {
      column.type = {Type::Kind::kBigint};
    }
    table.columns.push_back(std::move(column));
  }
  return table;
}

bool Catalog::IsInUniqueKey(const Table& table, const Column& column) {
  if (column.inKey) return true;
  Reading keys(database_,
               "SELECT i.name FROM pragma_index_list(?1) l, pragma_index_info(l.name) i WHERE "
               "l.\"unique\"",
               table.name, file_);
  while (keys.Next()) {
    if (keys.Text(0) == column.name) return true;
  }
  return false;
}

}  // namespace adapters::sqlite
