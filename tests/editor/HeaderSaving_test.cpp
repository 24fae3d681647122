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
  EXPECT_EQ(form.CurrentMode(), Mode::kView);
  form.cmdEdit.Click();
  EXPECT_EQ(form.CurrentMode(), Mode::kView);
  outside.database.Permit(330802);
  form.cmdEdit.Click();
  ASSERT_EQ(form.CurrentMode(), Mode::kEdit);
  form.txtDescription.SetText("typed");
  form.cmdTempSave.Click();
  form.cmdFinalSave.Click();
  EXPECT_THAT(outside.components.messages, ElementsAre(kRefused, kRefused, kRefused, kRefused));
  EXPECT_EQ(form.CurrentMode(), Mode::kEdit);
  EXPECT_EQ(form.txtDescription.Text(), "typed");
  EXPECT_THAT(outside.database.Statements("update"), IsEmpty());
}

TEST_F(NewHeaderTest, Save_InsertsReadsTheIdentityLogsAndShowsTheProgram) {
  outside.clock.minutesSinceMidnight = 13 * 60 + 7;
  form.sltBranch.Select(4);
  form.txtDescription.SetText("  شرح برنامه ");
  form.cmdFinalSave.Click();
  const std::vector<std::string>& log = outside.database.Log();
  ASSERT_GE(log.size(), 4U);
  EXPECT_THAT(
      std::vector(log.begin(), log.begin() + 4),
      ElementsAre("spZomirHasPermission(@UserID=1, @FormPermissionID=330806)",
                  kInsertBeginning +
                      "CreateDate, FarsiCreateDate, BranchID, SupervisorID, Notes) values (1, "
                      "'20250421','1404/02/01' ,4,3,'شرح برنامه')",
                  "Select SCOPE_IDENTITY() as newID",
                  "dbo.spZomirInsertFormAction(@EventID=330801, @FormCode='40', @FormTypeID=3308, "
                  "@Description='فرم برنامه بازارياب به ش.ر. ”40“ ايجاد شد.', @UserID=1, "
                  "@EventDate=2025-04-21, @FarsiEventDate='1404/02/01', @EventTime=787)"));
  EXPECT_EQ(form.CurrentMode(), Mode::kView);
  EXPECT_EQ(form.txtID.Text(), "40");
  EXPECT_EQ(form.txtCode.Text(), "") << "a new program is stored temporary by either button";
  EXPECT_EQ(outside.screen.log.back(), "focus cmdNew");
}

TEST_F(NewHeaderTest, Save_BlankNotes_StoresNull) {
  form.sltBranch.Select(4);
  form.txtDescription.SetText("   ");
  form.cmdTempSave.Click();
  EXPECT_THAT(outside.database.Statements(kInsertBeginning).at(0), testing::EndsWith(",4,3,NULL)"));
}

TEST_F(NewHeaderTest, Save_NamesTheFirstMissingFieldOnly) {
  const struct {
    std::function<void()> spoil;
    std::string message;
    std::string focus;
  } cases[] = {
      {[this] { form.sltBranch.Clear(); }, "شعبه مشخص نشده است!", "focus sltBranch"},
      {[this] { form.datCreateDate.Clear(); }, "تاريخ ايجاد مشخص نشده است!", ""},
      {[this] { form.sltCreator.Clear(); }, "ايجاد کننده مشخص نشده است!", ""},
      {[this] { form.sltSupervisor.Clear(); }, "مدير برنامه مشخص نشده است!", "focus sltSupervisor"},
  };
  for (const auto& c : cases) {  // each spoils one more, earlier in the order of the checks
    c.spoil();
    outside.components.messages.clear();
    form.cmdTempSave.Click();
    EXPECT_THAT(outside.components.messages, ElementsAre(Message{"اشکال", c.message, 0}));
    if (!c.focus.empty()) {
      EXPECT_EQ(outside.screen.log.back(), c.focus);
    }
  }
  EXPECT_THAT(outside.database.Statements(), IsEmpty());
  EXPECT_EQ(form.CurrentMode(), Mode::kCreate);
}

TEST_F(NewHeaderTest, Save_RefusedByTheDatabase_KeepsWhatWasTyped) {
  outside.database.When(Beginning(kInsertBeginning))
      .Fails(platform::RuntimeError(105, "Unclosed quotation mark"));
  form.sltBranch.Select(4);
  form.txtDescription.SetText("it's");
  form.cmdTempSave.Click();
  EXPECT_THAT(outside.components.messages,
              ElementsAre(Message{"خطا در ثبت", "Unclosed quotation mark", 0}));
  EXPECT_EQ(form.CurrentMode(), Mode::kCreate);
  EXPECT_EQ(form.txtDescription.Text(), "it's");
  EXPECT_THAT(outside.database.Statements(kInsertBeginning).at(0), testing::EndsWith(",'it's')"));
}

TEST_F(EditorTest, SaveEdited_UpdatesWithItsCodeAndLogs) {
  for (const bool final : {false, true}) {
    form.View(40);
    form.cmdEdit.Click();
    ASSERT_EQ(form.Caption(), "برنامه بازارياب  (اصلاح)");
    form.sltBranch.Select(5);
    outside.database.ForgetCalls();
    (final ? form.cmdFinalSave : form.cmdTempSave).Click();
    EXPECT_EQ(outside.database.Log().at(0), final ? "spZomirHasPermission(@UserID=1, "
                                                    "@FormPermissionID=330806)"
                                                  : "spZomirHasPermission(@UserID=1, "
                                                    "@FormPermissionID=330805)");
    EXPECT_EQ(outside.database.Log().at(1),
              std::string("update tblDistributionPromoterProgram  Set CreatorID=1, BranchID=5, "
                          "SupervisorID=6, Notes='يادداشت', Code=") +
                  (final ? "ID" : "NULL") + " Where ID=40");
    const auto actions = outside.database.ProcedureCalls("dbo.spZomirInsertFormAction");
    ASSERT_EQ(actions.size(), 1U);
    EXPECT_EQ(actions[0].Value<std::int32_t>("@EventID"), 330804);
    EXPECT_EQ(actions[0].Value<std::string>("@Description"),
              "فرم برنامه بازارياب به ش.ر. ”40“ اصلاح شد.");
    EXPECT_EQ(form.CurrentMode(), Mode::kView);
  }
}

TEST_F(EditorTest, Cancel_GoesBackOnlyOnYes) {
  outside.components.WillAnswer({Answer::kNo, Answer::kClosed, Answer::kYes, Answer::kYes});
  form.View(40);
  form.cmdEdit.Click();
  form.txtDescription.SetText("changed");
  form.cmdCancel.Click();
  form.cmdCancel.Click();
  EXPECT_EQ(form.CurrentMode(), Mode::kEdit);
  EXPECT_EQ(form.txtDescription.Text(), "changed");
  form.cmdCancel.Click();
  EXPECT_EQ(form.CurrentMode(), Mode::kView);
  EXPECT_EQ(form.txtDescription.Text(), "يادداشت");
  form.cmdNew.Click();
  form.cmdCancel.Click();
  EXPECT_EQ(form.CurrentMode(), Mode::kEmpty);
  EXPECT_EQ(outside.components.messages.front(), (Message{"انصراف از ثبت", "آيا مطمئن هستيد؟", 1}));
}

}  // namespace
}  // namespace editor
