// A backup of an office that another program works on.

#include <gtest/gtest.h>

#include <fstream>

#include "demo/PlainDatabase.h"
#include "desktop/Host.h"
#include "support/TestFolder.h"

namespace {

namespace fs = std::filesystem;

TEST(Backup, WhileAnotherProgramWrites_HoldsWhatIsStoredAndReplacesTheOlder) {
  const support::TestFolder folder;
  const std::string office = folder.File("office.db");
  const std::string backup = folder.File("backup.db");
  const char* const kVisits = "SELECT count(*) FROM tblDistributionPromoterProgramDetail";
  desktop::MakeOffice(office, 40);
  std::ofstream(backup) << "an older one";
  fs::permissions(office, fs::perms::owner_read | fs::perms::owner_write);
  demo::PlainDatabase writer(office);
  writer.Query("PRAGMA journal_mode = WAL");
  const std::string before = writer.Text(kVisits);
  // Stored, but not in the file itself yet; and not stored yet.
  writer.Query("INSERT INTO tblAccount (Code, Name) VALUES ('stored', 'stored')");
  writer.Query("BEGIN; DELETE FROM tblDistributionPromoterProgramDetail");
  const auto ended = desktop::Typed(folder.Path().string(),
                                    "promoter-desktop --backup backup.db --database office.db");
  ASSERT_EQ(ended.status, 0) << ended.said;
  writer.Query("COMMIT");

  EXPECT_EQ(fs::status(backup).permissions(), fs::status(office).permissions());
  EXPECT_FALSE(fs::exists(backup + "-wal"));
  demo::PlainDatabase copy(backup);
  EXPECT_EQ(copy.Text(kVisits), before);
  EXPECT_EQ(copy.Text("SELECT Name FROM tblAccount WHERE Code = 'stored'"), "stored;");
}

}  // namespace
