// Two hosts work on one office at once, and a third program locks it now and then: what collides is
// told, nothing is lost, and both go on.

#include <algorithm>
#include <random>
#include <utility>

#include "module/Office.h"

namespace module {
namespace {

using namespace std::chrono_literals;
using support::Answer;

/// A host with its user, who says yes to everything.
class Desk : platform::ConnectionFactory {
 public:
  Desk(const std::string& file, std::int32_t promoter) : promoter_(promoter) {
    outside_.clock.today = std::chrono::year(2025) / std::chrono::November / 22;
    outside_.components.otherwise = [] { return Answer::kYes; };
    outside_.screen.otherwise = [this](controls::Form& form) {
      Plan(dynamic_cast<batch::FormAddBatch&>(form));
    };
    module_.Control().SetUserID(1);
    module_.Control().SetEmployeeID(1);
    module_.Control().SetOLEConnectionString("sqlite:" + file);
  }

  editor::FormMain& Editor() { return module_.Editor(); }
  void View(int program) { module_.Control().View(program); }
  /// The number of the error that the user is shown, 0 for none.
  template <typename Action>
  int Try(const Action& action) {
    try {
      action();
      return 0;
    } catch (const platform::RuntimeError& error) {
      return error.Number();
    }
  }
  std::string Promoter() const { return std::to_string(promoter_) + " "; }
  void AddBatch() {
    plans_ = true;
    Editor().cmdAddBatch.Click();
  }
  void Press(int row) {
    Editor().flxDetail.MouseDown(row, 2, 1, 0);
    Editor().flxDetail.Click();
  }

 private:
  std::unique_ptr<platform::Connection> Create(const std::string& text) override {
    return std::make_unique<adapters::sqlite::SqliteConnection>(text, 20ms);
  }
  /// Three days for the customers of the promoter; a reopened group is looked at and left.
  void Plan(batch::FormAddBatch& form) {
    if (std::exchange(plans_, false)) {
      form.sltPromoter.Select(promoter_);
      form.datDateFrom.SetText("1404/09/01");
      for (const char* day : {"1404/09/02", "1404/09/03"}) form.datDateTo.SetText(day);
      for (tools::comFlex* grid : {&form.flxRegion, &form.flxPath, &form.flxDate}) {
        grid->cmdSelectAll.Click();
      }
      form.cmdSearch.Click();
      form.flxCustomer.cmdSelectAll.Click();
      form.txtNotes.SetText("it's new");
      form.cmdAdd.Click();
    } else {
      form.cmdCancel.Click();
    }
  }

  std::int32_t promoter_;
  bool plans_ = false;
  support::ScriptedPlatform outside_;
  class Module module_ {
    outside_.Services(*this), outside_.controlSite
  };
};

class TwoHosts : public OfficeTest {
 protected:
  TwoHosts() {
    Module().Control().ClearShow();
    Editor().cmdNew.Click();
    Editor().sltBranch.Select(1);
    Editor().cmdTempSave.Click();
    program_ = std::stoi(Editor().txtID.Text());
    for (Desk& desk : desks_) desk.View(program_);
  }
  /// Promoter and day of every group, and how many visits it has.
  std::vector<std::string> Visits() {
    return Stored(
        "SELECT PromoterID || ' ' || FarsiVisitDate, count(*) FROM "
        "tblDistributionPromoterProgramDetail WHERE ProgramID = " +
        std::to_string(program_) + " GROUP BY 1 ORDER BY 1");
  }
  std::string Promoter(const char* which) {
    return Cell(std::string("SELECT ") + which +
                "(PromoterID) FROM tblSaleSupervisorPromoter WHERE SupervisorID = 1");
  }

  Desk desks_[2] = {{file, std::stoi(Promoter("min"))}, {file, std::stoi(Promoter("max"))}};
  int program_ = 0;
};

TEST_F(TwoHosts, ManyActionsInTurn_AreDoneWholeOrToldAsLocked) {
  for (Desk& desk : desks_) desk.AddBatch();
  const std::vector<std::string> full = Visits();
  ASSERT_THAT(full, testing::SizeIs(6));
  std::mt19937 random(1404);
  std::vector<std::string> expected = full;
  std::map<int, int> met;
  for (int step = 0; step < 300 && !HasFailure(); ++step) {
    SCOPED_TRACE(step);
    Desk& desk = desks_[random() % 2];
    const bool locked = random() % 4 == 0;
    const auto action = random() % 4;
    const controls::FlexGrid& grid = desk.Editor().flxDetail;
    // What the desk shows may be gone.
    const bool hasRow = grid.Rows() > 1;
    const std::string group =
        hasRow ? std::string(grid.TextMatrix(1, 1)) + " " + std::string(grid.TextMatrix(1, 4)) : "";
    if (locked) Stored("BEGIN IMMEDIATE");
    const int error = desk.Try([&] {
      if (action == 0) return desk.View(program_);
      if (action == 1) return desk.AddBatch();
      if (!hasRow) return;
      desk.Press(1);
      if (action == 2) return desk.Editor().flxDetail.DblClick();
      desk.Editor().cmdDeleteSelected.Click();
    });
    if (locked) Stored("COMMIT");
    ++met[error];
    // A group that is gone has no customers to list, and the list of none is no statement.
    const bool isGone = action == 2 && !std::ranges::any_of(expected, [&](const std::string& each) {
                          return each.starts_with(group);
                        });
    EXPECT_TRUE(error == 1222 ? locked : error == (isGone && hasRow ? 102 : 0)) << error;
    if (error == 0 && action == 1) {
      for (const std::string& each : full) {
        if (each.starts_with(desk.Promoter()) && !std::ranges::count(expected, each)) {
          expected.push_back(each);
        }
      }
      std::ranges::sort(expected);
    }
    if (error == 0 && action == 3 && hasRow) {
      std::erase_if(expected, [&](const std::string& each) { return each.starts_with(group); });
    }
    EXPECT_EQ(Visits(), expected) << action << " " << error << " " << group << " " << locked;
  }
  EXPECT_GT(met[0], 100);
  EXPECT_GT(met[1222], 20);
}

TEST_F(TwoHosts, ProgramThatTheOtherDeleted_TakesNoVisitsAndBothGoOn) {
  desks_[0].AddBatch();
  desks_[1].View(program_);
  desks_[0].Editor().cmdDelete.Click();
  desks_[1].Press(1);
  EXPECT_EQ(desks_[1].Try([&] { desks_[1].Editor().flxDetail.DblClick(); }), 102);
  EXPECT_EQ(desks_[1].Try([&] { desks_[1].AddBatch(); }), 547);
  EXPECT_EQ(desks_[1].Try([&] { desks_[1].Editor().cmdDeleteSelected.Click(); }), 0);
  EXPECT_EQ(desks_[1].Editor().flxDetail.Rows(), 1);
  for (Desk& desk : desks_) EXPECT_EQ(desk.Try([&] { desk.View(14); }), 0);
  EXPECT_THAT(Visits(), testing::IsEmpty());
}

}  // namespace
}  // namespace module
