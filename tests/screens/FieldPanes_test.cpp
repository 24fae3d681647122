#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/RuntimeError.h"
#include "screens/ComboPane.h"
#include "screens/DatePane.h"
#include "screens/PaneTrial.h"
#include "screens/PopupPlace.h"
#include "screens/SelectorPane.h"
#include "screens/TextPane.h"

namespace screens {
namespace {

using calendar::SolarHijriDate;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr Point kOnButton{10, 12};
constexpr Modifiers kAlt{.alt = true};

struct Cities : controls::LookupSource {
  platform::RowSet Lookup(const std::string& /*connection*/, const std::string& what) override {
    ++lookups;
    if (failing) throw platform::RuntimeError(17, "silent");
    platform::RowSet rows({"ID", "Name", "Code"});
    const char* const names[] = {"مشهد", "نیشابور", "سبزوار", "تهران", "کرج", "شهر ري"};
    for (int i = 0; i < 6; ++i) {
      const std::string id = std::to_string(i + 1);
      if (what.find("ID=") != std::string::npos && !what.ends_with("ID=" + id)) continue;
      for (const std::string& cell : {id, std::string(names[i]), "9" + id}) rows.Append(cell);
    }
    return rows;
  }
  int lookups = 0;
  bool failing = false;
};

class FieldPanes : public testing::Test {
 protected:
  support::Events events;
  support::FakeScreen screen{events};
  TrialForm form{screen};
  std::vector<std::string> heard;
};

TEST_F(FieldPanes, Text_TypedPastedOrRefusedByItsHandler_ShowsTheModel) {
  controls::TextBox box(form, "txt");
  box.SetLatinDigits(true);
  box.SetSelectAllOnFocus(true);
  box.onChange = [&] {
    if (box.Text() == "1x") box.SetText("1");
  };
  PaneTrial<TextPane> trial(box);
  trial.Type("۱x");
  EXPECT_EQ(trial.host.field.text, "1");
  EXPECT_EQ(trial.pane.Pasted("۳\r\n۴"), "3 4");
  trial.pane.FocusChanged(true);
  EXPECT_EQ(trial.host.field.selected, 1);
  box.SetEnabled(false);
  EXPECT_FALSE(trial.Strike(Key::kF4)) << "nothing opens below it";
  trial.Click(kOnButton);
  EXPECT_EQ(trial.host.focusTaken, 0) << "while disabled";
}

TEST_F(FieldPanes, Date_TypedOrStepped_IsUnderstoodOrRefused) {
  controls::DateBox box(form, "dat");
  PaneTrial<DatePane> trial(box);
  trial.host.today = SolarHijriDate::FromYearMonthDay(1404, 2, 15)->Days();
  for (const char* typed : {"۱۴۰۳/۱/۵", "١٤٠٣/١/٥", "14030105"}) {
    box.SetText("1404/02/15");
    trial.Retype(typed);
    EXPECT_TRUE(trial.Strike(Key::kEnter));
    EXPECT_EQ(trial.host.field.text, "1403/01/05") << typed;
  }
  EXPECT_FALSE(trial.Strike(Key::kEnter)) << "nothing typed: this one is the form's";
  box.onChange = [&] { heard.push_back(box.Text()); };
  EXPECT_TRUE(trial.Strike(Key::kEnter));
  EXPECT_THAT(heard, ElementsAre("1403/01/05")) << "the same day, for whom it matters";
  for (const Key key : {Key::kUp, Key::kPageUp, Key::kPageUp, Key::kDown, Key::kPageDown}) {
    EXPECT_TRUE(trial.Strike(key));
  }
  EXPECT_FALSE(trial.Strike(Key::kUp, {.shift = true}));
  EXPECT_EQ(box.Text(), "1403/02/05");

  trial.Retype("1403/13/40");
  EXPECT_TRUE(trial.Strike(Key::kEnter));
  EXPECT_EQ(trial.host.field.text, "1403/13/40");
  ASSERT_NE(trial.host.note, nullptr);
  EXPECT_THAT(trial.host.note->pane->Describe().name, HasSubstr("1403/13/40"));
  trial.host.note->pane->Tick();
  EXPECT_FALSE(trial.host.note->visible) << "it goes by itself";
  trial.pane.FocusChanged(false);
  EXPECT_EQ(trial.host.field.text, "1403/02/05") << "the old date comes back on leaving";
  EXPECT_TRUE(trial.host.note->visible) << "and says why";
  trial.Retype("x");
  EXPECT_EQ(trial.host.note, nullptr);
  EXPECT_TRUE(trial.Strike(Key::kEscape));
  EXPECT_EQ(trial.host.field.text, "1403/02/05");
  EXPECT_FALSE(trial.Strike(Key::kEscape)) << "the form's";
}

TEST_F(FieldPanes, MonthPage_ClickedOrMovedByKeys_GivesTheDay) {
  controls::DateBox box(form, "dat");
  box.SetText("1404/02/15");
  PaneTrial<DatePane> trial(box);
  trial.Click(kOnButton);
  ASSERT_TRUE(trial.pane.PageOpen());
  const MonthPane& page = *trial.pane.Page();
  using Part = MonthBrowser::Part;
  const auto place = [&](const MonthPane::Spot& spot) { return page.PlaceOf(spot).Middle(); };
  EXPECT_GT(place({Part::kDay, 0, 0}).x, place({Part::kDay, 0, 6}).x) << "Saturday at the right";
  Pane& shown = *trial.host.popup->pane;
  trial.Click(shown, place({Part::kMonthOn}));
  EXPECT_EQ(page.Describe().name, "خرداد 1404");
  trial.Click(shown, place({Part::kMonthBack}));
  shown.Wheel({.up = 0.6});
  shown.Wheel({.up = 0.6});
  shown.Wheel({.up = -1.3});
  trial.Click(shown, place({Part::kDay, 1, 0}));
  EXPECT_EQ(box.Text(), "1404/02/06");
  EXPECT_FALSE(trial.pane.PageOpen());

  EXPECT_TRUE(trial.Strike(Key::kDown, kAlt));
  for (const Key key : {Key::kPageDown, Key::kLeft, Key::kDown}) EXPECT_TRUE(trial.Strike(key));
  EXPECT_EQ(page.DescribePart(page.FocusedPart()).value, "1404/03/14");
  trial.Type("5");
  EXPECT_EQ(trial.host.field.text, "1404/02/06") << "the keys of an open page mean no letters";
  EXPECT_TRUE(trial.Strike(Key::kEnter));
  EXPECT_EQ(box.Text(), "1404/03/14");
  trial.Strike(Key::kF4);
  trial.Strike(Key::kPageUp, {.control = true});
  EXPECT_FALSE(trial.Strike(Key::kTab)) << "closes the page, and the form goes on";
  EXPECT_FALSE(trial.pane.PageOpen());
  EXPECT_EQ(box.Text(), "1404/03/14");
  trial.Strike(Key::kF4);
  trial.pane.PopupLeft();
  trial.Strike(Key::kF4);
  box.SetEnabled(false);
  EXPECT_FALSE(trial.pane.PageOpen());
  trial.Strike(Key::kF4);
  EXPECT_FALSE(trial.pane.PageOpen()) << "nothing opens while disabled";
}

struct SelectorPanes : FieldPanes {
  SelectorPanes() {
    selector.SetConnectionString("c");
    selector.SetViews("vwMajor", "vwMinor");
    selector.Select(3);
    trial = std::make_unique<PaneTrial<SelectorPane>>(selector);
  }
  const std::string& Field() const { return trial->host.field.text; }
  bool Open() const { return trial->pane.Drop().Open(); }
  int Rows() const { return trial->pane.Drop().List()->PartCount(); }

  Cities cities;
  controls::Selector selector{form, "slt", cities};
  std::unique_ptr<PaneTrial<SelectorPane>> trial;
};

TEST_F(SelectorPanes, Typed_Narrows_AndKeysChooseRestoreOrEmpty) {
  EXPECT_EQ(Field(), "سبزوار");
  trial->Retype("شهر ری");
  EXPECT_EQ(Rows(), 1) << "either yeh";
  const int lookups = cities.lookups;
  trial->Retype("ري");
  EXPECT_EQ(cities.lookups, lookups) << "the list is read when it opens, not by each key";
  EXPECT_TRUE(trial->Strike(Key::kEnter));
  EXPECT_FALSE(Open());
  EXPECT_EQ(selector.SelectedID(), 6);
  EXPECT_EQ(Field(), "شهر ري");
  EXPECT_FALSE(trial->Strike(Key::kEnter)) << "the form's";

  const struct {
    const char* typed;
    Key leaving;
    int selected;
    const char* shown;
  } kCases[] = {{"ته", Key::kEscape, 6, "شهر ري"},
                {"zzz", Key::kTab, 6, "شهر ري"},
                {"ته", Key::kTab, 4, "تهران"},
                {"", Key::kTab, -1, ""}};
  for (const auto& each : kCases) {
    const int before = selector.SelectedID();
    trial->Retype(each.typed);
    EXPECT_EQ(selector.SelectedID(), before) << "not before the box is left";
    if (!trial->Strike(each.leaving)) trial->pane.FocusChanged(false);
    EXPECT_EQ(selector.SelectedID(), each.selected) << each.typed;
    EXPECT_EQ(Field(), each.shown);
    EXPECT_FALSE(Open());
  }
}

TEST_F(SelectorPanes, List_ByMouseArrowsAndTurnings_StandsWhereItIsChosen) {
  trial->Strike(Key::kDown);
  const ListPane& list = *trial->pane.Drop().List();
  EXPECT_EQ(list.DescribePart(list.Current()).name, "سبزوار");
  trial->Strike(Key::kUp);
  trial->Strike(Key::kPageUp);
  EXPECT_EQ(list.Current(), 0);
  trial->Strike(Key::kPageDown);
  EXPECT_EQ(list.Current(), 5);
  trial->Click(*trial->host.popup->pane, list.RowPlace(1).Middle());
  EXPECT_EQ(selector.SelectedID(), 3) << "the second by name";
  trial->Strike(Key::kF4);
  trial->pane.PopupLeft();
  EXPECT_FALSE(Open());
  trial->Strike(Key::kF4);
  selector.SetEnabled(false);
  EXPECT_FALSE(Open());
  trial->Strike(Key::kDown);
  EXPECT_FALSE(Open()) << "while disabled";
  trial->pane.Detach();
  trial->Strike(Key::kDown);
  trial->pane.FocusChanged(false);
}

TEST_F(SelectorPanes, ServerSilent_ErrorTravelsAndTheListStaysClosed) {
  cities.failing = true;
  EXPECT_THROW(trial->Strike(Key::kF4), platform::RuntimeError);
  EXPECT_FALSE(Open());
  EXPECT_THROW(selector.Select(5), platform::RuntimeError);
  EXPECT_EQ(Field(), "") << "no other one's name";
  cities.failing = false;
  selector.Select(4);
  EXPECT_EQ(Field(), "تهران");
}

TEST_F(FieldPanes, Combo_ByKeysLettersAndMouse_ChoosesOnlyWhatIsTaken) {
  controls::ComboBox box(form, "cmb");
  for (const char* title : {"قالب ساده", "كارت ماهانه", "قالب سالانه"}) box.AddItem(title);
  PaneTrial<ComboPane> trial(box);
  box.onClick = [&] { heard.push_back(std::to_string(box.ListIndex())); };
  trial.Strike(Key::kDown);
  trial.Type("قک");
  trial.Strike(Key::kHome);
  EXPECT_THAT(heard, ElementsAre("0", "2", "1", "0")) << "either kaf";
  heard.clear();
  EXPECT_TRUE(trial.Strike(Key::kF4));
  trial.Strike(Key::kDown);
  trial.Strike(Key::kEscape);
  EXPECT_TRUE(heard.empty()) << "in the open list only the mark moved";
  trial.Click({100, 12});
  trial.Strike(Key::kDown);
  EXPECT_FALSE(trial.Strike(Key::kTab));
  EXPECT_THAT(heard, ElementsAre("1"));
  trial.Click({100, 12});
  Pane& list = *trial.host.popup->pane;
  trial.Click(list, trial.pane.Drop().List()->RowPlace(2).Middle());
  EXPECT_THAT(heard, ElementsAre("1", "2"));
  EXPECT_FALSE(trial.pane.Drop().Open());
  EXPECT_EQ(trial.pane.Describe().value, "قالب سالانه");
  EXPECT_FALSE(trial.Strike(Key::kEscape)) << "the form's";
}

TEST(PopupPlace, AtTheEdgesOfTheRoom_StaysInside) {
  const Rect room{0, 0, 1000, 700};
  EXPECT_EQ(PopupPlace({600, 100, 800, 125}, {300, 200}, 2, room), (Rect{500, 127, 800, 327}));
  EXPECT_EQ(PopupPlace({600, 600, 800, 625}, {300, 200}, 2, room), (Rect{500, 398, 800, 598}));
  EXPECT_EQ(PopupPlace({10, 100, 90, 125}, {300, 900}, 2, room), (Rect{0, 0, 300, 900}));
}

}  // namespace
}  // namespace screens
