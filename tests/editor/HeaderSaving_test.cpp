#include "EditorHarness.h"

namespace editor {
namespace {

const std::string kInsertBeginning = "insert into tblDistributionPromoterProgram (CreatorID, ";

/// The editor with a new header: everything but the branch is filled in.
class NewHeaderTest : public EditorTest {
 protected:
  NewHeaderTest() {
    outside.database.When(Exact("Select SCOPE_IDENTITY() as newID"))
        .Gives(RowSetOf({"newID"}, {{"40"}}));
    form.ClearShow();
    form.cmdNew.Click();
    outside.database.ForgetCalls();
  }
};

TEST_F(NewHeaderTest, Save_InsertsReadsTheIdentityLogsAndShowsTheProgram) {
  form.sltBranch.Select(4);
  form.txtDescription.SetText("  شرح برنامه ");
  form.cmdFinalSave.Click();
  EXPECT_THAT(First(4, outside.database.Log()),
              ElementsAre(_, testing::EndsWith(" (1, '20250421','1404/02/01' ,4,3,'شرح برنامه')"),
                          _, Logs("330801", "ايجاد شد.")));
  EXPECT_EQ(form.txtCode.Text(), "") << "a new program is stored temporary by either button";
  EXPECT_EQ(outside.screen.log.back(), "focus cmdNew");
}

TEST_F(NewHeaderTest, Save_NamesTheFirstMissingFieldOnly) {
  const struct {
    std::function<void()> spoil;
    std::string message;
    std::string focus;
  } cases[] = {
      {[this] { form.sltBranch.Clear(); }, "شعبه مشخص نشده است!", "focus sltBranch"},
      {[this] { form.datCreateDate.Clear(); }, "تاريخ ايجاد مشخص نشده است!", "focus sltBranch"},
      {[this] { form.sltCreator.Clear(); }, "ايجاد کننده مشخص نشده است!", "focus sltBranch"},
      {[this] { form.sltSupervisor.Clear(); }, "مدير برنامه مشخص نشده است!", "focus sltSupervisor"},
  };
  for (const auto& c : cases) {  // each spoils one more, checked earlier; two of them take no focus
    c.spoil();
    form.cmdTempSave.Click();
    EXPECT_THAT(Said(), ElementsAre(Message{"اشکال", c.message, 0}));
    EXPECT_EQ(outside.screen.log.back(), c.focus);
  }
  EXPECT_THAT(outside.database.Statements(), IsEmpty());
}

TEST_F(NewHeaderTest, Save_RefusedByTheDatabase_KeepsWhatWasTyped) {
  outside.database.When(Beginning(kInsertBeginning))
      .Fails(platform::RuntimeError(105, "Unclosed quotation mark"));
  form.sltBranch.Select(4);
  for (const auto& [typed, end] : {std::pair("it's", ",4,3,'it's')"), {"   ", ",4,3,NULL)"}}) {
    form.txtDescription.SetText(typed);
    form.cmdTempSave.Click();
    EXPECT_THAT(Said(), ElementsAre(Message{"خطا در ثبت", "Unclosed quotation mark", 0}));
    EXPECT_EQ(StateOf(form), "(ايجاد)");
    EXPECT_EQ(form.txtDescription.Text(), typed);
    EXPECT_THAT(outside.database.Statements(kInsertBeginning).back(), testing::EndsWith(end));
  }
}

TEST_F(EditorTest, SaveEdited_UpdatesWithItsCodeAndLogs) {
  for (const auto& [button, code] :
       {std::pair(&form.cmdTempSave, "NULL"), {&form.cmdFinalSave, "ID"}}) {
    form.View(40);
    form.cmdEdit.Click();
    form.sltBranch.Select(5);
    outside.database.ForgetCalls();
    button->Click();
    EXPECT_THAT(First(3, outside.database.Log()),
                ElementsAre(_,
                            testing::HasSubstr(std::string("BranchID=5, SupervisorID=6, ") +
                                               "Notes='يادداشت', Code=" + code + " Where ID=40"),
                            Logs("330804", "اصلاح شد.")));
  }
}

TEST_F(EditorTest, Cancel_GoesBackOnlyOnYes) {
  outside.components.WillAnswer({Answer::kNo, Answer::kClosed, Answer::kYes, Answer::kYes});
  form.View(40);
  form.cmdEdit.Click();
  form.txtDescription.SetText("changed");
  form.cmdCancel.Click();
  form.cmdCancel.Click();
  EXPECT_EQ(form.txtDescription.Text(), "changed");
  form.cmdCancel.Click();
  EXPECT_EQ(form.txtDescription.Text(), "يادداشت");
  form.cmdNew.Click();
  form.cmdCancel.Click();
  EXPECT_EQ(StateOf(form), "");
  EXPECT_EQ(Said().front(), (Message{"انصراف از ثبت", "آيا مطمئن هستيد؟", 1}));
}

}  // namespace
}  // namespace editor
