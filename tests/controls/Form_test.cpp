#include "controls/Form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/Controls.h"
#include "controls/FlexGridHarness.h"
#include "controls/RecordingScreen.h"

namespace {

using controls::Modality;
using testing::ElementsAre;
using testing::IsEmpty;

class SampleForm : public controls::Form {
 public:
  explicit SampleForm(controls::Screen& screen, std::string name = "FormSample")
      : Form(screen, std::move(name), Border::kSizable) {}

  std::vector<std::string> events;
  bool loadFails = false;
  bool unloadFails = false;

  controls::Frame frame{*this, "frame"};
  controls::TextBox inner{frame, "inner"};
  controls::TextBox outer{*this, "outer"};

 protected:
  void FormLoad() override {
    events.emplace_back("load");
    Load();  // finds the form loaded
    if (loadFails) throw platform::RuntimeError(1, "load");
  }
  void FormUnload() override {
    events.emplace_back("unload");
    if (unloadFails) throw platform::RuntimeError(2, "unload");
  }
  void FormResize() override { events.emplace_back("resize"); }
};

class FormTest : public testing::Test {
 protected:
  RecordingScreen screen;
  SampleForm form{screen};
};

TEST_F(FormTest, ShownHiddenAndUnloaded_IsLoadedOnceUntilItIsUnloaded) {
  form.Unload();
  EXPECT_THAT(screen.calls, IsEmpty());
  form.Show(Modality::kModeless);
  form.Hide();
  form.Hide();
  form.Show(Modality::kModeless);
  form.CloseBox();
  EXPECT_FALSE(form.Visible());
  EXPECT_THAT(form.events, ElementsAre("load"));
  form.Show(Modality::kModeless);
  form.Unload();
  EXPECT_FALSE(form.Loaded() || form.Visible());
  form.Load();
  EXPECT_THAT(form.events, ElementsAre("load", "unload", "load"));
  EXPECT_THAT(screen.calls, ElementsAre("show FormSample", "hide FormSample", "show FormSample",
                                        "hide FormSample", "show FormSample", "hide FormSample",
                                        "unload FormSample"));
}

TEST_F(FormTest, LoadOrUnloadThrows_StaysUnloadedOrLoadedAndUnseen) {
  form.loadFails = form.unloadFails = true;
  EXPECT_EQ(ErrorOf([&] { form.Show(Modality::kModal); }), 1);
  EXPECT_FALSE(form.Loaded() || form.Visible());
  EXPECT_THAT(screen.calls, IsEmpty());
  form.loadFails = false;
  form.Show(Modality::kModeless);
  EXPECT_EQ(ErrorOf([&] { form.Unload(); }), 2);
  EXPECT_TRUE(form.Loaded());
  EXPECT_FALSE(form.Visible());
}

TEST_F(FormTest, ShownModal_IsModalUntilHiddenAndRefusesToBeShownAgain) {
  SampleForm other{screen, "FormOther"};
  std::vector<int> errors;
  screen.whileModal = [&] {
    for (const Modality modality : {Modality::kModal, Modality::kModeless}) {
      errors.push_back(ErrorOf([&] { form.Show(modality); }));
    }
    errors.push_back(ErrorOf([&] { other.Show(Modality::kModeless); }));
    EXPECT_TRUE(form.Visible());
    EXPECT_TRUE(other.Loaded() && !other.Visible());
    form.Hide();
  };
  form.Show(Modality::kModal);
  EXPECT_THAT(errors, ElementsAre(400, 401, 401));
  EXPECT_THAT(screen.calls, ElementsAre("show modal FormSample", "hide FormSample"));
  form.Show(Modality::kModeless);
  EXPECT_EQ(ErrorOf([&] { form.Show(Modality::kModal); }), 400);
  form.Show(Modality::kModeless);  // comes to the front
  EXPECT_EQ(screen.calls.size(), 4U);
}

TEST_F(FormTest, Resize_LaysOutOnlyForAnotherSize) {
  int notified = 0;
  const auto subscription = form.Subscribe([&](const controls::Change& change) {
    if (change.aspect == controls::Aspect::kBounds) ++notified;
  });
  form.Resize(9000, 6000);
  form.Resize(9000, 6000);
  EXPECT_EQ(ErrorOf([&] { form.Resize(-1, 6000); }), 380);
  EXPECT_EQ(form.Width(), 9000);
  EXPECT_THAT(form.events, ElementsAre("resize"));
  EXPECT_EQ(notified, 1);
}

TEST_F(FormTest, SetFocus_ReachesOnlyWhatAUserCanReach) {
  const auto focusError = [&] { return ErrorOf([&] { form.inner.SetFocus(); }); };
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
  EXPECT_EQ(screen.calls.back(), "focus inner");
}

TEST_F(FormTest, EndOfControlOrForm_IsForgottenByFormOrScreen) {
  EXPECT_EQ(form.FindControl("inner"), &form.inner);
  EXPECT_EQ(form.FindControl("Outer"), nullptr);
  { const controls::Label brief{form.frame, "brief"}; }
  EXPECT_EQ(form.FindControl("brief"), nullptr);
  {
    SampleForm loaded{screen, "FormLoaded"};
    loaded.Load();
  }
  EXPECT_THAT(screen.calls, ElementsAre("unload FormLoaded"));
}

}  // namespace
