#include "EditorHarness.h"

namespace editor {
namespace {

TEST_F(EditorTest, ClearShow_FirstUse_LoadsOnceAndOpensEmpty) {
  EXPECT_FALSE(form.ClearShow());
  EXPECT_FALSE(form.ClearShow());
  EXPECT_THAT(outside.desktop.loaded, ElementsAre("00000429"));
  EXPECT_THAT(outside.database.Statements("vwZomirBasePath"),
              ElementsAre("Select Isnull(BasePath,'') as InstallDirectory from vwZomirBasePath "
                          "Where ID=1 "));
  EXPECT_EQ(form.datToday.Text(), "1404/02/01");
  EXPECT_EQ(form.sltCreator.SelectedID(), 1);
  EXPECT_EQ(form.sltSupervisor.SelectedID(), 3);
  EXPECT_FALSE(form.sltBranch.HasSelection());
  EXPECT_EQ(outside.screen.log.back(), "show FormMain modeless");
}

TEST_F(EditorTest, EveryMode_HasItsCaptionAndControls) {
  const struct {
    std::function<void()> enter;
    std::string caption;
    std::vector<std::string> enabled;
  } cases[] = {
      {[this] { form.ClearShow(); }, "", {"cmdNew", "cmdSearch"}},
      {[this] { form.View(40); },
       " (مشاهده)",
       {"cmdNew", "cmdEdit", "cmdDelete", "cmdPreview", "cmdViewAccountDoc", "cmdSearch",
        "cmdAddBatch", "cmdSelectAll", "cmdSelectInverse", "cmdSelectNone", "cmdDeleteSelected"}},
      {[this] { form.cmdEdit.Click(); },
       " (اصلاح)",
       {"cmdNew", "cmdTempSave", "cmdFinalSave", "cmdCancel", "cmdSearch", "sltSupervisor",
        "sltBranch", "txtDescription"}},
      {[this] { form.View(41); },
       " (مشاهده)",
       {"cmdNew", "cmdPreview", "cmdViewAccountDoc", "cmdBackToTemp", "cmdSearch"}},
      {[this] { form.cmdNew.Click(); },
       " (ايجاد)",
       {"cmdTempSave", "cmdFinalSave", "cmdCancel", "cmdSearch", "sltSupervisor", "sltBranch",
        "txtDescription"}},
  };
  for (const auto& c : cases) {
    c.enter();
    EXPECT_EQ(form.Caption(), "برنامه بازارياب " + c.caption);
    EXPECT_THAT(EnabledControls(), testing::UnorderedElementsAreArray(c.enabled)) << c.caption;
  }
  EXPECT_EQ(form.txtID.Text(), "");
}

TEST_F(EditorTest, View_ShowsHeaderAndGroups) {
  EXPECT_FALSE(form.View(40));
  EXPECT_EQ(form.txtID.Text(), "40");
  EXPECT_EQ(form.datCreateDate.Text(), "1404/01/12");
  EXPECT_EQ(form.sltBranch.SelectedID(), 4);
  EXPECT_EQ(form.sltSupervisor.SelectedID(), 6);
  EXPECT_EQ(form.txtDescription.Text(), "يادداشت");
  EXPECT_THAT(Column(0), ElementsAre("1", "2", "3", "4"));
  EXPECT_THAT(Column(4), ElementsAre("1404/02/01", "1404/02/02", "1404/02/03", "1404/02/04"));
  EXPECT_THAT(Column(6), ElementsAre("25", "25", "25", "25"));
  EXPECT_EQ(
      outside.database.Log().back(),
      "select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as "
      "PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from "
      "tblDistributionPromoterProgramDetail  Where ProgramID=40 group by PromoterID, VisitDate, "
      "FarsiVisitDate, Notes");
}

TEST_F(EditorTest, View_OfNoProgram_OpensEmptyAndSaysSoWhereItAsked) {
  for (const int id : {0, -5, 99}) {
    form.View(40);
    outside.database.ForgetCalls();
    form.View(id);
    EXPECT_EQ(form.txtID.Text(), "");
    EXPECT_EQ(form.CurrentMode(), id > 0 ? Mode::kView : Mode::kEmpty);
    EXPECT_EQ(outside.database.Statements("select * from").size(), id > 0 ? 1U : 0U);
    EXPECT_NE(outside.database.Log().back().find("ProgramID=-1 group"), std::string::npos);
  }
  EXPECT_THAT(Said(), ElementsAre(Message{"خطا", "ركورد مورد نظر يافت نشد.", 0}));
}

TEST_F(EditorTest, View_HeaderWithNulls_SelectsNothing) {
  ScriptHeader("42", std::nullopt, {});
  form.View(42);
  for (const controls::Selector* each : {&form.sltCreator, &form.sltBranch, &form.sltSupervisor}) {
    EXPECT_FALSE(each->HasSelection()) << each->Name();
  }
  EXPECT_EQ(form.datCreateDate.Text(), "1404/02/01") << "keeps the day it was cleared to";
}

TEST_F(EditorTest, Show_WhileTheHostIsModal_ShowsModalAndAVisibleFormStaysUp) {
  outside.screen.hostIsModal = true;
  outside.screen.OnModal([this](controls::Form&) {
    EXPECT_FALSE(form.View(40));  // neither way can it be shown once more
    EXPECT_EQ(form.txtID.Text(), "40");
    EXPECT_TRUE(form.Visible());
  });
  EXPECT_FALSE(form.ClearShow());
  EXPECT_THAT(outside.screen.log, testing::Contains("show FormMain modal").Times(1));
}

TEST_F(EditorTest, Dialogs_EditorClosedAndReopened_KeepTheirContentsUntilAllIsUnloaded) {
  form.View(40);
  const auto use = [this](const std::string& before, const std::string& typed) {
    outside.screen.OnModalForm<batch::FormAddBatch>([&](batch::FormAddBatch& f) {
      EXPECT_EQ(f.txtNotes.Text(), before);
      f.txtNotes.SetText(typed);
    });
    outside.screen.OnModalForm<search::FormSearch>([&](search::FormSearch& f) {
      EXPECT_EQ(f.txtID.Text(), before);
      f.txtID.SetText(typed);
    });
    form.cmdAddBatch.Click();
    form.cmdSearch.Click();
  };
  use("", "12");
  form.CloseBox();
  form.View(40);
  use("12", "13");
  form.UnloadAll();
  EXPECT_FALSE(form.Loaded());
  module.SetContext({.userId = 1, .positionId = 2, .employeeId = 3, .connectionString = "other"});
  form.View(40);
  use("", "14");
  EXPECT_THAT(outside.desktop.loaded, testing::SizeIs(5))
      << "the editor thrice, the batch form twice";
  EXPECT_THAT(support::SelectorReads(form, outside.database),
              ElementsAre("sltCreator other: vwUserMajor vwUserMinor",
                          "sltSupervisor other: vwSaleSupervisorMajor vwSaleSupervisorMinor",
                          "sltBranch other: vwAccountBranchMajor vwAccountBranchMinor"));
}

TEST_F(EditorTest, OpenProgram_FailingHalfway_LeavesModeEmptyAndTheScreenInOrder) {
  form.View(41);
  outside.database.When(Holding(" Where ProgramID=40 group by"))
      .Fails(platform::RuntimeError(17, "server gone"));
  EXPECT_THROW(form.View(40), platform::RuntimeError);
  EXPECT_EQ(form.CurrentMode(), Mode::kEmpty);
  EXPECT_THAT(EnabledControls(), UnorderedElementsAre("cmdNew", "cmdSearch"));
  EXPECT_EQ(outside.screen.pointer, controls::MousePointer::kDefault);
  EXPECT_TRUE(form.flxDetail.Redraw());
}

TEST_F(EditorTest, CloseBox_WithAnOpenHeader_AsksFirst) {
  outside.components.WillAnswer({Answer::kNo, Answer::kNo, Answer::kYes});
  for (controls::Button* opening : {&form.cmdNew, &form.cmdEdit}) {
    form.View(40);
    opening->Click();
    form.CloseBox();
    EXPECT_TRUE(form.Visible());
  }
  form.CloseBox();
  EXPECT_FALSE(form.Loaded());
  form.ClearShow();
  form.CloseBox();
  EXPECT_FALSE(form.Loaded()) << "nothing is open: no question";
}

TEST_F(EditorTest, Search_WithNothingChosen_ChangesNothing) {
  form.ClearShow();
  form.cmdNew.Click();
  form.txtDescription.SetText("typed");
  outside.screen.OnModalForm<search::FormSearch>([](search::FormSearch& f) { f.cmdExit.Click(); });
  form.cmdSearch.Click();
  EXPECT_EQ(form.CurrentMode(), Mode::kCreate);
  EXPECT_EQ(form.txtDescription.Text(), "typed");
}

TEST_F(EditorTest, Resize_LeavesNoControlOutsideTheForm) {
  for (const auto& [width, height] : {std::pair(15300.0, 9300.0), {24000.0, 15000.0}}) {
    form.Resize(width, height);
    for (const controls::Control* control : support::AllControls(form)) {
      EXPECT_GE(control->Left(), 0) << control->Name();
      EXPECT_LE(control->Left() + control->Width(), width) << control->Name();
      EXPECT_LE(control->Top() + control->Height(), height) << control->Name();
    }
    EXPECT_NEAR(form.cmdSearch.Left(), 150, 0.01);
    EXPECT_NEAR(form.cmdNew.Left() + form.cmdNew.Width(), width - 150, 0.01);
  }
  for (const auto& [width, height, edge] : {std::tuple(3999.0, 15000.0, 24000.0),
                                            {24000.0, 3999.0, 24000.0},
                                            {4000.0, 4000.0, 4000.0}}) {
    form.Resize(width, height);
    EXPECT_NEAR(form.cmdNew.Left() + form.cmdNew.Width(), edge - 150, 0.01) << width;
    EXPECT_NEAR(form.cmdAddBatch.Top(), (edge == 4000 ? 4000 : 15000) - 570, 0.01) << height;
  }
}

}  // namespace
}  // namespace editor
