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
};

// What marks and their taking back are tested for is the lists' (tests/tools/comFlex_test.cpp).
TEST_F(DetailGridTest, Marks_GoWithTheSortThatNumbersTheRows_AndNeedATemporaryProgram) {
  form.cmdSelectAll.Click();
  Press(2);
  Press(4);
  EXPECT_THAT(MarkedRows(), ElementsAre(1, 3));
  Press(0, 5);
  EXPECT_THAT(Column(5), ElementsAre("a", "b", "c", "d"));
  Press(0, 4);
  EXPECT_THAT(Column(5), ElementsAre("d", "c", "b", "a"));
  EXPECT_THAT(Column(0), ElementsAre("1", "2", "3", "4"));
  EXPECT_THAT(MarkedRows(), ElementsAre(2, 4));

  controls::FlexGrid::MarkSteps& steps = *form.flxDetail.markSteps;
  form.cmdSelectInverse.Click();
  form.cmdAddBatch.SetEnabled(false);
  steps.Undo();
  Press(1);
  EXPECT_THAT(MarkedRows(), ElementsAre(1, 3)) << "nothing is marked now";
  form.cmdAddBatch.SetEnabled(true);
  steps.Undo();
  EXPECT_THAT(MarkedRows(), ElementsAre(2, 4));
  form.cmdSelectNone.Click();
  form.View(40);
  steps.Undo();
  EXPECT_THAT(MarkedRows(), IsEmpty()) << "another list";
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
              ElementsAre(testing::EndsWith("PromoterID=7 and FarsiVisitDate like '1404/02/01'"),
                          testing::EndsWith("PromoterID=9 and FarsiVisitDate like '1404/02/03'")));
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
