#include "EditorHarness.h"

namespace editor {
namespace {

const Message kQuestion{"حذف", "آيا مطمئن هستيد؟", 1};
const std::vector<std::string> kCalls = {
    Asks("330803"), "Delete tblDistributionPromoterProgramDetail Where ProgramID=40",
    "Delete tblZomirFormAttachment Where FormTypeID = 3308 and FormID = 40",
    "Delete tblDistributionPromoterProgram Where ID=40", Logs("330803", "حذف شد.")};

TEST_F(EditorTest, Delete_FailingAtAnyCall_IsNamedAndLeavesTheProgram_ButTheLogIsPassedOver) {
  for (std::size_t call = 1; call <= kCalls.size(); ++call) {
    form.View(40);
    outside.database.ForgetCalls();
    if (call > 1) outside.components.WillAnswer({Answer::kYes});
    outside.database.FailAtCall(call, {547, "The DELETE statement"});
    form.cmdDelete.Click();
    if (call < kCalls.size()) {
      EXPECT_EQ(outside.database.Log(), First(call, kCalls));
      EXPECT_EQ(Said().back(), (Message{"خطا",
                                        "به اين فرم برنامه بازارياب وابستگي وجود دارد.\r\n"
                                        "The DELETE statement",
                                        0}));
      EXPECT_EQ(form.txtID.Text(), "40");
    } else {
      EXPECT_EQ(First(call, outside.database.Log()), kCalls);
      EXPECT_THAT(Said(), ElementsAre(kQuestion));
      EXPECT_EQ(StateOf(form), "");
    }
  }
}

TEST_F(EditorTest, Delete_AnsweredWithAnythingButYes_ShowsTheRefusal) {
  form.View(40);
  outside.components.WillAnswer({Answer::kNo, Answer::kClosed});
  for (int i = 0; i < 2; ++i) form.cmdDelete.Click();
  EXPECT_THAT(Said(), ElementsAre(kQuestion, kRefused, kQuestion, kRefused));
  EXPECT_THAT(outside.database.Statements("Delete"), IsEmpty());
}

}  // namespace
}  // namespace editor
