// What may happen while the database works and the screen breathes.

#include "module/Office.h"
#include "support/ErrorNumber.h"

namespace module {
namespace {

using support::NumberOf;

std::vector<std::string> Cells(const controls::FlexGrid& grid) {
  std::vector<std::string> cells;
  for (int row = 0; row < grid.Rows(); ++row) {
    for (int col = 0; col < grid.Cols(); ++col) cells.emplace_back(grid.TextMatrix(row, col));
  }
  return cells;
}

class WaitingTest : public OfficeTest {
 protected:
  WaitingTest() {
    // So many visits that a search asks several times.
    Stored(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000) INSERT "
        "INTO tblDistributionPromoterProgramDetail (ProgramID, PromoterID, FarsiVisitDate, "
        "VisitDate, CustomerID, Sequence) SELECT 14, 19, '1404/09/01', 20251122, 1 + i % 60, i "
        "FROM n");
    Control().View(14);
    Search().Load();
    Search().txtID.SetText("14");
  }
  search::FormSearch& Search() { return Editor().SearchForm(); }
};

TEST_F(WaitingTest, RunningStatement_RefusesHostAndEveryOtherStatement) {
  Search().cmdSearch.Click();
  const std::vector<std::string> undisturbed = Cells(Search().flxSearch);
  ASSERT_GT(undisturbed.size(), 100U);
  Search().flxSearch.SetRows(1);
  int breaths = 0;
  waiting.onAdvance = [&] {
    if (++breaths > 3) return;
    EXPECT_EQ(NumberOf([this] { Control().View(3); }), 401);
    EXPECT_EQ(NumberOf([this] { Control().ClearShow(); }), 401);
    EXPECT_EQ(NumberOf([this] { Search().sltPromoter.LoadList(); }), platform::kStillExecuting);
    EXPECT_EQ(NumberOf([this] { Editor().cmdNew.Click(); }), platform::kStillExecuting);
    EXPECT_EQ(NumberOf([this] { Connect()->Execute("select 1"); }), platform::kStillExecuting);
  };
  Search().cmdSearch.Click();
  EXPECT_GT(breaths, 3);
  EXPECT_EQ(Cells(Search().flxSearch), undisturbed);
  EXPECT_EQ(outside.screen.pointer, controls::MousePointer::kDefault);
  waiting.onAdvance = nullptr;
  Control().View(3);
  EXPECT_EQ(Editor().txtID.Text(), "3");
}

TEST_F(WaitingTest, CancelledSearch_LeavesTheFormAsItWas) {
  Search().txtID.SetText("13");
  Search().cmdSearch.Click();
  const std::vector<std::string> before = Cells(Search().flxSearch);
  Search().txtID.SetText("14");
  waiting.stopAtCall = 2;
  EXPECT_EQ(NumberOf([this] { Search().cmdSearch.Click(); }), platform::kUserInterrupt);
  EXPECT_EQ(Cells(Search().flxSearch), before);
  EXPECT_TRUE(Search().flxSearch.Redraw());
  EXPECT_EQ(outside.screen.pointer, controls::MousePointer::kDefault);
  EXPECT_EQ(waiting.ended, static_cast<int>(waiting.begun.size()));
  waiting.stopAtCall = 0;
  Search().cmdSearch.Click();
  EXPECT_NE(Cells(Search().flxSearch), before);
}

}  // namespace
}  // namespace module
