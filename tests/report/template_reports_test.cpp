// Report templates as the suite's report engine: what is wrong is told with template, line and
// reason, in words before anything technical.

#include "report/TemplateReports.h"

#include <gmock/gmock.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"
#include "report/ReportError.h"
#include "support/ErrorNumber.h"
#include "support/Fakes.h"
#include "support/TestFolder.h"

namespace report {
namespace {

using namespace std::chrono_literals;
using support::NumberOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::chrono::sys_days kToday =
    std::chrono::sys_days(std::chrono::year(2025) / std::chrono::November / 22);

class TemplateReportsTest : public testing::Test, public platform::ConnectionFactory {
 protected:
  TemplateReportsTest() {
    demo::CreateSampleOffice(file, {.customers = 30, .today = kToday, .basePath = {}});
  }

  std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override {
    return std::make_unique<adapters::sqlite::SqliteConnection>(
        connectionString, adapters::sqlite::kBusyTimeout, limit, &progress);
  }
  /// What the user is told of a template with this query and page; the page shown is `shown`.
  std::string Failure(const std::string& query, const std::string& page = "{{#v}}{{ID}}{{/v}}") {
    files.files["C:\\قالب\\t.html"] = "<!--report\ntitle: T\nquery v: " + query + "\n-->" + page;
    failures.clear();
    const auto engine = reports.Create();
    engine->LoadReportFile("C:\\قالب\\t.html");
    engine->SetConnectionString("sqlite:" + file);
    engine->SetSelectionFormula(1, "fmlID = 1");
    const int number = NumberOf([&] { engine->Produce(platform::ReportOutput::kScreen); });
    if (failures.empty()) return number == 0 ? "" : "not shown";
    EXPECT_EQ(failures.size(), 1U);
    EXPECT_EQ(failures[0].Number(), number);
    return std::to_string(number) + " " + failures[0].Description();
  }

  support::TestFolder folder;
  std::string file = folder.File("office.db");
  std::chrono::milliseconds limit = 60s;
  support::FakeProgress progress;
  support::FakeFileSystem files;
  support::FakeDesktop desktop;
  std::string shown;
  std::vector<platform::RuntimeError> failures;
  TemplateReports reports{
      *this,
      files,
      desktop,
      {.show =
           [this](FilledReport filled, platform::ReportOutput) {
             int line = 0;
             for (shown.clear(); filled.body->Next(shown, line);) {
             }
           },
       .showFailure = [this](const platform::RuntimeError& error) { failures.push_back(error); }}};
};

TEST_F(TemplateReportsTest, Produce_ThatFails_TellsTemplateLineAndReasonInWordsFirst) {
  EXPECT_EQ(Failure("Select ID From tblDistributionPromoterProgram Where ID = {fmlID}"), "");
  EXPECT_EQ(shown, "1");
  EXPECT_THAT(Failure("Select Nothing From tblOrganization Where ID = {fmlID}"),
              testing::AllOf(StartsWith("207 پرسش «v» قالب گزارش «t.html» اجرا نشد. سطر 3: پايگاه "
                                        "داده"),
                             HasSubstr("ستوني را كه خواسته شد ندارد"),
                             HasSubstr("\nt.html:3: query v: "), HasSubstr("'Nothing'")));
  EXPECT_EQ(Failure("Select ID From tblOrganization Where ID = {fmlID}", "\n{{#v}}{{Name}}{{/v}}"),
            "321 قالب گزارش «t.html» درست نيست. سطر 5: فيلد «Name» اينجا شناخته نيست.\n"
            "t.html:5: no field of this name here: Name");
  EXPECT_THAT(Failure("Delete From tblOrganization Where ID = {fmlID}"),
              StartsWith("321 قالب گزارش «t.html» درست نيست. سطر 3: پرسش «v» سطري برنمي گرداند."));

  const std::string endless =
      "Select Count(*) as ID From tblOrganization a, tblOrganization b, tblOrganization c, "
      "tblOrganization d, tblOrganization e Where a.ID > {fmlID}";
  progress.stopAtCall = 3;
  EXPECT_EQ(Failure(endless),
            "18 پرسش «v» قالب گزارش «t.html» اجرا نشد. سطر 3: كار پايگاه داده به خواست شما متوقف "
            "شد. آنچه پيش از آن ثبت شده باشد سر جاي خود است.\nt.html:3: query v: error 18");
  progress.stopAtCall = 0;
  limit = 1ms;
  EXPECT_THAT(Failure(endless), testing::AllOf(HasSubstr("سطر 3: پايگاه داده در زمان مقرر پاسخ"),
                                               HasSubstr("\nt.html:3: query v: ")));
}

TEST_F(TemplateReportsTest, Load_FileThatIsNone_TellsItsName) {
  files.files["/a/t.html"] = "<!--report \xC3\x28";
  files.files["/a/u.html"] = "<!--report\ntitle: T\ncolour: red\n-->";
  const std::array<std::string, 3> cases[] = {
      {"/a/none.html", "53 قالب گزارش «none.html» خوانده نشد.", "/a/none.html"},
      {"/a/t.html", "321 قالب گزارش «t.html» با UTF-8 نوشته نشده است.", "/a/t.html"},
      {"/a/u.html", "321 قالب گزارش «u.html» درست نيست. سطر 3: سرآغاز", "u.html:3: unknown"},
  };
  for (const auto& [path, words, technical] : cases) {
    try {
      reports.Create()->LoadReportFile(path);
      ADD_FAILURE() << path;
    } catch (const ReportError& error) {
      EXPECT_THAT(std::to_string(error.Number()) + " " + error.Words(), StartsWith(words));
      EXPECT_THAT(error.Technical(), StartsWith(technical));
    }
  }
  EXPECT_EQ(NumberOf([&] { reports.Create()->SetSelectionFormula(2, "fmlID = 1"); }), 5);
  EXPECT_EQ(NumberOf([&] { reports.Create()->Produce(platform::ReportOutput::kScreen); }), 5);
}

}  // namespace
}  // namespace report
