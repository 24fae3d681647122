// What every screen adapter promises: that windows do as forms say, that each kind of event comes
// in and each kind of change goes out. What a pane makes of its events is told in tests/screens;
// lists and month pages are worked with in the tours (apps/tour), in the same windows. One file of
// an adapter's tests includes this once.
#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <stdexcept>

#include "contract/ScreenFixture.h"

namespace contract {

using controls::Modality;
using controls::MousePointer;
using testing::ElementsAre;

TEST_F(ScreenTest, ModalForm_HiddenOrUnloadedInItsClick_ReturnsAndShowsTheModelAgain) {
  for (const bool unload : {false, true, false}) {
    const std::string text = unload ? "یک" : "دو";
    SampleForm below(screen, cities);
    SampleForm other(screen, cities);
    below.Show(Modality::kModeless);
    Settle();
    form.txtName.SetText(text);
    form.cmdOK.onClick = [&] { unload ? form.Unload() : form.Hide(); };
    std::string shown;
    Later([&] {
      shown = Shown(form.txtName);
      EXPECT_EQ(NumberOf([&] { other.Show(Modality::kModeless); }), 401);
      Click(form.cmdOK);
    });
    form.Show(Modality::kModal);
    EXPECT_EQ(shown, text);
    EXPECT_FALSE(other.Visible());
    EXPECT_EQ(form.Loaded(), !unload);
    below.Unload();  // which it stood over
    Settle();
  }
}

TEST_F(ScreenTest, Unload_OfAFormWhoseEventIsUnderWay_WaitsForItsReturn) {
  SampleForm other(screen, cities);
  form.cmdOK.onClick = [&] { other.Show(Modality::kModal); };
  ShowForm();
  Later([&] {
    form.Unload();
    Later([&] { other.Hide(); });
  });
  Click(form.cmdOK);
  EXPECT_FALSE(form.Loaded());
  form.flx.onDblClick = [&] { form.Unload(); };
  ShowForm();
  MouseOnGrid({.action = PointerAction::kPress, .place = At(1, 1)});
  MouseOnGrid({.action = PointerAction::kPress, .place = At(1, 1), .clicks = 2});
  EXPECT_FALSE(form.Loaded());
  Settle();
}

TEST_F(ScreenTest, ShowWaiting_ReturnsAtOnce_AndBreathingCarriesOutWhatIsDoneToIt) {
  SampleForm waiting(screen, cities);
  waiting.cmdOK.onClick = [&] { waiting.Hide(); };
  ShowForm();
  waiting.Show(Modality::kWaiting);
  EXPECT_EQ(NumberOf([&] { form.Show(Modality::kModeless); }), 401);
  Later([&] { Click(waiting.cmdOK); });
  for (int breath = 0; breath < 1000 && waiting.Visible(); ++breath) screen.Breathe();
  EXPECT_FALSE(waiting.Visible());
  form.Show(Modality::kModeless);
}

TEST_F(ScreenTest, UntrappedError_OfMouseOrKey_IsShownAndTheProgramGoesOn) {
  form.cmdOK.onClick = [&] {
    screen.SetMousePointer(MousePointer::kHourglass);
    EXPECT_EQ(screen.GetMousePointer(), MousePointer::kHourglass);
    throw platform::RuntimeError(3704, "گروه قفل است. Operation is not allowed", "Recordset");
  };
  form.txtName.onChange = [] { throw std::out_of_range("no such place"); };
  ShowForm();
  form.txtName.SetFocus();
  const std::pair<const char*, std::function<void()>> cases[] = {
      {"Unexpected error: no such place", [&] { Type("x"); }},
      {"Run-time error '3704': Operation is not allowed (Recordset)", [&] { Click(form.cmdOK); }}};
  for (const auto& [expected, event] : cases) {
    std::string words;
    OnMessage([&](const controls::Form& message) {
      words = dynamic_cast<controls::Label&>(*message.FindControl("lblTechnical")).Caption();
      Click(*message.FindControl("cmdYes"));
    });
    event();
    std::ranges::replace(words, '\n', ' ');
    EXPECT_EQ(words, expected);
    EXPECT_EQ(screen.GetMousePointer(), MousePointer::kDefault);
  }
}

TEST_F(ScreenTest, Window_OfAForm_FollowsSizeBothWaysAndAsksBeforeClosing) {
  ShowForm();
  form.SetCaption("دیگر");
  EXPECT_EQ(WindowTitle(), "دیگر");
  form.Resize(12000, 9000);
  EXPECT_EQ(WindowSize(), std::pair(800, 600));
  form.laidOut = 0;
  DragWindowTo(640, 480);
  EXPECT_EQ(form.laidOut, 1);
  EXPECT_EQ(std::pair(form.Width(), form.Height()), std::pair(9600.0, 7200.0));
  DragWindowTo(10, 10);
  EXPECT_EQ(std::pair(form.Width(), form.Height()), std::pair(7500.0, 6000.0)) << "the least";
  CloseWindow();
  EXPECT_EQ(form.closed, 1);
  EXPECT_TRUE(form.Visible());
}

TEST_F(ScreenTest, KeysAndClicks_OnAForm_TypeAndPress) {
  ShowForm();
  form.txtName.onChange = [&] { events.push_back(form.txtName.Text()); };
  form.cmdOK.onClick = [&] { events.emplace_back("OK"); };
  form.cmdCancel.onClick = [&] { events.emplace_back("Cancel"); };
  form.chkActive.onClick = [&] { events.emplace_back("Active"); };
  form.txtName.SetFocus();
  Type("شي");
  Press({Key::kEnter, Key::kEscape});
  form.cmdCancel.SetFocus();
  Press({Key::kEnter});  // presses the button that has the focus
  Click(form.chkActive);
  Click(form.cmdOK);
  form.cmdOK.SetEnabled(false);
  Click(form.cmdOK);
  EXPECT_THAT(events, ElementsAre("ش", "شي", "OK", "Cancel", "Cancel", "Active", "OK"));
}

TEST_F(ScreenTest, Tab_ForwardAndBack_VisitsEveryKindOfControlAndComesRound) {
  const std::vector<std::string> order = {"cmbReport", "sltCity", "datFrom", "flx",
                                          "cmdCancel", "cmdOK",   "txtName", "cmbReport"};
  form.chkActive.SetEnabled(false);
  form.SetFirstFocus(&form.cmbReport);
  ShowForm();
  for (const bool forward : {true, false}) {
    std::vector<std::string> visited = {Focused()};
    while (visited.size() < order.size()) {
      Press({Key::kTab}, forward ? screens::Modifiers{} : kShift);
      visited.push_back(Focused());
    }
    if (!forward) std::ranges::reverse(visited);
    EXPECT_EQ(visited, order);
  }
  form.txtName.SetFocus();
  form.txtName.SetEnabled(false);
  EXPECT_EQ(Focused(), "cmbReport") << "a disabled control passes it on";
  form.sltCity.SetFocus();
  Press({Key::kF4});
  Press({Key::kTab});
  EXPECT_EQ(Focused(), "datFrom") << "from an open list, too";
}

TEST_F(ScreenTest, TextBox_TypedPastedOrChangedByItsHandler_ShowsTheModelAndKeepsTheCursor) {
  form.txtName.SetLatinDigits(true);
  form.txtName.onChange = [&] {
    std::string text = form.txtName.Text();
    std::ranges::replace(text, 'x', 'y');
    form.txtName.SetText(text);
  };
  ShowForm();
  form.txtName.SetText("٩ab");
  form.txtName.SetFocus();
  Press({Key::kHome});
  Type("۱x٢");
  EXPECT_EQ(Shown(form.txtName), "1y29ab");
  screen.CopyToClipboard("۳\n۴");
  Paste();
  Type("5");
  EXPECT_EQ(Shown(form.txtName), "1y23 459ab");
  EXPECT_EQ(form.txtName.Text(), "1y23 459ab");
  Undo();
  EXPECT_EQ(Shown(form.txtName).find("۳"), std::string::npos);
  EXPECT_NE(Shown(form.txtName), "1y23 459ab");
  EXPECT_EQ(form.txtName.Text(), Shown(form.txtName));
}

class GridTest : public ScreenTest {
 protected:
  GridTest() {
    grid.SetRows(100001);
    grid.SetCols(3);
    grid.SetColWidth(1, 3000);
    grid.SetTextMatrix(2, 1, "علی");
    grid.SetTextMatrix(3, 2, "b");
    grid.onMouseDown = [this](int button, int shift) {
      events.push_back("down " + std::to_string(10 * button + shift));
    };
    grid.onClick = [this] { events.emplace_back("click"); };
    grid.onDblClick = [this] { events.emplace_back("double"); };
    ShowForm();
    grid.SetFocus();
    Settle();
  }
  bool InSight(int row) { return At(row, 1).y != 0; }
  void Mouse(PointerAction action, Place at) { MouseOnGrid({.action = action, .place = at}); }

  controls::FlexGrid& grid = form.flx;
};

TEST_F(GridTest, Mouse_OfTheToolkit_ReachesThePane) {
  EXPECT_GT(At(1, 0).x, 600) << "at the right edge";
  const Place below{At(2, 1).x, 2000};
  Mouse(PointerAction::kPress, At(2, 1));
  Mouse(PointerAction::kRelease, At(2, 1));
  MouseOnGrid({.action = PointerAction::kPress, .place = At(2, 1), .clicks = 2});
  Mouse(PointerAction::kRelease, At(2, 1));
  MouseOnGrid({.action = PointerAction::kPress,
               .place = At(3, 1),
               .button = screens::MouseButton::kRight,
               .modifiers = kShift});
  EXPECT_THAT(events, ElementsAre("down 10", "click", "double", "down 21"));
  Mouse(PointerAction::kPress, At(2, 1));
  MouseOnGrid({.place = At(3, 2), .leftHeld = true});
  Press({Key::kC}, kControl);
  MouseOnGrid({.place = below, .leftHeld = true});
  const int lastInSight = grid.RowSel();
  EXPECT_TRUE(InSight(lastInSight));
  AwaitAutoScroll();
  EXPECT_GE(grid.RowSel(), lastInSight + 1);
  Mouse(PointerAction::kRelease, below);
  for (int part = 0; part < 3; ++part) TurnWheelOnGrid(-14);
  EXPECT_FALSE(InSight(1)) << "parts of a notch add up";
  form.txtName.SetFocus();
  Paste();
  EXPECT_EQ(form.txtName.Text(), "علی\t \tb") << "the block on one line";
}

TEST_F(GridTest, Keys_OfTheToolkit_ReachThePane) {
  Press({Key::kEnd}, kControl);
  EXPECT_TRUE(InSight(100000));
  Press({Key::kHome}, kControl);
  Press({Key::kLeft, Key::kPageDown}, kShift);
  EXPECT_EQ(std::pair(grid.Row(), grid.Col()), std::pair(1, 1));
  EXPECT_NEAR(grid.RowSel(), 11, 3) << "a page";
  EXPECT_EQ(grid.ColSel(), 2);
  Type("عل");
  EXPECT_EQ(grid.Row(), 2);
  Press({Key::kEscape, Key::kEnter});
  Type(" ");
  EXPECT_THAT(events, ElementsAre("double", "down 10", "click"));
}

}  // namespace contract
