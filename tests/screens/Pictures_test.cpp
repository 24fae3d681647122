// What the panes paint and tell a screen reader, in each of their states, as approved texts.

#include <gtest/gtest.h>

#include "screens/ButtonPanes.h"
#include "screens/ComboPane.h"
#include "screens/DatePane.h"
#include "screens/GridPane.h"
#include "screens/PagesPane.h"
#include "screens/Palette.h"
#include "screens/PaneTrial.h"
#include "screens/PlainPanes.h"
#include "screens/SelectorPane.h"
#include "screens/TextPane.h"
#include "support/Approved.h"

namespace screens {
namespace {

using Action = PointerEvent::Action;
using controls::Label;

class Pictures : public testing::Test {
 protected:
  void Take(const std::string& what, const Pane& pane, Size size = {200, 25}) {
    before.clear();
    Then(what, pane, size);
  }
  /// The lines that are others than in the last picture.
  void Then(const std::string& what, const Pane& pane, Size size = {200, 25}) {
    const std::vector<std::string> now = PictureOf(pane, size);
    taken += "== " + what + "\n";
    const auto add = [this](const auto& lines, const auto& others, const char* sign) {
      for (const std::string& line : lines) {
        if (std::ranges::count(lines, line) != std::ranges::count(others, line)) {
          taken += sign + line + "\n";
        }
      }
    };
    add(before, now, "- ");
    add(now, before, before.empty() ? "" : "+ ");
    before = now;
  }
  /// In each of the states that a control with the keyboard or a mouse over it has.
  template <typename PaneType>
  void TakeStates(const std::string& what, controls::Control& control, PaneTrial<PaneType>& trial) {
    Take(what, trial.pane);
    trial.Mouse(Action::kMove, {10, 12});
    Then(what + ", hovered", trial.pane);
    trial.Mouse(Action::kLeave, {});
    trial.pane.FocusChanged(true);
    Then(what + ", with the keyboard", trial.pane);
    trial.pane.FocusChanged(false);
    control.SetEnabled(false);
    Then(what + ", disabled", trial.pane);
    control.SetEnabled(true);
    trial.host.dpi = 144;
    trial.pane.Resized({300, 38});
    Take(what + ", half as large again", trial.pane, {300, 38});
    trial.pane.Detach();
    Then(what + ", its model gone", trial.pane, {300, 38});
  }
  void Approve(const std::string& file) {
    support::ExpectApproved("tests/screens/approved/" + file, taken);
  }

  support::Events events;
  support::FakeScreen screen{events};
  TrialForm form{screen};
  std::string taken;
  std::vector<std::string> before;
};

TEST_F(Pictures, PlainPanes_InEachState_AreAsApproved) {
  controls::Button button(form, "cmd", "ثبت");
  button.SetAccessKey("ث");
  button.SetToolTip("ثبت برنامه");
  PaneTrial<ButtonPane> cmd(button);
  cmd.Mouse(Action::kPress, {100, 12});
  Take("a button, pressed", cmd.pane);
  cmd.Mouse(Action::kMove, {100, 40});
  Take("a button, left while it is pressed", cmd.pane);
  cmd.Mouse(Action::kRelease, {100, 40});
  TakeStates("a button", button, cmd);
  controls::CheckBox box(form, "chk", "فعال");
  box.SetAccessKey("ل");
  box.SetChecked(true);
  PaneTrial<CheckPane> chk(box);
  TakeStates("a check box", box, chk);
  controls::Frame frame(form, "fra", "مناطق");
  PaneTrial<FramePane> fra(frame);
  TakeStates("a frame", frame, fra);
  controls::Label label(frame, "lbl", "یک دو سه");
  PaneTrial<LabelPane> lbl(label);
  TakeStates("a label in a frame", label, lbl);
  PaneTrial<LabelPane> high(label);
  high.pane.Resized({40, 60});
  for (const auto look : {Label::Look::kPlain, Label::Look::kStrong, Label::Look::kSign,
                          Label::Look::kErrorSign, Label::Look::kTechnical}) {
    label.SetLook(look);
    Take("a high label, look " + std::to_string(static_cast<int>(look)), high.pane, {40, 60});
  }
  controls::ProgressBar bar(frame, "bar");
  PaneTrial<ProgressPane> progress(bar);
  for (const double share : {0.25, 2.0, 0.0, -1.0}) {
    bar.SetShare(share);
    Take("a bar, share " + std::to_string(share), progress.pane);
  }
  Approve("plain.txt");
}

TEST_F(Pictures, Fields_InEachState_AreAsApproved) {
  controls::Label label(form, "lbl", "سال : ");
  controls::TextBox text(form, "txt");
  label.SetNamed(&text);
  label.SetAccessKey("س");
  text.SetText("الف");
  text.SetToolTip("چهار رقم");
  PaneTrial<TextPane> txt(text);
  TakeStates("a text box", text, txt);
  controls::DateBox date(form, "dat");
  date.SetText("1404/02/15");
  PaneTrial<DatePane> dat(date);
  dat.Retype("x");
  dat.Strike(Key::kEnter);
  Take("a date box, refused", dat.pane);
  Take("its note", *dat.host.note->pane, dat.host.note->size);
  dat.Strike(Key::kEscape);
  TakeStates("a date box", date, dat);
  controls::ComboBox combo(form, "cmb");
  for (const char* item : {"قالب ساده", "كارت ماهانه"}) combo.AddItem(item);
  combo.SetListIndex(1);
  PaneTrial<ComboPane> cmb(combo);
  cmb.Strike(Key::kF4);
  cmb.host.popup->pane->Pointer({Action::kMove, {20, 5}});
  Take("a choice, open", cmb.pane);
  Take("its list", *cmb.host.popup->pane, cmb.host.popup->size);
  cmb.Strike(Key::kF4);
  TakeStates("a choice", combo, cmb);
  Approve("fields.txt");
}

TEST_F(Pictures, MonthPage_HoveredAndChosen_IsAsApproved) {
  controls::DateBox date(form, "dat");
  date.SetText("1404/02/15");
  PaneTrial<DatePane> dat(date);
  dat.host.today = calendar::SolarHijriDate::FromYearMonthDay(1404, 2, 20)->Days();
  dat.Strike(Key::kF4);
  Pane& page = *dat.host.popup->pane;
  const Size size = dat.host.popup->size;
  for (const Point at : {Point{12, 15}, {40, 15}, {120, 245}, {100, 100}}) {
    page.Pointer({Action::kMove, at});
    Then("the mouse at " + std::to_string(at.x) + " " + std::to_string(at.y), page, size);
  }
  Approve("month.txt");
}

TEST_F(Pictures, Grid_MarkedSoughtAndFramed_IsAsApproved) {
  controls::FlexGrid grid(form, "flx");
  grid.SetAccessibleName("list");
  grid.SetRows(4);
  grid.SetCols(4);
  for (const auto& [col, width] : {std::pair{0, 600}, {1, 0}, {2, 1500}, {3, 3000}}) {
    grid.SetColWidth(col, width);
  }
  grid.SetTextMatrix(0, 2, "the computer number");
  grid.SetTextMatrix(0, 3, "نام");
  grid.SetTextMatrix(1, 2, "a\r\nb");
  grid.SetTextMatrix(2, 0, "2");
  grid.SetTextMatrix(2, 3, "رضا");
  grid.SetTextMatrix(3, 2, "21");
  grid.SetColAlignment(0, controls::FlexGrid::Alignment::kCentreCentre);
  grid.SetColAlignment(3, controls::FlexGrid::Alignment::kLeftCentre);
  grid.rowTextColour = [](int row) { return row == 2 ? palette::kHoliday : 0; };
  grid.SetEmptyText("nothing");
  PaneTrial<GridPane> flx(grid);
  const Size size{400, 150};
  flx.pane.Resized(size);
  Take("a list", flx.pane, size);
  controls::Button all(form, "all", "");
  grid.marking = {&all, &all, &all};
  grid.onMouseDown = [](int, int) {};
  grid.onClick = [] {};
  grid.SetRow(2);
  grid.SetCol(1);
  grid.SetCellBackColor(palette::kMark);
  flx.pane.FocusChanged(true);
  Then("a list with a mark and the keyboard", flx.pane, size);
  grid.SetCol(2);
  grid.SetRowSel(3);
  grid.SetColSel(3);
  grid.SetHighLight(controls::FlexGrid::HighLight::kWithFocus);
  Then("a block", flx.pane, size);
  flx.Type("21");
  Then("letters looked up", flx.pane, size);
  flx.Type("x");
  Then("letters not found", flx.pane, size);
  flx.Strike(Key::kF, {.control = true});
  flx.Retype("رضا");
  Take("found", flx.pane, size);
  flx.Mouse(Action::kPress, {15, 10});
  Then("a button of the line pressed", flx.pane, size);
  flx.Mouse(Action::kMove, {45, 10});
  flx.Mouse(Action::kRelease, {45, 10});
  flx.Retype("zzz");
  Then("not found", flx.pane, size);
  flx.Strike(Key::kEscape);
  flx.host.dpi = 144;
  flx.pane.Resized({600, 225});
  grid.SetRows(1);
  Take("no rows, half as large again", flx.pane, {600, 225});
  Approve("grid.txt");
}

TEST_F(Pictures, Pages_InSight_AreAsApproved) {
  controls::PageView view(form, "view");
  view.SetAccessibleName("pages");
  view.SetSheetSize(300, 400);
  view.SetCount(3);
  view.sheetOf = [](int sheet) {
    controls::Sheet made{300, 400, {}, {}};
    made.fills.push_back({{0, 0, 300, 0.1}, controls::Rgb(1, 2, 3)});
    made.texts.push_back({"sheet " + std::to_string(sheet), {30, 30, 270, 45}, {9, true}});
    made.texts.push_back(
        {"left", {30, 50, 60, 65}, {8}, 0, controls::SheetText::Side::kLeft, false});
    return made;
  };
  PaneTrial<PagesPane> pages(view);
  const Size size{600, 500};
  pages.pane.Resized(size);
  view.SetZoom(1);
  Take("as large as on paper", pages.pane, size);
  view.SetFit(controls::PageView::Fit::kSheet);
  view.GoTo(1);
  Take("a whole sheet", pages.pane, size);
  view.SetZoom(2);
  pages.Strike(Key::kLeft);
  Take("wider than the view", pages.pane, size);
  Approve("pages.txt");
}

}  // namespace
}  // namespace screens
