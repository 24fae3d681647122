#include "screens/AccessKeys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/Controls.h"
#include "screens/AccessibleNames.h"
#include "support/FakeScreen.h"

namespace screens {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct KeyedForm : controls::Form {
  explicit KeyedForm(controls::Screen& screen) : Form(screen, "Keyed", Border::kSizable) {
    lblYear.SetNamed(&txtYear);
    lblYear.SetAccessKey("ي");
    cmdOk.SetAccessKey("ث");
    chkAll.SetAccessKey("ه");
    cmdAll.SetAccessKey("ه");
    cmdOk.onClick = [this] { clicks += "ok "; };
    cmdAll.onClick = [this] { clicks += "all "; };
  }
  controls::Label lblYear{*this, "lblYear", " سال مالي : "};
  controls::Frame frame{*this, "frame", "قالب"};
  controls::TextBox txtYear{frame, "txtYear"};
  controls::Button cmdOk{frame, "cmdOk", "ثبت"};
  controls::CheckBox chkAll{*this, "chkAll", "همه"};
  controls::Button cmdAll{*this, "cmdAll", "همه"};
  std::string clicks;
};

struct AccessKeys : testing::Test {
  AccessKeys() {
    form.Show(controls::Modality::kModeless);
    screen.log.clear();
  }
  bool Press(std::string_view typed, const controls::Control* focused = nullptr) {
    return PressAccessKey(form, typed, focused);
  }
  support::Events events;
  support::FakeScreen screen{events};
  KeyedForm form{screen};
};

TEST_F(AccessKeys, Press_TheLetterOnEitherLayoutAndOfEitherKind_ReachesFieldAndButton) {
  for (const std::string_view typed : {"ي", "ی", "d", "D"}) EXPECT_TRUE(Press(typed)) << typed;
  EXPECT_THAT(screen.log,
              ElementsAre("focus txtYear", "focus txtYear", "focus txtYear", "focus txtYear"));
  EXPECT_TRUE(Press("ث"));
  EXPECT_TRUE(Press("e"));
  EXPECT_EQ(form.clicks, "ok ok ");
  EXPECT_EQ(screen.log.back(), "focus cmdOk");
  for (const std::string_view typed : {"", " ", "x", "س"}) EXPECT_FALSE(Press(typed)) << typed;
}

TEST_F(AccessKeys, Press_WhatIsOutOfReach_DoesNothing) {
  form.frame.SetEnabled(false);
  EXPECT_FALSE(Press("ث"));
  EXPECT_FALSE(Press("ي"));
  form.lblYear.SetNamed(nullptr);
  form.frame.SetEnabled(true);
  EXPECT_FALSE(Press("ي"));
  EXPECT_THAT(screen.log, IsEmpty());
}

TEST_F(AccessKeys, Press_ALetterOfTwo_GoesOnFromTheOneWithTheKeyboard) {
  EXPECT_TRUE(Press("ه"));
  EXPECT_TRUE(form.chkAll.Checked());
  EXPECT_TRUE(Press("ه", &form.chkAll));
  EXPECT_EQ(form.clicks, "all ");
  EXPECT_TRUE(Press("ه", &form.cmdAll));
  EXPECT_FALSE(form.chkAll.Checked());
}

TEST_F(AccessKeys, Span_ALetterOfTheCaption_IsItsBytes) {
  EXPECT_EQ(AccessKeySpan("ثبت نهايي", "ن"), std::pair(std::size_t{7}, std::size_t{2}));
  EXPECT_EQ(AccessKeySpan("نهايي", "ی"), std::pair(std::size_t{6}, std::size_t{2}));
  EXPECT_FALSE(AccessKeySpan("ثبت", "ن"));
  EXPECT_FALSE(AccessKeySpan("ثبت", ""));
}

TEST_F(AccessKeys, NameAndKey_OfAField_AreThoseOfItsLabel) {
  EXPECT_EQ(AccessibleName(form.txtYear), "سال مالي");
  EXPECT_EQ(AccessKeyText(form.txtYear), "Alt+ي");
  EXPECT_EQ(AccessKeyText(form.frame), "");
  form.txtYear.SetToolTip("چهار رقم");
  EXPECT_EQ(AccessibleDescription(form.txtYear), "چهار رقم");
}

}  // namespace
}  // namespace screens
