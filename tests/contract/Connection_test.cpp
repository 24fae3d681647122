#include "platform/Connection.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdlib>
#include <sstream>

#include "adapters/odbc/OdbcConnection.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "support/Lines.h"
#include "support/Session.h"
#include "support/TestFolder.h"
#include "text/Text.h"

// What every engine behind platform::Connection promises. A SQL Server is tried where the variable
// below names one, by an ODBC or an OLE DB connection string; the login needs the right to make and
// drop tables and procedures, and nothing is left there.

namespace contract {
namespace {

using platform::RowSet;
using support::Lines;

constexpr const char* kServerVariable = "DISTPROMOTER_TEST_CONNECTION";

enum class Engine { kEmbedded, kOdbcSqlite, kSqlServer };

/// "$" is the prefix of the names, "<identity>" and "<long>" each engine's own.
constexpr std::array kTables{
    "table $Value (ID int primary key, Number float, Amount decimal(18,4), Flag bit, Day date, "
    "Moment datetime, Words nvarchar(200), Notes <long>, Code int not null default 0)",
    "table $Row (ID <identity>, Name nvarchar(50))",
    "table $UserPermission (UserID int, FormPermissionID int)",
    "table $FormAction (ID <identity>, EventID int, FormCode nvarchar(50), FormTypeID int, "
    "Description <long>, UserID int, EventDate date, FarsiEventDate nvarchar(10), EventTime int)",
};

/// For a server; the embedded database has them of its own.
constexpr std::array kProcedures{
    "procedure $HasPermission @UserID int, @FormPermissionID int as begin "
    "if exists(select 1 from $UserPermission where UserID=@UserID and "
    "FormPermissionID in (@FormPermissionID, 0)) return 1; return 0 end",
    "procedure $InsertFormAction @EventID int, @FormCode nvarchar(50), @FormTypeID int, "
    "@Description nvarchar(max), @UserID int, @EventDate datetime, @FarsiEventDate nvarchar(10), "
    "@EventTime int as insert into $FormAction values (@EventID, @FormCode, @FormTypeID, "
    "@Description, @UserID, @EventDate, @FarsiEventDate, @EventTime)",
};

std::unique_ptr<platform::Connection> ByOdbc(const std::string& file) {
  // This driver has no wide entry points: the driver manager translates by the locale.
  std::setlocale(LC_CTYPE, "C.UTF-8");
  return std::make_unique<adapters::odbc::OdbcConnection>("Driver=SQLite3;Database=" + file);
}

/// A database with empty tables, and statements to it as tests/contract/*.txt tell them: "$" is the
/// prefix of the names, N'...' keeps all letters, D'2025-03-21' is a day or moment. What becomes of
/// the table of values is told of its own.
class ConnectionContract : public testing::TestWithParam<Engine>, protected support::Session {
 protected:
  void SetUp() override {
    if (IsServer()) {
      const char* server = std::getenv(kServerVariable);
      if (server == nullptr || *server == '\0')
        GTEST_SKIP() << "No SQL Server: set " << kServerVariable << " to a connection string.";
      prefix_ = procedures_ = "promoterTest" + std::to_string(getpid()) + "_";
      connection_ = std::make_unique<adapters::odbc::OdbcConnection>(server);
      for (const char* table : kTables) Make(table);
      for (const char* procedure : kProcedures) Make(procedure);
    } else {
      const std::string file = folder_.File("office.db");
      connection_ = ByOdbc(file);
      for (const char* table : kTables) Make(table);
      if (!IsNarrow())
        connection_ = std::make_unique<adapters::sqlite::SqliteConnection>("sqlite:" + file);
    }
    On("keep", [this](const std::string& text) { Keep(text); });
    On("keep-times", [this](const std::string& what) {
      std::string whole;
      for (int i = 0; i < std::stoi(what); ++i) whole += what.substr(what.find(' ') + 1);
      Keep(whole);
    });
    On("double", [this](const std::string& times) {
      for (int i = 0; i < std::stoi(times); ++i)
        Execute("insert into $Row(Name) select Name from $Row");
    });
    On("read", [this](const std::string& statement) { Read(statement); });
  }
  void TearDown() override {
    if (!IsServer()) return;
    for (const std::string& made : made_) EXPECT_NO_THROW(Execute("drop " + made)) << made;
  }

  /// Any other line is a statement.
  void DoOther(const std::string& what, const std::string& rest) override {
    const RowSet rows = Execute(what + " " + rest);
    if (!rows.ReturnsRows()) return Hear("changed " + std::to_string(rows.AffectedRows().value()));
    std::string columns;
    for (const std::string& column : rows.Columns()) columns += "[" + column + "]";
    Hear(columns);
    std::istringstream lines(Lines(rows));
    for (std::string line; std::getline(lines, line);) Hear(line);
  }
  /// Words are each engine's own, and so is the number where the driver does not pass the server's.
  void HearError(const platform::RuntimeError& error) override {
    EXPECT_NE(error.Description(), "");
    EXPECT_NE(error.Number(), 0);
    Hear(numbersAreTold ? "refused by " + std::to_string(error.Number()) : "refused");
  }
  Shown Now() override {
    return {{"values", Lines(Execute("select ID, Words, Code from $Value order by ID"))}};
  }

  std::int32_t Call(const std::string& procedure,
                    const std::vector<platform::Parameter>& parameters) {
    return connection_->CallProcedure(procedures_ + procedure, parameters);
  }
  bool IsServer() const { return GetParam() == Engine::kSqlServer; }
  bool IsNarrow() const { return GetParam() == Engine::kOdbcSqlite; }

  bool numbersAreTold = false;

 private:
  RowSet Execute(const std::string& statement) { return connection_->Execute(InWords(statement)); }
  /// In the engine's own words.
  std::string InWords(const std::string& statement) const {
    std::string words = text::Replace(statement, "$", prefix_);
    if (IsNarrow()) words = text::Replace(words, "N'", "'");
    // Without dashes a server reads it alike under every language setting; the driver wants them.
    for (std::size_t at = 0; (at = words.find("D'", at)) != std::string::npos;) {
      words.erase(at, 1);
      for (const std::size_t dash : {8U, 5U}) {
        if (!IsNarrow()) words.erase(at + dash, 1);
      }
    }
    return words;
  }
  /// Keeps a text and reads it back whole; one that is short is looked up, too.
  void Keep(const std::string& text) {
    const std::string words = text::Replace(text, "\\n", "\r\n\t");
    const std::string shortOnes = words.size() > 200 ? "" : words;
    const auto literal = [](const std::string& of) {
      return "N'" + text::Replace(of, "'", "''") + "'";
    };
    Execute("delete from $Value");
    Execute("insert into $Value(ID, Words, Notes) values (1, " + literal(shortOnes) + ", " +
            literal(words) + ")");
    const std::string found = "select Notes, ID from $Value where Words=" + literal(shortOnes);
    Hear(Lines(Execute(found)) == words + "|1" ? "kept" : "lost");
  }
  /// A reader gives what Execute gives, and leaves the connection free meanwhile.
  void Read(const std::string& statement) {
    const auto reader = connection_->Open(InWords(statement));
    if (reader->Columns().empty()) return;
    const RowSet whole = Execute(statement);
    EXPECT_EQ(reader->Columns(), whole.Columns());
    RowSet rows;
    while (reader->Read(rows, 100)) Execute("select ID from $Row");
    EXPECT_FALSE(reader->Read(rows, 100));
    EXPECT_EQ(rows.Columns(), whole.Columns());
    EXPECT_EQ(Lines(rows), Lines(whole)) << statement;
    Hear("rows: " + std::to_string(rows.RowCount()));
  }
  void Make(std::string what) {
    what = text::Replace(what, "<long>", IsServer() ? "nvarchar(max)" : "text");
    what = text::Replace(
        what, "<identity>",
        IsServer() ? "int identity primary key" : "integer primary key autoincrement");
    Execute("create " + what);
    made_.push_back(what.substr(0, what.find(' ', what.find('$'))));
  }

  std::string prefix_ = "tblZomir";
  std::string procedures_ = "spZomir";
  support::TestFolder folder_;
  std::unique_ptr<platform::Connection> connection_;
  std::vector<std::string> made_;  // "table NAME", "procedure NAME"
};

TEST_P(ConnectionContract, Statements_AreAnsweredAlike) {
  Replay("tests/contract/statements.txt");
  // The driver manager has no narrow letters for what lies beyond 16 bits.
  if (!IsNarrow()) Replay("tests/contract/wide.txt");
}

/// A part of the tests' names: the list of those skipped shows which variable to set.
void PrintTo(Engine engine, std::ostream* out) {
  constexpr std::array kNames{"Embedded", "OdbcSqlite", "SqlServer_of_"};
  *out << kNames[static_cast<std::size_t>(engine)];
  if (engine == Engine::kSqlServer) *out << kServerVariable;
}

INSTANTIATE_TEST_SUITE_P(On, ConnectionContract,
                         testing::Values(Engine::kEmbedded, Engine::kOdbcSqlite,
                                         Engine::kSqlServer),
                         testing::PrintToStringParamName());

/// What the SQLite driver has no words for.
class ServerContract : public ConnectionContract {};

TEST_P(ServerContract, NumbersIdentitiesAndProcedures_AreTheServers) {
  numbersAreTold = true;
  On("permission", [this](const std::string& of) {
    std::istringstream in(of);
    int user = 0;
    int permission = 0;
    in >> user >> permission;
    const std::vector<platform::Parameter> both{{"@UserID", user},
                                                {"@FormPermissionID", permission}};
    Hear(std::to_string(Call("HasPermission", {both.begin(), both.end() - (permission == 0)})));
  });
  On("note", [this](const std::string& text) {
    const std::chrono::sys_days day = std::chrono::year(2025) / 3 / 21;
    Hear(std::to_string(Call("InsertFormAction", {{"@EventID", 330801},
                                                  {"@FormCode", "3"},
                                                  {"@FormTypeID", 3308},
                                                  {"@Description", text},
                                                  {"@UserID", 1},
                                                  {"@EventDate", day},
                                                  {"@FarsiEventDate", "1404/01/01"},
                                                  {"@EventTime", 61}})));
  });
  On("nowhere", [this] { Call("Nowhere", {}); });
  Replay("tests/contract/server.txt");
}

INSTANTIATE_TEST_SUITE_P(On, ServerContract, testing::Values(Engine::kEmbedded, Engine::kSqlServer),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace contract
