#include "screens/PlainPanes.h"

#include <gmock/gmock.h>
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
  EXPECT_EQ(trial.Painted().ColourAt({100, 12}), palette::kLine);
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
  EXPECT_EQ(trial.Painted().ColourAt({100, 12}), palette::kAccentGround) << "hovered";
  trial.Mouse(Action::kLeave, {});
  const RecordingSurface surface = trial.Painted();
  EXPECT_EQ(surface.ColourAt({20, 12}), palette::kButton);
  // The first of three letters of 6 pixels in the middle of 200 is underlined.
  EXPECT_EQ(surface.fills.back().first, (Rect{103, 19, 109, 20}));
  button.SetEnabled(false);
  trial.Click({100, 12});
  EXPECT_TRUE(trial.Strike(Key::kEnter));
  EXPECT_EQ(clicks, 3);
  EXPECT_EQ(trial.Painted().ColourAt({20, 12}), palette::kFormGround);
}

TEST_F(PlainPanes, CheckBox_Clicked_AsksTheModel) {
  controls::CheckBox box(form, "chk", "فعال");
  PaneTrial<CheckPane> trial(box);
  trial.Click({100, 12});
  EXPECT_TRUE(box.Checked());
  EXPECT_EQ(trial.Painted().strokes.size(), 1U);
  EXPECT_FALSE(trial.Strike(Key::kEnter)) << "the form's";
  trial.pane.Act(-1);
  EXPECT_FALSE(trial.pane.Describe().checked);
  box.onClick = [&] { box.SetChecked(false); };
  trial.Strike(Key::kSpace);
  EXPECT_TRUE(trial.Painted().strokes.empty()) << "what the model says";
}

TEST_F(PlainPanes, Labels_AreOfOneLineOrAsManyAsTheyHaveRoomFor) {
  controls::Label label(form, "lbl", "یک دو سه");
  PaneTrial<LabelPane> trial(label);
  EXPECT_TRUE(trial.Painted().Shows("یک دو سه"));
  trial.pane.Resized({40, 60});
  const RecordingSurface wrapped = trial.Painted();
  ASSERT_EQ(wrapped.texts.size(), 2U);
  EXPECT_EQ(wrapped.texts[0].box, (Rect{0, 15, 40, 30})) << "in the middle of its height";
  label.SetLook(controls::Label::Look::kErrorSign);
  EXPECT_EQ(trial.Painted().ColourAt({20, 20}), palette::kRefused);
  EXPECT_EQ(trial.pane.Describe().role, Role::kSign);
  label.SetLook(controls::Label::Look::kTechnical);
  EXPECT_EQ(trial.Painted().texts[0].style.direction, Direction::kLeftToRight);
}

TEST_F(PlainPanes, FrameAndProgress_FillFromTheRightUnderTheCaption) {
  controls::Frame frame(form, "fra", "مناطق");
  controls::ProgressBar bar(frame, "bar");
  const PaneTrial<FramePane> around(frame);
  EXPECT_EQ(around.Painted().texts.back().box.right, 192);
  PaneTrial<ProgressPane> trial(bar);
  bar.SetShare(0.25);
  EXPECT_EQ(trial.Painted().ColourAt({190, 12}), palette::kAccent);
  EXPECT_EQ(trial.Painted().ColourAt({100, 12}), palette::kField);
  EXPECT_EQ(trial.Painted().ColourAt({0, -1}), 0U);
  EXPECT_EQ(trial.pane.Describe().value, "25%");
  bar.SetShare(-1);
  EXPECT_EQ(trial.pane.Describe().value, "");
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
