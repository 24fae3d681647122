#include "EditorHarness.h"

namespace editor {
namespace {

using testing::IsEmpty;

const Message kQuestion{"حذف", "آيا مطمئن هستيد؟", 1};
const std::string kDeleteDetails = "Delete tblDistributionPromoterProgramDetail Where ProgramID=40";
const std::string kDeleteAttachments =
    "Delete tblZomirFormAttachment Where FormTypeID = 3308 and FormID = 40";
const std::string kDeleteHeader = "Delete tblDistributionPromoterProgram Where ID=40";

class DeletionTest : public EditorTest {
 protected:
  DeletionTest() {
    form.View(40);
    outside.database.ForgetCalls();
  }
};

TEST_F(DeletionTest, Confirmed_DeletesThreeTablesLogsAndEmptiesTheEditor) {
  outside.clock.minutesSinceMidnight = 17 * 60 + 5;
  outside.components.WillAnswer({Answer::kYes});
  form.cmdDelete.Click();
  EXPECT_THAT(
      FirstCalls(5),
      ElementsAre("spZomirHasPermission(@UserID=1, @FormPermissionID=330803)", kDeleteDetails,
                  kDeleteAttachments, kDeleteHeader,
                  "dbo.spZomirInsertFormAction(@EventID=330803, @FormCode='40', @FormTypeID=3308, "
                  "@Description='فرم برنامه بازارياب به ش.ر. ”40“ حذف شد.', @UserID=1, "
                  "@EventDate=2025-04-21, @FarsiEventDate='1404/02/01', @EventTime=1025)"));
  EXPECT_THAT(Said(), ElementsAre(kQuestion));
  EXPECT_EQ(form.CurrentMode(), Mode::kEmpty);
}

TEST_F(DeletionTest, AnyAnswerButYes_ShowsTheRefusal) {
  outside.components.WillAnswer({Answer::kNo, Answer::kClosed});
  for (int i = 0; i < 2; ++i) form.cmdDelete.Click();
  EXPECT_THAT(Said(), ElementsAre(kQuestion, kRefused, kQuestion, kRefused));
  EXPECT_THAT(outside.database.Statements(), IsEmpty());
}

TEST_F(DeletionTest, FailureAnywhere_IsNamedAndLeavesTheProgramShown) {
  const std::vector<std::string> all = {kDeleteDetails, kDeleteAttachments, kDeleteHeader};
  for (int failing = 0; failing <= 3; ++failing) {  // 0 is the permission
    outside.database.ForgetCalls();
    if (failing > 0) outside.components.WillAnswer({Answer::kYes});
    outside.database.FailAtCall(failing + 1, platform::RuntimeError(547, "The DELETE statement"));
    form.cmdDelete.Click();
    EXPECT_EQ(
        Said().back(),
        (Message{"خطا", "به اين فرم برنامه بازارياب وابستگي وجود دارد.\r\nThe DELETE statement",
                 0}));
    EXPECT_EQ(outside.database.Statements(), std::vector(all.begin(), all.begin() + failing))
        << "nothing after the failing one";
    EXPECT_EQ(form.txtID.Text(), "40");
  }
}

TEST_F(DeletionTest, FailingLog_IsIgnored) {
  outside.components.WillAnswer({Answer::kYes});
  outside.database.FailAtCall(5, platform::RuntimeError(2812, "no such procedure"));
  form.cmdDelete.Click();
  EXPECT_THAT(Said(), ElementsAre(kQuestion));
  EXPECT_EQ(form.CurrentMode(), Mode::kEmpty);
}

}  // namespace
}  // namespace editor
