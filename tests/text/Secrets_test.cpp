#include "text/Secrets.h"

#include <gtest/gtest.h>

namespace {

TEST(StarredOut, Secrets_AreHiddenWholeAndShortOnesOnlyAlone) {
  const struct {
    std::vector<std::string> secrets;
    const char* text;
    const char* shown;
  } kCases[] = {
      {{"cret", "s3cret", ""}, "s3cret, cretin", "***, ***in"},
      {{"pwd"}, "pwd (pwd) pwds xpwd pwdآ pwd", "*** (***) pwds xpwd pwdآ ***"},
      {{"گ"}, "گل گ", "گل ***"},
      {{"a", "b"}, "a b", "*** ***"},
      {{}, "a b", "a b"},
  };
  for (const auto& each : kCases) EXPECT_EQ(text::StarredOut(each.text, each.secrets), each.shown);
}

}  // namespace
