// A program put into a file by a job that nobody looks at.

#include "desktop/Export.h"

#include <gmock/gmock.h>

#include <fstream>

#include "adapters/sqlite/SqliteConnection.h"
#include "demo/PlainDatabase.h"
#include "desktop/Host.h"
#include "support/ErrorNumber.h"
#include "support/Events.h"
#include "support/Fakes.h"
#include "support/TestFolder.h"

namespace {

using desktop::Ended;
using support::Content;
using support::NumberOf;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr std::int32_t kNone = 4711;
constexpr std::string_view kHeadings =
    "رديف\tتاريخ\tروز هفته\tبازارياب\tكد مشتري\tنام مشتري\tفعاليت\tتلفن\tشرح\r\n";

/// A sample office with program 90, whose visits were written in no order.
class Export : public testing::Test {
 protected:
  Export() {
    std::filesystem::copy("demo/templates", folder.Path() / "templates");
    desktop::MakeOffice(file, 60, folder.File("templates/"));
    EXPECT_EQ(
        demo::PlainDatabase(file).Text(
            "UPDATE tblEmployee SET FirstName = 'ب', LastName = 'دوم' WHERE ID = 1;"
            "UPDATE tblEmployee SET FirstName = 'الف', LastName = 'يكم' WHERE ID = 2;"
            "UPDATE tblOrganization SET Code = '007', FirstName = NULL, Name = 'مهتاب', "
            "Phone1 = '021', WorkActivityID = NULL WHERE ID = 3;"
            "UPDATE tblZomirWorkActivity SET Name = 'لبنيات' WHERE ID = 1;"
            "UPDATE tblOrganization SET Code = '8', FirstName = 'علي', Name = '=1+1', Phone1 = "
            "NULL, WorkActivityID = 1 WHERE ID = 4;"
            "INSERT INTO tblDistributionPromoterProgram (ID, CreatorID, CreateDate, "
            "FarsiCreateDate, BranchID, SupervisorID) VALUES (90, 1, 20251122, '1404/09/01', 1, 1),"
            " (91, 1, 20251122, '1404/09/01', 1, 1);"
            "INSERT INTO tblDistributionPromoterProgramDetail (ProgramID, PromoterID, "
            "FarsiVisitDate, VisitDate, CustomerID, Notes, Sequence) VALUES "
            "(90, 1, '1404/09/01', 20251122, 3, NULL, 4),"
            "(90, 1, '1404/09/01', 20251122, 4, 'a' || char(9) || 'b' || char(13, 10) || 'c', 2),"
            "(90, 2, '1404/09/02', 20251123, 3, '', 3),"
            "(90, 2, '1404/09/01', 20251122, 3, 'صبح', 9)"),
        "");
  }

  std::string Template(const std::string& wanted) {
    return desktop::TemplatePath(connection, files, wanted);
  }

  support::TestFolder folder;
  const std::string file = folder.File("office.db");
  adapters::sqlite::SqliteConnection connection{"sqlite:" + file};
  support::FakeFileSystem files;
  support::FakeExcel excel;
};

TEST_F(Export, Visits_StandUnderTheirHeadingsByDatePromoterAndSequence) {
  desktop::ExportText(connection, 90, files, "visits.txt");
  EXPECT_EQ(files.files["visits.txt"],
            std::string(kHeadings) +
                "1\t1404/09/01\tشنبه\tالف يكم\t007\tمهتاب\t\t021\tصبح\r\n"
                "2\t1404/09/01\tشنبه\tب دوم\t8\tعلي =1+1\tلبنيات\t\ta b  c\r\n"
                "3\t1404/09/01\tشنبه\tب دوم\t007\tمهتاب\t\t021\t\r\n"
                "4\t1404/09/02\tيكشنبه\tالف يكم\t007\tمهتاب\t\t021\t\r\n");
  desktop::ExportWorkbook(connection, 90, excel);
  ASSERT_EQ(excel.written.size(), 5U * 9);
  using Cell = std::pair<support::FakeExcel::Position, std::string>;
  EXPECT_EQ(excel.written[0], Cell({1, 1}, "رديف"));
  EXPECT_EQ(excel.written[9 + 3], Cell({2, 4}, "الف يكم"));
  EXPECT_EQ(excel.written[18 + 8], Cell({3, 9}, "a\tb\r\nc"));
  EXPECT_EQ(excel.finished, 1);

  // A visit whose customer and promoter the office has no more.
  demo::PlainDatabase(file).Query(
      "PRAGMA foreign_keys = OFF; DELETE FROM tblDistributionPromoterProgramDetail WHERE ProgramID "
      "= 90 AND Sequence > 2; DELETE FROM tblOrganization WHERE ID = 4; DELETE FROM tblEmployee "
      "WHERE ID = 1");
  desktop::ExportText(connection, 90, files, "visits.txt");
  EXPECT_EQ(files.files["visits.txt"],
            std::string(kHeadings) + "1\t1404/09/01\tشنبه\t\t\t\t\t\ta b  c\r\n");
  desktop::ExportText(connection, 91, files, "empty.txt");
  EXPECT_EQ(files.files["empty.txt"], kHeadings) << "a program without visits";
  EXPECT_EQ(NumberOf([&] { desktop::RequireProgram(connection, 91); }), 0);
  EXPECT_EQ(NumberOf([&] { desktop::RequireProgram(connection, kNone); }),
            platform::kNoCurrentRecord);
}

TEST_F(Export, Template_IsFoundByItsTitleOrFileAndElseTheFirst) {
  const demo::PlainDatabase::Rows listed = demo::PlainDatabase(file).Query(
      "SELECT Title, FilePath FROM tblZomirReportTemplate WHERE FormTypeID = 3308 ORDER BY ID");
  ASSERT_GE(listed.size(), 2U);
  const std::string base = folder.File("templates/");
  for (const auto& row : listed) files.files[base + row[1]] = "";
  EXPECT_EQ(Template(""), base + listed[0][1]);
  for (const auto& row : listed) {
    EXPECT_EQ(Template(row[0]), base + row[1]);
    EXPECT_EQ(Template(row[1]), base + row[1]);
    EXPECT_EQ(Template(row[1].substr(0, row[1].find('.'))), base + row[1]);
  }
  demo::PlainDatabase(file).Query(
      "UPDATE tblZomirReportTemplate SET Title = 'برگه كاري', FilePath = '/elsewhere/own.html' "
      "WHERE FilePath = '" +
      listed[1][1] + "'");
  files.files["/elsewhere/own.html"] = "";
  EXPECT_EQ(Template(" برگه  کاری"), "/elsewhere/own.html") << "as a person types it";
  EXPECT_EQ(Template("own"), "/elsewhere/own.html");
  const auto refused = support::FailureOf([&] { Template("هيچ"); });
  EXPECT_EQ(refused.Number(), 53);
  EXPECT_THAT(refused.Description(), AllOf(HasSubstr("«هيچ»"), HasSubstr("«برگه كاري»")));
  files.files.clear();
  EXPECT_EQ(NumberOf([&] { Template(""); }), 53) << "it is listed, and lies nowhere";
}

class ExportingHost : public Export {
 protected:
  Ended ExportTo(const std::string& path, const std::string& program = "90",
                 const std::string& more = "") const {
    return desktop::Host("--database '" + file + "' --export " + program + " '" + path + "' " +
                         more);
  }
};

TEST_F(ExportingHost, EachKind_IsWrittenOverAnOlderFileWithoutAWord) {
  const std::pair<std::string, std::string> kinds[] = {
      {"p.pdf", "%PDF-"}, {"p.xlsx", "PK"}, {"برنامه.TXT", "\xFF\xFE"}};
  const auto before = folder.FileCount();
  for (const auto& [name, begin] : kinds) {
    const std::string path = folder.File(name);
    std::ofstream(path) << "old";
    const Ended ended = ExportTo(path);
    EXPECT_EQ(ended.status, 0) << name;
    EXPECT_EQ(ended.said, "") << name;
    EXPECT_THAT(Content(path), StartsWith(begin)) << name;
    EXPECT_GT(std::filesystem::file_size(path), 100U);
  }
  EXPECT_EQ(folder.FileCount(), before + 3) << "something is left beside them";
  EXPECT_THAT(Content(folder.File("p.pdf")), HasSubstr("%%EOF"));

  const std::string other = folder.File("other.pdf");
  EXPECT_EQ(ExportTo(other, "90", "--template promoter-day-sheet").status, 0);
  EXPECT_NE(Content(other).size(), Content(folder.File("p.pdf")).size());

  // Through a link, which stays one.
  std::filesystem::create_symlink(folder.File("p.xlsx"), folder.File("link.xlsx"));
  std::ofstream(folder.File("p.xlsx")) << "old";
  EXPECT_EQ(ExportTo(folder.File("link.xlsx")).status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.File("link.xlsx")));
  EXPECT_THAT(Content(folder.File("p.xlsx")), StartsWith("PK"));
}

TEST_F(ExportingHost, Failure_EndsWithOneAndWordsAndLeavesTheOlderFile) {
  for (const std::string name : {"p.pdf", "p.xlsx", "p.txt"}) {
    const std::string path = folder.File(name);
    std::ofstream(path) << "old";
    const Ended missing = ExportTo(path, std::to_string(kNone));
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.said,
                AllOf(HasSubstr("برنامه بازارياب 4711"), HasSubstr("no program 4711")));
    EXPECT_EQ(Content(path), "old");
    const Ended nowhere = ExportTo(folder.File("no/" + name));
    EXPECT_EQ(nowhere.status, 1);
    EXPECT_THAT(nowhere.said, HasSubstr("پوشه"));
    EXPECT_FALSE(std::filesystem::exists(folder.File("no")));
  }
  const std::string pdf = folder.File("p.pdf");
  EXPECT_EQ(ExportTo(pdf, "90", "--template none").status, 1);
  std::ofstream(folder.File("templates/program-by-day.html")) << "no template";
  const Ended broken = ExportTo(pdf, "90", "--template program-by-day");
  EXPECT_EQ(broken.status, 1);
  EXPECT_THAT(broken.said, HasSubstr("program-by-day.html"));
  EXPECT_EQ(Content(pdf), "old");
  EXPECT_EQ(desktop::Host("--database /nowhere --export 1 '" + pdf + "'").status, 1);
  EXPECT_EQ(ExportTo(folder.Path().string() + "/templates.txt/").status, 2) << "no name";
}

TEST_F(ExportingHost, WrongCommandLine_EndsWithTwo) {
  const char* const lines[] = {"--export",
                               "--export 90",
                               "--export x p.pdf",
                               "--export 0 p.pdf",
                               "--export 90 p.doc",
                               "--export 90 pdf",
                               "--export 90 p.txt --template a",
                               "--template a",
                               "--export 90 p.pdf --program 3",
                               "--export 90 p.pdf --tour out",
                               "--export 90 p.pdf --load-sample --connect sqlite:x"};
  for (const char* line : lines) {
    const Ended ended = desktop::Host(line);
    EXPECT_EQ(ended.status, 2) << line;
    EXPECT_THAT(ended.said, Not(IsEmpty()));
  }
}

}  // namespace
