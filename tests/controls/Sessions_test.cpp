// What the models do, as the files of tests/controls/sessions tell it.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "controls/Controls.h"
#include "controls/DateBox.h"
#include "controls/FlexGrid.h"
#include "controls/Selector.h"
#include "platform/RuntimeError.h"
#include "support/FakeScreen.h"
#include "support/Session.h"
#include "text/Text.h"

namespace {

using controls::Change;
using controls::Control;
using controls::Modality;

std::vector<int> Numbers(const std::string& text) {
  std::istringstream in(text);
  std::vector<int> numbers(4);
  for (int& number : numbers) in >> number;
  return numbers;
}

std::vector<std::string> Words(const std::string& text, char between = ' ') {
  std::istringstream in(text);
  std::vector<std::string> words;
  for (std::string word; std::getline(in, word, between);) words.push_back(word);
  return words;
}

std::string Number(double number) {
  std::ostringstream out;
  out << number;
  return out.str();
}

constexpr const char* kWords[] = {"text",  "enabled", "visible", "bounds",   "items",
                                  "cells", "rows",    "columns", "selection"};

class SampleForm : public controls::Form {
 public:
  SampleForm(controls::Screen& onScreen, support::Events& calls)
      : Form(onScreen, "Sample", Border::kSizable), calls_(calls) {}
  using Form::SetCancelButton;
  using Form::SetDefaultButton;
  using Form::SetEscapeCloses;
  bool fails = false;

 protected:
  void FormLoad() override {
    calls_.emplace_back("load");
    Load();  // finds the form loaded
    if (fails) throw platform::RuntimeError(1, "load");
  }
  void FormResize() override { calls_.emplace_back("resize"); }

 private:
  support::Events& calls_;
};

/// A form and what stands on it. Commands of a control name it first; its changes are heard as
/// "NAME text", its own events as a test says.
class Sessions : public testing::Test, protected support::Session {
 protected:
  using At = const std::vector<int>&;

  Sessions() {
    Watch(form, form.Name());
    const auto part = [this](const char* name, auto action) {
      On(name, [this, action](const std::string& rest) {
        Control& control = *form.FindControl(rest.substr(0, rest.find(' ')));
        action(control, Numbers(rest.substr(std::min(rest.find(' '), rest.size()))));
      });
    };
    part("disable", [](Control& c, At) { c.SetEnabled(false); });
    part("enable", [](Control& c, At) { c.SetEnabled(true); });
    part("hide", [](Control& c, At) { c.SetVisible(false); });
    part("reveal", [](Control& c, At) { c.SetVisible(true); });
    part("move", [](Control& c, At to) { c.Move(to[0], to[1], to[2], to[3]); });
    part("width", [](Control& c, At to) { c.SetWidth(to[0]); });
    part("height", [](Control& c, At to) { c.SetHeight(to[0]); });
    part("focus", [](Control& c, At) { c.SetFocus(); });
  }
  void Tell(const std::string& name) { Replay("tests/controls/sessions/" + name + ".txt"); }
  void Hear(const std::string& what) override {
    HearScreen();
    support::Session::Hear(what);
  }
  void HearScreen() {
    for (const std::string& each : std::exchange(events, {})) support::Session::Hear(each);
  }
  void Watch(auto& model, const std::string& name) {
    subscriptions.push_back(model.Subscribe([this, name](const Change& change) {
      const std::string rows =
          std::to_string(change.firstRow) + "-" + std::to_string(change.lastRow);
      Hear(name + " " + kWords[static_cast<int>(change.aspect)] +
           (change.aspect == controls::Aspect::kCells ? " " + rows : ""));
    }));
  }
  void Watch(Control& control) { Watch(control, control.Name()); }
  void OnNumbers(const std::string& name, std::function<void(At)> action) {
    On(name, [action = std::move(action)](const std::string& rest) { action(Numbers(rest)); });
  }
  Shown Now() override {
    HearScreen();
    return shown ? shown() : Shown();
  }

  support::Events events;
  support::FakeScreen screen{events};
  SampleForm form{screen, events};
  std::function<Shown()> shown;

  std::vector<controls::Subscription> subscriptions;
};

TEST_F(Sessions, Form_AsTheApprovedOne) {
  controls::Frame frame{form, "frame"};
  controls::TextBox inner{frame, "inner"};
  controls::Button ok{form, "ok", "Yes"};
  controls::Button cancel{form, "cancel", "No"};
  SampleForm other{screen, events};
  ok.onClick = [&] { Hear("ok"); };
  cancel.onClick = [&] { Hear("cancel"); };
  shown = [&] {
    return Shown{{"loaded", std::to_string(form.Loaded())},
                 {"visible", std::to_string(form.Visible())},
                 {"other visible", std::to_string(other.Visible())},
                 {"size", Number(form.Width()) + " x " + Number(form.Height())}};
  };
  const auto show = [](SampleForm& which) {
    return [&](const std::string& how) {
      which.Show(how == "modal" ? Modality::kModal : Modality::kModeless);
    };
  };
  On("show", show(form));
  On("other", show(other));
  std::vector<std::string> meanwhile;
  On("meanwhile", [&](const std::string& line) { meanwhile.push_back(line); });
  screen.otherwise = [&](controls::Form&) {
    for (const std::string& line : std::exchange(meanwhile, {})) Do(line);
  };
  On("away", [&] { form.Hide(); });
  On("close", [&] { form.CloseBox(); });
  On("unload", [&] { form.Unload(); });
  On("fail", [&] { form.fails = true; });
  On("caption", [&](const std::string& text) { form.SetCaption(text); });
  OnNumbers("resize", [&](At n) { form.Resize(n[0], n[1]); });
  const auto find = [&](const std::string& name) { return form.FindControl(name); };
  On("default", [&](const std::string& name) {
    form.SetDefaultButton(dynamic_cast<controls::Button*>(find(name)));
  });
  On("frame-default", [&] { frame.SetDefaultButton(&cancel); });
  On("cancel", [&] { form.SetCancelButton(&cancel); });
  On("escapable", [&] { form.SetEscapeCloses(); });
  On("Enter",
     [&](const std::string& in) { Hear(form.PressEnter(find(in)) ? "used" : "not used"); });
  On("Escape", [&] { Hear(form.PressEscape() ? "used" : "not used"); });
  On("brief", [&] {
    { const controls::Label brief{frame, "brief"}; }
    Hear(find("brief") == nullptr && find("Inner") == nullptr ? "forgotten" : "found");
    SampleForm(screen, events).Load();
  });
  Tell("form");
}

TEST_F(Sessions, TextsAndButtons_AsTheApprovedOnes) {
  controls::TextBox box{form, "box"};
  controls::Label label{form, "label"};
  controls::Button button{form, "button", "x"};
  controls::CheckBox check{form, "check", "x"};
  for (Control* control : form.Controls()) Watch(*control);
  box.onChange = [&] { Hear("change"); };
  button.onClick = check.onClick = [&] { Hear("click"); };
  On("text", [&](const std::string& text) { box.SetText(text); });
  On("label", [&](const std::string& text) { label.SetCaption(text); });
  On("strong", [&] { label.SetLook(controls::Label::Look::kStrong); });
  On("caption", [&](const std::string& text) { button.SetCaption(text); });
  On("paste", [&] { Hear("\"" + box.Pasted("a\r\nb\nc\r\rd\r") + "\""); });
  On("click", [&] { button.Click(); });
  On("tick", [&] { check.Click(); });
  On("check", [&](const std::string& how) { check.SetChecked(how == "yes"); });
  Tell("texts");
}

TEST_F(Sessions, ComboBox_AsTheApprovedOne) {
  controls::ComboBox combo{form, "combo"};
  Watch(combo);
  combo.onClick = [&] { Hear("click"); };
  shown = [&] {
    return Shown{{"chosen", std::to_string(combo.ListIndex())}, {"height", Number(combo.Height())}};
  };
  On("add", [&](const std::string& text) { combo.AddItem(text); });
  OnNumbers("choose", [&](At n) { combo.SetListIndex(n[0]); });
  OnNumbers("item",
            [&](At n) { Hear(combo.List(n[0]) + " " + std::to_string(combo.ItemData(n[0]))); });
  OnNumbers("data-of", [&](At n) { combo.ItemData(n[0]); });
  OnNumbers("data", [&](At n) { combo.SetItemData(n[0], n[1]); });
  On("newest", [&] { combo.SetItemData(combo.NewIndex(), 42); });
  On("clear", [&] { combo.Clear(); });
  Tell("combo");
}

TEST_F(Sessions, DateBox_AsTheApprovedOne) {
  using controls::DateBox;
  DateBox box{form, "box"};
  box.onChange = [&] { Hear("change"); };
  shown = [&] {
    std::string value = "none";
    if (const auto day = box.Value()) value = std::to_string(day->time_since_epoch().count());
    return Shown{{"date", box.Text() + " " + std::string(box.WeekdayName())},
                 {"day", value + (box.IsEmpty() ? ", empty" : "")}};
  };
  const auto key = [&](const char* name, DateBox::Key pressed) {
    On(name, [&box, pressed] {
      box.PressKey(pressed, calendar::SolarHijriDate::FromText("1404/06/31")->Days());
    });
  };
  key("Up", DateBox::Key::kUp);
  key("Down", DateBox::Key::kDown);
  key("PageUp", DateBox::Key::kPageUp);
  key("PageDown", DateBox::Key::kPageDown);
  On("set", [&](const std::string& text) { box.SetText(text); });
  OnNumbers("step", [&](At n) { box.StepDays(n[0]); });
  On("type", [&](const std::string& text) { Hear("said: " + box.EnterTyped(text)); });
  On("enter", [&](const std::string& text) {
    Hear("said: " + box.EnterTyped(text, DateBox::Typing::kEnter));
  });
  Tell("date");
}

/// Answers every statement with the same rows.
struct Answers : controls::LookupSource {
  platform::RowSet Lookup(const std::string& connection, const std::string& statement) override {
    hear(connection + ": " + statement);
    if (fails) throw platform::RuntimeError(208, "Invalid object name.");
    platform::RowSet answer(columns);
    for (const std::string& cell : cells) answer.Append(cell);
    return answer;
  }
  std::function<void(const std::string&)> hear;
  std::vector<std::string> columns{"ID", "Name"};
  std::vector<std::string> cells;
  bool fails = false;
};

TEST_F(Sessions, Selector_AsTheApprovedOne) {
  Answers source;
  controls::Selector selector{form, "selector", source};
  source.hear = [&](const std::string& line) { Hear(line); };
  selector.onChange = [&] { Hear("change"); };
  const auto tell = [&](std::size_t row) {
    const controls::Selector::Row& each = selector.List().at(row);
    return std::to_string(each.id) + " " + each.name + ", " + each.detail;
  };
  shown = [&] {
    std::string list;
    for (std::size_t i = 0; i < selector.List().size(); ++i) list += tell(i) + "; ";
    return Shown{{"selected", std::to_string(selector.SelectedID()) +
                                  (selector.HasSelection() ? "" : ", none")},
                 {"list", list}};
  };
  On("columns", [&](const std::string& names) { source.columns = Words(names, '|'); });
  On("none", [&] { source.cells.clear(); });
  On("row", [&](const std::string& cells) {
    for (const std::string& cell : Words(cells, '|')) source.cells.push_back(cell);
  });
  On("server", [&](const std::string& how) { source.fails = how == "down"; });
  On("connect", [&](const std::string& text) { selector.SetConnectionString(text); });
  On("views",
     [&](const std::string& text) { selector.SetViews(Words(text).at(0), Words(text).at(1)); });
  On("condition", [&](const std::string& text) { selector.SetCondition(text); });
  On("standing", [&](const std::string& text) { selector.SetStandingCondition(text); });
  OnNumbers("select", [&](At n) { selector.Select(n[0]); });
  On("name", [&] { Hear("\"" + selector.DisplayText() + "\""); });
  On("load", [&] { selector.LoadList(); });
  On("narrow", [&](const std::string& typed) {
    for (const std::size_t row : selector.Narrow(typed)) Hear(tell(row));
  });
  OnNumbers("pick", [&](At n) { selector.Choose(static_cast<std::size_t>(n[0])); });
  On("unpick", [&] { selector.ChooseNone(); });
  Tell("selector");
}

class GridSession : public Sessions {
 protected:
  GridSession() {
    Watch(grid);
    shown = [this] { return Shown{{"at", Block()}}; };
    grid.onMouseDown = [this](int button, int shift) {
      Hear("down " + std::to_string(button) + " " + std::to_string(shift) + " on " +
           Cell(grid.MouseRow(), grid.MouseCol()) + ", at " + Block());
    };
    grid.onClick = [this] { Hear("click"); };
    grid.onDblClick = [this] { Hear("double"); };
    AddSettings();
    constexpr const char* kKeys[] = {"Up",       "Down", "Left", "Right", "PageUp",
                                     "PageDown", "Home", "End",  "Top",   "Bottom"};
    for (int key = 0; key < 10; ++key) {
      const auto press = [this, key](bool extend) {
        return [this, key, extend] {
          grid.PressKey(static_cast<controls::FlexGrid::Key>(key), extend, 4);
        };
      };
      On(kKeys[key], press(false));
      On(std::string("Shift+") + kKeys[key], press(true));
    }
    OnNumbers("press", [this](At n) { grid.MouseDown(n[0], n[1], n[2], n[3]); });
    OnNumbers("drag", [this](At n) { grid.MouseDrag(n[0], n[1]); });
    OnNumbers("drag-width", [this](At n) {
      grid.DragColWidth(n[0], n[1]);
      Hear(Number(grid.ColWidth(n[0])));
    });
    On("deaf", [this] { subscriptions.clear(); });
    On("mouse", [this] { Hear(Cell(grid.MouseRow(), grid.MouseCol())); });
    On("click", [this] { grid.Click(); });
    On("double", [this] { grid.DblClick(); });
    On("block", [this] { Hear("\"" + text::Replace(grid.BlockText(), "\t", "|") + "\""); });
    OnNumbers("in-block", [this](At n) { Hear(grid.InBlock(n[0], n[1]) ? "yes" : "no"); });
  }
  void AddSettings() {
    const auto set = [this](const char* name, auto setter) {
      OnNumbers(name, [this, setter](At n) { (grid.*setter)(n[0]); });
    };
    using controls::FlexGrid;
    set("rows", &FlexGrid::SetRows);
    set("cols", &FlexGrid::SetCols);
    set("fixed-rows", &FlexGrid::SetFixedRows);
    set("fixed-cols", &FlexGrid::SetFixedCols);
    set("row", &FlexGrid::SetRow);
    set("col-sel", &FlexGrid::SetColSel);
    set("sort", &FlexGrid::Sort);
    set("remove", &FlexGrid::RemoveItem);
    set("stretch", &FlexGrid::SetStretchCol);
    set("paint", &FlexGrid::SetCellBackColor);
    set("ground", &FlexGrid::SetBackColor);
    set("redraw", &FlexGrid::SetRedraw);
    OnNumbers("at", [this](At n) {
      grid.SetRow(n[0]);
      grid.SetCol(n[1]);
      grid.SetRowSel(n[2]);
      grid.SetColSel(n[3]);
    });
    OnNumbers("col-width", [this](At n) { grid.SetColWidth(n[0], n[1]); });
    OnNumbers("align",
              [this](At n) { grid.SetColAlignment(n[0], static_cast<FlexGrid::Alignment>(n[1])); });
    OnNumbers("highlight",
              [this](At n) { grid.SetHighLight(static_cast<FlexGrid::HighLight>(n[0])); });
    On("whole-blocks", [this] { grid.SetFillStyle(FlexGrid::FillStyle::kRepeat); });
    On("add", [this](const std::string& text) { grid.AddItem(text::Replace(text, "|", "\t")); });
    On("text", [this](const std::string& what) {
      const std::vector<int> at = Numbers(what);
      grid.SetTextMatrix(at[0], at[1], text::Replace(what.substr(4), "\\n", "\r\n"));
    });
    OnNumbers("read", [this](At n) { Hear(std::string(grid.TextMatrix(n[0], n[1]))); });
    // Says only how long it is: who refuses it for that reads nothing of it.
    static constexpr std::string_view kTooLong{"x", 0xFFFFFFFFU};
    On("add-too-long", [this] { grid.AddItem(kTooLong); });
    On("text-too-long", [this] { grid.SetTextMatrix(1, 1, kTooLong); });
    On("column", [this](const std::string& col) {
      Hear(std::to_string(static_cast<int>(grid.ColAlignment(std::stoi(col)))) + ", stretched " +
           std::to_string(grid.StretchCol()));
    });
  }
  static std::string Cell(int row, int col) {
    return std::to_string(row) + "," + std::to_string(col);
  }
  std::string Block() const {
    return Cell(grid.Row(), grid.Col()) + " to " + Cell(grid.RowSel(), grid.ColSel());
  }

  controls::FlexGrid grid{form, "grid"};
};

TEST_F(GridSession, Grid_AsTheApprovedOne) {
  Tell("grid");
}

}  // namespace
