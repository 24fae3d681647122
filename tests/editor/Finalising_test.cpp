#include "EditorHarness.h"

namespace editor {
namespace {

TEST_F(EditorTest, BackToTemp_AfterNoOrAFailureHalfway_IsFinishedByAnotherClick) {
  outside.database.When(Beginning("Select distinct x.DocumentID"))
      .Gives(RowSetOf({"DocumentID"}, {{"70"}, {"9000000000"}}));
  form.View(41);
  outside.database.ForgetCalls();
  outside.components.WillAnswer({Answer::kNo, Answer::kYes, Answer::kClosed});
  form.cmdBackToTemp.Click();
  EXPECT_THAT(outside.database.Statements(), IsEmpty());
  outside.database.FailAtCall(4, {547, "conflict"});
  EXPECT_THROW(form.cmdBackToTemp.Click(), platform::RuntimeError);
  EXPECT_EQ(StateOf(form), "final") << "still shown as final";
  Said();
  ScriptHeader("41", std::nullopt);
  form.cmdBackToTemp.Click();  // only a plain no stops
  EXPECT_THAT(Said(), ElementsAre(Message{"پرسش", "آيا براي بازگشت به حالت موقت مطئمن هستيد؟", 1}));
  EXPECT_EQ(StateOf(form), "temporary");
  EXPECT_THAT(outside.database.Statements("=9000000000"), testing::SizeIs(2));
}

}  // namespace
}  // namespace editor
