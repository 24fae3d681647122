#include "demo/ServerOffice.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdio>
#include <regex>
#include <sstream>

#include "calendar/Gregorian.h"
#include "calendar/SolarHijriDate.h"
#include "demo/PlainDatabase.h"
#include "demo/Schema.h"
#include "support/ScriptedDatabase.h"
#include "support/TestFolder.h"
#include "text/Text.h"

namespace {

using namespace std::chrono_literals;
using support::Holding;
using testing::HasSubstr;
using text::Replace;
using Rows = demo::PlainDatabase::Rows;

std::string Script(const std::string& name) {
  return support::Content("demo/sqlserver/" + name + ".sql");
}

class ServerOffice : public testing::Test {
 protected:
  /// What the load failed with; empty when it did not.
  std::string Load() {
    const std::string texts[] = {Script("schema"), Script("functions"), Script("procedures")};
    try {
      demo::LoadServerOffice(server_, {texts[0], texts[1], texts[2], collation_}, options_,
                             progress_);
      return {};
    } catch (const platform::RuntimeError& error) {
      return std::to_string(error.Number()) + ": " + error.Description();
    }
  }

  demo::SampleOptions options_{
      .customers = 700, .today = 2025y / 11 / 22, .basePath = "/o'brien/\u06CC\u200C\u064A/"};
  std::string collation_;
  support::Events events_;
  support::ScriptedDatabase database_{events_};
  support::RecordingConnection server_{database_, "server"};
  std::ostringstream progress_;
  /// An embedded office that is empty at first.
  demo::PlainDatabase office_{":memory:"};
};

// The INSERTs, put into SQLite's words, must make the very office again, foreign keys enforced.
TEST_F(ServerOffice, EmptyDatabase_Loaded_GetsSchemaThenEveryRowInOneTransaction) {
  office_.Query(std::string(demo::OfficeSchema()));
  ASSERT_EQ(Load(), "");
  const std::vector<std::string> sent = database_.Statements();
  const auto isInsert = [](const std::string& text) { return text.find("VALUES\n(") < 300; };
  const auto inserts = std::find_if(sent.begin(), sent.end(), isInsert);
  const auto commit = std::find(sent.begin(), sent.end(), "COMMIT TRANSACTION;");
  EXPECT_THAT(sent[2], HasSubstr("BEGIN TRANSACTION"));
  EXPECT_THAT(sent[3], HasSubstr("CREATE TABLE dbo.tblEmployee"));
  EXPECT_THAT(*(inserts - 1), HasSubstr("CREATE PROCEDURE dbo.spZomirInsertFormAction"));
  ASSERT_NE(commit, sent.end());
  for (auto statement = inserts; statement != commit; ++statement) {
    EXPECT_LE(statement->size(), 201'000U);
    EXPECT_LE(std::count(statement->begin(), statement->end(), '\n'), 1000);
    std::string text = *statement;
    if (const auto insert = text.find("INSERT INTO"); insert > 0) {
      const std::string name = text.substr(20, text.find(' ', 20) - 20);
      const std::string off = " SET IDENTITY_INSERT " + name + " OFF;";
      EXPECT_EQ(text.substr(0, insert), "SET IDENTITY_INSERT " + name + " ON; ");
      EXPECT_EQ(text.find(name, insert), insert + 12);
      EXPECT_TRUE(text.ends_with(off)) << text;
      text = text.substr(insert, text.size() - off.size() - insert);
    }
    text = Replace(Replace(Replace(text, "INTO dbo.", "INTO "), "(N'", "('"), ", N'", ", '");
    text = std::regex_replace(text, std::regex("0x([0-9A-F]+)"), "CAST(X'$1' AS TEXT)");
    EXPECT_EQ(office_.Query(text), Rows()) << *statement;
  }
  const support::TestFolder folder;
  const std::string original = folder.File("office.db");
  demo::CreateSampleOffice(original, options_);
  office_.Query("ATTACH '" + original + "' AS original");
  for (const auto& table :
       office_.Query("SELECT name FROM original.sqlite_master WHERE name LIKE 'tbl%'")) {
    EXPECT_EQ(office_.Query("SELECT * FROM main." + table[0]),
              office_.Query("SELECT * FROM original." + table[0]));
  }
}

TEST_F(ServerOffice, Failure_MidwayOrAtOnce_TakesAllBackAndTells) {
  database_.When(Holding("INSERT INTO dbo.tblOrganization ")).Fails({1105, "The disk is full."});
  EXPECT_EQ(Load(),
            "1105: The sample office was not loaded (tblOrganization); nothing was changed. "
            "The disk is full.");
  EXPECT_EQ(database_.Statements().back(), "IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION;");
  EXPECT_TRUE(database_.Statements("COMMIT").empty());

  database_.ForgetCalls();
  database_.When(Holding("CodePage"))
      .Gives(support::RowSetOf({"Collation", "CodePage"}, {{"Latin1_General_CI_AS", "1252"}}));
  database_.When(Holding("sys.objects")).Gives(support::RowSetOf({"name"}, {{"tblAccount"}}));
  EXPECT_THAT(Load(), testing::StartsWith("2714: The database already holds tblAccount."));
  EXPECT_EQ(database_.Statements().size(), 2U);
  EXPECT_THAT(progress_.str(), HasSubstr("Latin1_General_CI_AS (code page 1252)"));
}

TEST_F(ServerOffice, Collation_Asked_IsThatOfEveryColumnThatNamesOne) {
  collation_ = "Arabic_CI_AS";
  ASSERT_EQ(Load(), "");
  EXPECT_TRUE(database_.Statements("COLLATE Persian").empty());
  EXPECT_THAT(database_.Statements("CREATE TABLE dbo.tblAccountBranch").at(0),
              HasSubstr("Name nvarchar(100) COLLATE Arabic_CI_AS NOT NULL"));
}

// The function's own expression, put into SQLite's words: the same arithmetic on whole numbers.
TEST_F(ServerOffice, EnglishDate_OfEveryDayAndOfNone_IsTheCalendarsOwn) {
  std::string expression = Script("functions");
  expression.erase(0, expression.find("RETURN CASE") + 7);
  expression.erase(expression.find("END;\nEND;") + 3);
  const std::pair<const char*, const char*> words[] = {
      {"--[^\n]*", ""},
      {"NOT LIKE N('[^']*') COLLATE \\w+", "NOT GLOB $1"},
      {"CONVERT\\(date, N'no date: ' \\+ @farsi\\)", "'241'"},
      {"CONVERT\\(int, (SUBSTRING\\([^)]*\\))\\)", "CAST($1 AS INTEGER)"},
      {"DATEADD\\(\\s*day,", "strftime('%Y%m%d', julianday('2025-03-21') + ("},
      {",\\s*CONVERT\\(date, '20250321', 112\\)", ")"},
      {"@farsi", "farsi"},
  };
  for (const auto& [from, to] : words) {
    expression = std::regex_replace(expression, std::regex(from), to);
  }
  office_.Query("CREATE TABLE day (farsi TEXT, english TEXT); BEGIN");
  const auto add = [&](const std::string& farsi) {
    const auto date = calendar::SolarHijriDate::FromText(farsi);
    office_.Query("INSERT INTO day VALUES ('" + farsi + "', '" +
                  (date ? calendar::GregorianLiteral(date->Days()) : "241") + "')");
  };
  for (int year = 1206; year <= 1498; ++year) {
    for (int month = 0; month <= 13; ++month) {
      for (int day = 0; day <= 32; ++day) {
        char farsi[40];
        std::snprintf(farsi, sizeof farsi, "%04d/%02d/%02d", year, month, day);
        add(farsi);
      }
    }
  }
  for (const char* farsi :
       {"0000/12/29", "0001/01/01", "9377/12/29", "9378/01/01", "", " ", "1404/1/1", "14040101",
        "1404-01-01", "1404/01/01 ", " 404/01/01", "-404/01/01", "1404/01/1\u06F1", "1404/01/+1"}) {
    add(farsi);
  }
  EXPECT_EQ(office_.Text("SELECT farsi, english, " + expression +
                         " AS given FROM day WHERE given IS NOT english"),
            "");
  EXPECT_EQ(office_.Text("SELECT count(*) FROM day WHERE english <> '241'"), "107018;");
  EXPECT_EQ(office_.Text("SELECT " + expression + " FROM (SELECT NULL AS farsi)"), "NULL;");
}

TEST_F(ServerOffice, Schema_ComparedWithTheEmbeddedOne_HasTheSameTablesViewsAndColumns) {
  office_.Query(std::string(demo::OfficeSchema()));
  const std::string script = Script("schema");
  for (const auto& object : office_.Query(
           "SELECT upper(type) || ' dbo.' || name, name, sql LIKE '%AUTOINCREMENT%' "
           "FROM sqlite_master WHERE type IN ('table', 'view') AND name NOT LIKE 'sqlite%'")) {
    const auto begin = script.find("CREATE " + object[0] + " ");
    ASSERT_NE(begin, script.npos) << object[0];
    const std::string text = script.substr(begin, script.find("\ngo", begin) - begin);
    EXPECT_EQ(text.find("IDENTITY(1,1)") != text.npos, object[2] == "1") << text;
    for (const auto& column : office_.Query(
             "SELECT name, \"notnull\" OR pk > 0 FROM pragma_table_info('" + object[1] + "')")) {
      const bool view = object[0].starts_with("VIEW");
      const auto at = text.find(view ? column[0] : "\n  " + column[0] + " ");
      ASSERT_NE(at, text.npos) << column[0] << " in " << text;
      const std::string line = text.substr(at + 1, text.find('\n', at + 1) - at);
      EXPECT_EQ(line.find("NOT NULL") != line.npos, !view && column[1] == "1") << line;
    }
    for (const auto& part : office_.Query(
             "SELECT 'REFERENCES dbo.' || \"table\" || ' (' FROM pragma_foreign_key_list('" +
             object[1] + "') UNION SELECT 'INDEX ' || name || ' ' FROM pragma_index_list('" +
             object[1] + "') WHERE origin = 'c'")) {
      EXPECT_THAT(Replace(text, "\n", " "), HasSubstr(part[0]));
    }
  }
}

}  // namespace
