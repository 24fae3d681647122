#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Like.h"
#include "adapters/sqlite/Office.h"
#include "support/Answers.h"
#include "support/Tables.h"

namespace adapters::sqlite {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;

TEST(Dialect, Statements_areAnsweredAsWrittenDown) {
  Office office;
  support::ExpectAnswers(
      "tests/adapters/sqlite/dialect.sql", office.connection,
      [&](std::string words) { return text::Replace(std::move(words), office.file, "office.db"); });
  EXPECT_EQ(office.ErrorOf(""), 102);
  EXPECT_THAT(office.Rows("Select getdate() as today"),
              MatchesRegex("20[0-9][0-9]-[01][0-9]-[0-3][0-9] [0-2][0-9]:[0-5][0-9]:[0-5][0-9]"));
  SqliteConnection other(office.ConnectionString());
  const char* const identity = "select scope_identity()";
  EXPECT_EQ(Lines(other.Execute(identity)), "~");
  other.Execute("insert into tblDistributionPromoterProgram (Notes) values (null)");
  EXPECT_NE(Lines(other.Execute(identity)), office.Rows(identity));
}

TEST(Dialect, Pattern_matchesAsOnTheServer) {
  support::ExpectTable("tests/adapters/sqlite/like.txt",
                       {{"like", [](const std::vector<std::string>& given) {
                           return Like(given.at(0), given.at(1)) ? "yes" : "no";
                         }}});
}

TEST(Dialect, TooMuchAtOnce_isRefusedWithWords) {
  Office office;
  for (const std::string_view opening : {"(", "not ", "len(", "(select "}) {
    std::string statement = "select ";
    for (int i = 0; i < 100000; ++i) statement += opening;
    EXPECT_EQ(office.ErrorOf(statement), 191) << opening;
  }
  std::string nested = "select ID from tblEmployee where ";
  for (int i = 0; i < 30; ++i) nested += "exists (select 1 from tblEmployee where ";
  EXPECT_EQ(office.ErrorOf(nested + "1=1" + std::string(30, ')')), 191);

  std::string many = "select ID from tblEmployee where ID=7";
  for (int i = 0; i < 1000; ++i) many += " and ID<>" + std::to_string(i + 10);
  EXPECT_EQ(office.Rows(many), "7");
  EXPECT_EQ(office.ErrorOf(many + " or ID=8"), 8623);

  // The time of a statement is over, not the connection.
  SqliteConnection hasty(office.ConnectionString(), kBusyTimeout, std::chrono::milliseconds(50));
  const std::string crossed = "select count(*) from " + Crossed(3000);
  const platform::RuntimeError late = support::FailureOf([&] { hasty.Execute(crossed); });
  EXPECT_EQ(late.Number(), kTimeLimitReached);
  EXPECT_THAT(late.Description(), HasSubstr("در زمان مقرر پاسخ نداد"));
  EXPECT_EQ(Lines(hasty.Execute("select 1")), "1");
}

}  // namespace
}  // namespace adapters::sqlite
