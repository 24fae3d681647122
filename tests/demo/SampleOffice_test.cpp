#include "demo/SampleOffice.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

#include "calendar/Gregorian.h"
#include "calendar/SolarHijriDate.h"
#include "demo/PlainDatabase.h"
#include "platform/ResumeNext.h"
#include "support/Approved.h"

namespace {

using demo::PlainDatabase;
using demo::SampleOptions;

SampleOptions Options(int customers) {
  using namespace std::chrono_literals;
  return {.customers = customers, .today = 2025y / 11 / 22, .basePath = {}};
}

class SampleOffice : public testing::Test {
 protected:
  std::string File(const std::string& name) const { return folder_.File(name); }
  auto FileCount() const { return folder_.FileCount(); }
  // Number of the error of making an office, 0 for none.
  std::int32_t Create(const std::string& name, const SampleOptions& options) const {
    return platform::ResumeNext([&] { CreateSampleOffice(File(name), options); });
  }

 private:
  support::TestFolder folder_;
};

TEST_F(SampleOffice, Database_Checked_IsSoundAndTheOnlyFileLeft) {
  for (const int customers : {1, 5000}) {
    const std::string name = std::to_string(customers) + ".db";
    SampleOptions options = Options(customers);
    options.basePath = "reports/";
    ASSERT_EQ(Create(name, options), 0);
    PlainDatabase office(File(name));
    EXPECT_EQ(office.Text("PRAGMA integrity_check; PRAGMA foreign_key_check"), "ok;");
    EXPECT_EQ(office.Text("SELECT BasePath FROM vwZomirBasePath"), "reports/;");
    EXPECT_EQ(office.Text("SELECT count(*) FROM tblOrganization"), std::to_string(customers) + ";");
  }
  EXPECT_EQ(FileCount(), 2);
}

TEST_F(SampleOffice, Content_Checked_IsWhatTheModuleLivesOn) {
  ASSERT_EQ(Create("office.db", Options(5000)), 0);
  PlainDatabase office(File("office.db"));
  for (const std::string view : {"vwUser", "vwEmployee", "vwSaleSupervisor", "vwSalePromoter",
                                 "vwAccountBranch", "vwOrganization", "vwZomirWorkActivity"}) {
    const std::string rows = office.Text("SELECT ID, Name FROM " + view + "Major ORDER BY ID");
    EXPECT_NE(rows, "") << view;
    EXPECT_EQ(rows, office.Text("SELECT ID, Name FROM " + view + "Minor ORDER BY ID")) << view;
    EXPECT_EQ(
        office.Text("SELECT * FROM " + view + "Major WHERE ID IS NULL OR ifnull(Name, '') = ''"),
        "");
  }
  support::ExpectOutcomes("tests/demo/sample.txt",
                          [&](const std::string& sql) { return office.Text(sql); });

  const std::string days = office.Text(
      "SELECT VisitDate, FarsiVisitDate FROM tblDistributionPromoterProgramDetail UNION "
      "SELECT DocumentDate, FarsiDocumentDate FROM tblAccountDocument UNION "
      "SELECT EventDate, FarsiEventDate FROM tblZomirFormAction");
  constexpr std::size_t kRow = std::string_view("20251122|1404/09/01;").size();
  ASSERT_GT(days.size(), 30 * kRow);
  for (std::size_t at = 0; at < days.size(); at += kRow) {
    const auto farsi = calendar::SolarHijriDate::FromText(days.substr(at + 9, 10));
    ASSERT_TRUE(farsi) << days.substr(at, kRow);
    EXPECT_EQ(calendar::GregorianLiteral(farsi->Days()), days.substr(at, 8));
  }
}

TEST_F(SampleOffice, Content_OfAnotherSeed_IsAnother) {
  std::set<std::string> contents;
  for (const unsigned seed : {1U, 7U, 7U}) {
    const std::string name = std::to_string(FileCount()) + ".db";
    SampleOptions options = Options(50);
    options.seed = seed;
    ASSERT_EQ(Create(name, options), 0);
    contents.insert(PlainDatabase(File(name)).Text("SELECT * FROM tblOrganization"));
  }
  EXPECT_EQ(contents.size(), 2U);
}

TEST_F(SampleOffice, Create_ThatIsRefused_LeavesTheFolderAsItWas) {
  std::ofstream(File("office.db")) << "mine";
  EXPECT_EQ(Create("office.db", Options(10)), 58);
  EXPECT_EQ(std::filesystem::file_size(File("office.db")), 4U);
  EXPECT_EQ(Create("none.db", Options(0)), 5);
  EXPECT_EQ(Create("many.db", Options(1'000'001)), 5);
  EXPECT_NE(Create("missing/office.db", Options(10)), 0);
  EXPECT_EQ(FileCount(), 1);
}

}  // namespace
