#include "EditorHarness.h"

namespace editor {
namespace {

const Message kQuestion{"پرسش", "آيا براي بازگشت به حالت موقت مطئمن هستيد؟", 1};
const std::vector<std::string> kCalls = {
    Asks("330807"),
    "Select distinct x.DocumentID from tblAccountDocumentDetail x Where x.FormTypeID= 3308 and "
    "x.FormID=41",
    "Delete tblAccountDocumentDetail Where DocumentID=70",
    "Delete tblAccountDocument Where ID=70",
    "Delete tblAccountDocumentDetail Where DocumentID=9000000000",
    "Delete tblAccountDocument Where ID=9000000000",
    "Update tblDistributionPromoterProgram Set Code=null Where ID=41"};

/// Program 41 is shown, final; taken back it is temporary.
class BackToTempTest : public EditorTest {
 protected:
  BackToTempTest() {
    outside.database.When(Exact(kCalls[1]))
        .Gives(RowSetOf({"DocumentID"}, {{"70"}, {"9000000000"}}));
    form.View(41);
    ScriptHeader("41", std::nullopt);
    outside.database.ForgetCalls();
  }
};

TEST_F(BackToTempTest, NoOrAFailingCall_EndsTheClickWhereItStands_AndAnotherClickFinishes) {
  outside.components.WillAnswer({Answer::kNo});
  form.cmdBackToTemp.Click();
  EXPECT_THAT(outside.database.Statements(), IsEmpty());
  for (std::size_t call = 1; call <= kCalls.size(); ++call) {
    outside.database.ForgetCalls();
    if (call > 1) outside.components.WillAnswer({Answer::kYes});
    outside.database.FailAtCall(call, {547, "conflict"});
    EXPECT_THROW(form.cmdBackToTemp.Click(), platform::RuntimeError);
    EXPECT_EQ(outside.database.Log(), First(call, kCalls));
    EXPECT_EQ(form.txtCode.Text(), "41") << "still shown as final";
  }
  Said();
  outside.components.WillAnswer({Answer::kClosed});  // only a plain no stops
  form.cmdBackToTemp.Click();
  EXPECT_THAT(Said(), ElementsAre(kQuestion));
  EXPECT_EQ(form.txtCode.Text(), "");
  EXPECT_THAT(outside.database.Log(),
              testing::Not(testing::Contains(testing::HasSubstr("FormAction"))));
}

}  // namespace
}  // namespace editor
