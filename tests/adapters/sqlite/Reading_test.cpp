// Rows that are read bit by bit: nobody waits for them, and nothing that happens meanwhile is seen.

#include <gmock/gmock.h>

#include <filesystem>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Office.h"
#include "support/ErrorNumber.h"
#include "support/FakeProgress.h"

namespace adapters::sqlite {
namespace {

using namespace std::chrono_literals;
using support::NumberOf;

class ReadingTest : public testing::Test {
 protected:
  ReadingTest() {
    connection.Execute(
        "insert into tblEmployee (ID, Name) select ID, convert(varchar,ID) from "
        "dbo.fnZomirStringToTable('" +
        Numbers(10, 990) + "') n");
    all = Lines(connection.Execute(kAll));
  }
  /// Whether nobody reads the log any more: it can be emptied.
  bool IsLogFree() { return other.Text("PRAGMA wal_checkpoint(TRUNCATE)") == "0|0|0;"; }
  void ReadTheRest() {
    while (reader->Read(rows, 100)) {
    }
  }

  static constexpr const char* kAll = "select ID, Name from tblEmployee order by ID";
  Office office;
  demo::PlainDatabase other{office.file};
  support::FakeProgress progress;
  SqliteConnection connection{office.ConnectionString(), 60s, platform::kStatementLimit, &progress};
  std::string all;
  platform::RowSet rows;
  std::unique_ptr<platform::RowReader> reader = connection.Open(kAll);
};

TEST_F(ReadingTest, Rows_ComeAsTheyAreWanted) {
  reader = connection.Open("select a.ID, b.ID from " + Crossed(2000));
  progress.Forget();
  EXPECT_TRUE(reader->Read(rows, 10));
  EXPECT_EQ(rows.RowCount(), 10U);
  EXPECT_TRUE(reader->Read(rows, 5));
  EXPECT_EQ(rows.RowCount(), 15U);
  EXPECT_LT(progress.advanced.size(), 10U) << "of four million rows";
  EXPECT_EQ(progress.begun.size(), 2U);
  EXPECT_FALSE(progress.UnderWay());
}

TEST_F(ReadingTest, Writers_WaitForNoReaderAndAreNotSeen) {
  EXPECT_TRUE(reader->Read(rows, 100));
  EXPECT_EQ(other.Text("INSERT INTO tblEmployee VALUES (5000, 'x')"), "");
  connection.Execute("delete tblEmployee where ID > 500");
  EXPECT_EQ(Lines(connection.Execute("select count(*) from tblEmployee")), "494");
  EXPECT_FALSE(IsLogFree());
  ReadTheRest();
  EXPECT_EQ(Lines(rows), all);
  EXPECT_TRUE(IsLogFree()) << "after the last row";
  reader = connection.Open(kAll);
  EXPECT_TRUE(IsLogFree()) << "before the first";
  EXPECT_TRUE(reader->Read(rows, 1));
  reader.reset();
  EXPECT_TRUE(IsLogFree()) << "without a reader";
}

TEST_F(ReadingTest, FileThatIsPutInThePlace_IsNotTheReaders) {
  SqliteConnection hurried(office.ConnectionString(), 5ms);
  reader = hurried.Open(kAll);
  EXPECT_TRUE(reader->Read(rows, 100));
  std::filesystem::rename(office.file, office.file + ".old");
  EXPECT_EQ(NumberOf([&] { hurried.Execute("select 1"); }), 4060);
  EXPECT_EQ(NumberOf([&] { hurried.Open(kAll); }), 4060);
  std::filesystem::rename(Office().file, office.file);
  EXPECT_EQ(Lines(hurried.Execute("select count(*) from tblEmployee")), "3");
  ReadTheRest();
  EXPECT_EQ(Lines(rows), all);
}

TEST_F(ReadingTest, Read_ThatIsCancelled_CanBeTriedAgainWhileTheDataAreTheSame) {
  reader = connection.Open("select a.ID from tblEmployee a, tblEmployee b where b.Name <> 'x'");
  EXPECT_TRUE(reader->Read(rows, 1000));
  const auto cancelled = [&] {
    progress.stopAtCall = 1;
    const auto failure = support::FailureOf([&] {
      while (reader->Read(rows, 100'000)) {
      }
    });
    progress.stopAtCall = 0;
    EXPECT_EQ(failure.Number(), platform::kUserInterrupt);
    return failure.Description();
  };
  EXPECT_THAT(cancelled(), testing::StartsWith("كار پايگاه داده به خواست شما متوقف شد. "));
  EXPECT_GT(rows.RowCount(), 1000U);
  EXPECT_THAT(cancelled(), testing::StartsWith("كار پايگاه داده به خواست شما متوقف شد. "));
  const std::size_t before = rows.RowCount();
  EXPECT_TRUE(reader->Read(rows, 100'000));
  EXPECT_GT(rows.RowCount(), before);
  ReadTheRest();
  EXPECT_EQ(Lines(rows), Lines(connection.Execute("select a.ID from tblEmployee a, tblEmployee b "
                                                  "where b.Name <> 'x'")));

  reader = connection.Open("select a.ID from tblEmployee a, tblEmployee b where b.Name <> 'x'");
  rows = {};
  EXPECT_TRUE(reader->Read(rows, 1000));
  cancelled();
  EXPECT_EQ(other.Text("DELETE FROM tblEmployee WHERE ID = 10"), "");
  EXPECT_EQ(NumberOf([&] { reader->Read(rows, 1); }), kOther);
}

TEST_F(ReadingTest, Limits_AreOfEachRead) {
  SqliteConnection hurried(office.ConnectionString(), 60s, 0ms);
  reader = hurried.Open("select count(*) from tblEmployee a, tblEmployee b, tblEmployee c");
  EXPECT_EQ(NumberOf([&] { reader->Read(rows, 1); }), kTimeLimitReached);
  EXPECT_EQ(NumberOf([&] { reader->Read(rows, 1); }), kTimeLimitReached);
  EXPECT_TRUE(IsLogFree());
}

}  // namespace
}  // namespace adapters::sqlite
