#include "controls/Controls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "controls/FlexGridHarness.h"

namespace {

using controls::Aspect;
using controls::Change;
using controls::Subscription;
using testing::ElementsAre;
using testing::IsEmpty;

class ControlsTest : public testing::Test {
 protected:
  // The aspects of which a control notifies from now on.
  void Watch(controls::Control& control) {
    subscription_ =
        control.Subscribe([this](const Change& change) { aspects.push_back(change.aspect); });
  }
  std::vector<Aspect> Taken() { return std::exchange(aspects, {}); }

  LoneContainer form;
  std::vector<Aspect> aspects;

 private:
  Subscription subscription_;
};

TEST(Observers, ListenerThatLeavesInsideACall_HearsNoMore) {
  controls::Observers model;
  std::string heard;
  Subscription first;
  Subscription third;
  first = model.Subscribe([&](const Change&) {
    heard += '1';
    first.Reset();
    third.Reset();
  });
  const Subscription second = model.Subscribe([&](const Change&) { heard += '2'; });
  third = model.Subscribe([&](const Change&) { heard += '3'; });
  model.Notify({Aspect::kText});
  model.Notify({Aspect::kText});
  EXPECT_EQ(heard, "122");
}

TEST(Observers, ListenerThatJoinsInsideACall_HearsFromTheNextChange) {
  controls::Observers model;
  std::string heard;
  std::vector<Subscription> joined;
  const Subscription first = model.Subscribe([&](const Change&) {
    heard += 'a';
    joined.push_back(model.Subscribe([&](const Change&) { heard += 'b'; }));
  });
  model.Notify({Aspect::kText});
  EXPECT_EQ(heard, "a");
  model.Notify({Aspect::kText});
  EXPECT_EQ(heard, "aab");
}

TEST(Observers, SubscriptionAndModel_MayEndInEitherOrder) {
  auto model = std::make_unique<controls::Observers>();
  const auto kept = std::make_shared<int>(7);
  Subscription outliving = model->Subscribe([kept](const Change&) {});
  Subscription ending = model->Subscribe([&](const Change&) { model.reset(); });
  model->Notify({Aspect::kText});
  EXPECT_EQ(model, nullptr);
  EXPECT_EQ(kept.use_count(), 2);
  outliving.Reset();
  EXPECT_EQ(kept.use_count(), 1);
}

TEST(Observers, SubscriptionThatTakesAnothersPlace_ReleasesItsOwn) {
  controls::Observers model;
  std::string heard;
  Subscription a = model.Subscribe([&](const Change&) { heard += 'a'; });
  Subscription b = model.Subscribe([&](const Change&) { heard += 'b'; });
  a = std::move(b);
  model.Notify({Aspect::kText});
  EXPECT_EQ(heard, "b");
}

TEST_F(ControlsTest, SetToWhatItIs_NotifiesNobody) {
  controls::TextBox box{form, "box"};
  int changes = 0;
  box.onChange = [&] { ++changes; };
  Watch(box);
  box.SetText("");
  box.SetEnabled(true);
  box.SetVisible(true);
  box.SetLeft(0);
  box.Move(0, 0, 0, 0);
  EXPECT_THAT(Taken(), IsEmpty());
  EXPECT_EQ(changes, 0);

  box.SetText("a");
  box.SetEnabled(false);
  box.SetVisible(false);
  box.Move(1, 2, 3, 4);
  box.SetTop(2.5);
  EXPECT_THAT(Taken(), ElementsAre(Aspect::kText, Aspect::kEnabled, Aspect::kVisible,
                                   Aspect::kBounds, Aspect::kBounds));
  EXPECT_EQ(changes, 1);
}

TEST_F(ControlsTest, NegativeSize_IsRefusedAndChangesNothing) {
  controls::Label label{form, "label"};
  label.Move(10, 20, 30, 40);
  Watch(label);
  EXPECT_EQ(ErrorOf([&] { label.SetWidth(-1); }), 380);
  EXPECT_EQ(ErrorOf([&] { label.SetHeight(-0.5); }), 380);
  EXPECT_EQ(ErrorOf([&] { label.Move(1, 1, 5, -1); }), 380);
  EXPECT_EQ(label.Left(), 10);
  EXPECT_EQ(label.Width(), 30);
  EXPECT_EQ(label.Height(), 40);
  EXPECT_THAT(Taken(), IsEmpty());
  label.Move(-5, -6, 30, 40);  // beyond the corner is a place too
  EXPECT_EQ(label.Left(), -5);
}

TEST_F(ControlsTest, FrameResized_LaysOutOnceForEachNewSize) {
  class Composite : public controls::Frame {
   public:
    using Frame::Frame;
    int layouts = 0;

   protected:
    void Resized() override { ++layouts; }
  };
  Composite frame{form, "frame"};
  frame.Move(0, 0, 100, 50);
  EXPECT_EQ(frame.layouts, 1);
  frame.Move(9, 9, 100, 50);
  EXPECT_EQ(frame.layouts, 1);
  frame.SetWidth(120);
  frame.SetHeight(60);
  EXPECT_EQ(frame.layouts, 3);
}

TEST_F(ControlsTest, DisabledOrHidden_IsNotClicked) {
  controls::Button button{form, "button", "x"};
  controls::CheckBox check{form, "check", "x"};
  int clicks = 0;
  button.Click();  // nobody listens
  button.onClick = check.onClick = [&] { ++clicks; };
  for (controls::Control* control :
       {static_cast<controls::Control*>(&button), static_cast<controls::Control*>(&check)}) {
    control->SetEnabled(false);
  }
  button.Click();
  check.Click();
  EXPECT_EQ(clicks, 0);
  EXPECT_FALSE(check.Checked());
  button.SetEnabled(true);
  button.SetVisible(false);
  button.Click();
  EXPECT_EQ(clicks, 0);
  button.SetVisible(true);
  check.SetEnabled(true);
  button.Click();
  check.Click();
  EXPECT_EQ(clicks, 2);
  EXPECT_TRUE(check.Checked());
  check.SetChecked(false);  // by code: no click
  EXPECT_EQ(clicks, 2);
}

TEST_F(ControlsTest, ComboBoxIndexes_AreCheckedAgainstTheList) {
  controls::ComboBox combo{form, "combo"};
  int clicks = 0;
  combo.onClick = [&] { ++clicks; };
  EXPECT_EQ(combo.NewIndex(), -1);
  combo.SetListIndex(-1);
  EXPECT_EQ(ErrorOf([&] { combo.SetListIndex(0); }), 380);
  EXPECT_EQ(ErrorOf([&] { combo.List(0); }), 381);
  combo.AddItem("a");
  combo.AddItem("b");
  combo.SetItemData(combo.NewIndex(), 42);
  EXPECT_EQ(combo.ItemData(0), 0);
  EXPECT_EQ(combo.ItemData(1), 42);
  EXPECT_EQ(ErrorOf([&] { combo.SetListIndex(2); }), 380);
  EXPECT_EQ(ErrorOf([&] { combo.SetListIndex(-2); }), 380);
  EXPECT_EQ(ErrorOf([&] { combo.List(-1); }), 381);
  EXPECT_EQ(ErrorOf([&] { combo.ItemData(2); }), 381);
  EXPECT_EQ(ErrorOf([&] { combo.SetItemData(2, 1); }), 381);
  EXPECT_EQ(combo.ListIndex(), -1);
  combo.SetListIndex(1);
  combo.SetListIndex(1);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(combo.List(combo.ListIndex()), "b");
  Watch(combo);
  combo.Clear();
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(combo.ListCount(), 0);
  EXPECT_THAT(Taken(), ElementsAre(Aspect::kItems));
}

TEST_F(ControlsTest, ComboBoxHeight_IsReadOnlyButPlacedByMove) {
  controls::ComboBox combo{form, "combo"};
  combo.Move(1, 2, 300, 315);
  EXPECT_EQ(ErrorOf([&] { combo.SetHeight(500); }), 383);
  EXPECT_EQ(combo.Height(), 315);
  combo.SetWidth(400);
  EXPECT_EQ(combo.Width(), 400);
}

}  // namespace
