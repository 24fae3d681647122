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
  void ExpectStillShown() {
    EXPECT_EQ(form.CurrentMode(), Mode::kView);
    EXPECT_EQ(form.txtID.Text(), "40");
    EXPECT_EQ(form.flxDetail.Rows(), 5);
  }
};

TEST_F(DeletionTest, Confirmed_DeletesThreeTablesLogsAndEmptiesTheEditor) {
  outside.clock.minutesSinceMidnight = 17 * 60 + 5;
  outside.components.WillAnswer({Answer::kYes});
  form.cmdDelete.Click();
  const std::vector<std::string>& log = outside.database.Log();
  ASSERT_GE(log.size(), 5U);
  EXPECT_THAT(
      std::vector(log.begin(), log.begin() + 5),
      ElementsAre("spZomirHasPermission(@UserID=1, @FormPermissionID=330803)", kDeleteDetails,
                  kDeleteAttachments, kDeleteHeader,
                  "dbo.spZomirInsertFormAction(@EventID=330803, @FormCode='40', @FormTypeID=3308, "
                  "@Description='فرم برنامه بازارياب به ش.ر. ”40“ حذف شد.', @UserID=1, "
                  "@EventDate=2025-04-21, @FarsiEventDate='1404/02/01', @EventTime=1025)"));
  EXPECT_THAT(outside.components.messages, ElementsAre(kQuestion));
  EXPECT_EQ(form.CurrentMode(), Mode::kEmpty);
  EXPECT_EQ(form.txtID.Text(), "");
  EXPECT_EQ(form.flxDetail.Rows(), 1);
  EXPECT_FALSE(form.cmdDelete.Enabled());
}

TEST_F(DeletionTest, RefusedRight_IsSilent) {
  outside.database.Refuse(330803);
  form.cmdDelete.Click();
  EXPECT_THAT(outside.components.messages, IsEmpty());
  EXPECT_THAT(outside.database.Statements(), IsEmpty());
  ExpectStillShown();
}

TEST_F(DeletionTest, AnyAnswerButYes_ShowsTheRefusal) {
  for (const Answer answer : {Answer::kNo, Answer::kClosed}) {
    outside.components.messages.clear();
    outside.components.WillAnswer({answer});
    form.cmdDelete.Click();
    EXPECT_THAT(outside.components.messages, ElementsAre(kQuestion, kRefused));
  }
  EXPECT_THAT(outside.database.Statements(), IsEmpty());
  ExpectStillShown();
}

TEST_F(DeletionTest, FailureAnywhere_IsNamedAndLeavesTheProgramShown) {
  const std::vector<std::string> all = {kDeleteDetails, kDeleteAttachments, kDeleteHeader};
  for (int failing = 0; failing <= 3; ++failing) {  // 0 is the permission
    outside.database.ForgetCalls();
    outside.components.messages.clear();
    if (failing > 0) outside.components.WillAnswer({Answer::kYes});
    outside.database.FailAtCall(failing + 1, platform::RuntimeError(547, "The DELETE statement"));
    form.cmdDelete.Click();
    EXPECT_EQ(
        outside.components.messages.back(),
        (Message{"خطا", "به اين فرم برنامه بازارياب وابستگي وجود دارد.\r\nThe DELETE statement",
                 0}));
    EXPECT_EQ(outside.database.Statements(), std::vector(all.begin(), all.begin() + failing))
        << "nothing after the failing one";
    EXPECT_THAT(outside.database.ProcedureCalls("dbo.spZomirInsertFormAction"), IsEmpty());
    ExpectStillShown();
  }
}

TEST_F(DeletionTest, FailingLog_IsIgnored) {
  outside.components.WillAnswer({Answer::kYes});
  outside.database.FailAtCall(5, platform::RuntimeError(2812, "no such procedure"));
  form.cmdDelete.Click();
  EXPECT_THAT(outside.components.messages, ElementsAre(kQuestion));
  EXPECT_EQ(form.CurrentMode(), Mode::kEmpty);
}

TEST_F(DeletionTest, FinalProgram_CannotBeDeleted) {
  form.View(41);
  outside.database.ForgetCalls();
  form.cmdDelete.Click();
  EXPECT_THAT(outside.database.Log(), IsEmpty());
}

}  // namespace
}  // namespace editor
