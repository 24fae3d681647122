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
  DemoTemplates() {
    fs::remove_all(folder);
    fs::create_directories(folder);
    demo::SampleOptions options;
    options.customers = 600;
    options.today = kToday;
    demo::CreateSampleOffice((folder / "office.db").string(), options);
  }
  void TearDown() override { fs::remove_all(folder); }

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

  fs::path folder = fs::path(testing::TempDir()) / "demo_templates_test";
  sqlite::SqliteConnection connection{"sqlite:" + (folder / "office.db").string()};
};

TEST_F(DemoTemplates, Filled_HoldEveryVisitOrSayThatThereIsNone) {
  const auto listed = connection.Execute(
      "Select FilePath From tblZomirReportTemplate Where FormTypeID = 3308 Order By ID");
  ASSERT_EQ(listed.RowCount(), 2U);
  const std::string visits =
      Cell("Select Count(*) From tblDistributionPromoterProgramDetail Where ProgramID = 1");
  for (std::size_t row = 0; row < listed.RowCount(); ++row) {
    const std::string file(listed.Text(row, 0));
    // A visit's row begins with its number; the rows of heads do not.
    EXPECT_EQ(CountOf(FillFor(file, 1).html, "<tr><td class=\"number\">"), std::stoul(visits))
        << file;
    EXPECT_THAT(FillFor(file, 14).html, testing::HasSubstr("ويزيتي ندارد"));
  }
  EXPECT_THAT(FillFor("program-by-day.html", 999).html, testing::HasSubstr("پيدا نشد"));
  const std::string sheets = Cell(
      "Select Count(*) From (Select PromoterID, VisitDate From "
      "tblDistributionPromoterProgramDetail Where ProgramID = 1 Group By PromoterID, VisitDate) t");
  EXPECT_EQ(CountOf(FillFor("promoter-day-sheet.html", 1).html, "<table"), std::stoul(sheets));
}

}  // namespace
}  // namespace adapters::report
