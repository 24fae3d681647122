#include "platform/Connection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <clocale>
#include <cstdlib>

#include "adapters/odbc/OdbcConnection.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "platform/RuntimeError.h"
#include "support/Lines.h"
#include "support/TestFolder.h"
#include "text/Text.h"

// What every engine behind platform::Connection promises. A SQL Server is tried where the variable
// below names one, by an ODBC or an OLE DB connection string; the login needs the right to make and
// drop tables and procedures, and nothing is left there.

namespace contract {
namespace {

using platform::Parameter;
using platform::RowSet;
using platform::RuntimeError;
using support::Lines;
using testing::ElementsAre;

constexpr const char* kServerVariable = "DISTPROMOTER_TEST_CONNECTION";

enum class Engine { kEmbedded, kOdbcSqlite, kSqlServer };

/// "$" is the prefix of the names, "<identity>" and "<long>" each engine's own.
constexpr std::array kTables{
    "table $Value (ID int primary key, Number float, Amount decimal(18,4), Flag bit, Day date, "
    "Moment datetime, Words nvarchar(200) unique, Notes <long>, Code int not null default 0)",
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

/// A database with empty tables for each test. "$" in a statement is the prefix of their names.
class ConnectionContract : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    if (IsServer()) {
      const char* server = std::getenv(kServerVariable);
      if (server == nullptr || *server == '\0')
        GTEST_SKIP() << "No SQL Server: set " << kServerVariable << " to a connection string.";
      prefix_ = procedures_ = "promoterTest" + std::to_string(getpid()) + "_";
      connection = std::make_unique<adapters::odbc::OdbcConnection>(server);
      for (const char* table : kTables) Make(table);
      for (const char* procedure : kProcedures) Make(procedure);
    } else {
      const std::string file = folder_.File("office.db");
      connection = ByOdbc(file);
      for (const char* table : kTables) Make(table);
      if (IsNarrow()) return;
      connection = std::make_unique<adapters::sqlite::SqliteConnection>("sqlite:" + file);
    }
  }

  void TearDown() override {
    if (!IsServer()) return;
    for (const std::string& made : made_) EXPECT_EQ(ErrorOf("drop " + made), 0) << made;
  }

  RowSet Execute(const std::string& statement) {
    return connection->Execute(text::Replace(statement, "$", prefix_));
  }
  std::unique_ptr<platform::RowReader> Open(const std::string& statement) {
    return connection->Open(text::Replace(statement, "$", prefix_));
  }
  std::string Rows(const std::string& statement) { return Lines(Execute(statement)); }
  std::int32_t Call(const std::string& procedure, std::initializer_list<Parameter> parameters) {
    return connection->CallProcedure(procedures_ + procedure, std::vector<Parameter>(parameters));
  }

  /// The number of the error that a statement fails with; 0 for none.
  int ErrorOf(const std::string& statement) {
    return ErrorIn([&] { Execute(statement); });
  }
  template <typename Action>
  int ErrorIn(Action action) {
    try {
      action();
      return 0;
    } catch (const RuntimeError& error) {
      EXPECT_NE(error.Description(), "");
      EXPECT_NE(error.Number(), 0);
      return error.Number();
    }
  }

  bool IsServer() const { return GetParam() == Engine::kSqlServer; }
  bool IsNarrow() const { return GetParam() == Engine::kOdbcSqlite; }
  /// `text` as a literal that keeps all letters.
  std::string Literal(std::string_view text) const {
    return (IsNarrow() ? "'" : "N'") + text::Replace(text, "'", "''") + "'";
  }
  /// A day or moment as a literal: without dashes a server reads it alike under every language
  /// setting; the SQLite driver wants them.
  std::string Time(std::string_view time) const {
    return "'" + (IsNarrow() ? std::string(time) : text::Replace(time, "-", "")) + "'";
  }

  std::unique_ptr<platform::Connection> connection;

 private:
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
  std::vector<std::string> made_;  // "table NAME", "procedure NAME"
};

TEST_P(ConnectionContract, Values_comeOutAsTexts) {
  const std::string day = Time("2025-03-21");
  Execute(
      "insert into $Value(ID, Number, Amount, Flag, Day, Moment) values (1, -0.5, 1234567.25, 1, " +
      day + ", " + Time("2025-03-21 08:30:07") + "), (2, 100000000, 12.5, 0, " +
      Time("1899-01-01") + ", " + day + "), (3, null, null, null, null, null)");
  EXPECT_EQ(Rows("select ID, Number, Amount, Flag, Day, Moment from $Value order by ID"),
            "1|-0.5|1234567.25|1|2025-03-21|2025-03-21 08:30:07\n"
            "2|100000000|12.5|0|1899-01-01|2025-03-21\n"
            "3|~|~|~|~|~");
  EXPECT_EQ(Rows("select ID from $Value where Day=" + day), "1");
  EXPECT_EQ(Rows("select count(*), max(Number), 1, 'a', '', null from $Value"),
            "3|100000000|1|a||~");
}

TEST_P(ConnectionContract, Texts_areKeptLetterByLetterAndWhole) {
  std::string persian;
  for (int i = 0; i < 10000; ++i) persian += "نیک\u200Cپی، يك";
  std::vector<std::string> texts{"نیک\u200Cپی علی کاظمی ۱۴۰۴/٠١/01",
                                 "نيك\u200Cپي علي كاظمي",
                                 "”3“ it's\r\n\tb",
                                 "{d '2025-03-21'} ? :x @y -- /* % _ [",
                                 persian,
                                 std::string(8191, 'x'),
                                 std::string(8192, 'x')};
  // The driver manager has no narrow letters for what lies beyond 16 bits.
  if (!IsNarrow()) texts.emplace_back("😀");
  for (const std::string& text : texts) {
    const std::string words = text.substr(0, text.size() > 200 ? 0 : text.size());
    Execute("delete from $Value");
    Execute("insert into $Value(ID, Words, Notes) values (1, " + Literal(words) + ", " +
            Literal(text) + ")");
    EXPECT_EQ(Rows("select Words from $Value where Words=" + Literal(words)), words);
    EXPECT_TRUE(Rows("select Notes, ID from $Value") == text + "|1") << text.substr(0, 50);
  }
}

TEST_P(ConnectionContract, Results_haveTheirColumnsAndRows) {
  const RowSet empty = Execute("select ID, Words as \"نام مشتري\", Code from $Value");
  EXPECT_THAT(empty.Columns(), ElementsAre("ID", "نام مشتري", "Code"));
  EXPECT_TRUE(empty.ReturnsRows());
  EXPECT_EQ(empty.RowCount(), 0U);
  // A server's longest name.
  const std::string longest = text::Replace(std::string(128, '.'), ".", "ی");
  EXPECT_THAT(Execute("select ID as \"" + longest + "\" from $Value").Columns(),
              ElementsAre(longest));
  const std::pair<const char*, std::int64_t> changes[] = {
      {"insert into $Value(ID) values (1), (2)", 2},
      {"insert into $Value(ID) select ID from $Value where ID=3", 0},
      {"update $Value set Code=2", 2},
      {"update $Value set Code=3 where ID=0", 0},
      {"delete from $Value", 2}};
  for (const auto& [statement, affected] : changes) {
    const RowSet none = Execute(statement);
    EXPECT_FALSE(none.ReturnsRows()) << statement;
    EXPECT_EQ(none.AffectedRows(), affected) << statement;
  }
}

TEST_P(ConnectionContract, Reader_givesWhatExecuteGives) {
  Execute("insert into $Row(Name) values ('n')");
  for (int i = 0; i < 9; ++i) Execute("insert into $Row(Name) select Name from $Row");
  EXPECT_TRUE(Rows("select ID, Name from $Row order by ID").ends_with("\n511|n\n512|n"));
  for (const char* statement : {"select ID, Name, null as Absent from $Row order by ID",
                                "select ID from $Row where ID < 0", "select 1 as One"}) {
    const RowSet whole = Execute(statement);
    const auto reader = Open(statement);
    EXPECT_EQ(reader->Columns(), whole.Columns());
    RowSet rows;
    while (reader->Read(rows, 100)) {
      EXPECT_EQ(Rows("select count(*) from $Row"), "512") << "the connection is free meanwhile";
    }
    EXPECT_EQ(rows.Columns(), whole.Columns());
    EXPECT_EQ(Lines(rows), Lines(whole)) << statement;
    EXPECT_FALSE(reader->Read(rows, 100));
    EXPECT_EQ(rows.RowCount(), whole.RowCount());
  }
  EXPECT_TRUE(Open("update $Row set Name='m' where ID=1")->Columns().empty());
  EXPECT_EQ(Rows("select Name from $Row where ID=1"), "m");
  for (const char* wrong : {"select ID from $Nowhere", "select Nothing from $Row"}) {
    EXPECT_EQ(ErrorIn([&] { Open(wrong); }), ErrorOf(wrong)) << wrong;
  }
}

TEST_P(ConnectionContract, FailedStatement_changesNothingAndLeavesTheConnection) {
  Execute("insert into $Value(ID, Words) values (1, 'a')");
  const struct {
    std::string statement;
    int number;  // the server's
  } cases[] = {
      {"select ID from $Nowhere", 208},
      {"select Nothing from $Value", 207},
      {"insert into $Value(ID) values (1)", 2627},
      {"insert into $Value(ID, Words) values (2, 'b'), (3, 'c'), (4, 'a')", 2627},
      {"insert into $Value(ID, Code) values (2, null)", 515},
      {"update $Value set Code=null where ID=1", 515},
      {"select 'it's' from $Value", 105},
  };
  for (const auto& [statement, number] : cases) {
    const int error = ErrorOf(statement);
    EXPECT_EQ(error, IsNarrow() && error != 0 ? error : number) << statement;
    EXPECT_EQ(Rows("select ID, Words, Code from $Value"), "1|a|0") << statement;
  }
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

TEST_P(ServerContract, Identity_isThatOfTheConnectionsLastRow) {
  const std::string identity = "Select SCOPE_IDENTITY() as newID";
  EXPECT_EQ(Rows(identity), "~");
  for (const char* name : {"'a'", "'b'"}) {
    Execute("insert into $Row(Name) values (" + std::string(name) + ")");
  }
  EXPECT_EQ(Rows(identity), "2");
  EXPECT_EQ(ErrorOf("insert into $Value(ID, Code) values (9, null)"), 515);
  EXPECT_EQ(Rows(identity), "2");
}

TEST_P(ServerContract, Procedures_takeParametersAndReturnTheirValue) {
  Execute("insert into $UserPermission(UserID, FormPermissionID) values (2, 330801)");
  for (const auto& [user, permission, held] :
       {std::array{2, 330801, 1}, {2, 330802, 0}, {-1, 330801, 0}}) {
    EXPECT_EQ(Call("HasPermission", {{"@UserID", user}, {"@FormPermissionID", permission}}), held);
  }
  const std::chrono::sys_days day = std::chrono::year(2025) / 3 / 21;
  for (const char* text : {"”3“ نیک\u200Cپی، علي's", ""}) {
    EXPECT_EQ(Call("InsertFormAction", {{"@EventID", 330801},
                                        {"@FormCode", "3"},
                                        {"@FormTypeID", 3308},
                                        {"@Description", text},
                                        {"@UserID", 1},
                                        {"@EventDate", day},
                                        {"@FarsiEventDate", "1404/01/01"},
                                        {"@EventTime", 61}}),
              0);
  }
  EXPECT_EQ(Rows("select * from $FormAction order by ID"),
            "1|330801|3|3308|”3“ نیک\u200Cپی، علي's|1|2025-03-21|1404/01/01|61\n"
            "2|330801|3|3308||1|2025-03-21|1404/01/01|61");
  EXPECT_EQ(ErrorIn([&] { Call("Nowhere", {}); }), 2812);
  EXPECT_EQ(ErrorIn([&] { Call("HasPermission", {{"@UserID", 1}}); }), 201);
}

INSTANTIATE_TEST_SUITE_P(On, ServerContract, testing::Values(Engine::kEmbedded, Engine::kSqlServer),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace contract
