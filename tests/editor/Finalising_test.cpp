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
  /// What was asked between the permission and the reading of the program.
  std::vector<std::string> Statements() {
    std::vector<std::string> log = outside.database.Log();
    EXPECT_EQ(log.at(0), "spZomirHasPermission(@UserID=1, @FormPermissionID=330807)");
    log.erase(log.begin());
    for (std::size_t i = 0; i < log.size(); ++i) {
      if (log[i] == kUpdate) log.resize(i + 1);
    }
    return log;
  }
};

TEST_F(BackToTempTest, Confirmed_RemovesEveryDocumentLinesFirstThenTheCode) {
  outside.database.When(Exact(kDocuments))
      .Gives(RowSetOf({"DocumentID"}, {{"70"}, {"9000000000"}}));
  outside.components.WillAnswer({Answer::kYes});
  form.cmdBackToTemp.Click();
  EXPECT_THAT(Statements(),
              ElementsAre(kDocuments, "Delete tblAccountDocumentDetail Where DocumentID=70",
                          "Delete tblAccountDocument Where ID=70",
                          "Delete tblAccountDocumentDetail Where DocumentID=9000000000",
                          "Delete tblAccountDocument Where ID=9000000000", kUpdate));
  EXPECT_THAT(outside.components.messages, ElementsAre(kQuestion));
  EXPECT_EQ(form.CurrentMode(), Mode::kView);
  EXPECT_EQ(form.txtID.Text(), "41");
  EXPECT_EQ(form.txtCode.Text(), "");
  EXPECT_TRUE(form.cmdEdit.Enabled());
  EXPECT_FALSE(form.cmdBackToTemp.Enabled());
  EXPECT_THAT(outside.database.ProcedureCalls("dbo.spZomirInsertFormAction"), IsEmpty());
}

TEST_F(BackToTempTest, Unanswered_GoesOn_WithoutDocumentsOnlyTheCodeGoes) {
  outside.components.WillAnswer({Answer::kClosed});
  form.cmdBackToTemp.Click();
  EXPECT_THAT(Statements(), ElementsAre(kDocuments, kUpdate));
  EXPECT_EQ(form.txtCode.Text(), "");
}

TEST_F(BackToTempTest, RefusedOrAnsweredNo_ChangesNothing) {
  outside.components.WillAnswer({Answer::kNo});
  form.cmdBackToTemp.Click();
  outside.database.Refuse(330807);
  form.cmdBackToTemp.Click();
  EXPECT_THAT(outside.components.messages, ElementsAre(kQuestion, kRefused));
  EXPECT_THAT(outside.database.Statements(), IsEmpty());
  EXPECT_EQ(form.txtCode.Text(), "41");
}

TEST_F(BackToTempTest, FailingStatement_EndsTheClickWhereItStands) {
  const struct {
    int call;  // 1 is the permission
    std::size_t statements;
  } cases[] = {{2, 1}, {3, 2}, {4, 3}, {5, 4}};
  outside.database.When(Exact(kDocuments)).Gives(RowSetOf({"DocumentID"}, {{"70"}}));
  for (const auto& c : cases) {
    outside.database.ForgetCalls();
    outside.components.messages.clear();
    outside.components.WillAnswer({Answer::kYes});
    outside.database.FailAtCall(c.call, platform::RuntimeError(547, "conflict"));
    EXPECT_THROW(form.cmdBackToTemp.Click(), platform::RuntimeError);
    EXPECT_EQ(outside.database.Statements().size(), c.statements);
    EXPECT_THAT(outside.components.messages, ElementsAre(kQuestion));
    EXPECT_EQ(form.txtCode.Text(), "41") << "still shown as final";
  }
  outside.components.WillAnswer({Answer::kYes});
  form.cmdBackToTemp.Click();
  EXPECT_EQ(form.txtCode.Text(), "") << "a second click finishes";
}

TEST_F(EditorTest, FinalSave_OfAnEditedHeader_StoresItsIdAsCode) {
  form.View(40);
  form.cmdEdit.Click();
  outside.database.ForgetCalls();
  ScriptHeader("40", "40");
  form.cmdFinalSave.Click();
  ASSERT_FALSE(outside.database.Statements("update ").empty());
  EXPECT_THAT(outside.database.Statements("update ").at(0),
              testing::HasSubstr(", Code=ID Where ID=40"));
  EXPECT_EQ(form.CurrentMode(), Mode::kView);
  EXPECT_TRUE(form.cmdBackToTemp.Enabled());
  EXPECT_FALSE(form.cmdEdit.Enabled());
}

}  // namespace
}  // namespace editor
