#include "module/Session.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "controls/DateBox.h"
#include "platform/RunningStatement.h"
#include "screens/TabOrder.h"
#include "tools/RowMarks.h"

namespace module {

namespace {

constexpr const char* kViewer = "comVoucherView.comVoucherView1";
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
      named.emplace_back(list->Name(), &list->getFlex());
      Name(*list, list->Name() + ".", named);
    } else if (auto* frame = dynamic_cast<controls::Frame*>(control)) {
      Name(*frame, prefix, named);
    } else if (control->Name() != "Flex") {
      named.emplace_back(prefix + control->Name(), control);
    }
  }
}

}  // namespace

Session::Controls Session::Named(const controls::Form& form) {
  Controls named;
  Name(form, "", named);
  return named;
}

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
  LearnTheHost();
  LearnTheOffice();
  LearnTheForms();
  Follow(Editor());
}

Session::~Session() {
  EXPECT_TRUE(answers_.empty()) << "questions were expected and not asked";
  EXPECT_TRUE(failures_.empty()) << "more calls were expected";
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
  const std::string told = "connects " + connectionString;
  looking_ ? Hear(told + " for what is shown") : outside.events.push_back(told);
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

void Session::LearnTheHost() {
  host::DistPromoterProg& host = Control();
  const auto takes = [&](const char* name, auto let) {
    On(name, [&host, let](const std::string& value) { let(host, value); });
  };
  takes("user", [](auto& to, const std::string& id) { to.SetUserID(std::stoi(id)); });
  takes("employee", [](auto& to, const std::string& id) { to.SetEmployeeID(std::stoi(id)); });
  takes("position", [](auto& to, const std::string& id) { to.SetPositionID(std::stoi(id)); });
  takes("connect", [](auto& to, const std::string& string) { to.SetOLEConnectionString(string); });
  takes("open", [](auto& to, const std::string&) { to.ClearShow(); });
  takes("view", [](auto& to, const std::string& id) { to.View(std::stoi(id)); });
  takes("paint", [](auto& to, const std::string&) { to.Paint(); });
  takes("init", [](auto& to, const std::string&) { to.InitProperties(); });
  support::FakePropertyBag& bag = outside.propertyBag;
  takes("read", [&bag](auto& to, const std::string&) { to.ReadProperties(bag); });
  takes("write", [this, &bag](auto& to, const std::string&) {
    bag.keys.clear();
    to.WriteProperties(bag);
    for (const std::string& key : bag.keys) {
      if (!bag.stored.contains(key)) continue;
      const auto* id = std::get_if<std::int32_t>(&bag.stored[key]);
      Hear(key + " " + (id ? std::to_string(*id) : std::get<std::string>(bag.stored[key])));
    }
  });
  On("empty", [&bag] { bag.stored.clear(); });
}

void Session::LearnTheOffice() {
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
  On("gone", [this] { up_.back()->Hide(); });
  On("resize",
     [this](const std::string& size) { up_.back()->Resize(Numbers(size)[0], Numbers(size)[1]); });
  On("tabs", [this] {
    std::string names;
    for (const controls::Control* control : screens::TabSequence(*up_.back())) {
      names += control->Name() + " ";
    }
    Hear(names);
  });
  On("lists", [this] { ReadLists(); });
  On("place", [this](const std::string& name) {
    const controls::Control& control = Find(name);
    std::ostringstream place;
    place << control.Left() << "," << control.Top() << " " << control.Width() << " x "
          << control.Height();
    Hear(place.str());
  });
  On("listen", [this](const std::string& name) {
    auto& list = dynamic_cast<tools::comFlex&>(Find(name).Parent());
    list.Selected = [this](std::int32_t row) { marked_ += " +" + std::to_string(row); };
    list.UnSelected = [this](std::int32_t row) { marked_ += " -" + std::to_string(row); };
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
  const auto found = std::ranges::find(all, name, &Controls::value_type::first);
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

}  // namespace module
