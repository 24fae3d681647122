// What the user cancels ends at once, is told as that, and leaves nothing behind.

#include <gmock/gmock.h>

#include "adapters/sqlite/Office.h"
#include "support/ErrorNumber.h"
#include "support/FakeProgress.h"

namespace adapters::sqlite {
namespace {

using namespace std::chrono_literals;
using support::NumberOf;

class CancellingTest : public testing::Test {
 protected:
  CancellingTest() {
    std::string ids = "1";
    for (int id = 2; id <= 2000; ++id) ids += "," + std::to_string(id);
    crossed =
        "dbo.fnZomirStringToTable('" + ids + "') a, dbo.fnZomirStringToTable('" + ids + "') b";
  }
  std::string WordsOf(const std::string& statement) {
    try {
      connection.Execute(statement);
    } catch (const platform::RuntimeError& error) {
      EXPECT_EQ(error.Number(), platform::kUserInterrupt) << error.what();
      return error.Description();
    }
    return "none";
  }

  Office office;
  support::FakeProgress progress;
  SqliteConnection connection{office.ConnectionString(), 60s, platform::kStatementLimit, &progress};
  std::string crossed;  // four million rows
};

TEST_F(CancellingTest, Statement_ThatIsCancelled_StoresNothingAndLeavesTheConnection) {
  const std::string stored = office.Rows("select * from tblDistributionPromoterProgram");
  connection.Execute("insert into tblDistributionPromoterProgram (Notes) values ('نو')");
  const std::string identity = Lines(connection.Execute("select SCOPE_IDENTITY() as ID"));
  connection.Execute("delete tblDistributionPromoterProgram where ID=" + identity);
  for (const std::string& statement :
       {"select count(*) from " + crossed,
        "insert into tblDistributionPromoterProgram (Code) select a.ID from " + crossed}) {
    for (const std::size_t at : {1U, 2U, 500U}) {
      progress.stopAtCall = at;
      progress.advanced.clear();
      EXPECT_EQ(WordsOf(statement), "كار پايگاه داده به خواست شما متوقف شد و چيزي ثبت نشد.");
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
  EXPECT_NE(WordsOf("update tblEmployee set Name='x'"), "none");
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

}  // namespace
}  // namespace adapters::sqlite
