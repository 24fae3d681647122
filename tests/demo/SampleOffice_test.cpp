#include "demo/SampleOffice.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "calendar/Gregorian.h"
#include "calendar/SolarHijriDate.h"
#include "platform/RuntimeError.h"

namespace {

namespace fs = std::filesystem;
using demo::CreateSampleOffice;
using demo::SampleOptions;

using Rows = std::vector<std::vector<std::string>>;

constexpr std::chrono::sys_days kToday =
    std::chrono::sys_days(std::chrono::year(2025) / std::chrono::November / 22);

/// A finished office, read by plain statements.
class Office {
 public:
  explicit Office(const fs::path& path) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    handle_.reset(opened);
    EXPECT_EQ(result, SQLITE_OK) << path;
    Query("PRAGMA foreign_keys = ON");
  }

  /// Cells as text, NULL as "NULL". A failed statement gives one row with the error.
  Rows Query(const std::string& sql) {
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(handle_.get(), sql.c_str(), -1, &prepared, nullptr) != SQLITE_OK) {
      return {{"error", sqlite3_errmsg(handle_.get())}};
    }
    std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(prepared, sqlite3_finalize);
    Rows rows;
    int step = sqlite3_step(prepared);
    for (; step == SQLITE_ROW; step = sqlite3_step(prepared)) {
      auto& row = rows.emplace_back();
      for (int column = 0; column < sqlite3_column_count(prepared); ++column) {
        const void* text = sqlite3_column_blob(prepared, column);
        const auto size = static_cast<std::size_t>(sqlite3_column_bytes(prepared, column));
        row.push_back(text == nullptr && sqlite3_column_type(prepared, column) == SQLITE_NULL
                          ? "NULL"
                          : std::string(static_cast<const char*>(text), size));
      }
    }
    if (step != SQLITE_DONE) return {{"error", sqlite3_errmsg(handle_.get())}};
    return rows;
  }

  std::string Cell(const std::string& sql) {
    const Rows rows = Query(sql);
    if (rows.size() == 1 && rows[0].size() == 1) return rows[0][0];
    ADD_FAILURE() << "not one cell: " << sql;
    return {};
  }

  /// Every cell of every table and the schema, in one text.
  std::string Content() {
    std::string content;
    for (const auto& object : Query("SELECT name, type, sql FROM sqlite_schema ORDER BY name")) {
      for (const std::string& text : object) content += text + "\n";
      if (object[1] != "table") continue;
      for (const auto& row : Query("SELECT * FROM " + object[0])) {
        for (const std::string& cell : row) content += cell + "\t";
        content += "\n";
      }
    }
    return content;
  }

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
  };
  std::unique_ptr<sqlite3, Close> handle_;
};

/// An empty folder, gone at the end.
class Folder {
 public:
  explicit Folder(const std::string& name) : path_(fs::path(testing::TempDir()) / name) {
    fs::remove_all(path_);
    fs::create_directories(path_);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  fs::path File(const std::string& name) const { return path_ / name; }
  std::size_t Count() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(path_), fs::directory_iterator()));
  }

 private:
  fs::path path_;
};

std::string FolderName(const std::string& what) {
  return "sample-office-" + what + "-" +
         testing::UnitTest::GetInstance()->current_test_info()->name();
}

SampleOptions Options(int customers) {
  SampleOptions options;
  options.customers = customers;
  options.today = kToday;
  return options;
}

std::int32_t ErrorOf(const fs::path& path, const SampleOptions& options) {
  try {
    CreateSampleOffice(path.string(), options);
  } catch (const platform::RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

class SampleOffice : public testing::Test {
 protected:
  SampleOffice() {
    CreateSampleOffice(folder_.File("office.db").string(), Options(5000));
    office_ = std::make_unique<Office>(folder_.File("office.db"));
  }

  Folder folder_{FolderName("content")};
  std::unique_ptr<Office> office_;
};

TEST_F(SampleOffice, Database_Checked_IsSoundAndTheOnlyFileLeft) {
  EXPECT_EQ(office_->Cell("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(office_->Query("PRAGMA foreign_key_check"), Rows{});
  EXPECT_EQ(office_->Cell("SELECT count(*) FROM tblOrganization"), "5000");
  EXPECT_EQ(folder_.Count(), 1U);
}

TEST_F(SampleOffice, Views_Read_NameEveryRowAndAgreeInPairs) {
  for (const std::string name :
       {"vwUser", "vwEmployee", "vwSaleSupervisor", "vwSalePromoter", "vwAccountBranch",
        "vwOrganization", "vwZomirWorkActivity", "vwDistributionPromoterProgram"}) {
    const std::string major = name + "Major";
    const std::string minor = name + "Minor";
    EXPECT_NE(office_->Cell("SELECT count(*) FROM " + major), "0") << name;
    EXPECT_EQ(office_->Cell("SELECT count(*) FROM " + major +
                            " WHERE ID IS NULL OR ifnull(Name, '') = '' OR Code = ''"),
              "0")
        << name;
    const Rows named = office_->Query("SELECT ID, Name FROM " + major + " ORDER BY ID");
    EXPECT_EQ(named, office_->Query("SELECT ID, Name FROM " + minor + " ORDER BY ID")) << name;
  }
  EXPECT_EQ(office_->Query("SELECT ID, BasePath FROM vwZomirBasePath"), (Rows{{"1", "NULL"}}));
}

TEST_F(SampleOffice, Rights_OfTheTwoUsers_AreEverythingAndLooking) {
  EXPECT_EQ(office_->Query("SELECT UserID, FormPermissionID FROM tblZomirUserPermission"),
            (Rows{{"1", "0"}, {"2", "111"}, {"2", "303"}}));
  EXPECT_EQ(office_->Cell("SELECT count(*) FROM tblZomirUser u, tblSaleSupervisor s "
                          "WHERE u.ID = 1 AND u.EmployeeID = 1 AND s.EmployeeID = 1"),
            "1");
}

TEST_F(SampleOffice, PromotersOfEverySupervisor_HaveRegionsPathsAndCustomersOfTheirBranch) {
  const Rows promoters = office_->Query(
      "SELECT sp.SupervisorID, pp.EmployeeID, count(DISTINCT p.RegionID), count(DISTINCT p.ID), "
      "count(do.OrganizationID), count(DISTINCT r.BranchID), max(r.BranchID) = s.BranchID "
      "FROM tblSaleSupervisorPromoter sp "
      "JOIN tblSaleSupervisor s ON s.EmployeeID = sp.SupervisorID "
      "JOIN tblDistributionPathPromoters pp ON pp.EmployeeID = sp.PromoterID "
      "JOIN tblDistributionPath p ON p.ID = pp.PathID "
      "JOIN tblDistributionRegion r ON r.ID = p.RegionID "
      "LEFT JOIN tblDistributionOrganization do ON do.PathID = p.ID GROUP BY pp.EmployeeID");
  EXPECT_EQ(promoters.size(), 24U);
  EXPECT_EQ(std::count_if(promoters.begin(), promoters.end(),
                          [](const auto& row) { return row[0] == "1"; }),
            4);
  for (const auto& row : promoters) {
    EXPECT_GE(std::stoi(row[2]), 2) << row[1];
    EXPECT_LE(std::stoi(row[2]), 4) << row[1];
    EXPECT_GE(std::stoi(row[3]), 3) << row[1];
    EXPECT_GE(std::stoi(row[4]), 50) << row[1];
    EXPECT_EQ(row[5] + row[6], "11") << row[1];
  }
  EXPECT_EQ(office_->Cell("SELECT count(*) FROM tblDistributionPath WHERE ID NOT IN "
                          "(SELECT PathID FROM tblDistributionPathPromoters)"),
            "0");
}

TEST_F(SampleOffice, Customers_Listed_LackSomethingNowAndThenAndMixBothKafs) {
  const auto count = [this](const std::string& condition) {
    return std::stoi(office_->Cell("SELECT count(*) FROM tblOrganization WHERE " + condition));
  };
  EXPECT_GT(count("Address IS NULL"), 0);
  EXPECT_GT(count("CellPhone IS NULL AND Phone1 IS NULL"), 0);
  EXPECT_GT(count("WorkActivityID IS NULL"), 0);
  EXPECT_GT(count("FirstName IS NULL"), 0);
  EXPECT_GT(count("ID NOT IN (SELECT OrganizationID FROM tblDistributionOrganization)"), 0);
  EXPECT_GT(count("Name LIKE '%\u0643%'"), 0);
  EXPECT_GT(count("Name LIKE '%\u06A9%'"), 0);
  EXPECT_EQ(count("FirstName || Name || Address LIKE '%\u06CC%'"), 0);
  EXPECT_EQ(count("length(Code) <> 8 OR CellPhone NOT GLOB '09*' OR length(CellPhone) <> 11"), 0);
}

TEST_F(SampleOffice, Programs_ByState_LieAroundTodayWithTheirSupervisorsPromoters) {
  EXPECT_GE(std::stoi(office_->Cell("SELECT count(*) FROM tblDistributionPromoterProgram "
                                    "WHERE Code = ID")),
            5);
  EXPECT_GE(std::stoi(office_->Cell("SELECT count(*) FROM tblDistributionPromoterProgram "
                                    "WHERE Code IS NULL")),
            5);
  const std::string visits =
      "SELECT count(*) FROM tblDistributionPromoterProgramDetail d "
      "JOIN tblDistributionPromoterProgram h ON h.ID = d.ProgramID ";
  EXPECT_NE(office_->Cell(visits + "WHERE h.Code IS NULL AND VisitDate > 20251122"), "0");
  EXPECT_NE(office_->Cell(visits + "WHERE h.Code IS NULL AND VisitDate < 20251122"), "0");
  EXPECT_EQ(office_->Cell(visits + "WHERE h.Code IS NOT NULL AND VisitDate >= 20251122"), "0");
  EXPECT_EQ(office_->Cell(visits + "WHERE VisitDate < CreateDate OR CreateDate > 20251122"), "0");
  EXPECT_EQ(office_->Cell(visits + "WHERE NOT EXISTS (SELECT 1 FROM tblSaleSupervisorPromoter sp "
                                   "WHERE sp.SupervisorID = h.SupervisorID "
                                   "AND sp.PromoterID = d.PromoterID)"),
            "0");
  EXPECT_EQ(office_->Cell(visits + "WHERE NOT EXISTS (SELECT 1 FROM tblDistributionOrganization do "
                                   "JOIN tblDistributionPathPromoters pp ON pp.PathID = do.PathID "
                                   "WHERE do.OrganizationID = d.CustomerID "
                                   "AND pp.EmployeeID = d.PromoterID)"),
            "0");
  EXPECT_EQ(office_->Query("SELECT 1 FROM tblDistributionPromoterProgramDetail "
                           "GROUP BY ProgramID, PromoterID, VisitDate, CustomerID "
                           "HAVING count(*) > 1"),
            Rows{});
}

TEST_F(SampleOffice, Dates_OfBothCalendars_AreTheSameDay) {
  const Rows days = office_->Query(
      "SELECT VisitDate, FarsiVisitDate FROM tblDistributionPromoterProgramDetail UNION "
      "SELECT CreateDate, FarsiCreateDate FROM tblDistributionPromoterProgram UNION "
      "SELECT DocumentDate, FarsiDocumentDate FROM tblAccountDocument UNION "
      "SELECT EventDate, FarsiEventDate FROM tblZomirFormAction UNION "
      "SELECT VisitDate, FarsiVisitDate FROM tblDistributionPromoterProgramVisitResult");
  EXPECT_GT(days.size(), 30U);
  for (const auto& day : days) {
    const auto farsi = calendar::SolarHijriDate::FromText(day[1]);
    ASSERT_TRUE(farsi) << day[1];
    EXPECT_EQ(calendar::GregorianLiteral(farsi->Days()), day[0]);
  }
  EXPECT_EQ(office_->Cell("SELECT max(FarsiVisitDate) > '1404/09/01' "
                          "FROM tblDistributionPromoterProgramDetail"),
            "1");
}

TEST_F(SampleOffice, AccountingDocuments_Read_BalanceAndBelongToFinalPrograms) {
  EXPECT_NE(office_->Cell("SELECT count(*) FROM tblAccountDocument"), "0");
  EXPECT_EQ(office_->Query("SELECT DocumentID FROM tblAccountDocumentDetail GROUP BY DocumentID "
                           "HAVING sum(Debit) <> sum(Credit) OR sum(Debit) = 0"),
            Rows{});
  EXPECT_EQ(office_->Query("SELECT FormID FROM tblAccountDocumentDetail WHERE FormTypeID = 3308 "
                           "AND FormID NOT IN (SELECT Code FROM tblDistributionPromoterProgram "
                           "WHERE Code IS NOT NULL)"),
            Rows{});
  EXPECT_EQ(office_->Cell("SELECT count(DISTINCT DocumentID) FROM tblAccountDocumentDetail "
                          "WHERE FormTypeID = 3308 AND FormID = 1"),
            "2");
  EXPECT_NE(
      office_->Cell("SELECT count(*) FROM tblAccountDocumentDetail d WHERE FormTypeID <> 3308 "
                    "AND EXISTS (SELECT 1 FROM tblAccountDocumentDetail x "
                    "WHERE x.DocumentID = d.DocumentID AND x.FormTypeID = 3308)"),
      "0");
}

// Column names that a statement uses without their table must be the only ones of their name.
TEST_F(SampleOffice, StatementsWithBareColumnNames_Run_FindRows) {
  for (const std::string statement :
       {"Select distinct r.Description as RegionName, r.ID from tblDistributionPathPromoters "
        "inner join tblDistributionPath p on PathID=p.ID inner join tblDistributionRegion r "
        "on r.ID = p.RegionID where EmployeeID=7",
        "Select ID, Code, FirstName, Name, Address, CellPhone, Phone1, Phone2, "
        "(Select p.Name from tblDistributionPath p where p.ID=do.PathID), "
        "(Select w.Name from tblZomirWorkActivity w where w.ID=WorkActivityID) "
        "from tblOrganization left outer join tblDistributionOrganization do "
        "on tblOrganization.ID=do.OrganizationID where do.PathID in (1,2) and 1=1 and "
        "Code >= '1' and do.BranchID = 1 and WorkActivityID = 1",
        "Select ID, (Select x.Name from vwSalePromoterMajor x where x.ID=PromoterID), "
        "FarsiVisitDate, (Select x.Code from tblOrganization x where x.ID=CustomerID), "
        "(Select p.Name from tblDistributionPath p where p.ID in (Select do.PathID from "
        "tblDistributionOrganization do where do.OrganizationID=CustomerID)), p.Notes, "
        "FarsiCreateDate, (Select x.Name from vwEmployeeMajor x Where x.ID=SupervisorID), "
        "(Select x.Name from vwAccountBranchMajor x where x.ID=BranchID) "
        "from tblDistributionPromoterProgram p left outer join "
        "tblDistributionPromoterProgramDetail pd on p.ID=pd.ProgramID Where CreatorID = 1 "
        "and ProgramID = 1 and CreateDate > '20250101' order by pd.VisitDate, 2, 4",
        "Select ID, Name from vwSalePromoterMajor where ID in (select x.PromoterID from "
        "tblSaleSupervisorPromoter x where x.SupervisorID=1)"}) {
    const Rows rows = office_->Query(statement);
    ASSERT_FALSE(rows.empty()) << statement;
    ASSERT_NE(rows[0][0], "error") << rows[0][1] << ": " << statement;
    for (const auto& row : rows) EXPECT_NE(row[1], "NULL") << statement;
  }
}

TEST_F(SampleOffice, Rules_OfTheTables_RefuseWhatTheServerWould) {
  EXPECT_EQ(office_->Query("Delete from tblDistributionPromoterProgramDetail Where ProgramID=8"),
            Rows{});
  EXPECT_EQ(office_->Query("Delete from tblDistributionPromoterProgram Where ID=8"),
            (Rows{{"error", "FOREIGN KEY constraint failed"}}));
  for (const std::string date : {"2025-11-22", "251122", "202511222", "today"}) {
    EXPECT_EQ(office_->Query("Update tblDistributionPromoterProgram Set CreateDate='" + date + "'")
                  .front()
                  .front(),
              "error")
        << date;
  }
  EXPECT_EQ(office_->Query("Update tblDistributionPromoterProgram Set CreateDate='20251122', "
                           "CreatorID=NULL, BranchID=NULL, SupervisorID=NULL"),
            Rows{});
  EXPECT_EQ(office_->Query("Delete from tblAccountDocumentDetail Where DocumentID=1"), Rows{});
  EXPECT_EQ(office_->Query("Delete from tblAccountDocument Where ID=1"), Rows{});
}

TEST(SampleOfficeFile, Content_DependsOnSeedAndTodayAlone) {
  const Folder folder(FolderName("same"));
  SampleOptions options = Options(300);
  const auto contentOf = [&](const std::string& name) {
    CreateSampleOffice(folder.File(name).string(), options);
    return Office(folder.File(name)).Content();
  };
  const std::string content = contentOf("first.db");
  EXPECT_GT(content.size(), 50'000U);
  EXPECT_TRUE(content == contentOf("again.db"));
  options.seed = 7;
  EXPECT_FALSE(content == contentOf("other-seed.db"));
  options = Options(300);
  options.today += std::chrono::days(1);
  EXPECT_FALSE(content == contentOf("other-day.db"));
}

TEST(SampleOfficeFile, Create_OverExistingFile_RefusesAndLeavesItUntouched) {
  const Folder folder(FolderName("existing"));
  std::ofstream(folder.File("office.db")) << "mine";
  EXPECT_EQ(ErrorOf(folder.File("office.db"), Options(10)), 58);
  std::string text;
  std::ifstream(folder.File("office.db")) >> text;
  EXPECT_EQ(text, "mine");
  EXPECT_EQ(folder.Count(), 1U);
}

TEST(SampleOfficeFile, Create_ThatFails_LeavesNothing) {
  const Folder folder(FolderName("failing"));
  EXPECT_EQ(ErrorOf(folder.File("none.db"), Options(0)), 5);
  EXPECT_EQ(ErrorOf(folder.File("many.db"), Options(1'000'001)), 5);
  EXPECT_NE(ErrorOf(folder.File("missing") / "office.db", Options(10)), 0);
  EXPECT_EQ(folder.Count(), 0U);
}

TEST(SampleOfficeFile, Create_WithOneCustomerAndBasePath_IsWhole) {
  const Folder folder(FolderName("small"));
  SampleOptions options = Options(1);
  options.basePath = "reports/";
  CreateSampleOffice(folder.File("office.db").string(), options);
  Office office(folder.File("office.db"));
  EXPECT_EQ(office.Cell("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(office.Query("PRAGMA foreign_key_check"), Rows{});
  EXPECT_EQ(office.Cell("SELECT BasePath FROM vwZomirBasePath"), "reports/");
}

}  // namespace
