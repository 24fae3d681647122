#include "EditorHarness.h"
#include "platform/ResumeNext.h"

namespace editor {
namespace {

class DetailGridTest : public EditorTest {
 protected:
  DetailGridTest() {
    form.View(40);
    outside.database.ForgetCalls();
  }
  void Block(int row, int rowSel) {
    form.flxDetail.SetRow(row);
    form.flxDetail.SetCol(0);  // the block may begin at the row numbers, not end there
    form.flxDetail.SetRowSel(rowSel);
    form.flxDetail.SetColSel(6);
  }
  static std::string DeleteOf(const std::string& promoter, const std::string& day) {
    return "delete tblDistributionPromoterProgramDetail  where ProgramID=40 and PromoterID=" +
           promoter + " and FarsiVisitDate like '" + day + "'";
  }
};

TEST_F(DetailGridTest, Marks_FollowTheButtonsTheMouseAndTheSort) {
  form.cmdSelectAll.Click();
  form.flxDetail.MouseDown(2, 3, 2, 0);  // any button
  form.flxDetail.MouseDown(4, 3, 1, 0);  // the last row
  EXPECT_THAT(MarkedRows(), ElementsAre(1, 3));
  form.cmdSelectInverse.Click();
  EXPECT_THAT(MarkedRows(), ElementsAre(2, 4));
  Press(0, 5);
  EXPECT_THAT(Column(5), ElementsAre("a", "b", "c", "d"));
  Press(0, 4);
  EXPECT_THAT(Column(5), ElementsAre("d", "c", "b", "a")) << "each press turns the direction";
  EXPECT_THAT(Column(0), ElementsAre("1", "2", "3", "4"));
  EXPECT_THAT(MarkedRows(), ElementsAre(1, 3));

  outside.database.When(Holding("Where ProgramID=41 group by")).Gives(Groups({{"7", "d", "n"}}));
  form.View(41);
  form.flxDetail.MouseDown(1, 2, 1, 0);
  EXPECT_THAT(MarkedRows(), IsEmpty()) << "a final program's visits cannot be picked";
}

TEST_F(DetailGridTest, Undo_OfMarks_WorksWhereTheFormMarksAndEndsWithAnotherProgram) {
  controls::FlexGrid::MarkSteps& steps = *form.flxDetail.markSteps;
  Press(2);
  form.cmdSelectInverse.Click();
  Press(0, 5);
  Press(0, 5);
  steps.Undo();
  EXPECT_THAT(Column(5)[static_cast<std::size_t>(MarkedRows().at(0)) - 1], "b");
  form.cmdAddBatch.SetEnabled(false);
  steps.Redo();
  EXPECT_THAT(MarkedRows(), testing::SizeIs(1)) << "nothing is marked now";
  form.cmdAddBatch.SetEnabled(true);
  steps.Redo();
  EXPECT_THAT(MarkedRows(), testing::SizeIs(3));
  form.View(40);
  steps.Undo();
  EXPECT_THAT(MarkedRows(), IsEmpty());
  steps.Redo();
  EXPECT_THAT(MarkedRows(), IsEmpty());
}

TEST_F(DetailGridTest, DeleteSelected_ReadsRowsAfterTheyShifted) {
  outside.components.WillAnswer({Answer::kNo, Answer::kClosed});  // only a plain no stops
  Block(3, 1);
  form.cmdDeleteSelected.Click();
  EXPECT_THAT(outside.database.Log(), IsEmpty());
  EXPECT_EQ(platform::ResumeNext([&] { form.cmdDeleteSelected.Click(); }),
            platform::kSubscriptOutOfRange)
      << "the third row is gone by then";
  EXPECT_THAT(outside.database.Log(),
              ElementsAre(DeleteOf("7", "1404/02/01"), DeleteOf("9", "1404/02/03")));
  EXPECT_THAT(Column(5), ElementsAre("c", "d"));
  EXPECT_EQ(Said().back(), (Message{"هشدار", "آيا نسبت به عمل حذف مطمئن هستيد؟", 1}));
  form.flxDetail.SetRow(0);
  form.cmdDeleteSelected.Click();
  Block(1, 1);
  form.flxDetail.SetColSel(0);
  form.cmdDeleteSelected.Click();
  EXPECT_THAT(
      Said(),
      testing::AllOf(
          testing::SizeIs(2),
          testing::Each(Message{
              "اشکال", "قبلا بايد از ليست بالا تعدادي را براي حذف انتخاب کرده باشيد.", 0})));
}

TEST_F(DetailGridTest, DoubleClick_OpensTheGroupInTheBatchForm_OfAFinalProgramToLookAtOnly) {
  outside.screen.OnModalForm<batch::FormAddBatch>([](batch::FormAddBatch& f) {
    EXPECT_EQ(f.sltPromoter.SelectedID(), 8);
    EXPECT_TRUE(f.cmdAdd.Enabled());
    EXPECT_THAT(f.sltPromoter.Condition(), testing::HasSubstr("x.SupervisorID=6)"));
  });
  Press(2);
  form.flxDetail.DblClick();
  outside.database.When(Holding("Where ProgramID=41 group by"))
      .Gives(Groups({{"7", "1404/02/01", ""}}));
  outside.screen.OnModalForm<batch::FormAddBatch>(
      [](batch::FormAddBatch& f) { EXPECT_FALSE(f.cmdAdd.Enabled()); });
  form.View(41);
  Press(1);
  form.flxDetail.DblClick();
}

}  // namespace
}  // namespace editor
