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

TEST_F(MessageFormTest, Error_OfALongText_IsCopiedWholeAndKeepsTheHourglass) {
  screen.pointer = controls::MousePointer::kHourglass;
  std::string technical;
  for (int word = 0; word < 400; ++word) technical += "word ";
  screen.OnModalForm<MessageForm>([&](MessageForm& form) {
    EXPECT_EQ(screen.pointer, controls::MousePointer::kDefault);
    EXPECT_THAT(form.lblTechnical.Caption(), testing::EndsWith("\n…"));
    form.cmdCopy.Click();
    EXPECT_TRUE(form.Visible());
  });
  MessageForm(screen, {"خطا", "نشد.", technical, MessageKind::kError}).Ask();
  EXPECT_EQ(screen.clipboard, "خطا\nنشد.\n" + technical);
  EXPECT_EQ(screen.pointer, controls::MousePointer::kHourglass);
}

}  // namespace
}  // namespace screens
