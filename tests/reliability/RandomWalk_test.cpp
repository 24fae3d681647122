// A user who presses anything: random actions on whatever form is up, nested forms included, with
// what must always hold looked at after each of them.
//
//   PROMOTER_WALK_STEPS=5000000 PROMOTER_WALK_SEED=7 reliability_test --gtest_filter='RandomWalk.*'

#include <algorithm>
#include <array>
#include <cstdlib>
#include <deque>
#include <map>

#include "module/Office.h"
#include "platform/RunningStatement.h"
#include "reliability/AnyHand.h"
#include "text/Text.h"

namespace reliability {
namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr long kSteps = 30'000;
#else
constexpr long kSteps = 100'000;
#endif
/// A form that is not left by then is left through its close box.
constexpr int kMostActionsOnADialog = 60;
/// Above this many visits the office starts anew, so that a step costs the same late in the walk.
constexpr int kMostVisits = 2000;

long Setting(const char* name, long otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : std::strtol(text, nullptr, 10);
}

constexpr std::string_view kReadVisits = "select PromoterID , (Select";

constexpr std::array<std::string_view, 4> kFiles{"", "a.txt", "b.txt", "پوشه/خروجي.txt"};

/// A permission that a writing statement needs; 0: it has none of its own, and may be sent for a
/// temporary program alone.
struct Need {
  std::string_view beginning;
  std::vector<std::int32_t> anyOf;
};
const std::array<Need, 9> kNeeds{{
    {"insert into tblDistributionPromoterProgram (", {330805, 330806}},
    {"update tblDistributionPromoterProgram  Set CreatorID=", {330805, 330806}},
    {"Delete tblDistributionPromoterProgramDetail Where ProgramID=", {330803}},
    {"Delete tblZomirFormAttachment Where", {330803}},
    {"Delete tblDistributionPromoterProgram Where", {330803}},
    {"Delete tblAccountDocumentDetail Where DocumentID=", {330807}},
    {"Delete tblAccountDocument Where ID=", {330807}},
    {"Update tblDistributionPromoterProgram Set Code=null", {330807}},
    {"", {0}},
}};

class RandomWalk : public module::OfficeTest {
 protected:
  RandomWalk() {
    outside.screen.otherwise = [this](controls::Form& form) { OnDialog(form); };
    outside.components.otherwise = [this] {
      return leaving_ ? support::Answer::kYes
                      : dice_.Of(std::array{support::Answer::kYes, support::Answer::kYes,
                                            support::Answer::kNo, support::Answer::kClosed});
    };
    Stored("PRAGMA foreign_keys = ON");
    Stored("DELETE FROM tblDistributionPromoterProgramDetail WHERE CustomerID % 5 > 0");
  }

  void Walk(long steps) {
    try {
      while (step_ < steps && !HasFailure()) TopStep();
    } catch (const std::exception& error) {
      ADD_FAILURE() << "an exception of no known kind: " << error.what();
    }
    if (HasFailure()) {
      std::string last;
      for (const std::string& action : trail_) last += "\n  " + action;
      ADD_FAILURE() << "at action " << step_ << ", after" << last;
    }
  }

  void TopStep() {
    outside.desktop.chosen = std::string(dice_.Of(kFiles));
    if (outside.desktop.chosen->empty()) outside.desktop.chosen.reset();
    if (!Editor().Visible()) {
      outside.screen.hostIsModal = dice_.OneIn(10);
      Act("open", [&] {
        if (dice_.OneIn(4)) {
          Control().ClearShow();
        } else {
          Control().View(dice_.OneIn(20) ? dice_.Upto(3) * 99'999'999 - 1 : AnyProgram());
        }
      });
    } else if (dice_.OneIn(40)) {
      TheRestOfTheOffice();
    } else {
      PressAny(Editor());
    }
    CheckEditor(nullptr);
    if (step_ % 16 == 0 || sent_ > 0) CheckShownVisits();
    sent_ = 0;
    outside.Forget();
  }

  void OnDialog(controls::Form& form) {
    for (int action = 0; form.Visible() && action < kMostActionsOnADialog; ++action) {
      if (HasFailure()) break;
      PressAny(form);
      CheckEditor(&Editor().cmdPreview);
    }
    if (!form.Visible()) return;
    leaving_ = true;
    Act("close " + form.Name(), [&] { form.CloseBox(); });
    leaving_ = false;
    EXPECT_FALSE(form.Visible()) << form.Name() << " cannot be left";
  }

  /// One action: like a screen, it takes a run-time error as something to show.
  void Act(const std::string& what, const std::function<void()>& act) {
    ++step_;
    trail_.push_back(what);
    while (trail_.size() > 30) trail_.pop_front();
    granted_.emplace_back();
    const bool wasStale = gridIsStale_;
    bool failed = false;
    try {
      act();
    } catch (const platform::RuntimeError& error) {
      trail_.push_back("  error " + std::to_string(error.Number()) + " " + error.Description());
      EXPECT_FALSE(error.Description().empty());
      failed = true;
    }
    // Each deletion is a statement of its own: one that fails in the middle leaves those before it
    // done and the list as it was, and the user was told.
    EXPECT_TRUE(wasStale || !gridIsStale_ || failed || !outside.components.messages.empty());
    granted_.pop_back();
  }

  void PressAny(controls::Form& form) {
    if (auto* batch = dynamic_cast<batch::FormAddBatch*>(&form); batch && dice_.OneIn(15)) {
      PressWithAPurpose(*batch);
    }
    std::vector<controls::Control*> all = support::AllControls(form);
    const bool offToo = dice_.OneIn(10);
    std::erase_if(all, [&](const controls::Control* control) {
      return !control->Visible() || (!control->Enabled() && !offToo) ||
             dynamic_cast<const controls::Label*>(control) != nullptr ||
             dynamic_cast<const controls::Frame*>(control) != nullptr;
    });
    controls::Control& control = *dice_.Of(all);
    if (dice_.OneIn(150)) {
      Act("close " + form.Name(), [&] { form.CloseBox(); });
    } else if (dice_.OneIn(150)) {
      Act("resize " + form.Name(), [&] {
        form.Resize(form.MinWidth() + dice_.Upto(9000), form.MinHeight() + dice_.Upto(9000));
      });
    } else {
      const long sent = sent_;
      const bool enabled = control.Enabled();
      control.Accept(hand_);
      EXPECT_TRUE(enabled || sent_ == sent) << control.Name() << " is off";
    }
  }

  /// By chance alone hardly any batch would be committed.
  void PressWithAPurpose(batch::FormAddBatch& form) {
    for (controls::TextBox* box : {&form.txtCodeFrom, &form.txtCodeTo, &form.txtName}) {
      box->SetText("");
    }
    for (controls::Selector* box : {&form.sltCustomer, &form.sltBranch, &form.sltWorkActivity}) {
      box->Clear();
    }
    for (controls::Control* control : std::initializer_list<controls::Control*>{
             &form.sltPromoter, &form.flxRegion.cmdSelectAll, &form.flxPath.cmdSelectAll,
             &form.cmdSearch, &form.flxCustomer.cmdSelectAll, &form.flxDate.getFlex(),
             &form.flxDate.getFlex(), &form.flxCustomer.getFlex(), &form.cmdAdd}) {
      if (form.Visible()) control->Accept(hand_);
    }
  }

  // What always holds.

  platform::RowSet Execute(platform::Connection& database, std::string_view statement) override {
    ++sent_;
    CheckRight(statement);
    const std::string_view first = text::Trim(statement).substr(0, 6);
    const bool reads = first == "select" || first == "Select";
    return BeSlow(statement, reads, [&] { return Office::Execute(database, statement); });
  }

  /// Now and then a statement is cancelled, also too late.
  template <typename Run>
  std::invoke_result_t<Run> BeSlow(std::string_view statement, bool reads, const Run& run) {
    if (!dice_.OneIn(60)) return run();
    ++cancelled_;
    trail_.push_back("  cancelled " + std::string(statement.substr(0, 50)));
    if (statement.starts_with(kReadVisits)) gridIsStale_ = true;
    if (reads) throw CancelledError(platform::Cancelled::kReading, {}, "walk");
    if (dice_.OneIn(2)) throw CancelledError(platform::Cancelled::kTakenBack, {}, "walk");
    run();
    gridIsStale_ = codeIsStale_ = true;
    throw CancelledError(platform::Cancelled::kPerhapsStored, {}, "walk");
  }

  void CheckRight(std::string_view statement) {
    const std::string_view first = text::Trim(statement).substr(0, 6);
    if (statement.starts_with(kReadVisits)) gridIsStale_ = false;
    if (statement.starts_with("select * from tblDistributionPromoterProgram Where")) {
      codeIsStale_ = false;
    }
    if (first == "select" || first == "Select") return;
    const Need& need = *std::find_if(kNeeds.begin(), kNeeds.end(), [&](const Need& each) {
      return statement.starts_with(each.beginning);
    });
    if (first == "delete" || first == "Delete") gridIsStale_ = true;
    ++writes_[std::string(need.beginning)];
    ASSERT_FALSE(granted_.empty()) << "written by nobody's action: " << statement;
    if (need.anyOf.front() != 0) {
      const std::vector<std::int32_t>& held = granted_.back();
      EXPECT_TRUE(std::find_first_of(held.begin(), held.end(), need.anyOf.begin(),
                                     need.anyOf.end()) != held.end())
          << "not asked for: " << statement;
    } else {
      EXPECT_TRUE(statement.find("tblDistributionPromoterProgramDetail") != std::string_view::npos);
      EXPECT_TRUE(IsView()) << statement;
      EXPECT_EQ(StoredCode(), "") << "a final program: " << statement;
    }
  }

  std::int32_t CallProcedure(platform::Connection& database, std::string_view name,
                             std::span<const platform::Parameter> parameters) override {
    const std::int32_t result = BeSlow(name, name == "spZomirHasPermission", [&] {
      return Office::CallProcedure(database, name, parameters);
    });
    if (name != "spZomirHasPermission" || granted_.empty()) return result;
    if (result == 0 || dice_.OneIn(6)) return 0;
    granted_.back().push_back(std::get<std::int32_t>(parameters[1].value));
    return result;
  }

  void CheckEditor(const controls::Control* working) {
    if (!Editor().Loaded()) return;
    ExpectInOrder(trail_.back(), working);
    if (IsView() && !Editor().txtID.Text().empty() && !codeIsStale_) {
      EXPECT_EQ(Editor().txtCode.Text(), StoredCode());
    }
  }

  /// The editor's grid beside what a plain statement finds.
  void CheckShownVisits() {
    if (!IsView() || !Editor().Visible()) return;
    if (gridIsStale_) return;
    std::vector<std::string> shown;
    for (int row = 1; row < Editor().flxDetail.Rows(); ++row) {
      std::string cells;
      for (const int col : {1, 4, 5, 6}) {
        cells.append(Editor().flxDetail.TextMatrix(row, col)).append("|");
      }
      shown.push_back(cells);
      EXPECT_EQ(Editor().flxDetail.TextMatrix(row, 0), std::to_string(row));
    }
    const std::vector<std::string> stored = Stored(
        "SELECT PromoterID || '|' || FarsiVisitDate || '|' || ifnull(Notes, '') || '|' || "
        "count(*) || '|' FROM tblDistributionPromoterProgramDetail WHERE ProgramID = " +
        ShownId() + " GROUP BY PromoterID, VisitDate, FarsiVisitDate, Notes");
    EXPECT_THAT(shown, testing::UnorderedElementsAreArray(stored));
  }

  bool IsView() { return editor::IsView(editor::StateOf(Editor())); }
  std::string ShownId() {
    return Editor().txtID.Text().empty() ? std::string("-1") : Editor().txtID.Text();
  }
  std::string StoredCode() {
    return Cell("SELECT ifnull(max(Code), '') FROM tblDistributionPromoterProgram WHERE ID = " +
                ShownId());
  }
  std::int32_t AnyProgram() {
    return std::stoi(
        Cell("SELECT ifnull((SELECT ID FROM tblDistributionPromoterProgram ORDER BY ID % " +
             std::to_string(1 + dice_.Upto(6)) + ", ID DESC LIMIT 1), 0)"));
  }

  /// What others do meanwhile: they post a document for a program, and clear out old ones.
  void TheRestOfTheOffice() {
    Stored(
        "INSERT INTO tblAccountDocument (ID, Code, DocumentDate, FarsiDocumentDate) SELECT "
        "max(ID) + 1, max(ID) + 1, 20251122, '1404/09/01' FROM tblAccountDocument; "
        "INSERT INTO tblAccountDocumentDetail (DocumentID, RowNumber, AccountID, FormTypeID, "
        "FormID) SELECT max(ID), 1, 1, 3308, " +
        ShownId() + " FROM tblAccountDocument");
    if (!IsView() || std::stoi(Cell("SELECT count(*) FROM tblDistributionPromoterProgramDetail")) <
                         kMostVisits) {
      return;
    }
    Stored(
        "DELETE FROM tblDistributionPromoterProgramDetail; DELETE FROM tblZomirFormAction; "
        "DELETE FROM tblAccountDocumentDetail WHERE FormTypeID = 3308; DELETE FROM "
        "tblAccountDocument WHERE ID NOT IN (SELECT DocumentID FROM tblAccountDocumentDetail); "
        "DELETE FROM tblDistributionPromoterProgram WHERE ID NOT IN (SELECT ProgramID FROM "
        "tblDistributionPromoterProgramVisitResult) AND ID <> " +
        ShownId());
    Act("show a program anew", [&] { Editor().View(AnyProgram()); });
  }

  std::map<std::string, long> writes_;
  long cancelled_ = 0;

 private:
  Dice dice_{static_cast<std::uint64_t>(Setting("PROMOTER_WALK_SEED", 1404))};
  AnyHand hand_{dice_, outside.desktop.today,
                [this](const std::string& what, const AnyHand::Action& act) { Act(what, act); }};
  std::vector<std::vector<std::int32_t>> granted_;  // by action, the innermost last
  std::deque<std::string> trail_;
  long step_ = 0;
  long sent_ = 0;
  bool leaving_ = false;
  bool gridIsStale_ = false;
  bool codeIsStale_ = false;  // perhaps stored, and not read anew
};

TEST_F(RandomWalk, AnyActions_InAnyOrder_KeepWhatMustAlwaysHold) {
  Walk(Setting("PROMOTER_WALK_STEPS", kSteps));
  for (const Need& need : kNeeds) {
    EXPECT_GT(writes_[std::string(need.beginning)], 0) << "never came to " << need.beginning;
  }
  EXPECT_GT(cancelled_, 0);
  EXPECT_EQ(Cell("PRAGMA integrity_check"), "ok");
  EXPECT_THAT(Stored("PRAGMA foreign_key_check"), testing::IsEmpty());
}

}  // namespace
}  // namespace reliability
