#include "controls/Controls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "controls/FlexGridHarness.h"

namespace {

using controls::Aspect;
using controls::Change;
using controls::Subscription;
using platform::ResumeNext;
using testing::ElementsAre;

TEST(Observers, ListenersThatComeAndGoInsideACall_HearFromThenOn) {
  controls::Observers model;
  std::string heard;
  Subscription first, third, joined;
  first = model.Subscribe([&](const Change&) {
    heard += '1';
    first.Reset();
    third.Reset();
    joined = model.Subscribe([&](const Change&) { heard += '4'; });
  });
  const Subscription second = model.Subscribe([&](const Change&) { heard += '2'; });
  third = model.Subscribe([&](const Change&) { heard += '3'; });
  model.Notify({Aspect::kText});
  EXPECT_EQ(heard, "12");
  model.Notify({Aspect::kText});
  EXPECT_EQ(heard, "1224");
}

TEST(Observers, SubscriptionAndModel_MayEndInEitherOrder) {
  auto model = std::make_unique<controls::Observers>();
  const auto kept = std::make_shared<int>(7);
  Subscription outliving = model->Subscribe([kept](const Change&) {});
  Subscription ending = model->Subscribe([&](const Change&) { model.reset(); });
  model->Notify({Aspect::kText});
  EXPECT_EQ(model, nullptr);
  outliving = std::move(ending);
  EXPECT_EQ(kept.use_count(), 1);
}

class ControlsTest : public testing::Test {
 protected:
  // The aspects of which a control notifies from now on.
  void Watch(controls::Control& control) {
    subscriptions_.push_back(
        control.Subscribe([this](const Change& change) { aspects.push_back(change.aspect); }));
  }

  LoneContainer form;
  controls::TextBox box{form, "box"};
  controls::Label label{form, "label"};
  controls::Button button{form, "button", "x"};
  controls::CheckBox check{form, "check", "x"};
  controls::ComboBox combo{form, "combo"};
  std::vector<Aspect> aspects;

 private:
  std::vector<Subscription> subscriptions_;
};

TEST_F(ControlsTest, SetToWhatItIsOrRefused_NotifiesNobody) {
  int changes = 0;
  box.onChange = [&] { ++changes; };
  for (controls::Control* each : std::vector<controls::Control*>{&box, &label, &button})
    Watch(*each);
  for (int twice = 0; twice < 2; ++twice) {
    box.SetText("a");
    box.SetEnabled(false);
    box.SetVisible(false);
    box.Move(-1, 2, 3, 4);  // beyond the corner is a place too
    EXPECT_EQ(ResumeNext([&] { box.SetWidth(-1); }), 380);
    EXPECT_EQ(ResumeNext([&] { box.Move(1, 1, 5, -1); }), 380);
    label.SetCaption("b");
    label.SetLook(controls::Label::Look::kStrong);
    button.SetCaption("c");
  }
  EXPECT_THAT(aspects, ElementsAre(Aspect::kText, Aspect::kEnabled, Aspect::kVisible,
                                   Aspect::kBounds, Aspect::kText, Aspect::kText, Aspect::kText));
  EXPECT_EQ(changes, 1);
}

TEST_F(ControlsTest, PastedText_StandsOnTheLineOfTheBox) {
  EXPECT_EQ(box.Pasted("a\r\nb\nc\r\rd\r"), "a b c  d ");
}

TEST_F(ControlsTest, DisabledOrHidden_IsNotClicked) {
  int clicks = 0;
  button.onClick = check.onClick = [&] { ++clicks; };
  const auto click = [&](bool enabled, bool visible) {
    for (controls::Control* control : std::vector<controls::Control*>{&button, &check}) {
      control->SetEnabled(enabled);
      control->SetVisible(visible);
    }
    button.Click();
    check.Click();
    return check.Checked();
  };
  EXPECT_FALSE(click(false, true) || click(true, false));
  EXPECT_TRUE(click(true, true));
  EXPECT_EQ(clicks, 2);
  check.SetChecked(false);  // by code: no click
  EXPECT_EQ(clicks, 2);
}

TEST_F(ControlsTest, ComboBox_ChecksItsIndexesAndClicksForAnotherOne) {
  int clicks = 0;
  combo.onClick = [&] { ++clicks; };
  combo.AddItem("a");
  combo.AddItem("b");
  combo.SetItemData(combo.NewIndex(), 42);
  EXPECT_EQ(combo.ItemData(0), 0);
  EXPECT_EQ(combo.ItemData(1), 42);
  for (const int index : {-2, 2}) {
    EXPECT_EQ(ResumeNext([&] { combo.SetListIndex(index); }), 380);
    EXPECT_EQ(ResumeNext([&] { combo.List(index); }), 381);
    EXPECT_EQ(ResumeNext([&] { combo.ItemData(index); }), 381);
    EXPECT_EQ(ResumeNext([&] { combo.SetItemData(index, 1); }), 381);
  }
  combo.SetListIndex(1);
  combo.SetListIndex(1);
  EXPECT_EQ(clicks, 1);
  Watch(combo);
  combo.Clear();
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_THAT(aspects, ElementsAre(Aspect::kItems));
  combo.Move(1, 2, 300, 315);
  EXPECT_EQ(ResumeNext([&] { combo.SetHeight(500); }), 383);
  EXPECT_EQ(combo.Height(), 315);
}

}  // namespace
