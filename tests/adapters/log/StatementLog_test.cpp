#include "adapters/log/StatementLog.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <sstream>

#include "support/ErrorNumber.h"
#include "support/ScriptedDatabase.h"
#include "support/TestFolder.h"

namespace adapters::log {
namespace {

namespace fs = std::filesystem;
using platform::RowSet;
using support::Content;
using testing::HasSubstr;

constexpr char kConnection[] = "Driver=FreeTDS;Server=far;UID=office;PWD=s3cret-word";

class Log : public testing::Test {
 protected:
  Log() {
    RowSet updated;
    updated.SetAffectedRows(7);
    database_.When(support::Beginning("Select")).Gives(support::RowSetOf({"a"}, {{"1"}}));
    database_.When(support::Exact("Update b")).Gives(updated);
    database_.When(support::Beginning("Fail")).Fails({18456, "Login failed:\n s3cret-word", "far"});
  }
  /// On a clock that goes on by 1.5 ms each time it is looked at.
  auto Make(const std::string& file, std::uintmax_t most = StatementLog::kMost) {
    using namespace std::chrono_literals;
    const auto now = [this] { return now_ += 1500us; };
    return std::make_shared<StatementLog>(file, now, complaints_, most);
  }

  support::Events events_;
  support::ScriptedDatabase database_{events_};
  support::TestFolder folder_;
  std::string file_ = folder_.File("work.log");
  std::ostringstream complaints_;
  Moment now_ = std::chrono::sys_days(std::chrono::year(2025) / 11 / 22) + std::chrono::hours(9);
};

TEST_F(Log, Statements_AreToldWithTimeRowsFaultAndNoPassword_AndDoWhatTheyDid) {
  const auto connection = Logged(database_.Create(""), kConnection, Make(file_));
  EXPECT_EQ(connection->Execute("Select a\r\nFrom b").RowCount(), 1U);
  EXPECT_EQ(connection->Execute("Update b").AffectedRows(), 7);
  const platform::Parameter parameters[] = {
      {"@UserID", 1}, {"@FormPermissionID", 7}, {"@Day", std::chrono::sys_days{}}, {"@Text", "ي"}};
  EXPECT_EQ(connection->CallProcedure("spZomirHasPermission", parameters), -1);
  const auto reader = connection->Open("Select a");
  RowSet rows;
  EXPECT_FALSE(reader->Read(rows, 10));
  const auto error = support::FailureOf([&] { connection->Execute("Fail PWD=s3cret-word"); });
  EXPECT_EQ(error.Number(), 18456);
  EXPECT_EQ(error.Source(), "far");
  EXPECT_THAT(error.Description(), HasSubstr("s3cret-word"));  // whoever shows it stars it out
  EXPECT_EQ(Content(file_),
            "2025-11-22T09:00:00.001Z\t#1\t\t\t\tDriver=FreeTDS;Server=far;UID=office;PWD=***\n"
            "2025-11-22T09:00:00.003Z\t#1\t1.500 ms\t1 rows\t\tSelect a  From b\n"
            "2025-11-22T09:00:00.006Z\t#1\t1.500 ms\t7 rows\t\tUpdate b\n"
            "2025-11-22T09:00:00.009Z\t#1\t1.500 ms\t\t\tcall: spZomirHasPermission @UserID=1, "
            "@FormPermissionID=7, @Day=1970-01-01, @Text='ي'\n"
            "2025-11-22T09:00:00.012Z\t#1\t1.500 ms\t\t\topen: Select a\n"
            "2025-11-22T09:00:00.015Z\t#1\t1.500 ms\t1 rows\t\tread: Select a\n"
            "2025-11-22T09:00:00.018Z\t#1\t1.500 ms\t\terror 18456: Login failed:  ***\t"
            "Fail PWD=***\n");
  EXPECT_EQ(fs::status(file_).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(Log, Grown_BecomesTheOneOlderFile) {
  const auto log = Make(file_, 20);
  for (const char* line : {"first line", "second line", "third line", "4th", "line 5"}) {
    log->Write(line);
  }
  EXPECT_EQ(Content(file_), "line 5\n");
  EXPECT_EQ(Content(file_ + ".1"), "third line\n4th\n");
  EXPECT_EQ(folder_.FileCount(), 2);
}

TEST_F(Log, NotWritable_IsToldOnceAndTheFolderKeepsItsRights) {
  const auto log = Make(folder_.Path().string());
  const auto before = fs::status(folder_.Path()).permissions();
  for (const char* line : {"first line", "second line"}) log->Write(line);
  EXPECT_THAT(complaints_.str(), HasSubstr(folder_.Path().string()));
  EXPECT_EQ(std::ranges::count(complaints_.str(), '\n'), 1);
  EXPECT_EQ(fs::status(folder_.Path()).permissions(), before);
}

}  // namespace
}  // namespace adapters::log
