#include "controls/Form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "controls/Controls.h"
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
      : Form(screen, "Sample", Border::kSizable), calls_(calls) {
    SetDefaultButton(&ok);
  }

  using Form::SetDefaultButton;
  using Form::SetEscapeCloses;
  bool fails = false;

  controls::Frame frame{*this, "frame"};
  controls::TextBox inner{frame, "inner"};
  controls::Label brother{frame, "brother"};
  controls::TextBox outer{*this, "outer"};
  controls::Button ok{*this, "ok", "Yes"};

 protected:
  void FormLoad() override {
    calls_.emplace_back("load");
    Load();  // finds the form loaded
    if (fails) throw platform::RuntimeError(1, "load");
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
    form.CloseBox();  // hides
  }
  form.Show(Modality::kModeless);
  form.Unload();
  EXPECT_FALSE(form.Loaded() || form.Visible());
  const std::string show = "show Sample modeless";
  EXPECT_THAT(calls, ElementsAre("load", show, show, "hide Sample", show, show, "hide Sample", show,
                                 "hide Sample", "unload Sample"));
}

TEST_F(FormTest, LoadThrows_StaysUnloadedAndUnseen) {
  form.fails = true;
  EXPECT_EQ(ResumeNext([&] { form.Show(Modality::kModal); }), 1);
  EXPECT_FALSE(form.Loaded() || form.Visible());
  EXPECT_THAT(screen.log, IsEmpty());
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

TEST_F(FormTest, EnterAndEscape_WithoutAndWithAButtonForThem_SayWhetherTheyWereUsed) {
  form.ok.onClick = [&] { calls.emplace_back("ok"); };
  form.Show(Modality::kModeless);
  calls.clear();
  EXPECT_FALSE(form.PressEscape());
  EXPECT_TRUE(form.PressEnter(nullptr));
  EXPECT_TRUE(form.PressEnter(&form.inner)) << "a frame without a default of its own";
  form.SetDefaultButton(nullptr);
  EXPECT_FALSE(form.PressEnter(&form.inner));
  EXPECT_THAT(calls, ElementsAre("ok", "ok"));
  form.SetEscapeCloses();
  EXPECT_TRUE(form.PressEscape());
  EXPECT_FALSE(form.Visible());
}

}  // namespace
