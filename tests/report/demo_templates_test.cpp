// The templates of the sample office, filled from it.

#include <gmock/gmock.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"
#include "report/Fill.h"
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
    return FilledText(support::Content("demo/templates/" + name), name, program);
  }
  std::string FilledText(const std::string& content, const std::string& name, int program) {
    const FilledReport filled =
        Fill(ReportTemplate::Load(content, name),
             std::make_unique<adapters::sqlite::SqliteConnection>("sqlite:" + file),
             "fmlID = " + std::to_string(program), kToday);
    std::string text;
    int line = 0;
    while (filled.body->Next(text, line)) {
    }
    return text;
  }
  std::string Cell(const std::string& statement) {
    return std::string(connection.Execute(statement).Text(0, 0));
  }
  static std::size_t CountOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
  }

  support::TestFolder folder;
  std::string file = folder.File("office.db");
  adapters::sqlite::SqliteConnection connection{"sqlite:" + file};
};

TEST_F(DemoTemplates, Filled_HoldEveryVisitOrSayThatThereIsNone) {
  const auto listed = connection.Execute(
      "Select FilePath From tblZomirReportTemplate Where FormTypeID = 3308 Order By ID");
  ASSERT_EQ(listed.RowCount(), 2U);
  const std::string visits =
      Cell("Select Count(*) From tblDistributionPromoterProgramDetail Where ProgramID = 1");
  for (std::size_t row = 0; row < listed.RowCount(); ++row) {
    const std::string name(listed.Text(row, 0));
    // A visit's row begins with its number; the rows of heads do not.
    EXPECT_EQ(CountOf(Filled(name, 1), "<tr><td class=\"number\">"), std::stoul(visits)) << name;
    EXPECT_THAT(Filled(name, 14), testing::HasSubstr("ويزيتي ندارد"));
  }
  EXPECT_THAT(Filled("program-by-day.html", 999), testing::HasSubstr("پيدا نشد"));
  const std::string sheets = Cell(
      "Select Count(*) From (Select PromoterID, VisitDate From "
      "tblDistributionPromoterProgramDetail Where ProgramID = 1 Group By PromoterID, VisitDate) t");
  EXPECT_EQ(CountOf(Filled("promoter-day-sheet.html", 1), "<table"), std::stoul(sheets));
}

TEST_F(DemoTemplates, MonthPage_HoldsEveryVisitOnItsDay) {
  const std::string text = FilledText(
      "<!--report\ntitle: T\nquery visits: Select d.PromoterID, d.FarsiVisitDate, d.CustomerID "
      "From tblDistributionPromoterProgramDetail d Where d.ProgramID = {fmlID} "
      "Order By d.PromoterID, d.FarsiVisitDate, d.Sequence\n"
      "group visits: promoters by PromoterID; months by month FarsiVisitDate; "
      "weeks by week FarsiVisitDate; days by day FarsiVisitDate\n-->"
      "{{#promoters}}{{#months}}{{#weeks}}<tr>{{#days}}{{#visits}}[{{PromoterID}} "
      "{{FarsiVisitDate}} {{CustomerID}}]{{/visits}}{{/days}}{{/weeks}}{{/months}}{{/promoters}}",
      "month.html", 1);
  const auto visits = connection.Execute(
      "Select PromoterID, FarsiVisitDate, CustomerID From tblDistributionPromoterProgramDetail "
      "Where ProgramID = 1");
  ASSERT_GT(visits.RowCount(), 10U);
  EXPECT_EQ(CountOf(text, "["), visits.RowCount());
  for (std::size_t row = 0; row < visits.RowCount(); ++row) {
    std::string visit = "[";
    for (const std::size_t column : {0U, 1U, 2U}) {
      visit.append(visits.Text(row, column)).append(column < 2 ? " " : "]");
    }
    EXPECT_EQ(CountOf(text, visit), 1U) << visit;
  }
  EXPECT_GE(CountOf(text, "<tr>"), 4U);
}

}  // namespace
}  // namespace report
