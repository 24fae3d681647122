#include <gtest/gtest.h>

#include <set>

#include "screens/ButtonPanes.h"
#include "screens/Palette.h"
#include "screens/PaneTrial.h"

namespace screens {
namespace {

using Action = PointerEvent::Action;

class PlainPanes : public testing::Test {
 protected:
  support::Events events;
  support::FakeScreen screen{events};
  TrialForm form{screen};
  int clicks = 0;
};

TEST_F(PlainPanes, Button_ByMouseAndKeys_ClicksOnlyWhereItIsReleased) {
  controls::Button button(form, "cmd", "ثبت");
  button.SetAccessKey("ث");
  button.onClick = [&] { ++clicks; };
  PaneTrial<ButtonPane> trial(button);
  trial.Mouse(Action::kPress, {100, 12});
  trial.Mouse(Action::kMove, {103, 40});
  trial.Mouse(Action::kRelease, {103, 40});
  EXPECT_EQ(clicks, 0) << "released beside it";
  trial.Mouse(Action::kPress, {100, 12});
  trial.Mouse(Action::kMove, {103, 14});
  trial.Mouse(Action::kRelease, {103, 14});
  EXPECT_TRUE(trial.Strike(Key::kEnter));
  EXPECT_TRUE(trial.Strike(Key::kSpace));
  EXPECT_EQ(clicks, 3);
  EXPECT_FALSE(trial.Strike(Key::kEscape));
  button.SetEnabled(false);
  trial.Click({100, 12});
  EXPECT_TRUE(trial.Strike(Key::kEnter));
  EXPECT_EQ(clicks, 3);
}

TEST_F(PlainPanes, CheckBox_Clicked_AsksTheModel) {
  controls::CheckBox box(form, "chk", "فعال");
  PaneTrial<CheckPane> trial(box);
  trial.Click({100, 12});
  EXPECT_TRUE(box.Checked());
  EXPECT_FALSE(trial.Strike(Key::kEnter)) << "the form's";
  trial.pane.Act(-1);
  EXPECT_FALSE(box.Checked());
  box.onClick = [&] { box.SetChecked(false); };
  trial.Strike(Key::kSpace);
  EXPECT_FALSE(trial.pane.Describe().checked) << "what the model says";
}

// Roles are told apart by their light colour, tinted or not.
TEST(Palette, Dark_EachColourHasItsOwn) {
  std::set<controls::Colour> light;
  for (const controls::Colour colour :
       {palette::kFormGround, palette::kButton, palette::kFrame, palette::kGridRow,
        palette::kGridBand, palette::kMark, palette::kText, palette::kField}) {
    for (const controls::Colour shade : {colour, palette::Tinted(colour)}) {
      EXPECT_TRUE(light.insert(shade).second) << shade;
      EXPECT_NE(palette::InScheme(shade, palette::Scheme::kDark), shade);
      EXPECT_EQ(palette::InScheme(shade, palette::Scheme::kLight), shade);
    }
  }
}

}  // namespace
}  // namespace screens
