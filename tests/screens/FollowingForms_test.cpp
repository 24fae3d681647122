#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "controls/Controls.h"
#include "screens/Following.h"
#include "screens/TabOrder.h"
#include "support/FakeScreen.h"

namespace {

using testing::ElementsAre;

struct SampleForm : controls::Form {
  explicit SampleForm(controls::Screen& screen) : Form(screen, "Sample", Border::kSizable) {}
  controls::Frame frame{*this, "frame"};
  controls::TextBox inner{frame, "inner"};
  controls::Label brother{frame, "brother"};
  controls::TextBox outer{*this, "outer"};
};

struct FollowingForms : testing::Test {
  support::Events events;
  support::FakeScreen screen{events};
  SampleForm form{screen};
};

// By index; the parts of a frame that has one stand together at its place.
TEST_F(FollowingForms, TabSequence_FramesWithAndWithoutAnIndex_VisitsTheirPartsInPlace) {
  form.outer.SetTabIndex(2);
  form.inner.SetTabIndex(3);
  EXPECT_THAT(screens::TabSequence(form), ElementsAre(&form.outer, &form.inner));
  form.frame.SetTabIndex(1);
  EXPECT_THAT(screens::TabSequence(form), ElementsAre(&form.brother, &form.inner, &form.outer));
}

TEST_F(FollowingForms, Following_InAFrame_KeepsStepWithIt) {
  std::vector<controls::Aspect> applied;
  screens::Following following;
  following.Begin(form.inner, [&](const controls::Change& c) { applied.push_back(c.aspect); });
  EXPECT_EQ(applied.size(), 8U);
  applied.clear();
  form.frame.SetLeft(50);
  form.frame.SetEnabled(false);  // no matter of its parts
  form.inner.SetText("a");
  following.End();
  form.frame.SetLeft(60);
  form.inner.SetText("b");
  EXPECT_THAT(applied, ElementsAre(controls::Aspect::kBounds, controls::Aspect::kText));
}

}  // namespace
