// What an administrator does: the host's --backup and --check on the office's file, and its log.

#include <gmock/gmock.h>

#include <fstream>

#include "demo/PlainDatabase.h"
#include "desktop/Host.h"
#include "support/TestFolder.h"

namespace {

namespace fs = std::filesystem;
using support::Content;
using testing::AllOf;
using testing::HasSubstr;

constexpr char kVisits[] = "SELECT count(*) FROM tblDistributionPromoterProgramDetail";

class Upkeep : public testing::Test {
 protected:
  Upkeep() { desktop::MakeOffice(office_, 40); }

  /// The exit status of the host; what it printed is in said_.
  int Host(const std::string& options, const std::string& variables = "") {
    const desktop::Ended ended = desktop::Host(options, variables);
    said_ = ended.said;
    return ended.status;
  }
  int BackUp() { return Host("--backup " + backup_ + " --database " + office_); }
  int Check() { return Host("--check --database " + office_); }

  /// Spoils the page on which an index begins.
  void Damage() const {
    const std::string page = demo::PlainDatabase(office_).Query(
        "SELECT rootpage FROM sqlite_schema WHERE name = 'ixPromoterProgramDetailGroup'")[0][0];
    std::fstream file(office_, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp((std::stol(page) - 1) * 4096 + 8);
    file << std::string(2000, '\x5A');
  }

  support::TestFolder folder_;
  std::string office_ = folder_.File("office.db");
  std::string backup_ = folder_.File("backup.db");
  std::string said_;
};

TEST_F(Upkeep, Backup_WhileAnotherProgramWrites_HoldsWhatIsStoredAndReplacesTheOlder) {
  std::ofstream(backup_) << "an older one";
  fs::permissions(office_, fs::perms::owner_read | fs::perms::owner_write);
  demo::PlainDatabase writer(office_);
  writer.Query("PRAGMA journal_mode = WAL");
  const std::string before = writer.Text(kVisits);
  // Stored, but not in the file itself yet; and not stored yet.
  writer.Query("INSERT INTO tblAccount (Code, Name) VALUES ('stored', 'stored')");
  writer.Query("BEGIN; DELETE FROM tblDistributionPromoterProgramDetail");
  ASSERT_EQ(BackUp(), 0) << said_;
  writer.Query("COMMIT");

  EXPECT_EQ(fs::status(backup_).permissions(), fs::status(office_).permissions());
  EXPECT_FALSE(fs::exists(backup_ + "-wal"));
  demo::PlainDatabase copy(backup_);
  EXPECT_EQ(copy.Text(kVisits), before);
  EXPECT_EQ(copy.Text("SELECT Name FROM tblAccount WHERE Code = 'stored'"), "stored;");
  EXPECT_EQ(Host("--check --database " + backup_), 0) << said_;
}

TEST_F(Upkeep, Backup_Failing_LeavesTheOlderOne) {
  Damage();
  std::ofstream(backup_) << "an older one";
  EXPECT_EQ(BackUp(), 1);
  EXPECT_THAT(said_, HasSubstr("The copy is damaged"));
  EXPECT_EQ(Host("--backup " + office_ + " --database " + office_), 1);
  EXPECT_THAT(said_, HasSubstr("It is the database itself."));
  std::ofstream(backup_ + "-wal") << "of who works on it";
  EXPECT_EQ(BackUp(), 1);
  EXPECT_THAT(said_, HasSubstr("A program works on it"));
  EXPECT_EQ(Content(backup_), "an older one");
  EXPECT_EQ(Host("--backup " + folder_.File("none/backup.db") + " --database " + office_), 1);
  for (const auto& file : fs::directory_iterator(folder_.Path())) {
    EXPECT_THAT(file.path().extension(), testing::Ne(".unfinished"));
  }
}

TEST_F(Upkeep, Check_TellsEachFindingInWords) {
  const std::string untouched = Content(office_);
  ASSERT_EQ(Check(), 0) << said_;
  EXPECT_EQ(Content(office_), untouched);

  demo::PlainDatabase(office_).Text(
      "PRAGMA foreign_keys = OFF;"
      "INSERT INTO tblDistributionPromoterProgramDetail"
      " SELECT ProgramID, PromoterID, FarsiVisitDate, VisitDate, CustomerID, 'again', 999"
      " FROM tblDistributionPromoterProgramDetail LIMIT 1;"
      "DELETE FROM tblOrganization WHERE ID = 7;"
      "DROP INDEX ixDistributionPathRegion;"
      "DROP VIEW vwUserMinor; CREATE VIEW vwUserMinor AS SELECT ID, UserName FROM tblZomirUser");
  EXPECT_EQ(Check(), 1);
  EXPECT_THAT(said_,
              AllOf(HasSubstr("Visited more than once: program 1, "), HasSubstr(", 2 times."),
                    HasSubstr("refers to a row of tblOrganization that is not there."),
                    HasSubstr("Missing: index ixDistributionPathRegion."),
                    HasSubstr("Not as this program makes it: view vwUserMinor.")));
  Damage();
  EXPECT_EQ(Check(), 1);
  EXPECT_THAT(said_, HasSubstr("Damaged: "));
}

TEST_F(Upkeep, Log_WantedByOptionOrEnvironment_HoldsTheStatements) {
  std::ofstream(folder_.File("script.sql")) << "Select 7 as Seven\ngo\nSelect x From tblNowhere";
  const std::string replay =
      "--replay " + folder_.File("script.sql") + " --database " + office_ + " ";
  const std::string log = folder_.File("work.log");
  EXPECT_EQ(Host(replay + "--log " + log), 1);
  const std::string replayed = said_;
  EXPECT_THAT(Content(log), AllOf(HasSubstr("\t1 rows\t\tSelect 7 as Seven\n"),
                                  HasSubstr("\t\terror 208: "), HasSubstr("\tSelect x From tbl")));
  fs::remove(log);
  EXPECT_EQ(Host(replay, "DISTPROMOTER_LOG=" + log), 1);
  EXPECT_THAT(Content(log), HasSubstr("Select 7 as Seven"));

  EXPECT_EQ(Host(replay), 1);
  EXPECT_EQ(said_, replayed);
  EXPECT_EQ(Host(replay + "--log " + folder_.File("none/work.log")), 1);
  EXPECT_THAT(said_, AllOf(HasSubstr("The log cannot be written"), HasSubstr("1 ran, 1 failed")));
}

TEST_F(Upkeep, CommandLine_OfNoUse_EndsWithTwo) {
  for (const char* options :
       {"--backup", "--check --backup x.db", "--check --export 1 x.pdf",
        "--check --connect 'Driver=FreeTDS;Server=far'", "--backup x --connect DSN=far"}) {
    EXPECT_EQ(Host(options), 2) << options;
  }
  EXPECT_EQ(Host("--check --database " + folder_.File("none.db")), 1);
}

}  // namespace
