#include "apps/about/About.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/version/Version.h"
#include "screens/MessageForm.h"
#include "support/FakeScreen.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

TEST(About, WhatIsTold_IsCopiedWhole_AndHoldsNoPassword) {
  support::Events events;
  support::FakeScreen screen{events};
  const auto copied = [&](const about::Facts& facts) {
    screen.OnModalForm<screens::MessageForm>([](screens::MessageForm& form) {
      EXPECT_TRUE(form.cmdCopy.Visible());
      form.cmdCopy.Click();
      EXPECT_TRUE(form.PressEscape());
    });
    about::Show(screen, facts);
    return screen.clipboard;
  };
  EXPECT_THAT(
      copied({"host", "Toolkit 7", "/home/office.db", "/usr/notices"}),
      AllOf(HasSubstr(version::Line("host") + "Toolkit 7, SQLite 3."),
            HasSubstr("«/home/office.db»"), HasSubstr("\nپروانه هاي كتابخانه ها: «/usr/notices»")));
  EXPECT_THAT(copied({"host", "", "Server=far;UID=user;PWD=word", ""}),
              AllOf(HasSubstr(version::Line("host") + "SQLite 3."), HasSubstr("Server=far"),
                    Not(HasSubstr("word")), Not(HasSubstr("پروانه"))));
}

}  // namespace
