#include "reliability/OfficeDay.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <sstream>

#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"

namespace reliability {

namespace {

namespace fs = std::filesystem;
using platform::RuntimeError;

constexpr std::chrono::sys_days kToday =
    std::chrono::year(2025) / std::chrono::November / std::chrono::day(22);
constexpr const char* kNewProgram = "15";  // the sample office comes with 14

/// In memory where the machine has such a folder: the tests are about rows, not about a disk.
fs::path Scratch() {
  const fs::path memory = "/dev/shm";
  const fs::path base = fs::is_directory(memory) ? memory : fs::path(testing::TempDir());
  return base / ("office-day-" + std::to_string(getpid()));
}

/// The office from which every day starts.
const fs::path& Template() {
  static const struct Made {
    Made() {
      fs::remove_all(Scratch());
      fs::create_directories(Scratch());
      demo::CreateSampleOffice(file, {.customers = 60, .today = kToday, .basePath = "/suite/"});
    }
    ~Made() { fs::remove_all(Scratch()); }
    fs::path file = Scratch() / "template.db";
  } made;
  return made.file;
}

/// The rows of statements, done in turn.
std::string Rows(const fs::path& file, const std::vector<std::string>& statements) {
  sqlite3* database = nullptr;
  std::string rows;
  const auto append = [](void* into, int columns, char** cells, char** /*names*/) {
    auto& text = *static_cast<std::string*>(into);
    for (int col = 0; col < columns; ++col) text.append(cells[col] ? cells[col] : "~").append("|");
    text += '\n';
    return 0;
  };
  EXPECT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
  for (const std::string& sql : statements) {
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), append, &rows, nullptr), SQLITE_OK) << sql;
  }
  sqlite3_close(database);
  return rows;
}

std::string Dump(const fs::path& file) {
  static const std::vector<std::string> everything = [] {
    std::vector<std::string> selects;
    std::istringstream names(
        Rows(Template(), {"SELECT name FROM sqlite_master WHERE type = 'table'"}));
    for (std::string name; std::getline(names, name, '|') && names.get() == '\n';) {
      selects.push_back("SELECT * FROM " + name);
    }
    return selects;
  }();
  return Rows(file, everything);
}

/// The suite's document viewer, whose members can fail too.
struct Viewer : platform::AutomationObject {
  explicit Viewer(support::BeforeCall hook) : beforeCall(std::move(hook)) {}
  void Put(std::string_view member, const platform::AutomationValue&) override {
    beforeCall(member);
  }
  platform::AutomationValue Get(std::string_view) override { return {}; }
  platform::AutomationValue Call(std::string_view member,
                                 std::span<const platform::AutomationValue>) override {
    beforeCall(member);
    return {};
  }
  support::BeforeCall beforeCall;
};

}  // namespace

/// A connection to the day's office that fails as told.
class OfficeDay::Line : public platform::Connection {
  template <typename Act>
  auto Run(const std::string& call, bool writes, const Act& act) {
    day_.actions.back().sent.push_back(call);
    const bool fails = day_.Fails(Kind::kDatabase, call);
    const RuntimeError error(day_.fault_.number, Fault::kWords);
    if (fails && day_.fault_.when != Fault::When::kAfter) throw RuntimeError(error);
    auto result = act(embedded_);
    if (writes) day_.done_.emplace_back(act);
    if (fails) throw RuntimeError(error);
    return result;
  }

 public:
  explicit Line(OfficeDay& day)
      : day_(day), embedded_("sqlite:" + (day.folder_ / "office.db").string()) {}
  platform::RowSet Execute(std::string_view statement) override {
    const std::string text(statement);
    const bool reads = text.starts_with("Select") || text.starts_with("select");
    return Run(text, !reads, [text](Connection& on) { return on.Execute(text); });
  }
  std::int32_t CallProcedure(std::string_view name,
                             std::span<const platform::Parameter> parameters) override {
    std::string call(name);
    for (const platform::Parameter& each : parameters) {
      const auto* number = std::get_if<std::int32_t>(&each.value);
      if (number != nullptr) call += " " + std::to_string(*number);
    }
    const std::vector<platform::Parameter> values(parameters.begin(), parameters.end());
    const bool asks = name == "spZomirHasPermission";
    const std::int32_t result =
        Run(call, !asks, [procedure = std::string(name), values](Connection& on) {
          return on.CallProcedure(procedure, values);
        });
    return asks && std::get<std::int32_t>(values[1].value) == day_.refused_ ? 0 : result;
  }

 private:
  OfficeDay& day_;
  adapters::sqlite::SqliteConnection embedded_;
};

std::unique_ptr<platform::Connection> OfficeDay::Create(const std::string&) {
  return std::make_unique<Line>(*this);
}

OfficeDay::OfficeDay(const Fault& fault, std::int32_t refused)
    : fault_(fault), refused_(refused), folder_(Scratch() / "day") {
  const fs::path& office = Template();
  fs::remove_all(folder_);
  fs::create_directories(folder_);
  fs::copy_file(office, folder_ / "office.db");
  SetUpOutside();
  module_ = std::make_unique<module::Module>(outside.Services(*this), outside.controlSite);
  host::DistPromoterProg& control = module_->Control();
  control.SetUserID(1);
  control.SetEmployeeID(1);
  control.SetOLEConnectionString(std::string("Provider=any;Password=") + kPassword);
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

support::BeforeCall OfficeDay::Watch(Kind kind) {
  return [this, kind](std::string_view call) {
    if (Fails(kind, call)) throw RuntimeError(fault_.number, Fault::kWords);
  };
}

void OfficeDay::SetUpOutside() {
  outside.fileSystem.beforeCall = Watch(Kind::kFiles);
  outside.excel.beforeCall = Watch(Kind::kWorkbook);
  outside.components.beforeCall = Watch(Kind::kComponents);
  outside.reports.beforeCall = Watch(Kind::kReports);
  outside.launcher.beforeCall = Watch(Kind::kLauncher);
  outside.fileDialog.beforeCall = Watch(Kind::kFileDialog);
  outside.keyboard.beforeCall = Watch(Kind::kKeyboard);
  outside.clock.today = kToday;
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
  const std::string find = "SELECT 1 FROM tblDistributionPromoterProgram WHERE ID = ";
  const std::string id =
      Rows(folder_ / "office.db", {find + kNewProgram}).empty() ? "1" : kNewProgram;
  Do("view after " + actions.back().name, [&] { module_->Control().View(std::stoi(id)); });
  EXPECT_EQ(actions.back().told, std::vector<std::string>());
  EXPECT_EQ(Editor().txtID.Text(), id) << actions.back().name;
  EXPECT_EQ(Editor().CurrentMode(), editor::Mode::kView) << actions.back().name;
}

/// A screen asks for the name of what a selector has selected when it paints it.
void OfficeDay::Paint(controls::Container& on) {
  for (controls::Control* control : on.Controls()) {
    if (auto* frame = dynamic_cast<controls::Frame*>(control)) Paint(*frame);
    try {
      if (auto* selector = dynamic_cast<controls::Selector*>(control)) selector->DisplayText();
    } catch (const RuntimeError& error) {
      actions.back().told.push_back(error.Description());
    }
  }
}

void OfficeDay::Look(const std::string& name) {
  editor::FormMain& editor = Editor();
  batch::FormAddBatch& plan = editor.BatchForm();
  EXPECT_EQ(outside.screen.pointer, controls::MousePointer::kDefault) << name;
  for (const controls::FlexGrid* grid :
       {&editor.flxDetail, &editor.SearchForm().flxSearch, &plan.flxRegion.Flex, &plan.flxPath.Flex,
        &plan.flxDate.Flex, &plan.flxCustomer.Flex}) {
    EXPECT_TRUE(grid->Redraw()) << name << " " << grid->Name();
  }
  if (depth_ > 0) return;
  EXPECT_FALSE(plan.Visible() || editor.SearchForm().Visible() || editor.PrintForm().Visible() ||
               editor.SearchForm().TextFileForm().Visible())
      << name;
  for (const auto* all : {&editor.Controls(), &editor.frameHeader.Controls()}) {
    for (const controls::Control* control : *all) {
      const editor::EnabledIn* row = editor::FindEnabledIn(control->Name());
      if (row == nullptr) continue;
      EXPECT_EQ(control->Enabled(), row->Holds(editor.CurrentMode(), editor.txtCode.Text().empty()))
          << control->Name() << " after " << name;
    }
  }
}

void OfficeDay::Type(controls::TextBox& box, const std::string& text) {
  if (box.Enabled()) Do("type into " + box.Name(), [&] { box.SetText(text); });
}

void OfficeDay::Pick(controls::Selector& selector) {
  if (!selector.Enabled()) return;
  Do("pick in " + selector.Name(), [&] {
    selector.LoadList();
    selector.Choose(0);
  });
}

void OfficeDay::ChangeHeader() {
  Press(Editor().cmdEdit);
  Pick(Editor().sltBranch);
  Type(Editor().txtDescription, " برنامه نو ");
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
  Do("days", [&] {
    form.datDateFrom.SetText("1404/09/01");
    form.datDateTo.SetText("1404/09/03");
  });
  for (tools::comFlex* grid : {&form.flxRegion, &form.flxPath, &form.flxDate}) {
    Press(grid->cmdSelectAll);
  }
  Press(form.cmdSearch);
  Do("pick", [&] { form.flxCustomer.Flex.MouseDown(1, 2, 1, 0); });
  Do("pick", [&] { form.flxCustomer.Flex.MouseDown(2, 2, 1, 0); });
  Type(form.txtNotes, "it's new");
  Press(form.cmdAdd);
}

void OfficeDay::Search(search::FormSearch& form) {
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

void OfficeDay::Play() {
  editor::FormMain& editor = Editor();
  const auto press = [&](int row, int col, bool twice) {
    editor.flxDetail.MouseDown(row, col, 1, 0);
    editor.flxDetail.Click();
    if (twice) editor.flxDetail.DblClick();
  };
  Do("open", [&] { module_->Control().ClearShow(); });
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
  Do("view", [&] { module_->Control().View(1); });  // final, with two accounting documents
  Press(editor.cmdViewAccountDoc);
  Do("other modules", [&] {
    std::int32_t ids[] = {1, 1, 1, 19, 2};
    editor.InsertDocumentObject(ids[0], ids[1], ids[2], ids[3], ids[4]);
    editor.GetAssetGroupAccountID(1);
  });
  Press(editor.cmdBackToTemp);
  Do("close box", [&] { editor.CloseBox(); });
}

std::string OfficeDay::Stored() const {
  return Dump(folder_ / "office.db");
}

std::string OfficeDay::Replayed() const {
  const fs::path file = folder_ / "replay.db";
  fs::copy_file(Template(), file);
  adapters::sqlite::SqliteConnection office("sqlite:" + file.string());
  for (const auto& each : done_) each(office);
  return Dump(file);
}

}  // namespace reliability
