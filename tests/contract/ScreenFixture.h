#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "controls/Controls.h"
#include "controls/DateBox.h"
#include "controls/FlexGrid.h"
#include "controls/Form.h"
#include "controls/Selector.h"
#include "screens/GridPane.h"
#include "support/ErrorNumber.h"
#include "support/Fakes.h"

namespace contract {

using screens::Key;
using Place = screens::Point;
using support::NumberOf;
using PointerAction = screens::PointerEvent::Action;

constexpr screens::Modifiers kShift{.shift = true};
constexpr screens::Modifiers kControl{.control = true};

struct CitySource : controls::LookupSource {
  platform::RowSet Lookup(const std::string& /*connection*/,
                          const std::string& /*statement*/) override {
    platform::RowSet rows({"ID", "Name"});
    for (const char* cell : {"1", "مشهد"}) rows.Append(cell);
    return rows;
  }
};

/// Controls of every kind that acts.
class SampleForm : public controls::Form {
 public:
  SampleForm(controls::Screen& onScreen, controls::LookupSource& source)
      : Form(onScreen, "SampleForm", Border::kSizable), sltCity(frame, "sltCity", source) {
    Resize(10500, 7800);
    SetMinimumSize(7500, 6000);
    int place = 0;
    for (controls::Control* control : std::initializer_list<controls::Control*>{
             &txtName, &chkActive, &cmbReport, &sltCity, &datFrom, &flx, &cmdCancel, &cmdOK}) {
      control->Move(place % 5 * 2000 + 300, 300, 1900, 375);
      control->SetTabIndex(place++);
    }
    frame.Move(150, 660, 10200, 1750);
    flx.Move(150, 3750, 10200, 3300);
    SetDefaultButton(&cmdOK);
    SetCancelButton(&cmdCancel);
  }

  controls::TextBox txtName{*this, "txtName"};
  controls::Frame frame{*this, "frame", "مشخصات"};
  controls::Selector sltCity;
  controls::DateBox datFrom{frame, "datFrom"};
  controls::ComboBox cmbReport{frame, "cmbReport"};
  controls::CheckBox chkActive{*this, "chkActive", "فعال"};
  controls::FlexGrid flx{*this, "flx"};
  controls::Button cmdOK{*this, "cmdOK", "تاييد"};
  controls::Button cmdCancel{*this, "cmdCancel", "انصراف"};
  using Form::SetFirstFocus;
  int closed = 0;
  int laidOut = 0;

 protected:
  void FormClose() override { ++closed; }
  void FormResize() override { ++laidOut; }
};

/// A form on a screen and a person before it. Each screen adapter's tests bring the bodies of what
/// is only declared here.
class ScreenTest : public testing::Test {
 protected:
  ScreenTest();
  ~ScreenTest() override;

  /// Shows the form modeless, in front.
  void ShowForm();
  /// Keys go to what has the focus, or to its open list or month page.
  void Press(std::initializer_list<Key> keys, screens::Modifiers held = {});
  void Type(const std::string& text);
  /// What the clipboard holds, by keys.
  void Paste();
  void Undo() { Press({Key::kZ}, kControl); }
  void Click(controls::Control& control);
  void MouseOnGrid(const screens::PointerEvent& event);
  void TurnWheelOnGrid(int delta);
  /// Waits until a drag below the grid's edge has scrolled on.
  void AwaitAutoScroll();
  void DragWindowTo(int width, int height);
  void CloseWindow();
  /// The form that takes input; fails where none does.
  const controls::Form& ActiveForm();
  /// Runs `action` on the message that comes up next.
  void OnMessage(std::function<void(const controls::Form&)> action) {
    Later([this, action = std::move(action)] {
      ASSERT_EQ(ActiveForm().Name(), "MessageForm");
      action(ActiveForm());
    });
  }
  /// Runs `action` from the message loop, whichever runs.
  void Later(std::function<void()> action);
  /// What the message loop does until nothing is left.
  void Settle();

  const screens::Pane& PaneOf(controls::Control& control);
  std::string Shown(controls::Control& control);
  std::pair<int, int> WindowSize();
  std::string WindowTitle();
  /// The name of the control that has the keyboard.
  std::string Focused();
  /// The middle of a grid's cell; 0, 0 when nothing of it is in sight.
  Place At(int row, int col) {
    return dynamic_cast<const screens::GridPane&>(PaneOf(form.flx)).CellPlace(row, col).Middle();
  }

  struct Adapter;
  support::FakeDesktop desktop;
  CitySource cities;
  std::unique_ptr<Adapter> adapter;
  controls::Screen& screen;
  SampleForm form{screen, cities};
  std::vector<std::string> events;
};

}  // namespace contract
