#include "screens/ErrorGuard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "screens/MessageForm.h"
#include "support/FakeScreen.h"

namespace screens {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

/// Each error as it was noted and, where a form could not show it, as the last resort did.
class ErrorGuardTest : public testing::Test {
 protected:
  support::Events events;
  support::FakeScreen screen{events};
  std::vector<std::string> noted;
  std::vector<std::string> lastResort;
  ErrorGuard guard{{.note = [this](const std::string& technical) { noted.push_back(technical); },
                    .lastResort =
                        [this](const ErrorTexts& texts) {
                          lastResort.push_back(texts.sentence + "|" + texts.technical);
                        }}};
};

TEST_F(ErrorGuardTest, ErrorsOfNestedCalls_AreToldEachAndTheCallersGoOn) {
  guard.SetScreen(&screen);
  screen.pointer = controls::MousePointer::kHourglass;
  screen.OnModalForm<MessageForm>([&](MessageForm& form) {
    EXPECT_EQ(guard.Depth(), 2);
    EXPECT_EQ(form.Caption() + form.lblSign.Caption(), "خطا!");
    EXPECT_THAT(form.lblMessage.Caption(),
                AllOf(HasSubstr("380"), HasSubstr("\nجدول قفل است.\n"), HasSubstr("ادامه")));
    EXPECT_EQ(form.lblTechnical.Caption(), "Run-time error '380': Locked (box)");
  });
  screen.OnModalForm<MessageForm>([&](MessageForm& form) {
    // What the user asked for himself is told calmly.
    EXPECT_EQ(form.Caption() + form.lblSign.Caption(), "انصرافi");
    EXPECT_THAT(form.lblMessage.Caption(), testing::StartsWith("متوقف شد.\n"));
    EXPECT_FALSE(form.lblTechnical.Visible() || form.cmdCopy.Visible());
  });
  screen.OnModalForm<MessageForm>([&](MessageForm& form) {
    EXPECT_EQ(guard.Depth(), 1);
    EXPECT_THAT(form.lblMessage.Caption(), HasSubstr("بسته"));
  });
  guard.Run([&] {
    guard.Run([] { throw platform::RuntimeError(380, "جدول قفل است. Locked", "box"); });
    guard.SetProgramGoesOn(false);
    guard.Run([] { throw platform::RuntimeError(18, "متوقف شد.\n\u202ACancelled\u202C"); });
    throw std::logic_error("a gap");
  });
  EXPECT_THAT(noted, ElementsAre("Run-time error '380': Locked (box)", HasSubstr("Cancelled"),
                                 HasSubstr("a gap")));
  EXPECT_THAT(lastResort, testing::IsEmpty());
  EXPECT_EQ(guard.Depth(), 0);
  EXPECT_EQ(screen.pointer, controls::MousePointer::kDefault);
}

TEST_F(ErrorGuardTest, NoFormCanBeShown_TheLastResortTellsIt) {
  const auto fail = [&](const char* description) {
    guard.Run([&] { throw platform::RuntimeError(1, description); });
    return lastResort.back();
  };
  // A letter's presentation form is Persian too; nothing technical is left over.
  EXPECT_THAT(fail("\uFE8D"),
              AllOf(HasSubstr("\n\uFE8D\n"), testing::EndsWith("|Run-time error '1'")));
  // What a server says is technical, also where it names something in Persian.
  EXPECT_THAT(fail("نيست.\n\u202ANo table 'ويزيت'.\u202C"),
              AllOf(HasSubstr("\nنيست.\n"), HasSubstr("'1': \u202ANo table 'ويزيت'.\u202C")));
  guard.SetScreen(&screen);
  screen.OnModal([](controls::Form&) { throw std::bad_alloc(); });
  EXPECT_THAT(fail("first"), HasSubstr("first"));
  EXPECT_EQ(lastResort.size(), 3U);
}

}  // namespace
}  // namespace screens
