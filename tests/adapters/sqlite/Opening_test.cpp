#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "adapters/sqlite/Office.h"

namespace adapters::sqlite {
namespace {

using testing::HasSubstr;
using namespace std::chrono_literals;

struct Failure {
  int number = 0;
  std::string words;
};

Failure FailureOf(SqliteConnection& connection, std::string_view statement) {
  try {
    connection.Execute(statement);
    return {};
  } catch (const platform::RuntimeError& error) {
    return {error.Number(), error.Description()};
  }
}

/// The superuser may write anything: for the time of a test he becomes nobody.
class WithoutPrivilege {
 public:
  WithoutPrivilege() {
    if (was_ == 0) changed_ = seteuid(65534) == 0;
  }
  ~WithoutPrivilege() {
    if (changed_ && seteuid(was_) != 0) std::abort();
  }
  WithoutPrivilege(const WithoutPrivilege&) = delete;
  WithoutPrivilege& operator=(const WithoutPrivilege&) = delete;

 private:
  uid_t was_ = geteuid();
  bool changed_ = false;
};

TEST(Opening, ConnectionStringOfAServer_isRefusedWithoutItsPassword) {
  SqliteConnection connection("Provider=X;Data Source=y;Password=Geheim-7301");
  const Failure failure = FailureOf(connection, "select 1");
  EXPECT_EQ(failure.number, 4060);
  EXPECT_THAT(failure.words, HasSubstr("sqlite:FILE"));
  EXPECT_THAT(failure.words, testing::Not(HasSubstr("Geheim")));
}

TEST(Opening, UnusableFile_isNamedInAClearError) {
  TestFolder folder;
  const std::string noDatabase = folder.File("letter.txt");
  std::ofstream(noDatabase) << std::string(2000, 'x');
  const std::pair<std::string, std::string> cases[] = {
      {"sqlite:" + folder.File("missing.db"), "پیدا نشد"},
      {"sqlite:", "پیدا نشد"},
      {"sqlite:" + folder.Path().string(), "پوشه است"},
      {"sqlite:" + noDatabase, "پایگاه داده نیست"},
  };
  for (const auto& [connectionString, words] : cases) {
    SqliteConnection connection(connectionString);
    const Failure failure = FailureOf(connection, "select 1");
    EXPECT_EQ(failure.number, 4060) << connectionString;
    EXPECT_THAT(failure.words, HasSubstr(words));
    EXPECT_THAT(failure.words, HasSubstr("«" + connectionString.substr(7) + "»"));
  }
  EXPECT_FALSE(std::filesystem::exists(folder.File("missing.db")));

  // A file that appears later is opened by the next statement.
  SqliteConnection early("sqlite:" + folder.File("پایگاه داده.db"));
  EXPECT_EQ(FailureOf(early, "select 1").number, 4060);
  std::filesystem::rename(Office().file, folder.File("پایگاه داده.db"));
  EXPECT_EQ(FailureOf(early, "select 1").words, "");
  EXPECT_EQ(std::filesystem::file_size(noDatabase), 2000U);
}

TEST(Opening, ReadOnlyFile_readsAndRefusesToWrite) {
  Office office;
  namespace fs = std::filesystem;
  fs::permissions(office.file, fs::perms(0444));
  for (const auto folderMode : {fs::perms(0555), fs::perms::all}) {
    fs::permissions(office.folder.Path(), folderMode);
    const WithoutPrivilege nobody;
    SqliteConnection connection(office.ConnectionString());
    EXPECT_EQ(FailureOf(connection, "select ID from tblEmployee").words, "");
    const Failure failure = FailureOf(connection, "delete tblEmployee where ID=7");
    EXPECT_EQ(failure.number, 3906) << failure.words;
    EXPECT_THAT(failure.words, HasSubstr("فقط خواندنی"));
    EXPECT_THAT(failure.words, HasSubstr(office.file));
  }
  fs::permissions(office.folder.Path(), fs::perms::owner_all);
  EXPECT_EQ(office.Rows("select count(*) from tblEmployee"), "3");
}

TEST(Opening, LockedFile_failsAfterTheTimeoutAndWorksAgainLater) {
  Office office;
  SqliteConnection connection(office.ConnectionString(), 20ms);
  const DatabaseHandle other = OpenDatabase(office.file, SQLITE_OPEN_READWRITE);
  const auto run = [&](const char* sql) {
    ASSERT_EQ(sqlite3_exec(other.get(), sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
  };
  run("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE; DELETE FROM tblValues; COMMIT");
  const Failure unopened = FailureOf(connection, "select 1");
  EXPECT_EQ(unopened.number, 1222) << unopened.words;
  EXPECT_THAT(unopened.words, HasSubstr(office.file));
  run("PRAGMA locking_mode = NORMAL; SELECT count(*) FROM tblValues");
  EXPECT_EQ(FailureOf(connection, "select ID from tblEmployee").words, "");

  run("BEGIN IMMEDIATE");
  EXPECT_EQ(FailureOf(connection, "delete tblEmployee where ID=7").number, 1222);
  EXPECT_EQ(FailureOf(connection, "select ID from tblEmployee").number, 0);
  run("COMMIT");
  EXPECT_EQ(FailureOf(connection, "delete tblEmployee where ID=7").number, 0);
}

}  // namespace
}  // namespace adapters::sqlite
