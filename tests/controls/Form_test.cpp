#include "controls/Form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "controls/Controls.h"
#include "controls/Following.h"
#include "controls/PixelPlace.h"
#include "controls/TabOrder.h"
#include "platform/ResumeNext.h"
#include "support/FakeScreen.h"

namespace {

using controls::Modality;
using platform::ResumeNext;
using testing::ElementsAre;
using testing::IsEmpty;

class SampleForm : public controls::Form {
 public:
  SampleForm(controls::Screen& screen, support::Events& calls)
      : Form(screen, "Sample", Border::kSizable), calls_(calls) {}

  bool fails = false;

  controls::Frame frame{*this, "frame"};
  controls::TextBox inner{frame, "inner"};
  controls::Label brother{frame, "brother"};
  controls::TextBox outer{*this, "outer"};

 protected:
  void FormLoad() override {
    calls_.emplace_back("load");
    Load();  // finds the form loaded
    if (fails) throw platform::RuntimeError(1, "load");
  }
  void FormUnload() override {
    calls_.emplace_back("finish");
    if (fails) throw platform::RuntimeError(2, "unload");
  }
  void FormResize() override { calls_.emplace_back("resize"); }

 private:
  support::Events& calls_;
};

class FormTest : public testing::Test {
 protected:
  support::Events calls;
  support::FakeScreen screen{calls};
  SampleForm form{screen, calls};
};

TEST_F(FormTest, ShownHiddenAndUnloaded_IsLoadedOnceUntilItIsUnloaded) {
  form.Unload();
  for (int twice = 0; twice < 2; ++twice) {
    form.Show(Modality::kModeless);
    form.Show(Modality::kModeless);  // comes to the front
    form.Hide();
    form.Hide();
  }
  form.Show(Modality::kModeless);
  form.CloseBox();
  EXPECT_FALSE(form.Loaded() || form.Visible());
  const std::string show = "show Sample modeless";
  EXPECT_THAT(calls, ElementsAre("load", show, show, "hide Sample", show, show, "hide Sample", show,
                                 "hide Sample", "finish", "unload Sample"));
}

TEST_F(FormTest, LoadOrUnloadThrows_StaysUnloadedOrLoadedAndUnseen) {
  form.fails = true;
  EXPECT_EQ(ResumeNext([&] { form.Show(Modality::kModal); }), 1);
  EXPECT_FALSE(form.Loaded() || form.Visible());
  EXPECT_THAT(screen.log, IsEmpty());
  form.fails = false;
  form.Show(Modality::kModeless);
  form.fails = true;
  EXPECT_EQ(ResumeNext([&] { form.Unload(); }), 2);
  EXPECT_TRUE(form.Loaded());
  EXPECT_FALSE(form.Visible());
}

TEST_F(FormTest, ShownModal_IsModalUntilHiddenAndRefusesToBeShownAgain) {
  SampleForm other{screen, calls};
  std::vector<int> errors;
  screen.OnModal([&](controls::Form&) {
    for (const Modality modality : {Modality::kModal, Modality::kModeless}) {
      errors.push_back(ResumeNext([&] { form.Show(modality); }));
    }
    errors.push_back(ResumeNext([&] { other.Show(Modality::kModeless); }));
    EXPECT_TRUE(other.Loaded() && !other.Visible());
    form.Hide();
  });
  form.Show(Modality::kModal);
  EXPECT_THAT(errors, ElementsAre(400, 401, 401));
  EXPECT_THAT(screen.log, ElementsAre("show Sample modal", "hide Sample"));
  form.Show(Modality::kModeless);
  EXPECT_EQ(ResumeNext([&] { form.Show(Modality::kModal); }), 400);
}

TEST_F(FormTest, ResizeAndCaption_AnotherOne_LayOutAndNotifyOnce) {
  std::vector<controls::Aspect> heard;
  const auto subscription =
      form.Subscribe([&](const controls::Change& change) { heard.push_back(change.aspect); });
  for (int twice = 0; twice < 2; ++twice) {
    form.Resize(9000, 6000);
    form.SetCaption("a");
    EXPECT_EQ(ResumeNext([&] { form.Resize(-1, 6000); }), 380);
  }
  EXPECT_EQ(form.Width(), 9000);
  EXPECT_THAT(calls, ElementsAre("resize"));
  EXPECT_THAT(heard, ElementsAre(controls::Aspect::kBounds, controls::Aspect::kText));
}

TEST_F(FormTest, SetFocus_ReachesOnlyWhatAUserCanReach) {
  const auto focusError = [&] { return ResumeNext([&] { form.inner.SetFocus(); }); };
  EXPECT_EQ(focusError(), 5);
  form.Show(Modality::kModeless);
  for (controls::Control* part : std::vector<controls::Control*>{&form.inner, &form.frame}) {
    part->SetEnabled(false);
    EXPECT_EQ(focusError(), 5) << part->Name();
    part->SetEnabled(true);
    part->SetVisible(false);
    EXPECT_EQ(focusError(), 5) << part->Name();
    part->SetVisible(true);
  }
  EXPECT_EQ(focusError(), 0);
  EXPECT_EQ(calls.back(), "focus inner");
}

TEST_F(FormTest, EndOfControlOrForm_IsForgottenByFormOrScreen) {
  EXPECT_EQ(form.FindControl("inner"), &form.inner);
  EXPECT_EQ(form.FindControl("Outer"), nullptr);
  { const controls::Label brief{form.frame, "brief"}; }
  EXPECT_EQ(form.FindControl("brief"), nullptr);
  { SampleForm(screen, calls).Load(); }
  EXPECT_THAT(calls, ElementsAre("load", "unload Sample"));
}

// By index; the parts of a frame that has one stand together at its place.
TEST_F(FormTest, TabSequence_FramesWithAndWithoutAnIndex_VisitsTheirPartsInPlace) {
  form.outer.SetTabIndex(2);
  form.inner.SetTabIndex(3);
  EXPECT_THAT(controls::TabSequence(form), ElementsAre(&form.outer, &form.inner));
  form.frame.SetTabIndex(1);
  EXPECT_THAT(controls::TabSequence(form), ElementsAre(&form.brother, &form.inner, &form.outer));
}

// What a screen makes of places: edges are rounded on the form, so that what touches there touches
// in pixels; and its views move with their frame.
TEST_F(FormTest, PlaceAndFollowing_InAFrame_KeepStepWithIt) {
  const auto edges = [&] {
    const auto place = controls::PlaceInContainer(form.inner, [](controls::Twips twips) {
      return static_cast<int>(std::lround(twips / 10));
    });
    return std::vector<int>{place.left, place.top, place.right, place.bottom};
  };
  form.inner.Move(3, 6, 20, 20);
  EXPECT_THAT(edges(), ElementsAre(0, 1, 2, 3));
  form.frame.Move(13, 17, 100, 100);
  EXPECT_THAT(edges(), ElementsAre(1, 0, 3, 2));

  std::vector<controls::Aspect> applied;
  controls::Following following;
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
