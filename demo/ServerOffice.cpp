#include "demo/ServerOffice.h"

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <random>
#include <span>
#include <string>
#include <system_error>
#include <vector>

#include "adapters/sqlite/Database.h"
#include "demo/SqlScript.h"
#include "platform/ResumeNext.h"
#include "platform/RuntimeError.h"
#include "text/CellText.h"
#include "text/Text.h"

namespace demo {

namespace {

namespace fs = std::filesystem;
using adapters::sqlite::StatementHandle;

/// The server takes 1000 rows a statement, but its time to compile them grows out of proportion.
constexpr std::size_t kMostRows = 250;
/// Of UTF-8. A single row may be longer.
constexpr std::size_t kMostBytes = 200'000;
constexpr std::int32_t kObjectExists = 2714;

/// What schema.sql gives to the columns that people read.
constexpr std::string_view kReadable = "Persian_100_CI_AS";

constexpr std::string_view kRoutines[] = {"fnZomirStringToTable", "getEnglishDate",
                                          "spZomirHasPermission", "spZomirInsertFormAction"};

/// The sample office in an embedded file of its own, which is gone afterwards.
class EmbeddedOffice {
 public:
  explicit EmbeddedOffice(const SampleOptions& options) {
    fs::create_directories(folder_);
    try {
      CreateSampleOffice(file_, options);
      database_ = adapters::sqlite::OpenDatabase(file_, SQLITE_OPEN_READWRITE);
    } catch (...) {
      Remove();
      throw;
    }
  }
  EmbeddedOffice(const EmbeddedOffice&) = delete;
  EmbeddedOffice& operator=(const EmbeddedOffice&) = delete;
  ~EmbeddedOffice() {
    database_.reset();
    Remove();
  }

  StatementHandle Prepare(const std::string& sql) const {
    return adapters::sqlite::Prepare(database_.get(), sql, file_);
  }
  bool Next(const StatementHandle& statement) const {
    const int result = sqlite3_step(statement.get());
    if (result == SQLITE_ROW) return true;
    if (result == SQLITE_DONE) return false;
    throw platform::RuntimeError(platform::kInvalidProcedureCall, sqlite3_errmsg(database_.get()),
                                 "SQLite");
  }

 private:
  void Remove() const {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }

  fs::path folder_ =
      fs::temp_directory_path() / ("sample-office-" + std::to_string(std::random_device{}()));
  std::string file_ = (folder_ / "office.db").string();
  adapters::sqlite::DatabaseHandle database_;
};

std::string_view Text(const StatementHandle& statement, int column) {
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column));
  if (bytes == nullptr) return {};
  return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), column))};
}

struct Column {
  std::string name;
  std::string type;  // as declared: INTEGER, TEXT, DATE, BLOB
};

struct Table {
  std::string name;
  bool identity = false;
  std::vector<Column> columns;
};

/// In the order in which they were made: what a table refers to stands before it.
std::vector<Table> TablesOf(const EmbeddedOffice& office) {
  std::vector<Table> tables;
  const StatementHandle names = office.Prepare(
      "SELECT name, sql LIKE '%AUTOINCREMENT%' FROM sqlite_master "
      "WHERE type = 'table' AND name NOT LIKE 'sqlite%' ORDER BY rowid");
  while (office.Next(names)) {
    Table table{.name = std::string(Text(names, 0)),
                .identity = sqlite3_column_int(names.get(), 1) != 0,
                .columns = {}};
    const StatementHandle columns =
        office.Prepare("SELECT name, type FROM pragma_table_info('" + table.name + "')");
    while (office.Next(columns)) {
      table.columns.push_back({std::string(Text(columns, 0)), std::string(Text(columns, 1))});
    }
    tables.push_back(std::move(table));
  }
  return tables;
}

std::vector<std::string> ViewsOf(const EmbeddedOffice& office) {
  std::vector<std::string> views;
  const StatementHandle names =
      office.Prepare("SELECT name FROM sqlite_master WHERE type = 'view'");
  while (office.Next(names)) views.emplace_back(Text(names, 0));
  return views;
}

void AppendQuoted(std::string& sql, std::string_view text) {
  sql += '\'';
  for (const char c : text) {
    sql += c;
    if (c == '\'') sql += c;
  }
  sql += '\'';
}

void AppendValue(std::string& sql, const StatementHandle& row, int column,
                 const std::string& type) {
  // SQLite's type has to be asked for before its text.
  const bool null = sqlite3_column_type(row.get(), column) == SQLITE_NULL;
  const std::string_view value = Text(row, column);
  if (null) {
    sql += "NULL";
  } else if (type == "BLOB") {
    sql += "0x";
    text::AppendHex(sql, std::as_bytes(std::span(value)));
  } else if (type == "DATE") {
    AppendQuoted(sql, value);
  } else if (type == "TEXT") {
    sql += 'N';
    AppendQuoted(sql, value);
  } else {
    sql += value;
  }
}

/// One INSERT of several rows. The leave to give ids is a setting of the session for one table, so
/// it is taken and given back in the statement's own text.
class RowsStatement {
 public:
  RowsStatement(platform::Connection& server, const Table& table)
      : server_(server), identity_(table.identity), name_("dbo." + table.name) {
    if (identity_) head_ = "SET IDENTITY_INSERT " + name_ + " ON; ";
    head_ += "INSERT INTO " + name_ + " (";
    for (const Column& column : table.columns) {
      if (&column != &table.columns.front()) head_ += ", ";
      head_ += column.name;
    }
    head_ += ") VALUES";
  }

  void Add(std::string_view row) {
    if (rows_ == kMostRows || (rows_ > 0 && text_.size() + row.size() > kMostBytes)) Send();
    if (rows_ == 0) text_ = head_;
    text_.append(rows_ == 0 ? "\n" : ",\n").append(row);
    ++rows_;
  }

  void Send() {
    if (rows_ == 0) return;
    text_ += ";";
    if (identity_) text_ += " SET IDENTITY_INSERT " + name_ + " OFF;";
    server_.Execute(text_);
    rows_ = 0;
  }

 private:
  platform::Connection& server_;
  bool identity_;
  std::string name_;
  std::string head_;
  std::string text_;
  std::size_t rows_ = 0;
};

std::size_t CopyRows(const EmbeddedOffice& office, const Table& table,
                     platform::Connection& server) {
  std::string select = "SELECT ";
  for (const Column& column : table.columns) select += column.name + ", ";
  select.replace(select.size() - 2, 2, " FROM " + table.name);
  const StatementHandle rows = office.Prepare(select);
  RowsStatement statement(server, table);
  std::size_t count = 0;
  for (std::string row; office.Next(rows); ++count) {
    row = "(";
    for (std::size_t column = 0; column < table.columns.size(); ++column) {
      if (column > 0) row += ", ";
      AppendValue(row, rows, static_cast<int>(column), table.columns[column].type);
    }
    row += ")";
    statement.Add(row);
  }
  statement.Send();
  return count;
}

void RefuseIfThere(platform::Connection& server, const std::vector<Table>& tables,
                   const std::vector<std::string>& views) {
  std::string query =
      "SELECT name FROM sys.objects WHERE schema_id = SCHEMA_ID(N'dbo') AND name IN (";
  const auto add = [&query](std::string_view name) {
    query.append("N'").append(name).append("', ");
  };
  for (const Table& table : tables) add(table.name);
  for (const std::string& view : views) add(view);
  for (const std::string_view routine : kRoutines) add(routine);
  query.replace(query.size() - 2, 2, ") ORDER BY name");

  const platform::RowSet found = server.Execute(query);
  if (found.RowCount() == 0) return;
  constexpr std::size_t kMostNamed = 3;
  std::string names;
  for (std::size_t row = 0; row < std::min(found.RowCount(), kMostNamed); ++row) {
    names.append(row == 0 ? "" : ", ").append(found.Text(row, 0));
  }
  if (found.RowCount() > kMostNamed) {
    names += " and " + std::to_string(found.RowCount() - kMostNamed) + " more";
  }
  throw platform::RuntimeError(kObjectExists,
                               "The database already holds " + names +
                                   ". The sample office goes only into a database that has none "
                                   "of its tables, views and procedures; nothing was changed.");
}

/// The module's texts reach the server in the code page of the database's collation.
void WarnOfCollation(platform::Connection& server, std::ostream& progress) {
  const platform::RowSet rows = server.Execute(
      "SELECT x.Collation, CONVERT(int, COLLATIONPROPERTY(x.Collation, N'CodePage')) AS CodePage "
      "FROM (SELECT CONVERT(nvarchar(128), DATABASEPROPERTYEX(DB_NAME(), N'Collation')) "
      "AS Collation) AS x");
  if (rows.RowCount() == 0) return;
  const std::string_view codePage = rows.Text(0, 1);
  if (codePage == "1256" || codePage == "65001") return;
  progress << "Mind: the database's collation is " << rows.Text(0, 0) << " (code page " << codePage
           << "). Persian texts that the module writes will be stored as question marks; make the "
              "database with COLLATE Persian_100_CI_AS."
           << std::endl;
}

void RunScripts(platform::Connection& server, const ServerScripts& scripts) {
  std::string schema(scripts.schema);
  if (!scripts.collation.empty()) {
    schema = text::Replace(schema, std::string("COLLATE ").append(kReadable),
                           std::string("COLLATE ").append(scripts.collation));
  }
  for (const std::string_view script :
       {std::string_view(schema), scripts.functions, scripts.procedures}) {
    for (const std::string_view batch : Batches(script)) server.Execute(batch);
  }
}

}  // namespace

void LoadServerOffice(platform::Connection& server, const ServerScripts& scripts,
                      const SampleOptions& options, std::ostream& progress) {
  // First, so that a server that cannot be reached says so before the office is made.
  WarnOfCollation(server, progress);
  const EmbeddedOffice office(options);
  const std::vector<Table> tables = TablesOf(office);
  RefuseIfThere(server, tables, ViewsOf(office));

  std::string about = "the transaction";
  std::string outcome = "nothing was changed";
  try {
    // Under XACT_ABORT every error takes the whole transaction back at once.
    server.Execute("SET NOCOUNT ON; SET XACT_ABORT ON; BEGIN TRANSACTION;");
    about = "tables, views, functions and procedures";
    RunScripts(server, scripts);
    progress << about << " made" << std::endl;
    for (const Table& table : tables) {
      about = table.name;
      const std::size_t rows = CopyRows(office, table, server);
      progress << about << ": " << rows << (rows == 1 ? " row" : " rows") << std::endl;
    }
    about = "the end of the transaction";
    outcome = "whether all or nothing was stored is not known";
    server.Execute("COMMIT TRANSACTION;");
  } catch (const platform::RuntimeError& error) {
    platform::ResumeNext([&] { server.Execute("IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION;"); });
    throw platform::RuntimeError(
        error.Number(),
        "The sample office was not loaded (" + about + "); " + outcome + ". " + error.Description(),
        error.Source());
  }
}

}  // namespace demo
