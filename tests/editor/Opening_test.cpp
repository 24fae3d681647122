#include "EditorHarness.h"

namespace editor {
namespace {

TEST_F(EditorTest, ClearShow_FirstUse_LoadsOnceAndOpensEmpty) {
  EXPECT_FALSE(form.ClearShow());
  EXPECT_FALSE(form.ClearShow());
  EXPECT_THAT(outside.desktop.loaded, ElementsAre("00000429"));
  EXPECT_THAT(outside.database.Statements("vwZomirBasePath"), testing::SizeIs(1));
  EXPECT_EQ(form.datToday.Text(), "1404/02/01");
  EXPECT_EQ(form.sltCreator.SelectedID(), 1);
  EXPECT_EQ(form.sltSupervisor.SelectedID(), 3);
  EXPECT_FALSE(form.sltBranch.HasSelection());
  EXPECT_EQ(outside.screen.log.back(), "show FormMain modeless");
}

TEST_F(EditorTest, EveryMode_HasItsCaptionAndControls) {
  const std::tuple<std::function<void()>, std::string, std::string> cases[] = {
      {[this] { form.ClearShow(); }, "", ""},
      {[this] { form.View(40); }, "temporary", " (مشاهده)"},
      {[this] { form.cmdEdit.Click(); }, "(اصلاح)", " (اصلاح)"},
      {[this] { form.View(41); }, "final", " (مشاهده)"},
      {[this] { form.cmdNew.Click(); }, "(ايجاد)", " (ايجاد)"},
  };
  for (const auto& [enter, state, suffix] : cases) {
    enter();
    EXPECT_EQ(form.Caption(), "برنامه بازارياب " + suffix);
    EXPECT_EQ(StateOf(form), state);
    EXPECT_EQ(UsableNow(form), UsableIn(state)) << state;
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
}

TEST_F(EditorTest, View_OfNoProgram_OpensEmptyAndSaysSoWhereItAsked) {
  for (const int id : {0, -5, 99}) {
    form.View(40);
    outside.database.ForgetCalls();
    form.View(id);
    EXPECT_EQ(form.txtID.Text(), "");
    EXPECT_EQ(StateOf(form), id > 0 ? "temporary" : "");
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
  outside.database.SetDefaultColumns({"ID", "Name"});
  for (controls::Selector* each : {&form.sltCreator, &form.sltSupervisor, &form.sltBranch}) {
    each->LoadList();
    EXPECT_EQ(outside.database.Calls().back().connectionString, "other");
  }
}

TEST_F(EditorTest, OpenProgram_FailingHalfway_LeavesModeEmptyAndTheScreenInOrder) {
  form.View(41);
  outside.database.When(Holding(" Where ProgramID=40 group by"))
      .Fails(platform::RuntimeError(17, "server gone"));
  EXPECT_THROW(form.View(40), platform::RuntimeError);
  EXPECT_EQ(StateOf(form), "");
  EXPECT_EQ(UsableNow(form), UsableIn(""));
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
  EXPECT_EQ(StateOf(form), "(ايجاد)");
  EXPECT_EQ(form.txtDescription.Text(), "typed");
}

TEST_F(EditorTest, Resize_BelowTheLimit_MovesNothing) {
  const double top = form.cmdAddBatch.Top();
  form.Resize(3999, 9000);
  form.Resize(15300, 3999);
  EXPECT_EQ(form.cmdAddBatch.Top(), top);
  form.Resize(4000, 9000);
  EXPECT_EQ(form.cmdAddBatch.Top(), top - 300);
}

}  // namespace
}  // namespace editor
