#include "EditorHarness.h"

namespace editor {
namespace {

using testing::IsEmpty;

const std::string kDocuments =
    "Select distinct x.DocumentID from tblAccountDocumentDetail x Where x.FormTypeID= 3308 and "
    "x.FormID=41";
const std::string kUpdate = "Update tblDistributionPromoterProgram Set Code=null Where ID=41";
const Message kQuestion{"پرسش", "آيا براي بازگشت به حالت موقت مطئمن هستيد؟", 1};

/// Program 41 is shown, final; taken back it is temporary.
class BackToTempTest : public EditorTest {
 protected:
  BackToTempTest() {
    form.View(41);
    ScriptHeader("41", std::nullopt);
    outside.database.ForgetCalls();
  }
};

TEST_F(BackToTempTest, Confirmed_RemovesEveryDocumentLinesFirstThenTheCode) {
  outside.database.When(Exact(kDocuments))
      .Gives(RowSetOf({"DocumentID"}, {{"70"}, {"9000000000"}}));
  outside.components.WillAnswer({Answer::kYes});
  form.cmdBackToTemp.Click();
  EXPECT_THAT(FirstCalls(7),
              ElementsAre("spZomirHasPermission(@UserID=1, @FormPermissionID=330807)", kDocuments,
                          "Delete tblAccountDocumentDetail Where DocumentID=70",
                          "Delete tblAccountDocument Where ID=70",
                          "Delete tblAccountDocumentDetail Where DocumentID=9000000000",
                          "Delete tblAccountDocument Where ID=9000000000", kUpdate));
  EXPECT_THAT(Said(), ElementsAre(kQuestion));
  EXPECT_EQ(form.txtCode.Text(), "");
  EXPECT_TRUE(form.cmdEdit.Enabled());
  EXPECT_THAT(outside.database.ProcedureCalls("dbo.spZomirInsertFormAction"), IsEmpty());
}

TEST_F(BackToTempTest, RefusedOrAnsweredNo_ChangesNothing) {
  outside.components.WillAnswer({Answer::kNo});
  form.cmdBackToTemp.Click();
  outside.database.Refuse(330807);
  form.cmdBackToTemp.Click();
  EXPECT_THAT(Said(), ElementsAre(kQuestion, kRefused));
  EXPECT_THAT(outside.database.Statements(), IsEmpty());
  EXPECT_EQ(form.txtCode.Text(), "41");
}

TEST_F(BackToTempTest, FailingStatement_EndsTheClickWhereItStands) {
  outside.database.When(Exact(kDocuments)).Gives(RowSetOf({"DocumentID"}, {{"70"}}));
  for (int call = 2; call <= 5; ++call) {  // 1 is the permission
    outside.database.ForgetCalls();
    outside.components.WillAnswer({Answer::kYes});
    outside.database.FailAtCall(call, platform::RuntimeError(547, "conflict"));
    EXPECT_THROW(form.cmdBackToTemp.Click(), platform::RuntimeError);
    EXPECT_EQ(outside.database.Log().size(), static_cast<std::size_t>(call));
    EXPECT_EQ(form.txtCode.Text(), "41") << "still shown as final";
  }
  outside.components.WillAnswer({Answer::kClosed});  // only a plain no stops
  form.cmdBackToTemp.Click();
  EXPECT_EQ(form.txtCode.Text(), "") << "another click finishes";
}

}  // namespace
}  // namespace editor
