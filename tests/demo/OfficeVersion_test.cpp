#include "demo/OfficeVersion.h"

#include <gmock/gmock.h>

#include <fstream>

#include "demo/Inspection.h"
#include "demo/PlainDatabase.h"
#include "demo/SampleOffice.h"
#include "support/ErrorNumber.h"
#include "support/TestFolder.h"

namespace demo {
namespace {

namespace fs = std::filesystem;
using support::Content;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

/// What version 1 had not.
constexpr char kToVersion1[] =
    "DROP INDEX ixPromoterProgramDetailDay;"
    "DELETE FROM tblZomirReportTemplate WHERE FilePath NOT IN"
    " ('program-by-day.html', 'promoter-day-sheet.html');"
    "PRAGMA user_version = 0; PRAGMA application_id = 0";
constexpr char kTemplates[] = "SELECT FilePath FROM tblZomirReportTemplate ORDER BY ID";
constexpr char kVisits[] = "SELECT * FROM tblDistributionPromoterProgramDetail";

class OfficeOfAge : public testing::Test {
 protected:
  OfficeOfAge() {
    CreateSampleOffice(file_, {.customers = 40,
                               .today = std::chrono::year(2025) / 11 / 22,
                               .basePath = folder_.File("templates") + "/"});
  }
  void Do(const std::string& sql) const { ASSERT_EQ(PlainDatabase(file_).Text(sql), ""); }
  std::optional<OfficeUpdate> Update() const {
    return BringUpToDate(file_, [](const std::string& folder) {
      std::ofstream(folder + "promoter-month.html") << "new";
    });
  }

  support::TestFolder folder_;
  std::string file_ = folder_.File("office.db");
};

TEST_F(OfficeOfAge, Older_IsBroughtUpToDateAfterACopy) {
  fs::create_directory(folder_.File("templates"));
  Do(kToVersion1);
  const std::string before = PlainDatabase(file_).Text(kVisits);
  const auto update = Update();
  ASSERT_TRUE(update);
  EXPECT_EQ(update->from, 1);
  EXPECT_EQ(update->copy, file_ + ".before-2");
  EXPECT_EQ(PlainDatabase(update->copy).Text(kTemplates),
            "program-by-day.html;promoter-day-sheet.html;");
  EXPECT_EQ(PlainDatabase(file_).Text(kTemplates),
            "program-by-day.html;promoter-day-sheet.html;promoter-month.html;visit-summary.html;"
            "path-coverage.html;");
  EXPECT_EQ(PlainDatabase(file_).Text(kVisits), before);
  EXPECT_EQ(Content(folder_.File("templates/promoter-month.html")), "new");
  EXPECT_THAT(InspectOffice(file_), IsEmpty());  // it is as this program makes it

  EXPECT_FALSE(Update());
  // Made between two versions: all is there but the number. The earlier copy stays.
  Do("PRAGMA user_version = 0; PRAGMA application_id = 0");
  EXPECT_EQ(Update().value().copy, file_ + ".before-2-2");
  EXPECT_THAT(PlainDatabase(file_).Query(kTemplates), testing::SizeIs(5));
}

TEST_F(OfficeOfAge, Failing_StaysAsItWasWithoutACopy) {
  fs::create_directory(folder_.File("templates"));
  Do(kToVersion1);
  const std::string schema = "SELECT sql FROM sqlite_schema";
  const std::string before = PlainDatabase(file_).Text(schema);
  const auto fail = [](const std::string&) -> void {
    throw platform::RuntimeError(61, "disk full");
  };
  EXPECT_EQ(support::NumberOf([&] { BringUpToDate(file_, fail); }), 61);
  EXPECT_EQ(PlainDatabase(file_).Text(schema), before);
  EXPECT_EQ(PlainDatabase(file_).Text("PRAGMA user_version"), "0;");
  EXPECT_EQ(folder_.FileCount(), 2);  // the office and its templates
}

TEST_F(OfficeOfAge, Newer_IsRefusedWithBothVersions) {
  Do("PRAGMA user_version = 7");
  const std::string before = Content(file_);
  for (const auto& look : {std::function<void()>([&] { Update(); }),
                           std::function<void()>([&] { InspectOffice(file_); })}) {
    const auto refused = support::FailureOf(look);
    EXPECT_EQ(refused.Number(), 4060);
    EXPECT_THAT(refused.Description(),
                AllOf(HasSubstr("نسخه فايل 7، اين برنامه تا نسخه 2"), HasSubstr("version is 7")));
  }
  EXPECT_EQ(Content(file_), before);
}

TEST_F(OfficeOfAge, AnotherPrograms_IsLeftToTheByte) {
  for (const char* make : {"PRAGMA application_id = 5; PRAGMA user_version = 1",
                           "PRAGMA application_id = 0; PRAGMA user_version = 3",
                           "PRAGMA user_version = 0; DROP VIEW vwZomirBasePath"}) {
    Do(make);
    const std::string before = Content(file_);
    EXPECT_FALSE(Update()) << make;
    EXPECT_EQ(Content(file_), before);
  }
  EXPECT_FALSE(BringUpToDate(folder_.File("none.db"), {}));
  EXPECT_EQ(folder_.FileCount(), 1);
}

}  // namespace
}  // namespace demo
