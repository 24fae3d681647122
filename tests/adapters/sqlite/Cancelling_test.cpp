// What the user cancels ends at once, is told as that, and leaves nothing behind.

#include <gmock/gmock.h>

#include <optional>

#include "adapters/sqlite/Office.h"
#include "support/ErrorNumber.h"
#include "support/FakeProgress.h"

namespace adapters::sqlite {
namespace {

using namespace std::chrono_literals;
using support::NumberOf;

class CancellingTest : public testing::Test {
 protected:
  std::string WordsOf(const std::string& statement) {
    const auto failure = support::FailureOf([&] { connection.Execute(statement); });
    EXPECT_EQ(failure.Number(), platform::kUserInterrupt) << failure.what();
    return failure.Description();
  }

  Office office;
  support::FakeProgress progress;
  SqliteConnection connection{office.ConnectionString(), 60s, platform::kStatementLimit, &progress};
  const std::string crossed = Crossed(2000);  // four million rows
};

constexpr std::string_view kBefore = " آنچه پيش از آن ثبت شده باشد سر جاي خود است.";

TEST_F(CancellingTest, Statement_ThatIsCancelled_StoresNothingAndLeavesTheConnection) {
  const std::string stored = office.Rows("select * from tblDistributionPromoterProgram");
  connection.Execute("insert into tblDistributionPromoterProgram (Notes) values ('نو')");
  const std::string identity = Lines(connection.Execute("select SCOPE_IDENTITY() as ID"));
  connection.Execute("delete tblDistributionPromoterProgram where ID=" + identity);
  const std::pair<std::string, std::string> cases[] = {
      {"select count(*) from " + crossed, "."},
      {"insert into tblDistributionPromoterProgram (Code) select a.ID from " + crossed,
       " و از آن چيزي ثبت نشد."}};
  for (const auto& [statement, left] : cases) {
    for (const std::size_t at : {1U, 2U, 500U}) {
      progress.stopAtCall = at;
      progress.advanced.clear();
      EXPECT_EQ(WordsOf(statement),
                "كار پايگاه داده به خواست شما متوقف شد" + left + std::string(kBefore));
      EXPECT_EQ(progress.advanced.size(), at) << "asked on, or not";
      progress.stopAtCall = 0;
      EXPECT_EQ(Lines(connection.Execute("select * from tblDistributionPromoterProgram")), stored);
      EXPECT_EQ(Lines(connection.Execute("select SCOPE_IDENTITY() as ID")), identity);
    }
  }
  EXPECT_EQ(progress.ended, static_cast<int>(progress.begun.size()));
}

TEST_F(CancellingTest, LockOfAnotherProgram_IsNotWaitedForAnyLonger) {
  connection.Execute("select 1");
  demo::PlainDatabase other(office.file);
  other.Query("BEGIN IMMEDIATE");
  progress.stopAtCall = 5;
  const auto begin = std::chrono::steady_clock::now();
  WordsOf("update tblEmployee set Name='x'");
  const platform::Parameter action[] = {{"@EventID", 1},    {"@FormCode", ""},
                                        {"@FormTypeID", 1}, {"@Text", ""},
                                        {"@UserID", 1},     {"@Date", std::chrono::sys_days()},
                                        {"@Day", ""},       {"@EventTime", 510}};
  EXPECT_EQ(NumberOf([&] { connection.CallProcedure("spZomirInsertFormAction", action); }),
            platform::kUserInterrupt);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 20s);
  progress.stopAtCall = 0;
  progress.onAdvance = [&] {
    if (progress.advanced.size() > 20) other.Query("ROLLBACK");
  };
  EXPECT_FALSE(connection.Execute("update tblEmployee set Name='x'").ReturnsRows());
}

TEST_F(CancellingTest, FileThatAnotherProgramHolds_IsAskedAboutWhileItIsOpened) {
  std::optional<demo::PlainDatabase> other(std::in_place, office.file);
  const std::string names = "select Name from tblEmployee";
  const std::string stored = office.Rows(names);
  office.connection = SqliteConnection(office.ConnectionString());  // gives the file up
  ASSERT_EQ(other->Text("PRAGMA locking_mode = EXCLUSIVE; BEGIN IMMEDIATE; UPDATE tblEmployee SET "
                        "Name = 'x'"),
            "exclusive;");
  for (const std::size_t at : {1U, 5U}) {
    progress.stopAtCall = at;
    progress.advanced.clear();
    EXPECT_EQ(WordsOf("update tblEmployee set Name='y'"),
              "كار پايگاه داده به خواست شما متوقف شد." + std::string(kBefore));
    EXPECT_EQ(progress.advanced.size(), at);
  }
  progress.stopAtCall = 0;
  progress.onAdvance = [&] {
    EXPECT_EQ(NumberOf([&] { connection.Execute(names); }), platform::kStillExecuting);
    if (progress.advanced.size() > 20) other.reset();
  };
  EXPECT_EQ(Lines(connection.Execute(names)), stored) << "the same connection, once it is free";
  EXPECT_EQ(progress.ended, static_cast<int>(progress.begun.size()));
}

}  // namespace
}  // namespace adapters::sqlite
