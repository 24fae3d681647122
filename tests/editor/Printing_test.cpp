#include "EditorHarness.h"

namespace editor {
namespace {

const std::string kTemplates = "Select * from tblZomirReportTemplate where FormTypeID = 3308";

/// Two templates: 31 by its full path, 32 relative to the install directory.
class PrintingTest : public EditorTest {
 protected:
  PrintingTest() {
    outside.database.When(Beginning("Select Isnull(BasePath,'')"))
        .Gives(RowSetOf({"InstallDirectory"}, {{"/suite/"}}));
    outside.database.When(Exact(kTemplates))
        .Gives(RowSetOf({"ID", "Title"}, {{"31", "by day"}, {"32", "by promoter"}}));
    Template("31", "/t/day.html");
    Template("32", "road.html");
    outside.fileSystem.files = {{"/t/day.html", ""}, {"/suite/road.html", ""}};
    form.View(40);
    outside.database.ForgetCalls();
    outside.events.clear();
  }
  void Template(const std::string& id, const std::string& path) {
    outside.database.When(Exact("Select * From tblZomirReportTemplate Where ID = " + id))
        .Gives(RowSetOf({"FilePath"}, {{path}}));
  }
  /// The user picks the n-th template of the list; -1 closes the dialog.
  void WillPick(int item) {
    outside.screen.OnModalForm<tools::FormPrint>([this, item](tools::FormPrint& choice) {
      EXPECT_FALSE(form.cmdPreview.Enabled()) << "not twice at once";
      EXPECT_EQ(choice.cmbReport().ListCount(), 2);
      if (item < 0) {
        choice.CloseBox();
      } else {
        choice.cmbReport().SetListIndex(item);
        choice.cmdOk.Click();
      }
    });
  }
  void ExpectReady() {
    EXPECT_TRUE(form.cmdPreview.Enabled());
    EXPECT_EQ(outside.screen.pointer, controls::MousePointer::kDefault);
  }
};

TEST_F(PrintingTest, Preview_RunsTheChosenTemplateForTheProgram_AndNoneUnlessChosenAnew) {
  for (const auto& [item, path] :
       {std::pair(0, "load /t/day.html"), std::pair(1, "load /suite/road.html")}) {
    outside.reports.log.clear();
    WillPick(item);
    form.cmdPreview.Click();
    EXPECT_THAT(outside.reports.log, ElementsAre("create", path, "connect office",
                                                 "formula 1: fmlID = 40", "produce screen"));
    ExpectReady();
  }
  EXPECT_THAT(outside.events, testing::Contains("pointer 11"));
  outside.reports.log.clear();
  WillPick(-1);
  form.cmdPreview.Click();
  EXPECT_THAT(outside.reports.log, IsEmpty());
  EXPECT_THAT(Said(), IsEmpty());
  ExpectReady();
}

TEST_F(PrintingTest, Preview_WithoutTemplates_SaysSoAndShowsNoDialog) {
  outside.database.When(Exact(kTemplates)).Gives(RowSetOf({"ID", "Title"}));
  form.cmdPreview.Click();
  EXPECT_THAT(Said(),
              ElementsAre(Message{
                  "اطلاع ", "قالبي براي گزارش گيري در سيستم موجود نيست .آن را ايجاد كنيد .", 0}));
  EXPECT_THAT(outside.reports.log, IsEmpty());
  ExpectReady();
}

TEST_F(PrintingTest, Preview_OfAMissingFile_NamesThePathTriedLast) {
  outside.fileSystem.files.clear();
  for (const auto& [item, path] :
       {std::pair<int, std::string>(0, "/suite//t/day.html"), {1, "/suite/road.html"}}) {
    WillPick(item);
    form.cmdPreview.Click();
    EXPECT_THAT(Said(), ElementsAre(Message{
                            "اشکال", "فايل چاپي در مسير مورد نظر «" + path + "» وجود ندارد.", 0}));
    ExpectReady();
  }
  EXPECT_THAT(outside.reports.log, IsEmpty());
}

}  // namespace
}  // namespace editor
