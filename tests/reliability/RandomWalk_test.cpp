// A user who presses anything: random actions on whatever form is up, nested forms included, with
// what must always hold looked at after each of them.
//
//   PROMOTER_WALK_STEPS=5000000 PROMOTER_WALK_SEED=7 reliability_test --gtest_filter='RandomWalk.*'

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <deque>
#include <fstream>
#include <iostream>
#include <map>
#include <random>

#include "controls/GridPicture.h"
#include "module/ModuleHarness.h"
#include "text/Text.h"

#if defined(__SANITIZE_ADDRESS__)
#define PROMOTER_SANITIZED 1
#endif

namespace module {
namespace {

#ifdef PROMOTER_SANITIZED
constexpr long kSteps = 10'000;
#else
constexpr long kSteps = 100'000;
#endif
constexpr int kCustomers = 25;
/// A form that is not left by then is left through its close box.
constexpr int kMostActionsOnADialog = 60;
/// Above this many visits the office starts anew, so that a step costs the same late in the walk.
constexpr int kMostVisits = 2000;

long Setting(const char* name, long otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : std::strtol(text, nullptr, 10);
}

/// The same numbers on every machine, which the standard's distributions do not promise.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : random_(seed) {}
  int Upto(int most) {
    return static_cast<int>(random_() % (static_cast<std::uint64_t>(most) + 1));
  }
  bool OneIn(int n) { return Upto(n - 1) == 0; }
  template <typename T, std::size_t N>
  const T& Of(const std::array<T, N>& all) {
    return all[random_() % N];
  }

 private:
  std::mt19937_64 random_;
};

// clang-format off
constexpr std::array<std::string_view, 22> kTexts{
    "", "", " ", "1", "2", "3", "برنامه تازه", "ي", "it's new", "''", "'", "x', Notes='y", "%", "[",
    "_[^a]", "a\tb", "two\r\nlines", "99999999999999999999", "-1", "1e400", "&HFFFF", "1404/09/01"};
constexpr std::array<std::string_view, 14> kDates{
    "", "1404/09/01", "1404/09/02", "1404/09/05", "1404/9/3", "۱۴۰۴/۰۹/۰۴", "14040910", "04-09-07",
    "1404/12/30", "1403/12/30", "1404/13/01", "yesterday", "1404/08/30", "1404/10/01"};
// clang-format on
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

class RandomWalk : public ModuleTest {
 protected:
  RandomWalk() : ModuleTest(kCustomers) {
    outside.clock.today = std::chrono::year(2025) / std::chrono::November / 22;
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

  /// Nothing is pressed on a dialog but its close box.
  bool onlyOpenAndClose = false;

  void TopStep() {
    outside.fileDialog.chosen = std::string(dice_.Of(kFiles));
    if (outside.fileDialog.chosen->empty()) outside.fileDialog.chosen.reset();
    if (!Editor().Visible()) {
      outside.screen.hostIsModal = dice_.OneIn(10);
      Act("open", [&] {
        if (dice_.OneIn(4)) {
          Module().Control().ClearShow();
        } else {
          Module().Control().View(dice_.OneIn(20) ? dice_.Upto(3) * 99'999'999 - 1 : AnyProgram());
        }
      });
    } else if (dice_.OneIn(40)) {
      TheRestOfTheOffice();
    } else {
      PressAny(Editor(), nullptr);
    }
    CheckEditor(false);
    if (step_ % 16 == 0 || !sentStatements.empty()) CheckShownVisits();
    Forget();
  }

  void OnDialog(controls::Form& form) {
    std::deque<gridtrial::Mirror> mirrors;
    for (controls::Control* control : AllControls(form)) {
      if (auto* grid = dynamic_cast<controls::FlexGrid*>(control)) mirrors.emplace_back(*grid);
    }
    if (onlyOpenAndClose) {
      if (auto* search = dynamic_cast<search::FormSearch*>(&form)) search->cmdSentToText.Click();
    }
    for (int action = 0; form.Visible() && action < kMostActionsOnADialog; ++action) {
      if (HasFailure() || onlyOpenAndClose) break;
      PressAny(form, &mirrors);
      CheckEditor(true);
    }
    if (!form.Visible()) return;
    leaving_ = true;
    Act("close " + form.Name(), [&] { form.CloseBox(); });
    leaving_ = false;
    EXPECT_FALSE(form.Visible()) << form.Name() << " cannot be left";
  }

  static std::vector<controls::Control*> AllControls(const controls::Container& container) {
    std::vector<controls::Control*> all;
    for (controls::Control* control : container.Controls()) {
      all.push_back(control);
      if (const auto* frame = dynamic_cast<const controls::Frame*>(control)) {
        for (controls::Control* inner : AllControls(*frame)) all.push_back(inner);
      }
    }
    return all;
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
      ++errors_[error.Number()];
      failed = true;
    }
    // As required, a delete that fails in the middle keeps what it deleted and reads nothing anew;
    // the user was told.
    EXPECT_TRUE(wasStale || !gridIsStale_ || failed || !outside.components.messages.empty());
    granted_.pop_back();
    EXPECT_EQ(outside.screen.pointer, controls::MousePointer::kDefault) << what;
  }

  void PressAny(controls::Form& form, std::deque<gridtrial::Mirror>* mirrors) {
    if (auto* batch = dynamic_cast<batch::FormAddBatch*>(&form); batch && dice_.OneIn(15)) {
      PressWithAPurpose(*batch);
    }
    std::vector<controls::Control*> all = AllControls(form);
    const bool offToo = dice_.OneIn(10);
    std::erase_if(all, [&](const controls::Control* control) {
      return !control->Visible() || (!control->Enabled() && !offToo) ||
             dynamic_cast<const controls::Label*>(control) != nullptr ||
             dynamic_cast<const controls::Frame*>(control) != nullptr;
    });
    controls::Control& control =
        *all[static_cast<std::size_t>(dice_.Upto(static_cast<int>(all.size()) - 1))];
    if (dice_.OneIn(150)) {
      Act("close " + form.Name(), [&] { form.CloseBox(); });
    } else if (dice_.OneIn(150)) {
      Act("resize " + form.Name(), [&] {
        form.Resize(form.MinWidth() + dice_.Upto(9000), form.MinHeight() + dice_.Upto(9000));
      });
    } else {
      const std::size_t sent = sentStatements.size();
      const bool enabled = control.Enabled();
      Presser presser(*this);
      control.Accept(presser);
      if (!enabled) {
        EXPECT_EQ(sentStatements.size(), sent) << control.Name() << " is off";
      }
    }
    // The editor's grid, and those of the dialog on top.
    EXPECT_TRUE(detail_.IsUpToDate());
    if (mirrors == nullptr || !form.Visible()) return;
    for (gridtrial::Mirror& mirror : *mirrors) {
      if (mirror.TakeChanged() && (mirror.Shown().rows.size() < 100 || dice_.OneIn(20))) {
        EXPECT_TRUE(mirror.IsUpToDate()) << form.Name();
      }
    }
  }

  /// By chance alone hardly any batch would be committed.
  void PressWithAPurpose(batch::FormAddBatch& form) {
    Presser presser(*this);
    for (controls::TextBox* box : {&form.txtCodeFrom, &form.txtCodeTo, &form.txtName}) {
      box->SetText("");
    }
    for (controls::Selector* box : {&form.sltCustomer, &form.sltBranch, &form.sltWorkActivity}) {
      box->Clear();
    }
    for (controls::Control* control : std::initializer_list<controls::Control*>{
             &form.sltPromoter, &form.flxRegion.cmdSelectAll, &form.flxPath.cmdSelectAll,
             &form.cmdSearch, &form.flxCustomer.cmdSelectAll, &form.flxDate.Flex,
             &form.flxDate.Flex, &form.flxCustomer.Flex, &form.cmdAdd}) {
      if (form.Visible()) control->Accept(presser);
    }
  }

  /// What a user can do with each kind of control.
  class Presser : public controls::ControlVisitor {
   public:
    explicit Presser(RandomWalk& walk) : walk_(walk), dice_(walk.dice_) {}
    void Visit(controls::Label&) override {}
    void Visit(controls::Frame&) override {}
    void Visit(controls::TextBox& box) override {
      const std::string text(dice_.Of(kTexts));
      if (box.Enabled()) Act(box, text, [&] { box.SetText(text); });
    }
    void Visit(controls::Button& button) override {
      Act(button, "", [&] { button.Click(); });
    }
    void Visit(controls::CheckBox& box) override {
      Act(box, "", [&] { box.Click(); });
    }
    void Visit(controls::ComboBox& box) override {
      if (box.Enabled()) Act(box, "", [&] { box.SetListIndex(dice_.Upto(box.ListCount()) - 1); });
    }
    void Visit(controls::DateBox& box) override {
      const std::string text(dice_.Of(kDates));
      Act(box, text, [&] {
        if (dice_.OneIn(3)) {
          box.PressKey(static_cast<controls::DateBox::Key>(dice_.Upto(3)),
                       walk_.outside.clock.today);
        } else {
          box.EnterTyped(text);
        }
      });
    }
    void Visit(controls::Selector& selector) override {
      if (!selector.Enabled()) return;
      Act(selector, "", [&] {
        if (dice_.OneIn(3)) return selector.ChooseNone();
        selector.LoadList();
        const auto narrowed = selector.Narrow(dice_.OneIn(4) ? dice_.Of(kTexts) : "");
        if (narrowed.empty()) return;
        selector.Choose(narrowed[static_cast<std::size_t>(
            dice_.Upto(std::min(static_cast<int>(narrowed.size()), 8) - 1))]);
        EXPECT_FALSE(selector.DisplayText().empty());
      });
    }
    void Visit(controls::FlexGrid& grid) override {
      const int row = dice_.OneIn(5) ? 0 : dice_.Upto(std::min(grid.Rows(), 40));
      const int col = dice_.Upto(grid.Cols());
      const int kind = dice_.Upto(9);
      Act(grid, std::to_string(kind) + " " + std::to_string(row) + "," + std::to_string(col), [&] {
        if (kind == 9) {
          grid.PressKey(static_cast<controls::FlexGrid::Key>(dice_.Upto(9)), dice_.OneIn(2), 10);
          return;
        }
        grid.MouseDown(row, col, dice_.OneIn(8) ? 2 : 1, dice_.OneIn(4) ? 1 : 0);
        if (kind == 8) return grid.MouseDrag(dice_.Upto(grid.Rows()), dice_.Upto(grid.Cols()));
        grid.Click();
        if (kind == 7) grid.DblClick();
        if (kind == 6 && col < grid.Cols()) grid.DragColWidth(col, dice_.Upto(3000));
      });
    }

   private:
    void Act(const controls::Control& control, const std::string& how,
             const std::function<void()>& act) {
      walk_.Act(control.ParentForm().Name() + "." + control.Name() + " " + how, act);
    }
    RandomWalk& walk_;
    Dice& dice_;
  };

  // What always holds.

  void Sending(std::string_view statement) override {
    const std::string_view first = text::Trim(statement).substr(0, 6);
    if (statement.starts_with("select PromoterID , (Select")) gridIsStale_ = false;
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
      EXPECT_EQ(Editor().CurrentMode(), editor::Mode::kView) << statement;
      EXPECT_EQ(StoredCode(), "") << "a final program: " << statement;
    }
  }

  std::int32_t Called(std::span<const platform::Parameter> parameters,
                      std::int32_t result) override {
    if (parameters.size() != 2 || granted_.empty()) return result;
    const auto permission = std::get<std::int32_t>(parameters[1].value);
    if (result == 0 || dice_.OneIn(6)) return 0;
    granted_.back().push_back(permission);
    return result;
  }

  void CheckEditor(bool dialogIsUp) {
    editor::FormMain& form = Editor();
    if (!form.Loaded()) return;
    const bool temporary = form.txtCode.Text().empty();
    for (controls::Control* control : AllControls(form)) {
      const editor::EnabledIn* row = editor::FindEnabledIn(control->Name());
      if (row == nullptr || (dialogIsUp && control == &form.cmdPreview)) continue;
      EXPECT_EQ(control->Enabled(), row->Holds(form.CurrentMode(), temporary)) << control->Name();
    }
    EXPECT_EQ(form.Caption(),
              "برنامه بازارياب " + std::string(editor::CaptionSuffix(form.CurrentMode())));
    if (form.CurrentMode() == editor::Mode::kView && !form.txtID.Text().empty()) {
      EXPECT_EQ(form.txtCode.Text(), StoredCode());
    }
    EXPECT_TRUE(form.flxDetail.Redraw());
  }

  /// The editor's grid beside what a plain statement finds.
  void CheckShownVisits() {
    if (Editor().CurrentMode() != editor::Mode::kView || !Editor().Visible()) return;
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
    std::vector<std::string> stored = Stored(
        "SELECT PromoterID || '|' || FarsiVisitDate || '|' || ifnull(Notes, '') || '|' || "
        "count(*) || '|' FROM tblDistributionPromoterProgramDetail WHERE ProgramID = " +
        ShownId() + " GROUP BY PromoterID, VisitDate, FarsiVisitDate, Notes");
    std::sort(shown.begin(), shown.end());
    std::sort(stored.begin(), stored.end());
    EXPECT_EQ(shown, stored);
  }

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
    if (Editor().CurrentMode() != editor::Mode::kView ||
        std::stoi(Cell("SELECT count(*) FROM tblDistributionPromoterProgramDetail")) <
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

  /// What the fakes have noted; nothing of it may count as the module's memory.
  void Forget() {
    sentStatements.clear();
    outside.events.clear();
    outside.screen.log.clear();
    outside.components.messages.clear();
    outside.components.told.clear();
    outside.components.created.clear();
    outside.fileDialog.shown.clear();
    outside.excel.written.clear();
    outside.progress.begun.clear();
    outside.progress.advanced.clear();
    outside.keyboard.loaded.clear();
    outside.launcher.started.clear();
    outside.reports.log.clear();
    outside.controlSite.log.clear();
  }

  std::map<std::string, long> writes_;
  std::map<std::int32_t, long> errors_;

 private:
  Dice dice_{static_cast<std::uint64_t>(Setting("PROMOTER_WALK_SEED", 1404))};
  gridtrial::Mirror detail_{Editor().flxDetail};
  std::vector<std::vector<std::int32_t>> granted_;  // by action, the innermost last
  std::deque<std::string> trail_;
  long step_ = 0;
  bool leaving_ = false;
  bool gridIsStale_ = false;
};

TEST_F(RandomWalk, AnyActions_InAnyOrder_KeepWhatMustAlwaysHold) {
  Walk(Setting("PROMOTER_WALK_STEPS", kSteps));
  for (const Need& need : kNeeds) {
    EXPECT_GT(writes_[std::string(need.beginning)], 0) << "never came to " << need.beginning;
  }
  for (const auto& [number, count] : errors_) {
    std::cout << "error " << number << ": " << count << "\n";
  }
  for (const auto& [statement, count] : writes_) {
    std::cout << count << " x " << statement << "\n";
  }
  EXPECT_EQ(Cell("PRAGMA integrity_check"), "ok");
  EXPECT_THAT(Stored("PRAGMA foreign_key_check"), testing::IsEmpty());
}

#if defined(__linux__) && !defined(PROMOTER_SANITIZED)
long ResidentKiB() {
  long size = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> size >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

/// The allocator and the database's page cache have their full size after the first thousand. From
/// then on 10,000 rounds may add 512 KiB, so that 53 bytes lost in each of them are found.
TEST_F(RandomWalk, TheForms_OpenedAndClosedTenThousandTimes_KeepTheResidentSize) {
  onlyOpenAndClose = true;
  const std::int32_t program =
      std::stoi(Cell("SELECT max(ID) FROM tblDistributionPromoterProgram WHERE Code IS NULL"));
  const auto open_and_close = [&](int times) {
    for (int time = 0; time < times; ++time) {
      Module().Control().View(program);
      for (controls::Button* button :
           {&Editor().cmdSearch, &Editor().cmdAddBatch, &Editor().cmdPreview}) {
        button->Click();
      }
      Editor().CloseBox();
      Forget();
    }
  };
  open_and_close(1000);
  const long before = ResidentKiB();
  open_and_close(10'000);
  EXPECT_LE(ResidentKiB() - before, 512);
  std::cout << before << " KiB, then " << ResidentKiB() << " KiB\n";
}
#endif

}  // namespace
}  // namespace module
