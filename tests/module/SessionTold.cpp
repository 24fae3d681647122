// What came of a step.

#include <algorithm>
#include <cmath>
#include <iterator>

#include "controls/DateBox.h"
#include "module/Session.h"
#include "tools/RowMarks.h"

namespace module {

namespace {

constexpr int kRowsTold = 5;
constexpr std::size_t kStoredTold = 12;

}  // namespace

std::vector<controls::Form*> Session::Forms() {
  editor::FormMain& editor = Editor();
  return {&editor, &editor.BatchForm(), &editor.SearchForm(), &editor.PrintForm(),
          &editor.SearchForm().TextFileForm()};
}

support::Session::Shown Session::Now() {
  if (up_.empty()) up_.push_back(&Editor());
  looking_ = true;
  Shown shown{{"host", std::to_string(Control().UserID()) + " " +
                           std::to_string(Control().EmployeeID()) + " " +
                           std::to_string(Control().PositionID()) + " " +
                           Control().OLEConnectionString()}};
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
    if (tools::IsRowMarked(grid, row)) marked += " " + std::to_string(row);
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
  for (const std::string& each : outside.controlSite.log) Hear("site " + each);
  if (!marked_.empty()) Hear("marks" + std::exchange(marked_, {}));
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
