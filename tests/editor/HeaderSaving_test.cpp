#include "EditorHarness.h"

namespace editor {
namespace {

using testing::IsEmpty;

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

TEST_F(EditorTest, New_OpensAnEmptyHeader) {
  form.View(40);
  form.cmdNew.Click();
  EXPECT_EQ(form.CurrentMode(), Mode::kCreate);
  EXPECT_EQ(form.Caption(), "برنامه بازارياب  (ايجاد)");
  EXPECT_EQ(form.txtID.Text(), "");
  EXPECT_THAT(EnabledControls(),
              testing::UnorderedElementsAre("cmdTempSave", "cmdFinalSave", "cmdCancel", "cmdSearch",
                                            "sltSupervisor", "sltBranch", "txtDescription"));
}

TEST_F(EditorTest, RefusedRights_ChangeNothingAndWriteNothing) {
  for (const int permission : {330801, 330802, 330805, 330806}) {
    outside.database.Refuse(permission);
  }
  form.View(40);
  form.cmdNew.Click();
  form.cmdEdit.Click();
  EXPECT_EQ(form.CurrentMode(), Mode::kView);
  outside.database.Permit(330802);
  form.cmdEdit.Click();
  ASSERT_EQ(form.CurrentMode(), Mode::kEdit);
  form.txtDescription.SetText("typed");
  form.cmdTempSave.Click();
  form.cmdFinalSave.Click();
  EXPECT_THAT(Said(), ElementsAre(kRefused, kRefused, kRefused, kRefused));
  EXPECT_EQ(form.txtDescription.Text(), "typed");
  EXPECT_THAT(outside.database.Statements("update"), IsEmpty());
}

TEST_F(NewHeaderTest, Save_InsertsReadsTheIdentityLogsAndShowsTheProgram) {
  outside.clock.minutesSinceMidnight = 13 * 60 + 7;
  form.sltBranch.Select(4);
  form.txtDescription.SetText("  شرح برنامه ");
  form.cmdFinalSave.Click();
  EXPECT_THAT(
      FirstCalls(4),
      ElementsAre("spZomirHasPermission(@UserID=1, @FormPermissionID=330806)",
                  kInsertBeginning +
                      "CreateDate, FarsiCreateDate, BranchID, SupervisorID, Notes) values (1, "
                      "'20250421','1404/02/01' ,4,3,'شرح برنامه')",
                  "Select SCOPE_IDENTITY() as newID",
                  "dbo.spZomirInsertFormAction(@EventID=330801, @FormCode='40', @FormTypeID=3308, "
                  "@Description='فرم برنامه بازارياب به ش.ر. ”40“ ايجاد شد.', @UserID=1, "
                  "@EventDate=2025-04-21, @FarsiEventDate='1404/02/01', @EventTime=787)"));
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
    EXPECT_EQ(form.CurrentMode(), Mode::kCreate);
    EXPECT_EQ(form.txtDescription.Text(), typed);
    EXPECT_THAT(outside.database.Statements(kInsertBeginning).back(), testing::EndsWith(end));
  }
}

TEST_F(EditorTest, SaveEdited_UpdatesWithItsCodeAndLogs) {
  const std::tuple<controls::Button&, std::string, std::string> cases[] = {
      {form.cmdTempSave, "330805", "NULL"}, {form.cmdFinalSave, "330806", "ID"}};
  for (const auto& [button, permission, code] : cases) {
    form.View(40);
    form.cmdEdit.Click();
    EXPECT_EQ(form.Caption(), "برنامه بازارياب  (اصلاح)");
    form.sltBranch.Select(5);
    outside.database.ForgetCalls();
    button.Click();
    EXPECT_THAT(FirstCalls(2),
                ElementsAre("spZomirHasPermission(@UserID=1, @FormPermissionID=" + permission + ")",
                            "update tblDistributionPromoterProgram  Set CreatorID=1, BranchID=5, "
                            "SupervisorID=6, Notes='يادداشت', Code=" +
                                code + " Where ID=40"));
    const auto actions = outside.database.ProcedureCalls("dbo.spZomirInsertFormAction");
    ASSERT_EQ(actions.size(), 1U);
    EXPECT_EQ(actions[0].Value<std::int32_t>("@EventID"), 330804);
    EXPECT_EQ(actions[0].Value<std::string>("@Description"),
              "فرم برنامه بازارياب به ش.ر. ”40“ اصلاح شد.");
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
  EXPECT_EQ(form.CurrentMode(), Mode::kEmpty);
  EXPECT_EQ(Said().front(), (Message{"انصراف از ثبت", "آيا مطمئن هستيد؟", 1}));
}

}  // namespace
}  // namespace editor
