#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "module/Office.h"
#include "platform/RunningStatement.h"
#include "support/ErrorNumber.h"

namespace module {

/// What lies outside the module and can fail.
enum class Kind { kNone, kDatabase, kFiles, kWorkbook, kComponents, kReports, kDesktop };

/// The at-th call of a kind fails: before anything was done; after it was done, so that only its
/// answer is lost (the database alone); or with it all that follow while the action lasts. A
/// statement that fails with 18 was slow, and the user cancelled it.
struct Fault {
  enum class When { kBefore, kAfter, kFromThenOn };
  Kind kind = Kind::kNone;
  When when = When::kBefore;
  std::int32_t number = 51;
  int at = 0;
  static constexpr const char* kWords = "the fault of this run";

  bool IsCancelledAfter() const {
    return number == platform::kUserInterrupt && when == When::kAfter;
  }
};

inline bool IsProcedure(std::string_view sent) {
  return sent.starts_with("spZomir") || sent.starts_with("dbo.sp");
}
inline bool IsSelect(std::string_view sent) {
  return sent.starts_with("Select") || sent.starts_with("select");
}

/// A planner's day through every form. The user asserts nothing: what is disabled is left alone,
/// questions are answered with yes, errors are read and put away. After every action the editor is
/// held to what must be so whatever has failed.
class OfficeDay : public Office {
 public:
  /// One action of the user at the editor, with all that it did on the dialogs.
  struct Action {
    std::string name;
    std::vector<std::string> sent;  // statements; procedures with their numbers
    std::vector<std::string> told;  // messages, and errors that travelled out of an event
    std::int32_t error = 0;         // the number of the last of these errors
  };
  static constexpr const char* kNewProgram = "15";  // the sample office comes with 14

  /// The user holds every permission but the refused one.
  explicit OfficeDay(const Fault& fault = {}, std::int32_t refused = 0,
                     const std::string& shared = NewCopy())
      : Office(shared), fault_(fault), refused_(refused) {
    outside.fileSystem.beforeCall = Watch(Kind::kFiles);
    outside.excel.beforeCall = Watch(Kind::kWorkbook);
    outside.components.beforeCall = Watch(Kind::kComponents);
    outside.reports.beforeCall = Watch(Kind::kReports);
    outside.desktop.beforeCall = Watch(Kind::kDesktop);
    outside.components.otherwise = [] { return support::Answer::kYes; };
    outside.screen.otherwise = [this](controls::Form& form) { Use(form); };
    outside.desktop.chosen = "visits.txt";
    outside.fileSystem.files["/suite/" + Cell("SELECT FilePath FROM tblZomirReportTemplate WHERE "
                                              "FormTypeID = 3308 LIMIT 1")] = "";
    outside.desktop.onStart = [this] {
      outside.components.others["comVoucherView.comVoucherView1"] = [this] {
        return std::make_unique<support::FakeObject>(viewerTold, outside.components.beforeCall);
      };
    };
  }

  void Play() {
    editor::FormMain& editor = Editor();
    const auto press = [&](int row, int col, bool twice) {
      editor.flxDetail.MouseDown(row, col, 1, 0);
      editor.flxDetail.Click();
      if (twice) editor.flxDetail.DblClick();
    };
    Do("open", [&] { Control().ClearShow(); });
    Press(editor.cmdNew);
    Pick(editor.sltSupervisor);
    Pick(editor.sltBranch);
    Press(editor.cmdTempSave);
    ChangeHeader();
    Press(editor.cmdCancel);
    ChangeHeader();
    Press(editor.cmdTempSave);
    Press(editor.cmdAddBatch);
    Do("reopen", [&] { press(1, 2, true); });
    Press(editor.cmdSelectAll);
    Press(editor.cmdSelectInverse);
    Do("sort", [&] { press(0, 4, false); });
    Do("block", [&] {
      press(1, 2, false);
      editor.flxDetail.MouseDrag(2, 5);
    });
    Press(editor.cmdDeleteSelected);
    ChangeHeader();
    Press(editor.cmdFinalSave);
    Press(editor.cmdSearch);
    Press(editor.cmdPreview);
    Press(editor.cmdBackToTemp);
    Press(editor.cmdDelete);
    Do("view", [&] { Control().View(1); });  // final, with two accounting documents
    Press(editor.cmdViewAccountDoc);
    Do("other modules", [&] {
      std::int32_t ids[] = {1, 1, 1, 19, 2};
      editor.InsertDocumentObject(ids[0], ids[1], ids[2], ids[3], ids[4]);
      editor.GetAssetGroupAccountID(1);
    });
    Press(editor.cmdBackToTemp);
    Do("close box", [&] { editor.CloseBox(); });
  }

  std::vector<Action> actions;
  std::map<Kind, int> calls;
  std::vector<std::string> failed;
  /// What the database has done that may write, to be done in another office.
  std::vector<std::function<void(platform::Connection&)>> written;
  std::vector<std::string> viewerTold;
  std::size_t promoter = 0;  // which of the supervisor's visits

  void Do(const std::string& name, const std::function<void()>& act) {
    if (depth_ == 0) actions.push_back({name, {}, {}, 0});
    ++depth_;
    const std::string typed = Editor().txtDescription.Text();
    std::vector<std::string>& told = actions.back().told;
    try {
      act();
    } catch (const platform::RuntimeError& error) {
      told.push_back(error.Description());
      actions.back().error = error.Number();
    }
    if (Editor().Loaded()) Paint();
    --depth_;
    for (const support::Message& message : std::exchange(outside.components.messages, {})) {
      if (message.type == 0) told.push_back(testing::PrintToString(message));
    }
    if (Editor().Loaded()) Look(name);
    if (depth_ > 0) return;
    if (!failed.empty() && !mended_) {
      TypedIsKept(typed);
      mended_ = true;
      // Who has cancelled what was slow does it once more.
      if (fault_.number == platform::kUserInterrupt) {
        Do(name, act);
        EXPECT_THAT(actions.back().told, testing::Each(testing::Not(testing::HasSubstr("خطا"))));
        // A block over rows that have moved up ends in an error of the grid.
        const bool mayEnd = name == "cmdDeleteSelected" && actions.back().error == 381;
        EXPECT_TRUE(actions.back().error == 0 || mayEnd) << name << " " << actions.back().error;
      }
      TheNextActionWorks();
    }
  }

  void Press(controls::Button& button) {
    Do(button.Name(), [&] { button.Click(); });
  }

 private:
  void Use(controls::Form& form) {
    if (auto* plan = dynamic_cast<batch::FormAddBatch*>(&form)) Plan(*plan);
    if (auto* search = dynamic_cast<search::FormSearch*>(&form)) Search(*search);
    if (auto* text = dynamic_cast<tools::FormSendToTextFile*>(&form)) {
      Press(text->cmdSave);
      Press(text->cmdOk);
    }
    if (auto* print = dynamic_cast<tools::FormPrint*>(&form)) {
      Do("choose", [&] { print->cmbReport().SetListIndex(0); });
      Press(print->cmdPrint);
    }
    if (form.Visible()) Do("close box", [&] { form.CloseBox(); });
  }
  template <typename Act>
  auto Sent(const std::string& call, const Act& act) {
    actions.back().sent.push_back(call);
    const bool fails = Fails(Kind::kDatabase, call);
    if (fails && fault_.when != Fault::When::kAfter) ThrowFault(call);
    auto result = act();
    if (fails) ThrowFault(call);
    return result;
  }
  [[noreturn]] void ThrowFault(std::string_view call) {
    if (fault_.number != platform::kUserInterrupt) {
      throw platform::RuntimeError(fault_.number, Fault::kWords);
    }
    platform::RunningStatement running(&waiting);
    WhileItRuns();
    using platform::Cancelled;
    throw CancelledError(fault_.IsCancelledAfter() ? Cancelled::kPerhapsStored
                         : IsSelect(call)          ? Cancelled::kReading
                                                   : Cancelled::kTakenBack,
                         Fault::kWords, "SQLite");
  }
  platform::RowSet Execute(platform::Connection& database, std::string_view statement) override {
    const std::string text(statement);
    return Sent(text, [&] {
      platform::RowSet rows = Office::Execute(database, text);
      if (!IsSelect(text)) written.emplace_back([text](auto& office) { office.Execute(text); });
      return rows;
    });
  }
  std::int32_t CallProcedure(platform::Connection& database, std::string_view name,
                             std::span<const platform::Parameter> parameters) override {
    std::string call(name);
    for (const platform::Parameter& each : parameters) {
      const auto* number = std::get_if<std::int32_t>(&each.value);
      if (number != nullptr) call += " " + std::to_string(*number);
    }
    const std::int32_t result = Sent(call, [&] {
      const std::int32_t returned = Office::CallProcedure(database, name, parameters);
      written.emplace_back([procedure = std::string(name),
                            values = std::vector(parameters.begin(), parameters.end())](
                               auto& office) { office.CallProcedure(procedure, values); });
      return returned;
    });
    return call.ends_with(" " + std::to_string(refused_)) ? 0 : result;
  }

  bool Fails(Kind kind, std::string_view call) {
    const int count = ++calls[kind];
    if (kind != fault_.kind || count < fault_.at || mended_) return false;
    if (count > fault_.at && fault_.when != Fault::When::kFromThenOn) return false;
    failed.emplace_back(call);
    return true;
  }
  support::BeforeCall Watch(Kind kind) {
    return [this, kind](std::string_view call) {
      if (Fails(kind, call)) throw platform::RuntimeError(fault_.number, Fault::kWords);
    };
  }

  void TypedIsKept(const std::string& typed) {
    if (Editor().txtDescription.Enabled()) {
      EXPECT_EQ(Editor().txtDescription.Text(), typed) << "what was typed is lost";
    }
  }

  void TheNextActionWorks() {
    const std::string last = actions.back().name;
    const std::string find = "SELECT 1 FROM tblDistributionPromoterProgram WHERE ID = ";
    const std::string id = Stored(find + kNewProgram).empty() ? "1" : kNewProgram;
    Do("view after " + last, [&] { Control().View(std::stoi(id)); });
    EXPECT_THAT(actions.back().told, testing::IsEmpty());
    EXPECT_EQ(Editor().txtID.Text(), id) << last;
    EXPECT_TRUE(editor::IsView(editor::StateOf(Editor()))) << last;
  }

  /// The bar is up: a host does not know of it, and windows are painted.
  void WhileItRuns() {
    for (const std::int32_t id : {8, 0}) {
      EXPECT_EQ(support::NumberOf([&] { id > 0 ? Control().View(id) : Control().ClearShow(); }),
                platform::kNonModalWhileModal);
    }
    EXPECT_EQ(support::NumberOf([this] { Connect()->Execute("select 1"); }),
              platform::kStillExecuting);
  }

  /// A screen asks for the name of what a selector has selected when it paints it.
  void Paint() {
    for (controls::Control* control : support::AllControls(Editor())) {
      try {
        if (auto* selector = dynamic_cast<controls::Selector*>(control)) selector->DisplayText();
      } catch (const platform::RuntimeError& error) {
        actions.back().told.push_back(error.Description());
      }
    }
  }

  void Look(const std::string& name) {
    editor::FormMain& editor = Editor();
    batch::FormAddBatch& plan = editor.BatchForm();
    for (const controls::FlexGrid* grid :
         {&editor.SearchForm().flxSearch, &plan.flxRegion.getFlex(), &plan.flxPath.getFlex(),
          &plan.flxDate.getFlex(), &plan.flxCustomer.getFlex()}) {
      EXPECT_TRUE(grid->Redraw()) << name << " " << grid->Name();
    }
    if (depth_ > 0) return;
    EXPECT_FALSE(plan.Visible() || editor.SearchForm().Visible() || editor.PrintForm().Visible() ||
                 editor.SearchForm().TextFileForm().Visible())
        << name;
    ExpectInOrder(name);
  }

  void Type(controls::TextBox& box, const std::string& text) {
    if (box.Enabled()) Do("type into " + box.Name(), [&] { box.SetText(text); });
  }
  void Pick(controls::Selector& selector, std::size_t index = 0) {
    if (!selector.Enabled()) return;
    Do("pick in " + selector.Name(), [&] {
      selector.LoadList();
      selector.Choose(index);
    });
  }
  void ChangeHeader() {
    Press(Editor().cmdEdit);
    Pick(Editor().sltBranch);
    Type(Editor().txtDescription, " برنامه نو ");
  }

  void Plan(batch::FormAddBatch& form) {
    if (actions.back().name == "reopen") return;  // on a group: only looked at
    Pick(form.sltPromoter, promoter);
    Do("days", [&] {
      form.datDateFrom.SetText("1404/09/01");
      for (const char* last : {"1404/09/02", "1404/09/03"}) form.datDateTo.SetText(last);
    });
    for (tools::comFlex* grid : {&form.flxRegion, &form.flxPath, &form.flxDate}) {
      Press(grid->cmdSelectAll);
    }
    Press(form.cmdSearch);
    for (const int row : {1, 2}) {
      Do("pick", [&] { form.flxCustomer.getFlex().MouseDown(row, 2, 1, 0); });
    }
    Type(form.txtNotes, "it's new");
    Press(form.cmdAdd);
  }

  void Search(search::FormSearch& form) {
    Press(form.cmdSearch);  // without a filter
    Type(form.txtID, kNewProgram);
    Press(form.cmdSearch);
    Press(form.cmdExcel);
    Press(form.cmdSentToText);
    Do("choose", [&] {
      form.flxSearch.MouseDown(1, 3, 1, 0);
      form.flxSearch.DblClick();
    });
  }

  Fault fault_;
  std::int32_t refused_;
  int depth_ = 0;
  bool mended_ = false;
};

}  // namespace module
