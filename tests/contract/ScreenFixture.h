#pragma once

#include <gtest/gtest.h>

#include <algorithm>
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
#include "platform/RuntimeError.h"
#include "support/ErrorNumber.h"
#include "support/Fakes.h"

namespace contract {

using support::NumberOf;

/// Cities, or the one that is asked for by "ID=".
struct CitySource : controls::LookupSource {
  platform::RowSet Lookup(const std::string& /*connection*/, const std::string& what) override {
    ++lookups;
    if (failing) throw platform::RuntimeError(-2147467259, "The server does not answer");
    platform::RowSet rows({"ID", "Name"});
    const char* const names[] = {"مشهد", "نیشابور", "سبزوار", "تهران", "کرج", "شهر ري"};
    for (int i = 0; i < count; ++i) {
      const std::string id = std::to_string(i + 1);
      if (what.find("ID=") != std::string::npos && !what.ends_with("ID=" + id)) continue;
      rows.Append(id);
      rows.Append(names[i % 6]);
    }
    return rows;
  }
  int count = 6;
  int lookups = 0;
  bool failing = false;
};

/// Controls of every kind that acts.
class SampleForm : public controls::Form {
 public:
  SampleForm(controls::Screen& onScreen, controls::LookupSource& source)
      : Form(onScreen, "SampleForm", Border::kSizable),
        sltCity(frame, "sltCity", source),
        sltBranch(frame, "sltBranch", source) {
    Resize(10500, 7800);
    SetMinimumSize(7500, 6000);
    int place = 0;
    for (controls::Control* control :
         std::vector<controls::Control*>{&txtNumber, &txtName, &chkActive, &cmbReport, &sltCity,
                                         &sltBranch, &datFrom, &flx, &cmdCancel, &cmdOK}) {
      control->Move(place % 5 * 2000 + 300, 300, 1900, 375);
      control->SetTabIndex(place++);
    }
    frame.Move(150, 660, 10200, 1750);
    flx.Move(150, 3750, 10200, 3300);
    for (const char* title : {"قالب ساده", "قالب ماهانه"}) cmbReport.AddItem(title);
    SetDefaultButton(&cmdOK);
    SetCancelButton(&cmdCancel);
  }

  controls::TextBox txtName{*this, "txtName"};
  controls::Frame frame{*this, "frame", "مشخصات"};
  controls::TextBox txtNumber{frame, "txtNumber"};
  controls::Selector sltCity;
  controls::Selector sltBranch;
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

enum class Key {
  kEnter,
  kEscape,
  kTab,
  kF4,
  kUp,
  kDown,
  kLeft,
  kPageUp,
  kPageDown,
  kHome,
  kEnd,
  kBackspace,
  kC,
  kF
};
enum class Held { kNothing, kShift, kControl };
enum class Mouse { kPress, kMove, kRelease, kDoubleClick };
struct Place {  // pixels from the left and the top
  int x = 0;
  int y = 0;
  bool operator==(const Place&) const = default;
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
  void Press(std::initializer_list<Key> keys, Held held = Held::kNothing);
  void Type(const std::string& text);
  /// Replaces the text of the field that has the focus.
  void Retype(const std::string& text);
  /// By keys, as what was typed.
  void Paste(const std::string& text);
  void Undo();
  void Click(controls::Control& control);
  void ClickMonthPage(Place at);
  void ClickListRow(int row);
  void MouseOnGrid(Mouse what, Place at, int button = 1, Held held = Held::kNothing);
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
  /// Accepts the message that comes up next; `words` gets its technical text in one line.
  void AcceptMessage(std::string& words) {
    OnMessage([this, &words](const controls::Form& message) {
      words = dynamic_cast<controls::Label&>(*message.FindControl("lblTechnical")).Caption();
      std::ranges::replace(words, '\n', ' ');
      Click(*message.FindControl("cmdYes"));
    });
  }
  /// Runs `action` from the message loop, whichever runs.
  void Later(std::function<void()> action);
  /// What the message loop does until nothing is left.
  void Settle();

  std::string Shown(controls::Control& control);
  Place WindowSize();
  std::string WindowTitle();
  /// The name of the control that has the keyboard.
  std::string Focused();
  /// Whether a note says why.
  bool DateRefused();
  bool MonthPageOpen();
  Place DayAt(int week, int weekday);
  /// How many rows the selector's list has; -1 while it is closed.
  int ListCount();
  /// The middle of a grid's cell; 0, 0 when nothing of it is in sight.
  Place At(int row, int col);
  std::string Copied();

  struct Adapter;
  support::FakeDesktop desktop;
  CitySource cities;
  std::unique_ptr<Adapter> adapter;
  controls::Screen& screen;
  SampleForm form{screen, cities};
  std::vector<std::string> events;
};

}  // namespace contract
