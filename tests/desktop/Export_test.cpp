// Which template a program is exported with.

#include "desktop/Export.h"

#include <gmock/gmock.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "demo/PlainDatabase.h"
#include "desktop/Host.h"
#include "support/ErrorNumber.h"
#include "support/Events.h"
#include "support/Fakes.h"
#include "support/TestFolder.h"

namespace {

using support::NumberOf;
using testing::AllOf;
using testing::HasSubstr;

class Export : public testing::Test {
 protected:
  Export() { desktop::MakeOffice(file, 60, folder.File("templates/")); }

  std::string Template(const std::string& wanted) {
    return desktop::TemplatePath(connection, files, wanted);
  }

  support::TestFolder folder;
  const std::string file = folder.File("office.db");
  adapters::sqlite::SqliteConnection connection{"sqlite:" + file};
  support::FakeFileSystem files;
};

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

}  // namespace
