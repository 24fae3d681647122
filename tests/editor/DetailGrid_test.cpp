#include "EditorHarness.h"

namespace editor {
namespace {

using testing::IsEmpty;
using testing::StartsWith;

class DetailGridTest : public EditorTest {
 protected:
  DetailGridTest() {
    form.View(40);
    outside.database.ForgetCalls();
  }
  void Block(int row, int rowSel) {
    form.flxDetail.SetRow(row);
    form.flxDetail.SetCol(1);
    form.flxDetail.SetRowSel(rowSel);
    form.flxDetail.SetColSel(6);
  }
  static std::string DeleteOf(const std::string& promoter, const std::string& day) {
    return "delete tblDistributionPromoterProgramDetail  where ProgramID=40 and PromoterID=" +
           promoter + " and FarsiVisitDate like '" + day + "'";
  }
};

TEST_F(DetailGridTest, Marks_FollowTheThreeButtonsAndTheMouse) {
  form.cmdSelectAll.Click();
  EXPECT_THAT(MarkedRows(), ElementsAre(1, 2, 3, 4));
  form.flxDetail.MouseDown(2, 3, 2, 0);  // any button
  EXPECT_THAT(MarkedRows(), ElementsAre(1, 3, 4));
  form.cmdSelectInverse.Click();
  EXPECT_THAT(MarkedRows(), ElementsAre(2));
  form.cmdSelectNone.Click();
  form.flxDetail.MouseDown(0, 2, 1, 0);  // heading
  form.flxDetail.MouseDown(5, 2, 1, 0);  // below the last row
  EXPECT_THAT(MarkedRows(), IsEmpty());
  EXPECT_EQ(outside.screen.pointer, controls::MousePointer::kDefault);

  form.View(41);
  outside.database.When(Holding("Where ProgramID=41 group by")).Gives(Groups({{"7", "d", "n"}}));
  form.View(41);
  form.flxDetail.MouseDown(1, 2, 1, 0);
  EXPECT_THAT(MarkedRows(), IsEmpty()) << "a final program's visits cannot be picked";
}

TEST_F(DetailGridTest, HeaderClick_SortsTurningTheDirectionAndNumbersAnew) {
  Press(2);
  const auto header = [this](int col) {
    form.flxDetail.MouseDown(0, col, 1, 0);
    form.flxDetail.Click();
  };
  header(5);
  EXPECT_THAT(Column(5), ElementsAre("a", "b", "c", "d"));
  header(4);
  EXPECT_THAT(Column(5), ElementsAre("d", "c", "b", "a"));
  EXPECT_THAT(Column(0), ElementsAre("1", "2", "3", "4"));
  EXPECT_THAT(MarkedRows(), ElementsAre(3)) << "the mark went with its row";
  EXPECT_EQ(form.flxDetail.Col(), 1);
  EXPECT_EQ(form.flxDetail.ColSel(), 6);
}

TEST_F(DetailGridTest, DeleteSelected_OneRow_DeletesThatGroupAndReloads) {
  outside.components.WillAnswer({Answer::kClosed});  // only a plain no stops
  Block(2, 2);
  form.cmdDeleteSelected.Click();
  ASSERT_EQ(outside.database.Log().size(), 2U);
  EXPECT_EQ(outside.database.Log().at(0), DeleteOf("8", "1404/02/02"));
  EXPECT_THAT(outside.database.Log().at(1), StartsWith("select PromoterID"));
  EXPECT_THAT(outside.components.messages,
              ElementsAre(Message{"هشدار", "آيا نسبت به عمل حذف مطمئن هستيد؟", 1}));
}

TEST_F(DetailGridTest, DeleteSelected_Block_ReadsRowsAfterTheyShifted) {
  outside.components.WillAnswer({Answer::kYes});
  Block(3, 1);
  try {
    form.cmdDeleteSelected.Click();
    ADD_FAILURE() << "the third row is gone by then";
  } catch (const platform::RuntimeError& error) {
    EXPECT_EQ(error.Number(), platform::kSubscriptOutOfRange);
  }
  EXPECT_THAT(outside.database.Log(),
              ElementsAre(DeleteOf("7", "1404/02/01"), DeleteOf("9", "1404/02/03")));
  EXPECT_THAT(Column(5), ElementsAre("c", "d"));
}

TEST_F(DetailGridTest, DeleteSelected_WithoutABlockOrAnsweredNo_DeletesNothing) {
  form.flxDetail.SetRow(0);
  form.cmdDeleteSelected.Click();
  EXPECT_THAT(outside.components.messages,
              ElementsAre(Message{
                  "اشکال", "قبلا بايد از ليست بالا تعدادي را براي حذف انتخاب کرده باشيد.", 0}));
  outside.components.WillAnswer({Answer::kNo});
  Block(1, 2);
  form.cmdDeleteSelected.Click();
  EXPECT_THAT(outside.database.Log(), IsEmpty());
}

TEST_F(DetailGridTest, DeleteSelected_TheOnlyGroup_LeavesTheCaptionRow) {
  outside.database.When(Holding(" Where ProgramID=40 group by"))
      .Gives(Groups({{"7", "1404/02/01", "a"}}))
      .Gives(Groups({}));
  form.View(40);
  outside.components.WillAnswer({Answer::kYes});
  Block(1, 1);
  form.cmdDeleteSelected.Click();
  EXPECT_EQ(form.flxDetail.Rows(), 1);
  EXPECT_EQ(form.flxDetail.FixedCols(), 1);
}

TEST_F(DetailGridTest, DeleteSelected_FailingDelete_TravelsOutWithoutReload) {
  outside.components.WillAnswer({Answer::kYes});
  outside.database.FailAtCall(1, platform::RuntimeError(547, "conflict"));
  Block(1, 2);
  EXPECT_THROW(form.cmdDeleteSelected.Click(), platform::RuntimeError);
  EXPECT_THAT(outside.database.Log(), testing::SizeIs(1));
  EXPECT_EQ(form.flxDetail.Rows(), 5);
}

TEST_F(DetailGridTest, AddBatch_WritesOneStatementAndReloads) {
  outside.components.WillAnswer({Answer::kYes});
  outside.database.When(Holding("from tblOrganization left outer join"))
      .Gives(RowSetOf({"ID", "Code", "Name", "Address", "CellPhone", "Phone1", "Phone2", "PathName",
                       "RegionName", "WorkActivityName"},
                      {{"5", "", "", "", "", "", "", "", "", ""}}));
  outside.database.When(Holding("as PathName, p.ID"))
      .Gives(RowSetOf({"PathName", "ID"}, {{"p", "11"}}));
  outside.screen.OnModalForm<batch::FormAddBatch>([](batch::FormAddBatch& f) {
    f.datDateTo.SetText(f.datDateFrom.Text());
    f.sltPromoter.Select(7);
    f.flxRegion.cmdSelectNone.Click();
    f.flxRegion.UnSelected(1);  // nothing to pick: the paths are read all the same
    f.flxPath.cmdSelectAll.Click();
    f.cmdSearch.Click();
    f.flxCustomer.cmdSelectAll.Click();
    f.flxDate.cmdSelectAll.Click();
    f.cmdAdd.Click();
  });
  form.cmdAddBatch.Click();
  const auto inserts = outside.database.Statements("insert into");
  ASSERT_EQ(inserts.size(), 1U);
  EXPECT_THAT(inserts[0], testing::HasSubstr(" select 40, 7 , "));
  EXPECT_THAT(inserts[0], testing::HasSubstr("fnZomirStringToTable('14040101') d "));
  EXPECT_THAT(inserts[0], testing::HasSubstr(", o.ID, null, ROW_NUMBER()"));
  EXPECT_THAT(outside.database.Log().back(), StartsWith("select PromoterID"));
}

TEST_F(DetailGridTest, DoubleClick_OpensTheGroupInTheBatchForm) {
  outside.screen.OnModalForm<batch::FormAddBatch>([](batch::FormAddBatch& f) {
    EXPECT_EQ(f.sltPromoter.SelectedID(), 8);
    EXPECT_EQ(f.txtNotes.Text(), "b");
    EXPECT_TRUE(f.cmdAdd.Enabled());
    EXPECT_THAT(f.sltPromoter.Condition(), testing::HasSubstr("x.SupervisorID=6)"));
  });
  Press(2);
  form.flxDetail.DblClick();
  EXPECT_THAT(outside.database.Statements("fnZomirStringToTable('14040202')"), testing::SizeIs(1));
  EXPECT_THAT(outside.database.Statements("insert into"), IsEmpty());

  outside.database.When(Holding("Where ProgramID=41 group by"))
      .Gives(Groups({{"7", "1404/02/01", ""}}));
  outside.screen.OnModalForm<batch::FormAddBatch>(
      [](batch::FormAddBatch& f) { EXPECT_FALSE(f.cmdAdd.Enabled()); });
  form.View(41);
  Press(1);
  form.flxDetail.DblClick();
}

TEST_F(DetailGridTest, BatchInsert_ThatFails_TravelsOutAndLeavesTheGrid) {
  outside.database.When(Holding("insert into tblDistributionPromoterProgramDetail"))
      .Fails(platform::RuntimeError(547, "conflict"));
  outside.components.WillAnswer({Answer::kYes});
  outside.database.When(Holding("from tblOrganization left outer join"))
      .Gives(RowSetOf({"ID", "Code", "Name", "Address", "CellPhone", "Phone1", "Phone2", "PathName",
                       "RegionName", "WorkActivityName"},
                      {{"5", "", "", "", "", "", "", "", "", ""}}));
  outside.database.When(Holding("select x.ID from dbo.fnZomirStringToTable"))
      .Gives(RowSetOf({"ID"}, {{"14040201"}}));
  outside.screen.OnModalForm<batch::FormAddBatch>([](batch::FormAddBatch& f) {
    f.flxDate.cmdSelectAll.Click();
    f.flxCustomer.cmdSelectAll.Click();
    f.cmdAdd.Click();
  });
  Press(1);
  EXPECT_THROW(form.flxDetail.DblClick(), platform::RuntimeError);
  EXPECT_EQ(form.flxDetail.Rows(), 5);
  EXPECT_THAT(outside.database.Log().back(), StartsWith("insert into"));
}

}  // namespace
}  // namespace editor
