// What every screen adapter promises of windows, fields and the grid: one file of its tests
// includes this once.
#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <stdexcept>

#include "contract/ScreenFixture.h"
#include "screens/MessageForm.h"

namespace contract {

using controls::Modality;
using testing::ElementsAre;
using testing::HasSubstr;

TEST_F(ScreenTest, ShowModal_FormHidesOrUnloadsItselfInItsClick_ReturnsAndIsShownAgain) {
  for (const bool unload : {false, true}) {
    form.cmdOK.onClick = [&] { unload ? form.Unload() : form.Hide(); };
    SampleForm other(screen, cities);
    std::int32_t modeless = 0;
    Later([&] {
      modeless = NumberOf([&] { other.Show(Modality::kModeless); });
      Click(form.cmdOK);
    });
    form.Show(Modality::kModal);
    EXPECT_EQ(modeless, 401);
    EXPECT_FALSE(other.Visible());
    Settle();
    EXPECT_EQ(form.Loaded(), !unload);
  }
  ShowForm();
}

TEST_F(ScreenTest, Unload_OfAFormWhoseClickIsUnderWay_WaitsForItsReturn) {
  SampleForm other(screen, cities);
  form.cmdOK.onClick = [&] { other.Show(Modality::kModal); };
  ShowForm();
  Later([&] {
    form.Unload();
    Later([&] { other.Hide(); });
  });
  Click(form.cmdOK);
  EXPECT_FALSE(form.Loaded());
}

TEST_F(ScreenTest, ShowModal_AgainAfterTheFormBelowWasUnloaded_ShowsTheModel) {
  form.cmdOK.onClick = [&] { form.Hide(); };
  SampleForm below(screen, cities);
  for (const std::string text : {"یک", "دو"}) {
    below.Show(Modality::kModeless);
    Settle();
    form.txtName.SetText(text);
    std::string shown;
    Later([&] {
      shown = Shown(form.txtName);
      Click(form.cmdOK);
    });
    form.Show(Modality::kModal);
    EXPECT_EQ(shown, text);
    below.Unload();
    Settle();
  }
}

TEST_F(ScreenTest, ShowWaiting_ReturnsAtOnce_AndBreathingCarriesOutWhatIsDoneToIt) {
  SampleForm waiting(screen, cities);
  waiting.cmdOK.onClick = [&] { waiting.Hide(); };
  ShowForm();
  waiting.Show(Modality::kWaiting);
  EXPECT_EQ(NumberOf([&] { form.Show(Modality::kModeless); }), 401);
  Later([&] { Click(waiting.cmdOK); });
  for (int breath = 0; breath < 100 && waiting.Visible(); ++breath) screen.Breathe();
  EXPECT_FALSE(waiting.Visible());
  form.Show(Modality::kModeless);
}

TEST_F(ScreenTest, UntrappedError_InAClick_IsShownAndTheProgramGoesOn) {
  int clicks = 0;
  form.cmdOK.onClick = [&] {
    screen.SetMousePointer(controls::MousePointer::kHourglass);
    if (++clicks == 1)
      throw platform::RuntimeError(3704, "گروه قفل است. Operation is not allowed", "Recordset");
    throw std::out_of_range("no such place");
  };
  ShowForm();
  for (const char* expected : {"Run-time error '3704': Operation is not allowed (Recordset)",
                               "Unexpected error: no such place"}) {
    std::string words;
    AcceptMessage(words);
    Click(form.cmdOK);
    EXPECT_EQ(words, expected);
  }
  EXPECT_EQ(clicks, 2);
}

TEST_F(ScreenTest, Message_AnsweredByKeysOrMouse_TellsTheAnswerAndKeepsTheHourglass) {
  const struct {
    const char* title;
    std::vector<Key> keys;  // none: the button that says yes is clicked
    screens::Answer answer;
  } kCases[] = {{"پرسش", {Key::kEnter}, screens::Answer::kYes},
                {"پرسش", {Key::kEscape}, screens::Answer::kNo},
                {"حذف", {Key::kEnter}, screens::Answer::kNo},
                {"حذف", {Key::kTab, Key::kEnter}, screens::Answer::kYes},
                {"هشدار", {}, screens::Answer::kYes}};
  ShowForm();
  screen.SetMousePointer(controls::MousePointer::kHourglass);
  for (const auto& each : kCases) {
    OnMessage([&](const controls::Form& message) {
      EXPECT_EQ(screen.GetMousePointer(), controls::MousePointer::kDefault);
      for (const Key key : each.keys) Press({key});
      if (each.keys.empty()) Click(*message.FindControl("cmdYes"));
    });
    screens::MessageForm message(screen, {each.title, "آيا؟", "", screens::MessageKind::kQuestion});
    EXPECT_EQ(message.Ask(), each.answer) << each.title;
  }
  EXPECT_EQ(screen.GetMousePointer(), controls::MousePointer::kHourglass);
  OnMessage([&](const controls::Form& message) {
    Click(*message.FindControl("cmdCopy"));
    Press({Key::kEscape});
  });
  screens::MessageForm(screen, {"خطا", "نشد.", "Bad", screens::MessageKind::kError}).Ask();
  EXPECT_EQ(Copied(), "خطا\r\nنشد.\r\nBad");
}

TEST_F(ScreenTest, Window_OfAForm_FollowsSizeBothWaysAndAsksBeforeClosing) {
  ShowForm();
  form.SetCaption("دیگر");
  EXPECT_EQ(WindowTitle(), "دیگر");
  form.Resize(12000, 9000);
  EXPECT_EQ(WindowSize(), (Place{800, 600}));
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

TEST_F(ScreenTest, Keys_InAModelessForm_TypeTabAndPressDefaultAndCancel) {
  ShowForm();
  form.txtName.onChange = [&] { events.push_back(form.txtName.Text()); };
  form.cmdOK.onClick = [&] { events.emplace_back("OK"); };
  form.cmdCancel.onClick = [&] { events.emplace_back("Cancel"); };
  form.txtName.SetFocus();
  Type("شي");
  Press({Key::kEnter, Key::kEscape});
  form.cmdCancel.SetFocus();
  Press({Key::kEnter});  // presses the button that has the focus
  EXPECT_THAT(events, ElementsAre("ش", "شي", "OK", "Cancel", "Cancel"));
  events.clear();
  form.cmbReport.SetFocus();
  form.frame.SetDefaultButton(&form.cmdCancel);
  Press({Key::kEnter});  // in a frame the frame's own default
  EXPECT_THAT(events, ElementsAre("Cancel"));
}

TEST_F(ScreenTest, Tab_ForwardAndBack_VisitsEveryKindOfControlAndComesRound) {
  const std::vector<std::string> order = {"cmbReport", "sltCity",   "sltBranch", "datFrom",
                                          "flx",       "cmdCancel", "cmdOK",     "txtNumber",
                                          "txtName",   "cmbReport"};
  form.chkActive.SetEnabled(false);
  form.SetFirstFocus(&form.cmbReport);
  ShowForm();
  for (const bool forward : {true, false}) {
    std::vector<std::string> visited = {Focused()};
    while (visited.size() < order.size()) {
      Press({Key::kTab}, forward ? Held::kNothing : Held::kShift);
      visited.push_back(Focused());
    }
    if (!forward) std::ranges::reverse(visited);
    EXPECT_EQ(visited, order);
  }
  form.txtNumber.SetFocus();
  form.txtNumber.SetEnabled(false);
  EXPECT_EQ(Focused(), "txtName") << "a disabled control passes it on";
}

TEST_F(ScreenTest, Controls_ClickedOrChosen_AskTheModelAndShowWhatItSays) {
  form.cmdOK.onClick = [&] { events.emplace_back("OK"); };
  form.chkActive.onClick = [&] { events.emplace_back(form.chkActive.Checked() ? "on" : "off"); };
  ShowForm();
  Click(form.cmdOK);
  form.cmdOK.SetEnabled(false);
  Click(form.cmdOK);
  Click(form.chkActive);
  form.chkActive.SetChecked(false);
  Click(form.chkActive);
  EXPECT_THAT(events, ElementsAre("OK", "on", "on"));
  form.cmbReport.SetFocus();
  Press({Key::kDown});
  EXPECT_EQ(form.cmbReport.ListIndex(), 0);
  form.cmbReport.SetListIndex(1);
  EXPECT_EQ(Shown(form.cmbReport), "قالب ماهانه");
}

TEST_F(ScreenTest, TextBox_ChangedByItsHandler_ShowsTheModelAndKeepsTheCursor) {
  form.txtName.onChange = [&] {
    std::string text = form.txtName.Text();
    std::replace(text.begin(), text.end(), 'x', 'y');
    form.txtName.SetText(text);
  };
  ShowForm();
  form.txtName.SetText("ab");
  form.txtName.SetFocus();
  Press({Key::kHome});
  Type("xx");
  EXPECT_EQ(form.txtName.Text(), "yyab");
  EXPECT_EQ(Shown(form.txtName), "yyab");
}

TEST_F(ScreenTest, TextBox_OfLatinDigits_TakesAllDigitsSoAndOneLineWhereTheCursorIs) {
  form.txtName.SetLatinDigits(true);
  ShowForm();
  form.txtName.SetText("٩ab");
  form.txtName.SetFocus();
  Press({Key::kHome});
  Type("۱x٢");
  EXPECT_EQ(Shown(form.txtName), "1x29ab");
  Paste("۳\r\n۴");
  Type("5");
  EXPECT_EQ(Shown(form.txtName), "1x23 459ab");
  EXPECT_EQ(form.txtName.Text(), "1x23 459ab");
  Undo();
  EXPECT_EQ(Shown(form.txtName).find("۳"), std::string::npos);
  EXPECT_NE(Shown(form.txtName), "1x23 459ab");
  EXPECT_EQ(form.txtName.Text(), Shown(form.txtName));
}

class FieldTest : public ScreenTest {
 protected:
  FieldTest() {
    form.cmdOK.onClick = [&] { events.emplace_back("OK"); };
    form.cmdCancel.onClick = [&] { events.emplace_back("Cancel"); };
    form.datFrom.SetText("1404/02/15");
    form.sltCity.Select(3);
    ShowForm();
  }
};

// What fields make of their events is told in tests/screens: here each kind comes in once.
TEST_F(FieldTest, DateBox_TypedInOrPickedFromItsPage_ChangesTheModel) {
  form.datFrom.SetFocus();
  Retype("۱۴۰۳/۱/۵");
  Press({Key::kEnter});
  EXPECT_EQ(form.datFrom.Text(), "1403/01/05");
  EXPECT_FALSE(DateRefused());
  Retype("1403/13/40");
  Press({Key::kEnter});
  EXPECT_TRUE(DateRefused());
  EXPECT_TRUE(events.empty()) << "Enter was for the date";
  form.txtName.SetFocus();
  EXPECT_EQ(Shown(form.datFrom), "1403/01/05") << "the old date comes back on leaving";
  form.datFrom.SetFocus();
  Press({Key::kF4});
  EXPECT_GT(DayAt(0, 0).x, DayAt(0, 6).x) << "Saturday at the right";
  ClickMonthPage(DayAt(1, 0));
  EXPECT_EQ(form.datFrom.Text(), "1403/01/04");
  EXPECT_FALSE(MonthPageOpen());
  Press({Key::kF4, Key::kPageDown, Key::kLeft, Key::kEnter});
  EXPECT_EQ(form.datFrom.Text(), "1403/02/05");
  Press({Key::kF4, Key::kEscape});
  EXPECT_FALSE(MonthPageOpen());
  EXPECT_TRUE(events.empty()) << "Enter and Esc were for the page";
}

TEST_F(FieldTest, Selector_TypedInOrPickedFromItsList_ChangesTheModel) {
  form.sltCity.SetFocus();
  Retype("شهر ری");
  EXPECT_EQ(ListCount(), 1) << "either yeh";
  Press({Key::kEnter});
  EXPECT_EQ(ListCount(), -1);
  EXPECT_EQ(form.sltCity.SelectedID(), 6);
  EXPECT_EQ(Shown(form.sltCity), "شهر ري");
  Press({Key::kF4});
  EXPECT_EQ(ListCount(), 6);
  ClickListRow(1);
  EXPECT_EQ(form.sltCity.SelectedID(), 3) << "the second by name";
  Retype("ته");
  Press({Key::kEscape});
  EXPECT_EQ(Shown(form.sltCity), "سبزوار");
  EXPECT_TRUE(events.empty()) << "Enter and Esc were for the list";
  Retype("");
  Press({Key::kTab});
  EXPECT_EQ(form.sltCity.SelectedID(), -1);
  EXPECT_EQ(Focused(), "sltBranch") << "in an open list, too";
}

TEST_F(FieldTest, SelectorOpened_WhileTheServerIsSilent_ShowsTheErrorAndStaysClosed) {
  cities.failing = true;
  form.sltCity.SetFocus();
  std::string words;
  AcceptMessage(words);
  Press({Key::kF4});
  EXPECT_THAT(words, HasSubstr("The server does not answer"));
  EXPECT_EQ(ListCount(), -1);
}

class GridTest : public ScreenTest {
 protected:
  GridTest() {
    grid.SetRows(100001);
    grid.SetCols(4);
    for (const auto& [col, width] : {std::pair{0, 750}, {1, 0}, {2, 3000}, {3, 1500}}) {
      grid.SetColWidth(col, width);
    }
    grid.SetTextMatrix(2, 2, "علی");
    grid.SetTextMatrix(3, 3, "b");
    grid.onMouseDown = [this](int button, int shift) {
      events.push_back("down " + std::to_string(10 * button + shift));
    };
    grid.onClick = [this] { events.emplace_back("click"); };
    grid.onDblClick = [this] { events.emplace_back("double"); };
    ShowForm();
    grid.SetFocus();
    Settle();
  }
  bool InSight(int row, int col) { return At(row, col) != Place(); }

  controls::FlexGrid& grid = form.flx;
};

// What the grid makes of its events is told in tests/screens: here each kind comes in once.
TEST_F(GridTest, Mouse_OfTheToolkit_ReachesThePane) {
  EXPECT_FALSE(InSight(1, 1)) << "a hidden column";
  EXPECT_GT(At(1, 0).x, 600) << "at the right edge";
  for (const Mouse what : {Mouse::kPress, Mouse::kRelease, Mouse::kDoubleClick, Mouse::kRelease}) {
    MouseOnGrid(what, At(2, 2));
  }
  MouseOnGrid(Mouse::kPress, At(3, 2), 2, Held::kShift);
  EXPECT_THAT(events, ElementsAre("down 10", "click", "double", "down 21"));
  events.clear();
  MouseOnGrid(Mouse::kPress, At(2, 2));
  MouseOnGrid(Mouse::kMove, At(3, 3));
  Press({Key::kC}, Held::kControl);
  EXPECT_EQ(Copied(), "علی\t\r\n\tb");
  MouseOnGrid(Mouse::kMove, {At(2, 2).x, 2000});
  const int lastInSight = grid.RowSel();
  EXPECT_TRUE(InSight(lastInSight, 2));
  AwaitAutoScroll();
  EXPECT_GE(grid.RowSel(), lastInSight + 1);
  MouseOnGrid(Mouse::kRelease, {At(2, 2).x, 2000});
  EXPECT_THAT(events, ElementsAre("down 10", "click"));
  for (int part = 0; part < 3; ++part) TurnWheelOnGrid(-14);
  EXPECT_FALSE(InSight(1, 2)) << "parts of a notch add up";
}

TEST_F(GridTest, Keys_OfTheToolkit_ReachThePane) {
  Press({Key::kEnd}, Held::kControl);
  EXPECT_TRUE(InSight(0, 2)) << "headings stay";
  EXPECT_TRUE(InSight(100000, 2));
  Press({Key::kHome}, Held::kControl);
  Press({Key::kLeft, Key::kPageDown}, Held::kShift);
  EXPECT_EQ(std::pair(grid.Row(), grid.Col()), std::pair(1, 2));
  EXPECT_NEAR(grid.RowSel(), 11, 3) << "a page";
  EXPECT_EQ(grid.ColSel(), 3);
  Type("عل");
  EXPECT_EQ(grid.Row(), 2);
  Press({Key::kEscape, Key::kEnter});
  Type(" ");
  EXPECT_THAT(events, ElementsAre("double", "down 10", "click"));
}

TEST_F(GridTest, FieldOfTheFindLine_HasTheKeyboardWhileItIsOpenAndGivesItBack) {
  form.cmdOK.onClick = [&] { events.emplace_back("OK"); };
  form.cmdCancel.onClick = [&] { events.emplace_back("Cancel"); };
  const Place before = At(3, 2);
  Press({Key::kF}, Held::kControl);
  EXPECT_EQ(Focused(), "flx");
  EXPECT_GT(At(3, 2).y, before.y + 10);
  Type("عل ");
  EXPECT_EQ(grid.Row(), 2);
  EXPECT_EQ(Shown(grid), "عل ");
  Undo();
  EXPECT_NE(Shown(grid), "عل ") << "the field's";
  Press({Key::kTab});
  EXPECT_EQ(Focused(), "cmdCancel");
  Press({Key::kTab}, Held::kShift);
  EXPECT_EQ(Focused(), "flx");
  Retype("b");
  EXPECT_EQ(grid.Row(), 3);
  MouseOnGrid(Mouse::kPress, At(5, 2));
  MouseOnGrid(Mouse::kRelease, At(5, 2));
  Type("b");
  EXPECT_EQ(Shown(grid), "bb") << "it has kept the keyboard";
  Press({Key::kEnter, Key::kDown, Key::kEscape, Key::kDown});
  EXPECT_EQ(grid.Row(), 7);
  EXPECT_EQ(At(3, 2), before);
  Press({Key::kEscape});
  EXPECT_THAT(events, ElementsAre("down 10", "click", "Cancel"));
  EXPECT_EQ(Focused(), "flx");
}

TEST_F(GridTest, EmptiedOrUnloaded_FromItsOwnEvent_IsHarmless) {
  grid.onDblClick = [&] { form.Unload(); };
  const Place cell = At(1, 2);
  MouseOnGrid(Mouse::kPress, cell);
  MouseOnGrid(Mouse::kDoubleClick, cell);
  EXPECT_FALSE(form.Loaded());
  Settle();
  ShowForm();
  grid.SetRows(0);
  MouseOnGrid(Mouse::kPress, cell);
  EXPECT_EQ(grid.MouseRow(), 0);
  Press({Key::kDown});
  grid.SetCols(0);
  Settle();
}

}  // namespace contract
