#include "reliability/OfficeDay.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <sstream>

#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"

namespace reliability {

namespace {

namespace fs = std::filesystem;
using platform::RuntimeError;

constexpr int kNewProgram = 15;  // the sample office comes with 14

/// In memory where the machine has such a folder: the test is about rows, not about a disk.
fs::path ScratchFolder() {
  const fs::path memory = "/dev/shm";
  const fs::path base = fs::is_directory(memory) ? memory : fs::path(testing::TempDir());
  return base / ("office-day-" + std::to_string(getpid()));
}

/// The rows of one or more statements, each in turn on the same connection.
std::string Rows(const fs::path& file, const std::vector<std::string>& statements) {
  sqlite3* database = nullptr;
  std::string rows;
  const auto append = [](void* into, int columns, char** cells, char** /*names*/) {
    auto& text = *static_cast<std::string*>(into);
    for (int col = 0; col < columns; ++col) {
      text.append(cells[col] == nullptr ? "~" : cells[col]).append("|");
    }
    text += '\n';
    return 0;
  };
  EXPECT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
  for (const std::string& sql : statements) {
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), append, &rows, nullptr), SQLITE_OK)
        << sql << sqlite3_errmsg(database);
  }
  sqlite3_close(database);
  return rows;
}

/// The office from which every day starts. Accounting documents and an attachment wait for the
/// program that the day will make.
const fs::path& Template() {
  static const struct Made {
    Made() : file(ScratchFolder() / "template.db") {
      fs::remove_all(ScratchFolder());
      fs::create_directories(ScratchFolder());
      demo::CreateSampleOffice(
          file.string(),
          {.customers = 60,
           .today = std::chrono::year(2025) / std::chrono::November / std::chrono::day(22),
           .basePath = "/suite/"});
      const std::string id = std::to_string(kNewProgram);
      Rows(
          file,
          {"PRAGMA journal_mode = DELETE; INSERT INTO tblAccountDocument (ID, Code, DocumentDate, "
           "FarsiDocumentDate) VALUES (901, 901, 20251122, '1404/09/01'), (902, 902, 20251122, "
           "'1404/09/01'); INSERT INTO tblAccountDocumentDetail (DocumentID, RowNumber, AccountID, "
           "FormTypeID, FormID) VALUES (901, 1, 1, 3308, " +
           id + "), (902, 1, 1, 3308, " + id +
           "), (902, 2, 1, 77, 5); INSERT INTO tblZomirFormAttachment (FormTypeID, FormID, "
           "FileName, Content) VALUES (3308, " +
           id + ", 'a.pdf', x'00')"});
    }
    ~Made() { fs::remove_all(ScratchFolder()); }
    fs::path file;
  } made;
  return made.file;
}

std::string Dump(const fs::path& file) {
  static const std::vector<std::string> everything = [] {
    std::vector<std::string> selects;
    std::istringstream names(
        Rows(Template(), {"SELECT name FROM sqlite_master WHERE type = 'table'"}));
    for (std::string name; std::getline(names, name, '|') && names.get() == '\n';) {
      selects.push_back("SELECT '" + name + "', * FROM " + name);
    }
    return selects;
  }();
  return Rows(file, everything);
}

/// A viewer of the suite whose members can fail too.
struct Viewer : platform::AutomationObject {
  explicit Viewer(const support::BeforeCall& hook) : beforeCall(hook) {}
  void Put(std::string_view member, const platform::AutomationValue&) override {
    support::Tell(beforeCall, member);
  }
  platform::AutomationValue Get(std::string_view) override { return {}; }
  platform::AutomationValue Call(std::string_view member,
                                 std::span<const platform::AutomationValue>) override {
    support::Tell(beforeCall, member);
    return {};
  }
  const support::BeforeCall& beforeCall;
};

}  // namespace

/// A connection to the day's office that fails as told.
class OfficeDay::Line : public platform::Connection {
 public:
  explicit Line(OfficeDay& day)
      : day_(day), embedded_("sqlite:" + (day.folder_ / "office.db").string()) {}
  platform::RowSet Execute(std::string_view statement) override {
    const std::string text(statement);
    return Run(text, {.text = text}, [&] { return embedded_.Execute(text); });
  }
  std::int32_t CallProcedure(std::string_view name,
                             std::span<const platform::Parameter> parameters) override {
    std::string call(name);
    for (const platform::Parameter& each : parameters) {
      const auto* number = std::get_if<std::int32_t>(&each.value);
      if (number != nullptr) call += " " + std::to_string(*number);
    }
    const Done done{std::string(name), true, {parameters.begin(), parameters.end()}};
    const std::int32_t result =
        Run(call, done, [&] { return embedded_.CallProcedure(name, parameters); });
    const bool asks = name == "spZomirHasPermission";
    return asks && day_.refused_.contains(std::get<std::int32_t>(parameters[1].value)) ? 0 : result;
  }

 private:
  template <typename Act>
  auto Run(const std::string& call, const Done& done, Act&& act) -> decltype(act()) {
    day_.actions.back().sent.push_back(call);
    const bool fails = day_.Fails(Kind::kDatabase, call);
    if (fails && day_.fault_.when != Fault::When::kAfter) {
      throw RuntimeError(day_.fault_.number, Fault::kWords);
    }
    auto result = act();
    day_.done_.push_back(done);
    if (fails) throw RuntimeError(day_.fault_.number, Fault::kWords);
    return result;
  }
  OfficeDay& day_;
  adapters::sqlite::SqliteConnection embedded_;
};

std::unique_ptr<platform::Connection> OfficeDay::Lines::Create(const std::string&) {
  return std::make_unique<Line>(day);
}

OfficeDay::OfficeDay(const Fault& fault, std::set<std::int32_t> refused)
    : fault_(fault), refused_(std::move(refused)), folder_(ScratchFolder() / "day") {
  const fs::path& office = Template();
  fs::remove_all(folder_);
  fs::create_directories(folder_);
  fs::copy_file(office, folder_ / "office.db");
  Watch();
  module_ = std::make_unique<module::Module>(host::Services{.screen = outside.screen,
                                                            .connections = lines_,
                                                            .components = outside.components,
                                                            .clock = outside.clock,
                                                            .keyboard = outside.keyboard,
                                                            .fileDialog = outside.fileDialog,
                                                            .excel = outside.excel,
                                                            .progress = outside.progress,
                                                            .fileSystem = outside.fileSystem,
                                                            .launcher = outside.launcher,
                                                            .reports = outside.reports},
                                             outside.controlSite);
  module_->Control().SetUserID(1);
  module_->Control().SetEmployeeID(1);
  module_->Control().SetPositionID(1);
  module_->Control().SetOLEConnectionString(
      std::string("Provider=SQLOLEDB;Data Source=office;User ID=planner;Password=") + kPassword);
}

OfficeDay::~OfficeDay() {
  module_.reset();
  fs::remove_all(folder_);
}

bool OfficeDay::Fails(Kind kind, std::string_view call) {
  const int count = ++calls[kind];
  if (kind != fault_.kind || count < fault_.at || mended_) return false;
  if (count > fault_.at && fault_.when != Fault::When::kFromThenOn) return false;
  failed.emplace_back(call);
  return true;
}

void OfficeDay::Watch() {
  const auto watch = [this](Kind kind) {
    return [this, kind](std::string_view call) {
      if (Fails(kind, call)) throw RuntimeError(fault_.number, Fault::kWords);
    };
  };
  outside.fileSystem.beforeCall = watch(Kind::kFiles);
  outside.excel.beforeCall = watch(Kind::kWorkbook);
  outside.components.beforeCall = watch(Kind::kComponents);
  outside.reports.beforeCall = watch(Kind::kReports);
  outside.launcher.beforeCall = watch(Kind::kLauncher);
  outside.fileDialog.beforeCall = watch(Kind::kFileDialog);
  outside.keyboard.beforeCall = watch(Kind::kKeyboard);
  outside.clock.today = std::chrono::year(2025) / std::chrono::November / std::chrono::day(22);
  outside.components.otherwise = [] { return support::Answer::kYes; };
  outside.screen.otherwise = [this](controls::Form& form) { Use(form); };
  outside.fileDialog.chosen = "visits.txt";
  static const std::string report = Rows(
      Template(), {"SELECT FilePath FROM tblZomirReportTemplate WHERE FormTypeID = 3308 LIMIT 1"});
  outside.fileSystem.files["/suite/" + report.substr(0, report.find('|'))] = "";
  outside.launcher.onStart = [this] {
    outside.components.others["comVoucherView.comVoucherView1"] = [this] {
      return std::make_unique<Viewer>(outside.components.beforeCall);
    };
  };
}

void OfficeDay::Do(const std::string& name, const std::function<void()>& act) {
  if (depth_ == 0) actions.push_back({name, {}, {}});
  ++depth_;
  std::vector<std::string>& told = actions.back().told;
  try {
    act();
  } catch (const RuntimeError& error) {
    told.push_back(error.Description());
  }
  if (Editor().Loaded()) Paint(Editor());
  --depth_;
  for (const support::Message& message : std::exchange(outside.components.messages, {})) {
    if (message.type == 0) told.push_back(message.text);
  }
  if (Editor().Loaded()) Look(name);
  if (depth_ == 0 && !failed.empty() && !mended_) TheNextActionWorks();
}

void OfficeDay::TheNextActionWorks() {
  mended_ = true;
  const bool stored =
      Rows(folder_ / "office.db", {"SELECT 1 FROM tblDistributionPromoterProgram WHERE ID = " +
                                   std::to_string(kNewProgram)}) != "";
  const int id = stored ? kNewProgram : 1;
  const std::string after = " after " + actions.back().name;
  Do("view" + after, [&] { module_->Control().View(id); });
  EXPECT_EQ(actions.back().told, std::vector<std::string>());
  EXPECT_EQ(Editor().txtID.Text(), std::to_string(id)) << after;
  EXPECT_EQ(Editor().CurrentMode(), editor::Mode::kView) << after;
}

/// A screen asks for the name of what a selector has selected when it paints it.
void OfficeDay::Paint(controls::Container& on) {
  for (controls::Control* control : on.Controls()) {
    if (auto* frame = dynamic_cast<controls::Frame*>(control)) Paint(*frame);
    auto* selector = dynamic_cast<controls::Selector*>(control);
    if (selector == nullptr) continue;
    try {
      selector->DisplayText();
    } catch (const RuntimeError& error) {
      actions.back().told.push_back(error.Description());
    }
  }
}

void OfficeDay::Look(const std::string& name) {
  editor::FormMain& editor = Editor();
  EXPECT_EQ(outside.screen.pointer, controls::MousePointer::kDefault) << name;
  batch::FormAddBatch& plan = editor.BatchForm();
  for (const controls::FlexGrid* grid :
       {&editor.flxDetail, &editor.SearchForm().flxSearch, &plan.flxRegion.Flex, &plan.flxPath.Flex,
        &plan.flxDate.Flex, &plan.flxCustomer.Flex}) {
    EXPECT_TRUE(grid->Redraw()) << name << " " << grid->Name();
  }
  if (depth_ > 0) return;
  for (const controls::Form* form : std::initializer_list<const controls::Form*>{
           &plan, &editor.SearchForm(), &editor.PrintForm()}) {
    EXPECT_FALSE(form->Visible()) << name << " " << form->Name();
  }
  std::vector<controls::Control*> all = editor.Controls();
  all.insert(all.end(), editor.frameHeader.Controls().begin(), editor.frameHeader.Controls().end());
  for (const controls::Control* control : all) {
    const editor::EnabledIn* row = editor::FindEnabledIn(control->Name());
    if (row == nullptr) continue;
    EXPECT_EQ(control->Enabled(), row->Holds(editor.CurrentMode(), editor.txtCode.Text().empty()))
        << control->Name() << " after " << name;
  }
}

void OfficeDay::Type(controls::TextBox& box, const std::string& text) {
  if (box.Enabled()) Do("type into " + box.Name(), [&] { box.SetText(text); });
}

/// The row of that id, else the first.
void OfficeDay::Pick(controls::Selector& selector, std::int32_t id) {
  if (!selector.Enabled()) return;
  Do("pick in " + selector.Name(), [&] {
    selector.LoadList();
    const auto row = std::ranges::find(selector.List(), id, &controls::Selector::Row::id);
    const auto at = static_cast<std::size_t>(row - selector.List().begin());
    selector.Choose(row == selector.List().end() ? 0 : at);
    selector.DisplayText();
  });
}

void OfficeDay::Use(controls::Form& form) {
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

void OfficeDay::Plan(batch::FormAddBatch& form) {
  if (!form.txtNotes.Text().empty()) return;  // reopened on a group: only looked at
  Pick(form.sltPromoter);
  Do("days", [&] { form.datDateFrom.SetText("1404/09/01"); });
  Do("days", [&] { form.datDateTo.SetText("1404/09/03"); });
  Press(form.flxRegion.cmdSelectAll);
  Press(form.flxPath.cmdSelectAll);
  Press(form.cmdNewsearch);
  Press(form.cmdSearch);
  Do("pick", [&] { form.flxCustomer.Flex.MouseDown(1, 2, 1, 0); });
  Do("pick", [&] { form.flxCustomer.Flex.MouseDown(2, 2, 1, 0); });
  Press(form.flxCustomer.cmdExcel);
  Press(form.flxDate.cmdSelectAll);
  Type(form.txtNotes, "it's new");
  Press(form.cmdAdd);
}

void OfficeDay::Search(search::FormSearch& form) {
  Type(form.txtID, std::to_string(kNewProgram));
  Pick(form.sltBranch, 1);
  Press(form.cmdSearch);
  Press(form.cmdExcel);
  Press(form.cmdSentToText);
  Press(form.cmdNewsearch);
  Press(form.cmdSearch);
  Press(form.cmdNewsearch);
  Type(form.txtID, std::to_string(kNewProgram));
  Press(form.cmdSearch);
  Do("choose", [&] {
    form.flxSearch.MouseDown(1, 3, 1, 0);
    form.flxSearch.DblClick();
  });
}

void OfficeDay::Change() {
  Press(Editor().cmdEdit);
  Pick(Editor().sltBranch, 2);
  Type(Editor().txtDescription, " برنامه نو ");
}

void OfficeDay::Play() {
  editor::FormMain& editor = Editor();
  Do("open", [&] { module_->Control().ClearShow(); });
  Press(editor.cmdNew);
  Pick(editor.sltSupervisor, 1);
  Pick(editor.sltBranch, 1);
  Type(editor.txtDescription, "برنامه تازه");
  Press(editor.cmdTempSave);
  Change();
  Press(editor.cmdCancel);
  Change();
  Press(editor.cmdTempSave);
  Press(editor.cmdAddBatch);
  Do("reopen", [&] {
    editor.flxDetail.MouseDown(1, 2, 1, 0);
    editor.flxDetail.DblClick();
  });
  Press(editor.cmdSelectAll);
  Press(editor.cmdSelectInverse);
  Do("sort", [&] {
    editor.flxDetail.MouseDown(0, 4, 1, 0);
    editor.flxDetail.Click();
  });
  Do("block", [&] {
    editor.flxDetail.MouseDown(1, 2, 1, 0);
    editor.flxDetail.MouseDrag(2, 5);
  });
  Press(editor.cmdDeleteSelected);
  Change();
  Press(editor.cmdFinalSave);
  Press(editor.cmdSearch);
  Press(editor.cmdPreview);
  Do("other modules", [&] {
    std::int32_t document = 901, row = 1, account = 1, classId = 19, object = 2;
    editor.InsertDocumentObject(document, row, account, classId, object);
    editor.GetAssetGroupAccountID(1);
  });
  Press(editor.cmdViewAccountDoc);
  Press(editor.cmdBackToTemp);
  Press(editor.cmdDelete);
  Do("view", [&] { module_->Control().View(8); });
  Do("close box", [&] { editor.CloseBox(); });
}

std::string OfficeDay::Stored() const {
  return Dump(folder_ / "office.db");
}

std::string OfficeDay::Replayed() const {
  const fs::path file = folder_ / "replay.db";
  fs::copy_file(Template(), file);
  {
    adapters::sqlite::SqliteConnection office("sqlite:" + file.string());
    for (const Done& each : done_) {
      if (each.procedure) {
        office.CallProcedure(each.text, each.parameters);
      } else if (!each.text.starts_with("Select") && !each.text.starts_with("select")) {
        office.Execute(each.text);
      }
    }
  }
  return Dump(file);
}

}  // namespace reliability
