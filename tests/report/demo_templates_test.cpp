// The templates of the sample office, filled from it.

#include <gmock/gmock.h>

#include <map>

#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"
#include "report/Fill.h"
#include "report/Pages.h"
#include "report/Typewriter.h"
#include "support/TestFolder.h"

namespace report {
namespace {

constexpr std::chrono::sys_days kToday =
    std::chrono::sys_days(std::chrono::year(2025) / std::chrono::November / 22);

class DemoTemplates : public testing::Test {
 protected:
  DemoTemplates() {
    demo::CreateSampleOffice(file, {.customers = 600, .today = kToday, .basePath = {}});
  }

  /// The template as a program fills it whose working folder is the project's.
  std::string Filled(const std::string& name, int program) {
    const FilledReport filled = Report(name, program);
    std::string text;
    int line = 0;
    while (filled.body->Next(text, line)) {
    }
    return text;
  }
  FilledReport Report(const std::string& name, int program) {
    return Fill(ReportTemplate::Load(support::Content("demo/templates/" + name), name),
                std::make_unique<adapters::sqlite::SqliteConnection>("sqlite:" + file),
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

  Typewriter letters;
  support::TestFolder folder;
  std::string file = folder.File("office.db");
  adapters::sqlite::SqliteConnection connection{"sqlite:" + file};
};

TEST_F(DemoTemplates, Filled_HoldWhatTheProgramHasOrSayThatThereIsNothing) {
  const std::string ofProgram =
      " From tblDistributionPromoterProgramDetail Where ProgramID = 1 Group By PromoterID";
  const auto count = [this](const std::string& query) {
    return std::stoul(Cell("Select Count(*) From (" + query + ") t"));
  };
  const std::size_t visits = count("Select CustomerID" + ofProgram + ", VisitDate, CustomerID");
  const std::size_t days = count("Select VisitDate" + ofProgram + ", VisitDate");
  const std::size_t promoters = count("Select PromoterID" + ofProgram);
  const std::string ofPaths =
      " From tblDistributionOrganization Where PathID In (Select PathID From "
      "tblDistributionPathPromoters Where EmployeeID In (Select PromoterID" +
      ofProgram + "))";
  const std::size_t paths = count("Select PathID" + ofPaths + " Group By PathID");
  const std::size_t missed = count("Select OrganizationID" + ofPaths +
                                   " And OrganizationID Not In (Select CustomerID From "
                                   "tblDistributionPromoterProgramDetail Where ProgramID = 1)");
  ASSERT_GT(missed, 0U);
  const std::map<std::string, std::pair<std::string, std::size_t>> wanted{
      {"program-by-day.html", {"<tr><td class=\"number\">", visits}},
      {"promoter-day-sheet.html", {"<tr><td class=\"number\">", visits}},
      {"promoter-month.html", {"<span class=\"visits\">", days}},
      {"visit-summary.html", {"<meter", days + promoters}},
      {"path-coverage.html", {"<tr><td class=\"number\">", missed}}};
  const auto listed =
      connection.Execute("Select FilePath From tblZomirReportTemplate Where FormTypeID = 3308");
  ASSERT_EQ(listed.RowCount(), wanted.size());
  for (std::size_t row = 0; row < listed.RowCount(); ++row) {
    const std::string name(listed.Text(row, 0));
    const auto& [part, number] = wanted.at(name);
    EXPECT_EQ(CountOf(Filled(name, 1), part), number) << name;
    EXPECT_THAT(Filled(name, 14), testing::HasSubstr("ويزيتي ندارد"));
    Pages pages(Report(name, 1), letters);
    while (pages.LayOutMore()) {
    }
    EXPECT_GT(pages.Count(), name == "visit-summary.html" ? 0 : 1) << name;
  }
  EXPECT_EQ(CountOf(Filled("path-coverage.html", 1), "<meter"), paths);
  EXPECT_EQ(CountOf(Filled("promoter-day-sheet.html", 1), "<table"), days);
  EXPECT_THAT(Filled("program-by-day.html", 999), testing::HasSubstr("پيدا نشد"));
}

}  // namespace
}  // namespace report
