// Statements of the server's dialect: what the translator accepts SQLite takes, a query writes
// nothing, and a writing statement changes only the table, the columns and the kind of thing that
// it says.

#include <sqlite3.h>

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "Fuzz.h"
#include "Office.h"
#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/TokenReader.h"
#include "adapters/sqlite/Translator.h"
#include "platform/RuntimeError.h"
#include "text/Text.h"

namespace {

using namespace adapters::sqlite;
using Rows = std::vector<std::string>;
using Dump = std::map<std::string, Rows, std::less<>>;

/// Of the schema: what goes with the lines of a document.
constexpr std::string_view kOwner = "tblaccountdocumentdetail";
constexpr std::string_view kOwned = "tblaccountdocumentobjects";
constexpr int kMostSteps = 200;  // of 1000 operations each

class Database {
 public:
  Database() : handle_(OpenDatabase(office_.file, SQLITE_OPEN_READWRITE)) {
    for (const std::string& table : Read("SELECT name FROM sqlite_master WHERE type = 'table'")) {
      if (!table.starts_with("sqlite_")) tables_.push_back(table);
    }
    before_ = Take();
    const auto stop = [](void* count) { return ++*static_cast<int*>(count) > kMostSteps ? 1 : 0; };
    sqlite3_progress_handler(handle_.get(), 1000, stop, &steps_);
    const auto note = [](void* self, int action, const char* table, const char* column, const char*,
                         const char*) {
      if (action == SQLITE_UPDATE && !std::string_view(table).starts_with("sqlite_")) {
        static_cast<Database*>(self)->updated_.insert(text::Small(column));
      }
      return SQLITE_OK;
    };
    sqlite3_set_authorizer(handle_.get(), note, this);
  }

  Catalog& Schema() { return catalog_; }

  void Try(std::string_view statement, const Translation& translation) {
    steps_ = 0;
    updated_.clear();
    sqlite3_stmt* prepared = nullptr;
    const char* tail = nullptr;
    const std::string& sql = translation.sql;
    const int result = sqlite3_prepare_v2(handle_.get(), sql.data(), static_cast<int>(sql.size()),
                                          &prepared, &tail);
    const StatementHandle owner(prepared);
    if (result != SQLITE_OK) {
      const std::string_view why = sqlite3_errmsg(handle_.get());
      const bool readable = why == "parser stack overflow" || why.starts_with("too many ") ||
                            why.starts_with("Expression tree is too large");
      fuzz::Require(readable, why, sql);
      return;
    }
    fuzz::Require(tail == sql.data() + sql.size(), "nothing is left over", sql);
    const bool reads = sqlite3_stmt_readonly(prepared) != 0;
    const bool isQuery = !translation.columns.empty();
    fuzz::Require(reads == isQuery, "a query reads, the others write", sql);
    sqlite3_exec(handle_.get(), "SAVEPOINT s", nullptr, nullptr, nullptr);
    while (sqlite3_step(prepared) == SQLITE_ROW) {
    }
    sqlite3_reset(prepared);
    steps_ = 0;
    if (!reads) Compare(statement, sql);
    sqlite3_exec(handle_.get(), "ROLLBACK TO s; RELEASE s", nullptr, nullptr, nullptr);
  }

 private:
  Rows Read(const std::string& sql) {
    Rows rows;
    const StatementHandle statement = Prepare(handle_.get(), sql, office_.file);
    while (sqlite3_step(statement.get()) == SQLITE_ROW) {
      std::string row;
      for (int col = 0; col < sqlite3_column_count(statement.get()); ++col) {
        const auto* text = sqlite3_column_text(statement.get(), col);
        row += text == nullptr ? "~" : reinterpret_cast<const char*>(text);
        if (col > 0) row += '|';
      }
      rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    return rows;
  }
  Dump Take() {
    Dump dump;
    for (const std::string& table : tables_)
      dump[text::Small(table)] = Read("SELECT * FROM " + table);
    return dump;
  }

  void Compare(std::string_view statement, const std::string& sql) {
    const std::vector<Token> tokens = Tokenize(statement);
    const auto is = [&](std::size_t at, std::string_view word) {
      return tokens[at].kind == TokenKind::kName && text::Small(tokens[at].text) == word;
    };
    std::size_t at = is(1, "into") || is(1, "from") ? 2 : 1;
    if (tokens[at + 1].text == ".") at += 2;
    const std::string named = text::Small(tokens[at].text);
    std::set<std::string> words;
    for (const Token& token : tokens) words.insert(text::Small(token.text));
    for (const std::string& column : updated_) {
      fuzz::Require(words.contains(column), "a column that was not named", column);
    }
    for (const auto& [table, now] : Take()) {
      const Rows& before = before_.find(table)->second;
      const bool cascades = named == kOwner && table == kOwned;
      fuzz::Require(table == named || cascades || now == before, table, sql);
      const bool keeps = std::includes(now.begin(), now.end(), before.begin(), before.end());
      const bool adds = !std::includes(before.begin(), before.end(), now.begin(), now.end());
      if (is(0, "insert")) fuzz::Require(keeps, "an INSERT keeps what is there", sql);
      if (is(0, "delete")) fuzz::Require(!adds, "a DELETE adds nothing", sql);
      if (is(0, "update")) fuzz::Require(now.size() == before.size(), "an UPDATE counts", sql);
    }
  }

  fuzz::Office office_;
  DatabaseHandle handle_;
  Catalog catalog_{handle_.get(), office_.file};
  std::vector<std::string> tables_;
  Dump before_;
  std::set<std::string> updated_;
  int steps_ = 0;
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Database database;
  const std::string_view statement = fuzz::Text(data, size);
  Translation translation;
  try {
    translation = Translate(statement, database.Schema());
  } catch (const platform::RuntimeError& error) {
    fuzz::Require(error.Number() != 0 && !error.Description().empty(), "a refusal says why");
    return 0;
  }
  database.Try(statement, translation);
  return 0;
}
