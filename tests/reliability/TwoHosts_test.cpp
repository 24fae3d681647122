// Two hosts work on one office at once, and a third program locks it now and then: what collides is
// told, nothing is lost, and both go on.

#include <algorithm>
#include <iterator>
#include <random>
#include <set>

#include "module/OfficeDay.h"

namespace module {
namespace {

/// A host with its planner, who plans for a promoter of his own.
class Desk : public OfficeDay {
 public:
  Desk(const std::string& shared, std::size_t which) : OfficeDay({}, 0, shared) {
    promoter = which;
  }
  /// The number of the error that the user is shown, 0 for none.
  std::int32_t Try(const std::string& name, const std::function<void()>& action) {
    Do(name, action);
    return actions.back().error;
  }
  std::int32_t View(int program) {
    return Try("view", [&] { Control().View(program); });
  }
  std::int32_t Click(controls::Button& button) {
    return Try(button.Name(), [&] { button.Click(); });
  }
  /// The promoter and the day of the group in the first row, empty when none is shown.
  std::string Group() {
    const controls::FlexGrid& grid = Editor().flxDetail;
    if (grid.Rows() < 2) return {};
    return std::string(grid.TextMatrix(1, 1)).append(" ").append(grid.TextMatrix(1, 4));
  }
  std::int32_t PressFirst(bool twice) {
    return Try(twice ? "reopen" : "press", [&] {
      Editor().flxDetail.MouseDown(1, 2, 1, 0);
      Editor().flxDetail.Click();
      if (twice) Editor().flxDetail.DblClick();
    });
  }
};

class TwoHosts : public OfficeTest {
 protected:
  TwoHosts() {
    Control().ClearShow();
    Editor().cmdNew.Click();
    Editor().sltSupervisor.Select(1);
    Editor().sltBranch.Select(1);
    Editor().cmdTempSave.Click();
    program_ = std::stoi(Editor().txtID.Text());
    for (Desk& desk : desks_) desk.View(program_);
  }
  std::int32_t AddBatch(Desk& desk) { return desk.Click(desk.Editor().cmdAddBatch); }
  std::int32_t Delete(Desk& desk) { return desk.Click(desk.Editor().cmdDeleteSelected); }
  /// Promoter and day of every group, and how many visits it has.
  std::vector<std::string> Visits() {
    return Stored(
        "SELECT PromoterID || ' ' || FarsiVisitDate, count(*) FROM "
        "tblDistributionPromoterProgramDetail WHERE ProgramID = " +
        std::to_string(program_) + " GROUP BY 1 ORDER BY 1");
  }

  Desk desks_[2] = {{file, 0}, {file, 1}};
  int program_ = 0;
};

TEST_F(TwoHosts, ManyActionsInTurn_AreDoneWholeOrToldAsLocked) {
  std::vector<std::string> of[2];  // the groups of each desk's promoter
  for (const int desk : {0, 1}) {
    AddBatch(desks_[desk]);
    std::ranges::set_difference(Visits(), of[0], std::back_inserter(of[desk]));
    ASSERT_THAT(of[desk], testing::SizeIs(3));
  }
  std::mt19937 random(1404);
  std::set<std::string> expected(of[0].begin(), of[0].end());
  expected.insert(of[1].begin(), of[1].end());
  std::map<int, int> met;
  for (int step = 0; step < 300 && !HasFailure(); ++step) {
    const auto who = random() % 2;
    Desk& desk = desks_[who];
    const bool locked = random() % 4 == 0;
    const auto action = random() % 4;
    const std::string group = desk.Group();  // may be gone
    if (action > 1 && group.empty()) continue;
    const auto isGroup = [&](const std::string& each) { return each.starts_with(group); };
    SCOPED_TRACE(testing::Message() << step << ": " << action << " " << group << " " << locked);
    if (locked) Stored("BEGIN IMMEDIATE");
    if (action == 3) desk.PressFirst(false);
    const int error = action == 0   ? desk.View(program_)
                      : action == 1 ? AddBatch(desk)
                      : action == 2 ? desk.PressFirst(true)
                                    : Delete(desk);
    if (locked) Stored("COMMIT");
    ++met[error];
    // A group that is gone has no customers to list, and the list of none is no statement.
    const bool isGone = action == 2 && std::ranges::none_of(expected, isGroup);
    EXPECT_TRUE(error == 1222 ? locked : error == (isGone ? 102 : 0)) << error;
    if (error == 0 && action == 1) expected.insert(of[who].begin(), of[who].end());
    if (error == 0 && action == 3) std::erase_if(expected, isGroup);
    EXPECT_THAT(Visits(), testing::ElementsAreArray(expected)) << error;
  }
  EXPECT_GT(met[0], 100);
  EXPECT_GT(met[1222], 20);
}

TEST_F(TwoHosts, ProgramThatTheOtherDeleted_TakesNoVisitsAndBothGoOn) {
  AddBatch(desks_[0]);
  desks_[1].View(program_);
  desks_[0].Click(desks_[0].Editor().cmdDelete);
  EXPECT_EQ(desks_[1].PressFirst(true), 102);
  EXPECT_EQ(AddBatch(desks_[1]), 547);
  EXPECT_EQ(Delete(desks_[1]), 0);
  EXPECT_EQ(desks_[1].Editor().flxDetail.Rows(), 1);
  for (Desk& desk : desks_) EXPECT_EQ(desk.View(14), 0);
  EXPECT_THAT(Visits(), testing::IsEmpty());
}

}  // namespace
}  // namespace module
