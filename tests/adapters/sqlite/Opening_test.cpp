#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <optional>
#include <random>
#include <set>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Office.h"

namespace adapters::sqlite {
namespace {

using support::Content;
using testing::HasSubstr;

platform::RuntimeError FailureOf(SqliteConnection& connection, std::string_view statement) {
  return support::FailureOf([&] { connection.Execute(statement); });
}

/// While it lives, the office's file cannot be written, its folder as its mode says; the superuser,
/// who may write anything, is nobody.
class Restricted {
 public:
  explicit Restricted(const Office& office, unsigned mode = 0555)
      : folder_(office.folder.Path()), file_(office.file), mode_(mode) {
    Restrict();
  }
  ~Restricted() { Lift(); }
  Restricted(const Restricted&) = delete;
  Restricted& operator=(const Restricted&) = delete;

  /// What another program does meanwhile, whose user may write there.
  template <typename Work>
  void AsOwner(const Work& work) const {
    Lift();
    work();
    Restrict();
  }

 private:
  void Restrict() const { Become(getuid() == 0 ? 65534 : getuid(), mode_, 0444); }
  void Lift() const { Become(getuid(), 0755, 0644); }
  void Become(uid_t user, unsigned folder, unsigned file) const {
    if (seteuid(getuid()) != 0) std::abort();
    std::filesystem::permissions(folder_, std::filesystem::perms(folder));
    std::filesystem::permissions(file_, std::filesystem::perms(file));
    if (seteuid(user) != 0) std::abort();
  }
  std::filesystem::path folder_;
  std::filesystem::path file_;
  unsigned mode_;
};

TEST(Opening, UnusableFile_isNamedInAClearErrorAndAServersPasswordIsNot) {
  support::TestFolder folder;
  const std::string noDatabase = folder.File("letter.txt");
  std::ofstream(noDatabase) << std::string(2000, 'x');
  const std::string empty = folder.File("empty.db");
  std::ofstream(empty).close();
  const std::string foreign = folder.File("albums.db");
  demo::PlainDatabase(foreign).Query("CREATE TABLE tblAlbum (ID INTEGER)");
  const std::string content = Content(foreign);
  const std::pair<std::string, std::string> cases[] = {
      {folder.File("missing.db"), "پيدا نشد"}, {"", "پيدا نشد"},
      {folder.Path().string(), "پوشه است"},    {noDatabase, "پايگاه داده نيست"},
      {empty, "از اين سامانه نيست"},           {foreign, "از اين سامانه نيست"},
  };
  for (const auto& [file, words] : cases) {
    SqliteConnection connection("sqlite:" + file);
    const platform::RuntimeError failure = FailureOf(connection, "select 1");
    EXPECT_EQ(failure.Number(), 4060) << file;
    EXPECT_THAT(failure.Description(), HasSubstr(words));
    EXPECT_THAT(failure.Description(), HasSubstr(Quoted(file)));
  }
  EXPECT_FALSE(std::filesystem::exists(folder.File("missing.db")));
  EXPECT_EQ(std::filesystem::file_size(empty), 0U);
  EXPECT_TRUE(Content(foreign) == content) << "another program's file was written to";

  SqliteConnection server("Provider=X;Data Source=y;Password=Geheim-7301");
  const platform::RuntimeError refused = FailureOf(server, "select 1");
  EXPECT_EQ(refused.Number(), 4060);
  EXPECT_THAT(refused.Description(), HasSubstr("sqlite:FILE"));
  EXPECT_THAT(refused.Description(), testing::Not(HasSubstr("Geheim")));

  // A file that appears later is opened by the next statement.
  SqliteConnection early("sqlite:" + folder.File("پايگاه داده.db"));
  EXPECT_EQ(FailureOf(early, "select 1").Number(), 4060);
  std::filesystem::rename(Office().file, folder.File("پايگاه داده.db"));
  EXPECT_EQ(FailureOf(early, "select 1").Description(), "");
  EXPECT_EQ(std::filesystem::file_size(noDatabase), 2000U);
}

TEST(Opening, ReadOnlyFile_readsAndRefusesToWrite) {
  Office office;
  for (const unsigned mode : {0555U, 0777U}) {
    const Restricted nobody(office, mode);
    SqliteConnection connection(office.ConnectionString());
    EXPECT_EQ(FailureOf(connection, "select ID from tblEmployee").Description(), "");
    const platform::RuntimeError failure = FailureOf(connection, "delete tblEmployee where ID=7");
    EXPECT_EQ(failure.Number(), 3906) << failure.Description();
    EXPECT_THAT(failure.Description(), HasSubstr("فقط خواندني"));
    EXPECT_THAT(failure.Description(), HasSubstr(office.file));
  }
  EXPECT_EQ(office.Rows("select count(*) from tblEmployee"), "3");
}

TEST(Opening, FolderWithoutTheRightToWrite_IsReadAsOtherProgramsLeaveIt) {
  Office office;
  const auto write = [&](SqliteConnection& host, int id) {
    host.Execute("insert into tblEmployee(ID, Name) values (" + std::to_string(id) + ",'a')");
  };
  const Restricted folder(office);
  const char* const kLast = "select max(ID) from tblEmployee";
  SqliteConnection reader(office.ConnectionString());
  EXPECT_EQ(Lines(reader.Execute(kLast)), "9");
  const auto writeAndClose = [&](int id) {
    folder.AsOwner([&] {
      SqliteConnection host(office.ConnectionString());
      write(host, id);
    });
  };
  writeAndClose(30);
  EXPECT_EQ(Lines(reader.Execute(kLast)), "30");
  platform::RowSet all;
  EXPECT_FALSE(reader.Open(kLast)->Read(all, 1)) << "at once: later they may be others";
  EXPECT_EQ(Lines(all), "30");

  // Changed under the eyes of a statement: it is done again, and what it met before counts not.
  DatabaseFile file(office.file, kBusyTimeout);
  int times = 0;
  const auto read = [&](sqlite3* database, Catalog&) {
    const StatementHandle statement = Prepare(database, kLast, "");
    if (++times % 2 == 1) writeAndClose(40 + times);
    if (times == 3) throw MakeError(kInconsistentFile, "half of it");
    sqlite3_step(statement.get());
    return sqlite3_column_int(statement.get(), 0);
  };
  EXPECT_EQ(file.Use(read), 41);
  EXPECT_EQ(file.Use(read), 43);
  EXPECT_EQ(times, 4);
  EXPECT_THAT([&] { file.Use([&](sqlite3*, Catalog&) { return writeAndClose(50 + ++times), 0; }); },
              testing::Throws<platform::RuntimeError>(
                  testing::Property(&platform::RuntimeError::Number, 1222)));

  // Another host is at work: its log is read.
  std::optional<SqliteConnection> host;
  folder.AsOwner([&] {
    host.emplace(office.ConnectionString());
    write(*host, 60);
  });
  EXPECT_EQ(Lines(reader.Execute(kLast)), "60");
  folder.AsOwner([&] { write(*host, 61); });
  EXPECT_EQ(Lines(reader.Execute(kLast)), "61");
  folder.AsOwner([&] { host.reset(); });
  EXPECT_EQ(Lines(reader.Execute(kLast)), "61");
}

TEST(Opening, DamagedFileWithoutLocks_IsNoReasonToRestoreABackup) {
  Office office;
  std::string damaged = Content(office.file);
  std::fill(damaged.begin() + 4096, damaged.end(), '\xFF');
  std::ofstream(office.file, std::ios::binary) << damaged;
  const Restricted folder(office);
  SqliteConnection reader(office.ConnectionString());
  const platform::RuntimeError failure = FailureOf(reader, "select * from tblEmployee");
  EXPECT_EQ(failure.Number(), 824) << failure.Description();
  EXPECT_THAT(failure.Description(), testing::Not(HasSubstr("پشتيبان")));
}

class MovedFile : public testing::TestWithParam<bool> {
 protected:
  MovedFile() {
    namespace fs = std::filesystem;
    fs::copy_file(office.file, backup);
    if (GetParam()) fs::create_symlink(office.file, path);
  }

  Office office;
  const std::string backup = office.folder.File("backup.db");
  const std::string moved = office.folder.File("moved.db");
  const std::string path = GetParam() ? office.folder.File("link.db") : office.file;
  SqliteConnection connection{"sqlite:" + path, std::chrono::milliseconds(5)};
};

TEST_P(MovedFile, TakesItsRowsAlongAndIsToldBeforeTheNext) {
  namespace fs = std::filesystem;
  SqliteConnection late("sqlite:" + path);
  late.Execute("select 1");
  connection.Execute("insert into tblEmployee(ID, Name) values (30,'a')");
  fs::rename(office.file, moved);
  const platform::RuntimeError gone = FailureOf(connection, "delete tblEmployee where ID=30");
  EXPECT_EQ(gone.Number(), 4060);
  EXPECT_THAT(gone.Description(), HasSubstr("جابه‌جا يا پاك شده است"));
  EXPECT_EQ(FailureOf(connection, "select 1").Number(), 4060) << "made anew";

  fs::rename(backup, office.file);
  EXPECT_EQ(Lines(connection.Execute("select count(*) from tblEmployee")), "3")
      << "the other file's log";
  SqliteConnection other("sqlite:" + moved);
  EXPECT_EQ(Lines(other.Execute("select count(*) from tblEmployee")), "4");

  // Another connection of the host hears of it when the new file is in use already.
  connection.Execute("insert into tblEmployee(ID, Name) values (31,'b')");
  EXPECT_EQ(FailureOf(late, "select 1").Number(), 4060);
  EXPECT_EQ(Lines(late.Execute("select max(ID) from tblEmployee")), "31");
  EXPECT_EQ(Lines(connection.Execute("select max(ID) from tblEmployee")), "31");

  if (!GetParam()) return;
  fs::remove(path);
  fs::create_symlink(moved, path);
  EXPECT_EQ(FailureOf(connection, "delete tblEmployee where ID=30").Number(), 4060);
  EXPECT_EQ(Lines(connection.Execute("select max(ID) from tblEmployee")), "30");
  EXPECT_EQ(office.Rows("select max(ID) from tblEmployee"), "31") << "where the link led before";
}

TEST_P(MovedFile, WhoseLogIsInUse_LeavesItUnderAnotherName) {
  namespace fs = std::filesystem;
  connection.Execute("insert into tblEmployee(ID, Name) values (30,'a')");
  demo::PlainDatabase reader(office.file);
  EXPECT_EQ(reader.Text("BEGIN; SELECT max(ID) FROM tblEmployee"), "30;");
  fs::rename(office.file, moved);
  fs::rename(backup, office.file);
  const std::string told = FailureOf(connection, "select 1").Description();
  EXPECT_EQ(Lines(connection.Execute("select max(ID) from tblEmployee")), "9");
  const auto begin = told.find(office.file + "-wal");
  ASSERT_NE(begin, told.npos) << told;
  fs::rename(told.substr(begin, told.find("\u202C", begin) - begin), moved + "-wal");
  reader.Query("COMMIT");
  SqliteConnection other("sqlite:" + moved);
  EXPECT_EQ(Lines(other.Execute("select max(ID) from tblEmployee")), "30");
}

INSTANTIATE_TEST_SUITE_P(ByItsNameAndThroughALink, MovedFile, testing::Bool());

TEST(Opening, DamagedFile_FailsWithWordsThatNameItOrReads) {
  Office office;
  const std::string whole = Content(office.file);
  const std::string file = office.folder.File("damaged.db");
  std::mt19937 random(1404);
  std::set<int> numbers;
  for (int turn = 0; turn < 400; ++turn) {
    std::string damaged = whole;
    // Now and then the file's head, by which a database is known.
    const std::size_t at = random() % (turn % 20 == 1 ? 16 : whole.size());
    const std::size_t length =
        std::min<std::size_t>(random() % 3 == 0 ? 4 : 4096, whole.size() - at);
    for (std::size_t i = at; i < at + length; ++i) {
      damaged[i] = turn % 2 == 0 ? '\0' : static_cast<char>(random());
    }
    if (turn % 10 == 0) damaged.resize(at);
    std::filesystem::remove(file + "-wal");
    std::ofstream(file, std::ios::binary | std::ios::trunc) << damaged;
    SqliteConnection connection("sqlite:" + file);
    for (const char* statement :
         {"select * from tblOrganization order by Name", "select * from vwProgramDays",
          "insert into tblDistributionPromoterProgram (Notes) values ('x')",
          "delete tblDistributionPromoterProgramDetail where PromoterID=7"}) {
      const platform::RuntimeError failure = FailureOf(connection, statement);
      if (numbers.insert(failure.Number()); failure.Number() == 0) continue;
      EXPECT_THAT(failure.Description(), HasSubstr(Quoted(file))) << turn << " " << statement;
    }
  }
  EXPECT_THAT(numbers, testing::IsSupersetOf({0, 824, 4060}));
}

}  // namespace
}  // namespace adapters::sqlite
