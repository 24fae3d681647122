#include "screens/MessageForm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "screens/MessageComponent.h"
#include "support/ErrorNumber.h"
#include "support/FakeScreen.h"

namespace screens {
namespace {

using platform::AutomationValue;
using support::NumberOf;
using testing::HasSubstr;

class MessageFormTest : public testing::Test {
 protected:
  support::Events events;
  support::FakeScreen screen{events};
};

TEST_F(MessageFormTest, Answers_OfEachKindAndKey_AreThoseOfTheComponent) {
  enum class Does { kEnter, kEscape, kClose, kYes, kNo };
  const struct {
    const char* title;
    std::int32_t type;
    Does does;
    std::int32_t result;
  } kCases[] = {{"پرسش", 1, Does::kEnter, 1},  {"حذف", 1, Does::kEnter, 0},
                {"هشدار", 1, Does::kEnter, 0}, {"حذف", 1, Does::kYes, 1},
                {"پرسش", 1, Does::kNo, 0},     {"پرسش", 1, Does::kEscape, 0},
                {"پرسش", 1, Does::kClose, 0},  {"حذف", 0, Does::kEnter, 1},
                {"پيام", 0, Does::kEscape, 0}, {"پيام", 0, Does::kYes, 1}};
  MessageComponent notice(screen);
  for (const auto& each : kCases) {
    notice.Put("FormTitle", std::string(each.title));
    notice.Put("FormType", each.type);
    screen.OnModalForm<MessageForm>([&](MessageForm& form) {
      EXPECT_EQ(form.Caption(), each.title);
      EXPECT_EQ(form.cmdNo.Visible(), each.type == 1);
      const bool no = each.type == 1 && each.title != std::string("پرسش");
      EXPECT_EQ(form.FirstFocus(), no ? &form.cmdNo : &form.cmdYes);
      if (each.does == Does::kEnter) form.PressEnter(nullptr);
      if (each.does == Does::kEscape) form.PressEscape();
      if (each.does == Does::kClose) form.CloseBox();
      if (each.does == Does::kYes) form.cmdYes.Click();
      if (each.does == Does::kNo) form.cmdNo.Click();
      EXPECT_FALSE(form.Visible());
    });
    notice.Call("ClearShow", {});
    EXPECT_EQ(notice.Get("Resualt"), AutomationValue(each.result)) << each.title;
  }
}

TEST_F(MessageFormTest, Component_WhatIsPut_StaysAndIsCheckedAsAutomationDoes) {
  MessageComponent notice(screen);
  EXPECT_EQ(NumberOf([&] { notice.Put("FormColour", std::int32_t{1}); }), 438);
  EXPECT_EQ(NumberOf([&] { notice.Get("Result"); }), 438);
  EXPECT_EQ(NumberOf([&] { notice.Call("Show", {}); }), 438);
  EXPECT_EQ(NumberOf([&] { notice.Put("FormType", std::string("one")); }), 13);
  EXPECT_EQ(NumberOf([&] { notice.Put("BtmBackColor", true); }), 13);
  EXPECT_EQ(NumberOf([&] { notice.Put("FormBackColor", 4e9); }), 6);
  notice.Put("FrameBackColor", 14411760.0);
  notice.Put("FormTitle", 12.5);
  notice.Put("FormMessage", true);
  notice.Put("FormType", 0.6);
  for (int time = 0; time < 2; ++time) {
    screen.OnModalForm<MessageForm>([](MessageForm& form) {
      EXPECT_EQ(form.lblMessage.Caption() + form.Caption() + form.lblSign.Caption(), "True12.5؟");
    });
    notice.Call("ClearShow", {});
  }
  EXPECT_EQ(notice.Get("FormTitle"), AutomationValue("12.5"));
}

TEST_F(MessageFormTest, Error_OfLongTexts_GrowsWithThemAndIsCopiedWhole) {
  screen.pointer = controls::MousePointer::kHourglass;
  const std::string file = "فايل «/tmp/a.txt» باز نشد.";
  std::string technical;
  for (int word = 0; word < 400; ++word) technical += "word ";
  screen.OnModalForm<MessageForm>([&](MessageForm& form) {
    EXPECT_EQ(screen.pointer, controls::MousePointer::kDefault);
    EXPECT_EQ(form.lblSign.GetLook(), controls::Label::Look::kErrorSign);
    EXPECT_THAT(form.lblMessage.Caption(), HasSubstr("«\u202A/tmp/a.txt\u202C»"));
    EXPECT_NEAR(form.lblMessage.Height(), 3 * screen.LineHeight(), 60);
    // As wide as the longest line that fits 460 pixels, which a word less would not be.
    EXPECT_LE(form.lblMessage.Width(), 464 * 15);
    EXPECT_GT(form.lblMessage.Width(), 430 * 15);
    EXPECT_EQ(form.lblTechnical.GetLook(), controls::Label::Look::kTechnical);
    EXPECT_THAT(form.lblTechnical.Caption(), testing::EndsWith("\n…"));
    for (const controls::Control* inside : {&form.lblSign, &form.lblMessage, &form.lblTechnical}) {
      EXPECT_GT(inside->Left(), 0);
      EXPECT_LT(inside->Left() + inside->Width(), form.frame.Width());
      EXPECT_LT(inside->Top() + inside->Height(), form.frame.Height());
    }
    EXPECT_GT(form.cmdYes.Top(), form.frame.Top() + form.frame.Height());
    EXPECT_GT(form.cmdCopy.Left(), form.cmdYes.Left() + form.cmdYes.Width());
    EXPECT_LT(form.cmdCopy.Left() + form.cmdCopy.Width(), form.Width());
    form.cmdCopy.Click();
    EXPECT_TRUE(form.Visible());
  });
  std::string text = file + "\n";
  for (int word = 0; word < 20; ++word) text += "كلمه ";
  MessageForm(screen, {"خطا", text, technical, MessageKind::kError}).Ask();
  EXPECT_EQ(screen.clipboard, "خطا\n" + text + "\n" + technical);
  EXPECT_EQ(screen.pointer, controls::MousePointer::kHourglass);
}

TEST_F(MessageFormTest, ShortQuestion_IsAsLargeAsItsLeastAndReadsFromTheRight) {
  screen.OnModalForm<MessageForm>([](MessageForm& form) {
    EXPECT_DOUBLE_EQ(form.lblMessage.Width(), 300 * 15);
    EXPECT_DOUBLE_EQ(form.Width(), (300 + 16 + 40 + 2 * 18 + 2 * 14) * 15);
    EXPECT_GT(form.lblSign.Left(), form.lblMessage.Left() + form.lblMessage.Width());
    EXPECT_GT(form.cmdYes.Left(), form.cmdNo.Left() + form.cmdNo.Width());
    EXPECT_FALSE(form.lblTechnical.Visible() || form.cmdCopy.Visible());
    const double middle = form.lblSign.Top() + form.lblSign.Height() / 2;
    EXPECT_DOUBLE_EQ(form.lblMessage.Top() + form.lblMessage.Height() / 2, middle);
  });
  EXPECT_EQ(MessageForm(screen, {"پرسش", "برود؟", "", MessageKind::kQuestion}).Ask(), Answer::kNo);
}

}  // namespace
}  // namespace screens
