#include "module/Session.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "controls/DateBox.h"
#include "platform/RunningStatement.h"
#include "tools/RowMarks.h"

namespace module {

namespace {

constexpr const char* kViewer = "comVoucherView.comVoucherView1";
constexpr int kRowsTold = 5;
constexpr std::size_t kStoredTold = 12;
constexpr std::size_t kLongest = 200;

bool IsSelect(std::string_view statement) {
  return statement.starts_with("Select") || statement.starts_with("select");
}

/// A SELECT by its table and what follows its condition's word; of a long statement the beginning.
std::string InShort(std::string_view statement) {
  if (!IsSelect(statement)) {
    return std::string(statement.size() < kLongest ? statement
                                                   : statement.substr(0, statement.find('(')));
  }
  int depth = 0;
  std::size_t from = 0;
  std::size_t where = 0;
  for (std::size_t at = 0; at < statement.size(); ++at) {
    depth += statement[at] == '(' ? 1 : statement[at] == ')' ? -1 : 0;
    const std::string_view rest = statement.substr(at);
    if (depth == 0 && from == 0 && (rest.starts_with(" from ") || rest.starts_with(" From "))) {
      from = at + 6;
    }
    if (depth == 0 && from > 0 && (rest.starts_with(" where ") || rest.starts_with(" Where "))) {
      where = at;
    }
  }
  if (from == 0) return std::string(statement);
  from = statement.find_first_not_of(' ', from);
  for (const char* order : {" group by ", " order by "}) {
    statement = statement.substr(0, statement.rfind(order));
  }
  std::string told = statement.substr(7).starts_with(" TOP 1000") ? "reads TOP 1000 " : "reads ";
  told += statement.substr(from, statement.find_first_of(" (", from) - from);
  return where == 0 ? told : told.append(statement.substr(where));
}

std::vector<int> Numbers(const std::string& text) {
  std::istringstream in(text);
  return {std::istream_iterator<int>(in), {}};
}

/// The controls of a form by their names; those of a selectable grid behind its name, which by
/// itself is its rows.
void Name(const controls::Container& on, const std::string& prefix,
          std::vector<std::pair<std::string, controls::Control*>>& named) {
  for (controls::Control* control : on.Controls()) {
    if (auto* list = dynamic_cast<tools::comFlex*>(control)) {
      named.emplace_back(list->Name(), &list->Flex);
      Name(*list, list->Name() + ".", named);
    } else if (auto* frame = dynamic_cast<controls::Frame*>(control)) {
      Name(*frame, prefix, named);
    } else if (control->Name() != "Flex") {
      named.emplace_back(prefix + control->Name(), control);
    }
  }
}

auto Named(const controls::Container& form) {
  std::vector<std::pair<std::string, controls::Control*>> named;
  Name(form, "", named);
  return named;
}

}  // namespace

Session::Session() {
  outside.screen.otherwise = [this](controls::Form& form) { StayOn(form); };
  outside.components.otherwise = [this] { return Answered(); };
  for (support::BeforeCall* hook :
       {&outside.fileSystem.beforeCall, &outside.excel.beforeCall, &outside.components.beforeCall,
        &outside.reports.beforeCall, &outside.desktop.beforeCall}) {
    *hook = Watch();
  }
  Control().SetOLEConnectionString("office");
  Control().SetPositionID(2);
  Control().SetEmployeeID(3);
  LearnTheOffice();
  LearnTheForms();
  Follow(Editor());
}

Session::~Session() {
  EXPECT_TRUE(answers_.empty()) << "questions were expected and not asked";
}

void Session::Replay(const std::string& name) {
  support::Session::Replay("tests/module/sessions/" + name + ".txt");
}

void Session::Do(const std::string& line) {
  sent.emplace_back(line, std::vector<std::string>());
  support::Session::Do(line);
}

// What lies outside.

support::BeforeCall Session::Watch() {
  return [this](std::string_view call) {
    writes_ += call == "Write" ? 1 : 0;
    if (const auto broken = broken_.find(call); broken != broken_.end()) throw broken->second;
  };
}

void Session::FailInTurn(bool reads) {
  if (looking_) return;
  std::map<int, platform::RuntimeError> later;
  std::optional<platform::RuntimeError> now;
  for (const auto& [in, error] : failures_) {
    in == 1 ? void(now = error) : void(later.emplace(in - 1, error));
  }
  failures_ = later;
  if (!now) return;
  if (now->Number() != platform::kUserInterrupt) throw platform::RuntimeError(*now);
  using platform::Cancelled;
  throw platform::CancelledError(reads ? Cancelled::kReading : Cancelled::kTakenBack, {}, "SQLite");
}

platform::RowSet Session::Execute(platform::Connection& database, std::string_view statement) {
  constexpr std::string_view kDay = "Select getdate() as today";
  if (!sent.empty()) sent.back().second.emplace_back(statement);
  if (!looking_ && statement != kDay) outside.events.push_back(InShort(statement));
  FailInTurn(IsSelect(statement));
  wrote_ = wrote_ || !IsSelect(statement);
  if (statement != kDay) return database.Execute(statement);
  return support::RowSetOf({"today"}, {{"2025-11-23 10:11:12"}});
}

std::int32_t Session::CallProcedure(platform::Connection& database, std::string_view name,
                                    std::span<const platform::Parameter> parameters) {
  std::string call = "calls " + std::string(name);
  for (const platform::Parameter& each : parameters) {
    const auto* number = std::get_if<std::int32_t>(&each.value);
    if (number != nullptr) call += " " + std::to_string(*number);
  }
  if (!sent.empty()) sent.back().second.push_back(call);
  outside.events.push_back(call);
  FailInTurn(true);
  wrote_ = true;
  const std::int32_t result = database.CallProcedure(name, parameters);
  return call.ends_with(" " + std::to_string(refused_)) ? 0 : result;
}

void Session::Connecting(const std::string& connectionString) {
  if (!looking_) outside.events.push_back("connects " + connectionString);
}

void Session::AddViewer() {
  outside.components.others[kViewer] = [this] {
    return std::make_unique<support::FakeObject>(viewerTold_, outside.components.beforeCall);
  };
}

support::Answer Session::Answered() {
  if (!whenAsked_.empty()) Do(std::exchange(whenAsked_, {}));
  if (answers_.empty()) {
    ADD_FAILURE() << "nobody told the answer to " << outside.components.messages.back();
    return support::Answer::kClosed;
  }
  const support::Answer answer = answers_.front();
  answers_.pop_front();
  constexpr const char* kWords[] = {"no", "yes", "closed"};
  outside.events.push_back(std::string("answer: ") + kWords[static_cast<int>(answer)]);
  return answer;
}

/// Counts how often its grids are drawn while it is seen.
void Session::Follow(controls::Form& form) {
  for (const auto& [name, control] : Named(form)) {
    auto* grid = dynamic_cast<controls::FlexGrid*>(control);
    if (grid == nullptr) continue;
    drawing_[grid] = grid->Subscribe([this, grid](const controls::Change& change) {
      using controls::Aspect;
      const bool seen = change.aspect == Aspect::kRows || change.aspect == Aspect::kCells;
      if (seen && grid->ParentForm().Visible()) ++drawn_[grid];
    });
  }
}

void Session::StayOn(controls::Form& form) {
  Follow(form);
  outside.events.push_back("caption: " + form.Caption());
  Watch()("up");
  up_.push_back(&form);
  GoOnUntil([&form] { return !form.Visible(); });
  up_.pop_back();
}

// What can be done.

void Session::LearnTheOffice() {
  On("open", [this] { Control().ClearShow(); });
  On("view", [this](const std::string& id) { Control().View(std::stoi(id)); });
  On("connect", [this](const std::string& to) { Control().SetOLEConnectionString(to); });
  On("post", [this](const std::string& ids) {
    std::vector<int> each = Numbers(ids);
    Editor().InsertDocumentObject(each[0], each[1], each[2], each[3], each[4]);
  });
  On("account", [this](const std::string& group) {
    Hear(std::to_string(Editor().GetAssetGroupAccountID(std::stoi(group))));
  });
  On("answer", [this](const std::string& words) {
    std::istringstream in(words);
    for (std::string word; in >> word;) {
      answers_.push_back(word == "yes"  ? support::Answer::kYes
                         : word == "no" ? support::Answer::kNo
                                        : support::Answer::kClosed);
    }
  });
  On("asked", [this](const std::string& step) { whenAsked_ = step; });
  On("started",
     [this](const std::string& step) { outside.desktop.onStart = [this, step] { Do(step); }; });
  On("chosen", [this](const std::string& path) {
    outside.desktop.chosen = path.empty() ? std::nullopt : std::optional(path);
  });
  On("file", [this](const std::string& path) { files_[path] = outside.fileSystem.files[path]; });
  On("modal", [this] { outside.screen.hostIsModal = true; });
  On("clock", [this](const std::string& date) {
    outside.desktop.today = calendar::SolarHijriDate::FromText(date)->Days();
  });
  On("viewer", [this] { AddViewer(); });
  On("refuse", [this](const std::string& permission) { refused_ = std::stoi(permission); });
  On("stop", [this](const std::string& rows) { outside.progress.stopAt = std::stoul(rows); });
  On("fails", [this](const std::string& rest) {
    std::istringstream in(rest);
    int at = 0;
    std::int32_t number = 0;
    std::string words;
    std::getline(in >> at >> number >> std::ws, words);
    failures_.emplace(at, platform::RuntimeError(number, words));
  });
  On("breaks", [this](const std::string& rest) {
    const std::size_t digit = rest.find_first_of("0123456789", rest.find(' '));
    const std::size_t words = rest.find(' ', digit);
    broken_.insert_or_assign(
        rest.substr(0, digit - 1),
        platform::RuntimeError(std::stoi(rest.substr(digit)), rest.substr(words + 1)));
  });
  On("mend", [this] {
    broken_.clear();
    outside.progress.stopAt.reset();
    refused_ = 0;
  });
  On("sql", [this](const std::string& statement) {
    for (const std::string& row : Stored(statement)) Hear(row);
    rows_ = AllRows();
  });
}

void Session::LearnTheForms() {
  On("close", [this] { up_.back()->CloseBox(); });
  On("resize",
     [this](const std::string& size) { up_.back()->Resize(Numbers(size)[0], Numbers(size)[1]); });
  On("lists", [this] { ReadLists(); });
  On("place", [this](const std::string& name) {
    const controls::Control& control = Find(name);
    std::ostringstream place;
    place << control.Left() << "," << control.Top() << " " << control.Width() << " x "
          << control.Height();
    Hear(place.str());
  });
  for (const bool enabled : {true, false}) {
    On(enabled ? "enable" : "disable", [this, enabled](const std::string& name) {
      Find(name).SetEnabled(enabled);
      meddled_ = !enabled;
    });
  }
}

controls::Control& Session::Find(const std::string& name) {
  const auto all = Named(*up_.back());
  const auto found = std::ranges::find(all, name, &decltype(all)::value_type::first);
  if (found == all.end()) throw std::invalid_argument("nobody knows what this is: " + name);
  return *found->second;
}

void Session::DoOther(const std::string& what, const std::string& rest) {
  controls::Control* const control = &Find(what);
  const std::string text =
      rest.starts_with('"') && rest.size() > 1 ? rest.substr(1, rest.size() - 2) : rest;
  if (!control->Reachable()) Hear("is off");
  if (auto* button = dynamic_cast<controls::Button*>(control)) return button->Click();
  if (auto* check = dynamic_cast<controls::CheckBox*>(control)) return check->Click();
  if (auto* field = dynamic_cast<controls::TextBox*>(control)) return field->SetText(text);
  if (auto* combo = dynamic_cast<controls::ComboBox*>(control)) {
    return combo->SetListIndex(text.empty() ? -1 : std::stoi(text));
  }
  if (auto* grid = dynamic_cast<controls::FlexGrid*>(control)) return UseGrid(*grid, text);
  if (auto* selector = dynamic_cast<controls::Selector*>(control)) {
    return text.empty() ? selector->Clear() : selector->Select(std::stoi(text));
  }
  auto& date = dynamic_cast<controls::DateBox&>(*control);
  text.empty() ? date.Clear() : date.SetText(text);
}

void Session::UseGrid(controls::FlexGrid& grid, const std::string& how) {
  const std::size_t blank = std::min(how.find(' '), how.size());
  const std::string what = how.substr(0, blank);
  const std::vector<int> n = Numbers(how.substr(blank));
  if (what == "press" || what == "double") {
    grid.MouseDown(n[0], n[1], 1, 0);
    grid.Click();
    if (what == "double") grid.DblClick();
  } else if (what == "block") {
    grid.SetRow(n[0]);
    grid.SetCol(n[1]);
    grid.SetRowSel(n[2]);
    grid.SetColSel(n[3]);
  } else if (what == "drag") {
    grid.DragColWidth(n[0], n[1]);
  } else if (what == "width") {
    grid.SetColWidth(n[0], n[1]);
  } else if (what == "colours") {
    TellColours(grid);
  } else if (what == "selected") {
    auto& list = dynamic_cast<tools::comFlex&>(grid.Parent());
    Hear(list.IsSelected(n[0]) ? "yes" : "no");
    Hear("at " + std::to_string(grid.Row()) + "," + std::to_string(grid.Col()));
  } else {
    const auto [first, last] = what == "undo" ? grid.markSteps->Undo() : grid.markSteps->Redo();
    Hear("rows " + std::to_string(first) + " to " + std::to_string(last));
  }
}

/// Those that are set on the first rows, from the first cell that is not fixed.
void Session::TellColours(controls::FlexGrid& grid) {
  for (int row = 1; row < std::min(4, grid.Rows()); ++row) {
    std::set<controls::Colour> colours;
    for (int col = grid.FixedCols(); col < grid.Cols(); ++col) {
      grid.SetRow(row);
      grid.SetCol(col);
      colours.insert(grid.CellBackColor());
    }
    Hear("row " + std::to_string(row) + " " + testing::PrintToString(colours));
  }
}

/// As a user opens them; the first of each is chosen.
void Session::ReadLists() {
  for (const auto& [name, control] : Named(*up_.back())) {
    auto* selector = dynamic_cast<controls::Selector*>(control);
    if (selector == nullptr || !selector->Reachable()) continue;
    selector->LoadList();
    Hear(name + " has " + std::to_string(selector->List().size()) + ", the first is " +
         selector->List().at(0).name);
  }
}

// What came of it.

std::vector<controls::Form*> Session::Forms() {
  editor::FormMain& editor = Editor();
  return {&editor, &editor.BatchForm(), &editor.SearchForm(), &editor.PrintForm(),
          &editor.SearchForm().TextFileForm()};
}

support::Session::Shown Session::Now() {
  if (up_.empty()) up_.push_back(&Editor());
  looking_ = true;
  Shown shown;
  for (controls::Form* form : Forms()) See(shown, *form);
  looking_ = false;
  if (Editor().Loaded() && up_.size() == 1 && !meddled_) ExpectInOrder(sent.back().first);
  return shown;
}

void Session::See(Shown& shown, controls::Form& form) {
  const std::string prefix = &form == &Editor() ? "" : form.Name().substr(4) + ".";
  if (&form == &Editor()) {
    shown.emplace_back("caption", form.Caption());
    const std::set<std::string> usable = editor::UsableNow(Editor());
    std::string names;
    for (const std::string& name : usable) names.append(names.empty() ? "" : " ").append(name);
    shown.emplace_back("usable", names);
  }
  std::string off;
  for (const auto& [name, control] : Named(form)) {
    const std::string key = prefix + name;
    if (auto* grid = dynamic_cast<controls::FlexGrid*>(control)) {
      SeeGrid(shown, key, *grid);
    } else if (auto* label = dynamic_cast<controls::Label*>(control)) {
      shown.emplace_back(key, label->Caption());
    } else if (auto* field = dynamic_cast<controls::TextBox*>(control)) {
      shown.emplace_back(key, field->Text());
    } else if (auto* date = dynamic_cast<controls::DateBox*>(control)) {
      shown.emplace_back(key, date->Text());
    } else if (auto* check = dynamic_cast<controls::CheckBox*>(control)) {
      shown.emplace_back(key, check->Checked() ? "on" : "off");
    } else if (auto* combo = dynamic_cast<controls::ComboBox*>(control)) {
      std::string items;
      for (int item = 0; item < combo->ListCount(); ++item) items += " | " + combo->List(item);
      shown.emplace_back(key, std::to_string(combo->ListIndex()) + items);
    } else if (auto* selector = dynamic_cast<controls::Selector*>(control)) {
      shown.emplace_back(key,
                         std::to_string(selector->SelectedID()) + " " + selector->DisplayText());
    }
    if (prefix != "" && control->Visible() && !control->Reachable()) off += " " + name;
  }
  shown.emplace_back(prefix + "off", off);
}

void Session::SeeGrid(Shown& shown, const std::string& name, controls::FlexGrid& grid) {
  const int drawn = std::exchange(drawn_[&grid], 0);
  if (drawn > 1) Hear(name + " drawn " + std::to_string(drawn) + " times");
  EXPECT_TRUE(grid.Redraw()) << name;
  std::string marked;
  std::string holidays;
  std::string columns;
  for (int row = 1; row < grid.Rows(); ++row) {
    if (tools::IsMarked(grid, row)) marked += " " + std::to_string(row);
    if (grid.rowTextColour && grid.rowTextColour(row) == controls::palette::kHoliday) {
      holidays += " " + std::to_string(row);
    }
  }
  for (int col = 0; col < grid.Cols(); ++col) {
    columns += " " + std::to_string(std::lround(grid.ColWidth(col)));
    if (grid.ColAlignment(col) == controls::FlexGrid::Alignment::kCentreCentre) columns += "c";
  }
  shown.emplace_back(name + " columns", columns);
  shown.emplace_back(name + " fixed",
                     std::to_string(grid.FixedRows()) + "," + std::to_string(grid.FixedCols()));
  shown.emplace_back(name + " ground", std::to_string(grid.BackColor()));
  shown.emplace_back(name + " block",
                     grid.GetHighLight() == controls::FlexGrid::HighLight::kNever ? "hidden" : "");
  shown.emplace_back(name + " empty", grid.EmptyText());
  shown.emplace_back(name + " rows", std::to_string(grid.Rows() - 1));
  for (int row = 0; row < std::min(kRowsTold + 1, grid.Rows()); ++row) {
    std::string cells;
    for (int col = 0; col < grid.Cols(); ++col)
      cells.append(col ? "|" : "").append(grid.TextMatrix(row, col));
    shown.emplace_back(name + " " + std::to_string(row), cells);
  }
  shown.emplace_back(name + " marked", marked);
  shown.emplace_back(name + " holidays", holidays);
}

void Session::HearMore() {
  int hourglasses = 0;
  for (const std::string& event : std::exchange(outside.events, {})) {
    if (event == "pointer 11") ++hourglasses;
    if (!event.starts_with("pointer ")) Hear(event);
  }
  if (hourglasses > 0) Hear("hourglass " + std::to_string(hourglasses));
  EXPECT_EQ(outside.screen.pointer, controls::MousePointer::kDefault);
  HearOfDesktop();
  for (const std::string& each : std::exchange(viewerTold_, {})) Hear("viewer " + each);
  for (const std::string& each : outside.reports.log) Hear("report: " + each);
  std::map<int, std::string> cells;
  for (const auto& [at, text] : outside.excel.written) cells[at.first] += "|" + text;
  for (const auto& [row, texts] : cells) Hear("workbook " + std::to_string(row) + texts);
  if (!cells.empty()) {
    Hear(std::string("workbook ") + (outside.excel.visible ? "shown" : "hidden") +
         (outside.excel.finished > 0 ? ", finished" : ""));
  }
  outside.excel.finished = 0;
  outside.excel.visible = false;
  for (const auto& [what, total] : outside.progress.begun) {
    Hear("progress: " + what + " " + testing::PrintToString(outside.progress.advanced) + " of " +
         std::to_string(total) + (outside.progress.UnderWay() ? "" : ", ended"));
  }
  outside.Forget();
  if (std::exchange(wrote_, false)) HearOfRows();
}

void Session::HearOfDesktop() {
  for (const std::string& each : outside.desktop.loaded) Hear("keyboard " + each);
  for (const auto& [begin, filter] : outside.desktop.shown) {
    Hear("asks for a file: " + begin + " | " + filter);
  }
  for (const std::string& each : outside.components.created) {
    if (each != "comNotice.comNTC") Hear("creates " + each);
  }
  for (const std::string& each : outside.desktop.started) Hear("starts " + each);
  for (const auto& [path, text] : outside.fileSystem.files) {
    if (files_.contains(path) && files_[path] == text) continue;
    Hear("file " + path + " in " + std::to_string(writes_) + " writes: " + text);
  }
  writes_ = 0;
  files_ = outside.fileSystem.files;
}

void Session::HearOfRows() {
  const std::vector<std::string> before = std::exchange(rows_, AllRows());
  const auto tell = [this](const char* sign, const auto& in, const auto& notIn) {
    std::vector<std::string> differing;
    std::ranges::set_difference(in, notIn, std::back_inserter(differing));
    for (std::size_t row = 0; row < differing.size() && row < kStoredTold; ++row) {
      Hear(sign + differing[row]);
    }
    if (differing.size() > kStoredTold) {
      Hear(std::string(sign) + std::to_string(differing.size()) + " in all");
    }
  };
  tell("- ", before, rows_);
  tell("+ ", rows_, before);
}

}  // namespace module
