// Persons before panes, as the files of tests/screens/sessions tell them.

#include <gtest/gtest.h>

#include <sstream>

#include "controls/Controls.h"
#include "controls/DateBox.h"
#include "controls/PageView.h"
#include "controls/Selector.h"
#include "platform/RuntimeError.h"
#include "screens/GridPane.h"
#include "screens/PagesPane.h"
#include "screens/Palette.h"
#include "screens/Session.h"
#include "text/Text.h"

namespace screens {
namespace {

using controls::FlexGrid;

constexpr int kRow = 19;

class Sessions : public testing::Test {
 protected:
  /// What every session knows of its control.
  static void Enable(Session& session, controls::Control& control) {
    session.On("disable", [&] { control.SetEnabled(false); });
    session.On("enable", [&] { control.SetEnabled(true); });
  }
  support::Events events;
  support::FakeScreen screen{events};
  TrialForm form{screen};
};

/// A list in a pane of 400 x 200 pixels: nine whole rows below the heading. Its handlers are heard
/// with the cell that the mouse is on; the buttons of marks are too.
class GridSessions : public Sessions {
 protected:
  GridSessions() {
    grid.SetAccessibleName("list");
    for (auto* button : {&all, &inverse, &none}) {
      button->onClick = [this, button] { session.Hear(button->Name()); };
    }
    Listen();
    session.cellPlace = [this](int row, int col) { return Pane().CellPlace(row, col); };
    session.alsoShown = [this] { return Shown(); };
    Enable(session, grid);
    const auto cell = [this](const char* name, auto action) {
      session.On(name, [action](const std::string& rest) {
        std::istringstream in(rest);
        int row = 0;
        int col = 0;
        char comma = ' ';
        std::string text;
        in >> row >> comma >> col;
        std::getline(in >> std::ws, text);
        action(row, col, text);
      });
    };
    cell("at", [this](int row, int col, const std::string&) {
      grid.SetRow(row);
      grid.SetCol(col);
    });
    cell("to", [this](int row, int col, const std::string&) {
      grid.SetRowSel(row);
      grid.SetColSel(col);
    });
    cell("text", [this](int row, int col, const std::string& text) {
      grid.SetTextMatrix(row, col, text::Replace(text, "\\n", "\r\n"));
    });
    cell("width", [this](int col, int width, const std::string&) { grid.SetColWidth(col, width); });
    cell("rows", [this](int rows, int, const std::string&) { grid.SetRows(rows); });
    cell("fixed", [this](int cols, int, const std::string&) { grid.SetFixedCols(cols); });
    cell("stretch", [this](int col, int, const std::string&) { grid.SetStretchCol(col); });
    cell("sort", [this](int how, int, const std::string&) { grid.Sort(how); });
    cell("marks", [this](int, int, const std::string&) {
      marks = true;
      grid.marking = {&all, &inverse, &none};
    });
    cell("listen", [this](int, int, const std::string&) { Listen(); });
    cell("shut", [this](int, int, const std::string&) { grid.onDblClick = nullptr; });
    cell("silent", [this](int, int, const std::string&) {
      grid.onMouseDown = nullptr;
      grid.onDblClick = nullptr;
    });
    steps.note = [this](const std::string& what) {
      session.Hear(what);
      if (what.ends_with("do")) session.Do("at 700,2");
      return std::pair(700, 900);
    };
    cell("steps", [this](int, int, const std::string&) { grid.markSteps = &steps; });
    cell("detaches", [this](int, int, const std::string&) {
      grid.onMouseDown = [this](int, int) { session.trial.pane.Detach(); };
    });
    cell("cursor", [this](int x, int y, const std::string&) {
      session.Hear(Pane().CursorAt({x, y}) == Cursor::kColumnBorder ? "border" : "arrow");
    });
  }

  GridPane& Pane() { return dynamic_cast<GridPane&>(session.trial.pane); }
  void Listen() {
    grid.onMouseDown = [this](int button, int shift) {
      Hear("down " + std::to_string(10 * button + shift));
      if (!marks) return;
      const int row = grid.MouseRow();
      grid.SetRow(row);
      grid.SetCol(1);
      grid.SetCellBackColor(grid.CellBackColor() == palette::kMark ? 0 : palette::kMark);
    };
    grid.onClick = [this] { Hear("click"); };
    grid.onDblClick = [this] { Hear("double"); };
  }
  Point Middle(int row, int col) { return Pane().CellPlace(row, col).Middle(); }
  void ShowLongList() {
    grid.SetRows(1001);
    grid.SetCols(4);
    for (const auto& [col, width] : {std::pair{0, 600}, {1, 0}, {2, 1500}, {3, 7500}}) {
      grid.SetColWidth(col, width);
    }
    session.Do("at 1,2");
  }
  static std::string Cell(int row, int col) {
    return std::to_string(row) + "," + std::to_string(col);
  }
  void Hear(const std::string& what) {
    session.Hear(what + " " + Cell(grid.MouseRow(), grid.MouseCol()));
  }
  std::string Block() const {
    const std::string from = Cell(grid.Row(), grid.Col());
    const std::string to = Cell(grid.RowSel(), grid.ColSel());
    return from == to ? from : from + " to " + to;
  }
  std::vector<std::pair<std::string, std::string>> Shown() {
    const bool inSight = !Pane().CellPlace(grid.RowSel(), grid.ShownCol(grid.ColSel())).Empty();
    std::string marked;
    for (int row = 1; row < std::min(20, grid.Rows()) && marks; ++row) {
      if (grid.EffectiveBackColor(row, 1) == palette::kMark) marked += " " + std::to_string(row);
    }
    const int parts = Pane().PartCount();
    const bool finds = Pane().DescribeField().place != Rect{} && !session.trial.host.field.hidden;
    return {{"block", Block()},
            {"in sight", inSight ? "yes" : "no"},
            {"marked", marked},
            {"width of 2", std::to_string(std::lround(grid.ColWidth(2)))},
            {"place of 3,2",
             [&] {
               std::ostringstream place;
               place << Pane().CellPlace(3, 2);
               return place.str();
             }()},
            {"found", finds ? Pane().DescribePart(parts - FindLine::kParts).name : ""}};
  }

  struct Steps : FlexGrid::MarkSteps {
    void Begin() override { note("begin"); }
    void End() override { note("end"); }
    std::pair<int, int> Undo() override { return note("undo"); }
    std::pair<int, int> Redo() override { return note("redo"); }
    std::function<std::pair<int, int>(const std::string&)> note;
  } steps;
  FlexGrid grid{form, "flx"};
  controls::Button all{form, "all", ""};
  controls::Button inverse{form, "inverse", ""};
  controls::Button none{form, "none", ""};
  bool marks = false;
  Session session{grid, {400, 200}};
};

TEST_F(GridSessions, LongList_ByMouseWheelKeysAndLetters_DoesWhatTheApprovedOneDoes) {
  ShowLongList();
  session.Replay("grid");
}

TEST_F(GridSessions, ListOfAllLooks_AsTheApprovedOne) {
  grid.SetCols(4);
  for (const auto& [col, width] : {std::pair{0, 600}, {1, 0}, {2, 1500}, {3, 3000}}) {
    grid.SetColWidth(col, width);
  }
  grid.SetColAlignment(0, FlexGrid::Alignment::kCentreCentre);
  grid.SetColAlignment(3, FlexGrid::Alignment::kLeftCentre);
  grid.SetHighLight(FlexGrid::HighLight::kWithFocus);
  grid.rowTextColour = [](int row) { return row == 2 ? palette::kHoliday : 0; };
  grid.SetEmptyText("nothing");
  session.Replay("list");
}

TEST_F(GridSessions, FindLine_AsTheApprovedOne) {
  grid.SetCols(4);
  for (const auto& [col, width] : {std::pair{0, 600}, {1, 2400}, {2, 2400}, {3, 0}}) {
    grid.SetColWidth(col, width);
  }
  grid.SetRows(1);
  int row = 0;
  for (const char* cells : {"علي\tتهران", "كريم ۲۱\tرشت", "زهرا\tكرمان", "رضا 21\tيزد"}) {
    grid.AddItem(std::to_string(++row) + "\t" + cells + "\thidden");
  }
  grid.SetFixedRows(1);
  grid.SetRow(1);
  grid.SetCol(1);
  session.trial.pane.FocusChanged(true);
  session.Replay("find");
}

TEST_F(GridSessions, Rows_ThatFitWhole_AreInSightAndTellWhatTheyShorten) {
  ShowLongList();
  EXPECT_EQ(Pane().CellPlace(2, 3), (Rect{0, 2 * kRow, 260, 3 * kRow})) << "what is seen of it";
  EXPECT_TRUE(Pane().CellPlace(2, 1).Empty()) << "hidden";
  EXPECT_FALSE(Pane().CellPlace(9, 2).Empty());
  EXPECT_TRUE(Pane().CellPlace(10, 2).Empty()) << "there is room for a half of it";
  grid.SetTextMatrix(10, 2, "below");
  EXPECT_FALSE(session.trial.Painted().Shows("below"));
  grid.SetTextMatrix(3, 2, "sixteen letters.");
  grid.SetTextMatrix(4, 2, "fifteen letters");
  EXPECT_EQ(Pane().TipAt(Middle(3, 2)).text, "sixteen letters.") << "more than there is room for";
  EXPECT_EQ(Pane().TipAt(Middle(4, 2)).text, "");
}

TEST_F(GridSessions, Changed_OrScrolledByRows_RepaintsNoMoreThanThat) {
  ShowLongList();
  const auto height = [&] {
    int pixels = 0;
    for (const Rect& area : std::exchange(session.trial.host.repainted, {}))
      pixels += area.Height();
    return pixels;
  };
  height();
  grid.SetTextMatrix(5, 2, "x");
  EXPECT_NEAR(height(), kRow, 4);
  grid.SetTextMatrix(900, 2, "x");
  EXPECT_EQ(height(), 0) << "out of sight";
  session.Do("at 3,2");
  EXPECT_NEAR(height(), 2 * kRow, 8) << "where the block was and is";
  Pane().Scrolled(Axis::kDown, 2);
  EXPECT_EQ(session.trial.host.scrolled, -2 * kRow);
  EXPECT_EQ(height(), 0);
}

TEST_F(GridSessions, FindLine_TellsItsFieldAndKeys) {
  ShowLongList();
  grid.SetAccessibleName("list");
  session.trial.Strike(Key::kF, {.control = true});
  EXPECT_EQ(Pane().DescribeField().name, "جستجو در list");
  EXPECT_EQ(Pane().FocusedPart(), Pane().PartCount() - 1);
  EXPECT_EQ(Pane().TipAt(Pane().DescribePart(Pane().PartCount() - 3).place.Middle()).text,
            "بعدي (Enter)");
}

TEST_F(GridSessions, Parts_OfALongList_AreMadeOnDemand) {
  ShowLongList();
  EXPECT_EQ(Pane().PartCount(), 3003) << "one is hidden";
  const int part = 7 * 3 + 1;
  EXPECT_EQ(Pane().DescribePart(part).place, Pane().CellPlace(7, 2));
  EXPECT_EQ(Pane().PartAt(Middle(7, 2)), part);
  EXPECT_EQ(Pane().PartAt({5, 195}), -1) << "below the rows";
  EXPECT_EQ(Pane().DescribePart(3003).role, Role::kNone);
  EXPECT_TRUE(Pane().DescribePart(500 * 3).place.Empty()) << "out of sight";
}

struct Cities : controls::LookupSource {
  platform::RowSet Lookup(const std::string& /*connection*/, const std::string& what) override {
    if (hear) hear("reads " + what);
    if (failing) throw platform::RuntimeError(17, "silent");
    platform::RowSet rows({"ID", "Name", "Code"});
    const char* const names[] = {"مشهد", "نیشابور", "سبزوار", "تهران", "کرج", "شهر ري"};
    for (int i = 0; i < 6; ++i) {
      const std::string id = std::to_string(i + 1);
      if (what.find("ID=") != std::string::npos && !what.ends_with("ID=" + id)) continue;
      for (const std::string& cell : {id, std::string(names[i]), "9" + id}) rows.Append(cell);
    }
    for (int i = 7; many && i <= 30; ++i) {
      for (const std::string& cell : {std::to_string(i), std::string("شهر"), std::string()}) {
        rows.Append(cell);
      }
    }
    return rows;
  }
  std::function<void(const std::string&)> hear;
  bool failing = false;
  bool many = false;
};

TEST_F(Sessions, Selector_AsTheApprovedOne) {
  Cities cities;
  controls::Selector selector(form, "slt", cities);
  selector.SetConnectionString("c");
  selector.SetViews("vwMajor", "vwMinor");
  selector.Select(3);
  Session session(selector, {200, 25});
  cities.hear = [&](const std::string& what) { session.Hear(what); };
  session.alsoShown = [&] {
    const auto* const list = session.trial.host.popup;
    return std::vector{std::pair(std::string("selected"), std::to_string(selector.SelectedID())),
                       std::pair(std::string("list"), list ? Session::Bar(list->host.down) : "")};
  };
  Enable(session, selector);
  session.On("server", [&](const std::string& how) {
    cities.failing = how == "silent";
    cities.many = how == "long";
  });
  session.On("select", [&](const std::string& id) { selector.Select(std::stoi(id)); });
  session.On("open", [&] { session.trial.Strike(Key::kF4); });
  session.Replay("selector");
}

TEST_F(Sessions, DateAndItsMonthPage_AsTheApprovedOnes) {
  controls::DateBox box(form, "dat");
  Session session(box, {200, 25});
  session.trial.host.today = calendar::SolarHijriDate::FromYearMonthDay(1404, 6, 31)->Days();
  session.alsoShown = [&] { return std::vector{std::pair(std::string("date"), box.Text())}; };
  Enable(session, box);
  session.On("set", [&](const std::string& date) { box.SetText(date); });
  session.On("listen", [&] { box.onChange = [&] { session.Hear("changed " + box.Text()); }; });
  session.On("endnote", [&] { session.trial.host.note->pane->Tick(); });
  session.On("page", [&](const std::string& at) {
    std::istringstream in(at);
    Point down;
    Point up;
    in >> down.x >> down.y;
    if (!(in >> up.x >> up.y)) up = down;
    Pane& page = *session.trial.host.popup->pane;
    page.Pointer({PointerEvent::Action::kPress, down});
    page.Pointer({PointerEvent::Action::kRelease, up});
  });
  session.Replay("date");
}

TEST_F(Sessions, TextChoiceButtonAndCheck_AsTheApprovedOnes) {
  controls::Label label(form, "lbl", "سال : ");
  controls::TextBox text(form, "txt");
  label.SetNamed(&text);
  label.SetAccessKey("س");
  text.SetToolTip("چهار رقم");
  text.SetLatinDigits(true);
  text.SetSelectAllOnFocus(true);
  text.onChange = [&] {
    if (text.Text() == "1x") text.SetText("1");
  };
  Session txt(text, {200, 25});
  txt.alsoShown = [&] {
    return std::vector{
        std::pair(std::string("all selected"), std::to_string(txt.trial.host.field.selected))};
  };
  txt.On("paste", [&] { txt.Hear("pasted " + txt.trial.pane.Pasted("۳\r\n۴")); });
  Enable(txt, text);
  txt.Replay("text");

  controls::ComboBox combo(form, "cmb");
  for (const char* title : {"قالب ساده", "كارت ماهانه", "قالب سالانه"}) combo.AddItem(title);
  Session cmb(combo, {200, 25});
  combo.onClick = [&] { cmb.Hear("chosen " + std::to_string(combo.ListIndex())); };
  Enable(cmb, combo);
  cmb.Replay("combo");

  controls::ComboBox hours(form, "cmbLong");
  for (int hour = 0; hour < 30; ++hour) hours.AddItem(std::to_string(hour));
  Session many(hours, {200, 25});
  many.alsoShown = [&] {
    const auto* const list = many.trial.host.popup;
    return std::vector{std::pair(std::string("list"), list ? Session::Bar(list->host.down) : "")};
  };
  many.Replay("long-list");

  controls::Button button(form, "cmd", "ثبت");
  button.SetAccessKey("ث");
  button.SetToolTip("ثبت برنامه");
  Session cmd(button, {200, 25});
  button.onClick = [&] { cmd.Hear("click"); };
  Enable(cmd, button);
  cmd.Replay("button");

  controls::CheckBox box(form, "chk", "فعال");
  box.SetAccessKey("ل");
  Session chk(box, {200, 25});
  Enable(chk, box);
  box.onClick = [&] { chk.Hear("click"); };
  chk.On("stubborn", [&] { box.onClick = [&] { box.SetChecked(false); }; });
  chk.Replay("check");
}

TEST_F(Sessions, LabelsFrameAndBar_AsTheApprovedOnes) {
  controls::Frame frame(form, "fra", "مناطق");
  Session fra(frame, {200, 25});
  Enable(fra, frame);
  fra.Replay("frame");
  controls::Label label(frame, "lbl", "یک دو سه");
  Session lbl(label, {200, 25});
  Enable(lbl, label);
  lbl.On("look", [&](const std::string& look) {
    label.SetLook(static_cast<controls::Label::Look>(std::stoi(look)));
  });
  lbl.Replay("label");
  controls::ProgressBar bar(frame, "bar");
  Session progress(bar, {200, 25});
  progress.On("share", [&](const std::string& share) { bar.SetShare(std::stod(share)); });
  progress.Replay("bar");
}

TEST_F(Sessions, Pages_AsTheApprovedOnes) {
  controls::PageView view(form, "view");
  view.SetSheetSize(300, 400);
  view.SetCount(50'000);
  Session session(view, {600, 500});
  int broken = -1;
  bool busy = false;
  int work = 0;
  view.sheetOf = [&](int sheet) -> std::optional<controls::Sheet> {
    session.Hear("asks for " + std::to_string(sheet));
    if (sheet == broken) throw platform::RuntimeError(57, "broken");
    if (busy) return std::nullopt;
    return controls::Sheet{
        300,
        400,
        {{{0, 0, 300, 0.1}, controls::Rgb(1, 2, 3)}},
        {{std::to_string(sheet), {30, 30, 270, 45}, {9, true}},
         {"left", {30, 50, 60, 65}, {8}, 0, controls::SheetText::Side::kLeft, false}}};
  };
  session.alsoShown = [&] {
    std::string seen;
    for (const std::string& text : session.trial.Painted({600, 500}).texts) seen += " " + text;
    std::ostringstream sheet;
    sheet << dynamic_cast<PagesPane&>(session.trial.pane).SheetPlace(view.Current());
    return std::vector<std::pair<std::string, std::string>>{
        {"seen", seen},
        {"zoom", std::to_string(view.Zoom())},
        {"current sheet at", sheet.str()},
        {"picture moved by", std::to_string(session.trial.host.scrolled)}};
  };
  session.On("guess", [&] { view.onGoLast = [&] { session.Hear("the last, please"); }; });
  session.On("busy", [&](const std::string& is) { busy = is == "yes"; });
  session.On("breaks", [&](const std::string& at) { broken = std::stoi(at); });
  session.On("others", [&] { view.SheetsChanged(); });
  session.On("zoom", [&](const std::string& to) { view.SetZoom(std::stod(to)); });
  session.On("turn", [&](const std::string& up) {
    session.trial.pane.Wheel({.up = std::stod(up), .modifiers = {.control = true}});
  });
  session.On("fit", [&](const std::string& how) {
    view.SetFit(how == "sheet" ? controls::PageView::Fit::kSheet : controls::PageView::Fit::kWidth);
  });
  session.On("go", [&](const std::string& sheet) { view.GoTo(std::stoi(sheet)); });
  session.On("work", [&] {
    view.SetWork([&] {
      session.Hear("works");
      if (++work == 3) view.SetWork(nullptr);
    });
  });
  view.SetZoom(1);
  session.Replay("pages");
}

}  // namespace
}  // namespace screens
