#include "text/Secrets.h"

#include <gtest/gtest.h>

namespace {

TEST(WithoutPasswords, EveryReadingOfAPassword_IsStarredOut) {
  const struct {
    std::string connection;
    std::string message;
    std::string shown;
  } kCases[] = {
      {"PWD=s3cret;Jet OLEDB:Database Password=cret", "s3cret, cretin", "***, ***in"},
      {"pwd=pwd", "pwd (pwd) pwds xpwd pwdآ pwd", "*** (***) pwds xpwd pwdآ ***"},
      {"Pwd=گ;pass word = s3cret \t;UID=u", "گل گ s3cret u", "گل *** *** u"},
      {"PWD={a;}}b}", "bad PWD={a;}}b}; or a;}b", "bad PWD=***; or ***"},
      {"PWD={a}b};UID=u", "a}b {a}b} u", "*** *** u"},
      {"Provider=X;Password='it''s}'", "'it''s}' {it's}}} it's}", "*** {***} ***"},
      {"Password=\"a;\"\"=b  \"", "[a;\"=b  ] a;\"=b", "[***] ***"},
      {"PWD={never;UID=u", "{never, never, never;UID=u", "***, ***, ***"},
      {"PWD=ab;cd;UID=u", "ab;cd ab", "*** ***"},
      {"Provider=\"X;Password=s3cret", "no provider X;Password=s3cret",
       "no provider X;Password=***"},
      {"PWD=;Password=\"\";pwd={}", "near '\"\" {}' ;", "near '\"\" {}' ;"},
      {"UID=abc", "abc", "abc"},
  };
  for (const auto& [connection, message, shown] : kCases) {
    EXPECT_EQ(text::WithoutPasswords(message, connection), shown) << connection;
  }
}

TEST(ShownConnection, Passwords_AreStarredOutWhoeverReadsThem) {
  const std::pair<std::string, std::string> kCases[] = {
      {"Driver=x;PWD=a;UID=u", "Driver=x;PWD=***;UID=u"},
      {"Driver=x;pwd = {a;}}b} ;UID=u", "Driver=x;pwd = ***;UID=u"},
      {"Password='a;''b';Jet OLEDB:Database Password=z",
       "Password=***;Jet OLEDB:Database Password=***"},
      {"PWD=\"a;b\";UID=u;Password={c;d};APP=e", "PWD=***;UID=u;Password=***;APP=e"},
      {"APP=\"x;PWD=a;b;UID=u", "APP=\"x;PWD=***;UID=u"},
      {"PWD={never closed;UID=u", "PWD=***"},
      {"PWD=\"a;pwd=b;c\";UID=u", "PWD=***;UID=u"},
      {"Password=", "Password="},
      {"sqlite:/a b/password.db", "sqlite:/a b/password.db"},
  };
  for (const auto& [given, shown] : kCases) EXPECT_EQ(text::ShownConnection(given), shown);
}

}  // namespace
