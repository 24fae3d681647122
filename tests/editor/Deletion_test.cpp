#include "EditorHarness.h"

namespace editor {
namespace {

const Message kQuestion{"حذف", "آيا مطمئن هستيد؟", 1};

TEST_F(EditorTest, Delete_FailingOrAnsweredWithAnythingButYes_SaysSoAndLeavesTheProgram) {
  form.View(40);
  outside.components.WillAnswer({Answer::kNo, Answer::kClosed, Answer::kYes, Answer::kYes});
  for (int i = 0; i < 2; ++i) form.cmdDelete.Click();
  EXPECT_THAT(Said(), ElementsAre(kQuestion, kRefused, kQuestion, kRefused));
  EXPECT_THAT(outside.database.Statements("Delete"), IsEmpty());
  outside.database.FailAtCall(3, {547, "The DELETE statement"});
  form.cmdDelete.Click();
  EXPECT_THAT(outside.database.Statements("Delete"), testing::SizeIs(2));
  EXPECT_EQ(
      Said().back(),
      (Message{"خطا", "به اين فرم برنامه بازارياب وابستگي وجود دارد.\r\nThe DELETE statement", 0}));
  EXPECT_EQ(form.txtID.Text(), "40");
  outside.database.FailAtCall(5, {547, "not logged"});
  form.cmdDelete.Click();
  EXPECT_THAT(outside.database.Log(), testing::Contains(Logs("330803", "حذف شد.")));
  EXPECT_THAT(Said(), ElementsAre(kQuestion)) << "gone, logged or not";
  EXPECT_EQ(StateOf(form), "");
}

}  // namespace
}  // namespace editor
