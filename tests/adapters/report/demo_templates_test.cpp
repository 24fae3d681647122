// The templates of the sample office, filled from it.

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "adapters/report/Fill.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"

namespace adapters::report {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::sys_days kToday =
    std::chrono::sys_days(std::chrono::year(2025) / std::chrono::November / 22);

class DemoTemplates : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = fs::path(testing::TempDir()) / "demo_templates_test";
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    demo::SampleOptions options;
    options.customers = 600;
    options.today = kToday;
    demo::CreateSampleOffice((folder_ / "office.db").string(), options);
  }
  static void TearDownTestSuite() { fs::remove_all(folder_); }

  /// The template as a program fills it whose working folder is the project's.
  FilledReport FillFor(const std::string& file, int program) {
    std::ifstream stream("demo/templates/" + file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return Fill(ReportTemplate::Load(text.str(), file), connection,
                "fmlID = " + std::to_string(program), kToday);
  }
  std::string Cell(const std::string& statement) {
    return std::string(connection.Execute(statement).Text(0, 0));
  }
  static std::size_t CountOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
  }

  static inline fs::path folder_;
  sqlite::SqliteConnection connection{"sqlite:" + (folder_ / "office.db").string()};
};

TEST_F(DemoTemplates, Listed_ByTheOffice_AllExistAndFill) {
  const auto listed = connection.Execute(
      "Select Title, FilePath From tblZomirReportTemplate Where FormTypeID = 3308 Order By ID");
  ASSERT_EQ(listed.RowCount(), 2U);
  for (std::size_t row = 0; row < listed.RowCount(); ++row) {
    const std::string file(listed.Text(row, 1));
    const FilledReport filled = FillFor(file, 1);
    const std::string visits =
        Cell("Select Count(*) From tblDistributionPromoterProgramDetail Where ProgramID = 1");
    // A visit's row begins with its number; the rows of heads do not.
    EXPECT_EQ(CountOf(filled.html, "<tr><td class=\"number\">"), std::stoul(visits)) << file;
    EXPECT_THAT(filled.header, testing::HasSubstr("برنامه ۱ "));
  }
}

TEST_F(DemoTemplates, Program_WithoutVisitsOrUnknown_SaysSo) {
  EXPECT_THAT(FillFor("program-by-day.html", 14).html, testing::HasSubstr("هنوز ويزيتي ندارد"));
  EXPECT_THAT(FillFor("program-by-day.html", 999).html, testing::HasSubstr("پيدا نشد"));
  EXPECT_THAT(FillFor("promoter-day-sheet.html", 14).html, testing::HasSubstr("ويزيتي ندارد"));
}

TEST_F(DemoTemplates, Sheets_OnePromoterAndDayEach) {
  const std::string sheets = Cell(
      "Select Count(*) From (Select PromoterID, VisitDate From "
      "tblDistributionPromoterProgramDetail Where ProgramID = 1 Group By PromoterID, VisitDate) t");
  EXPECT_EQ(CountOf(FillFor("promoter-day-sheet.html", 1).html, "<table"), std::stoul(sheets));
}

}  // namespace
}  // namespace adapters::report
