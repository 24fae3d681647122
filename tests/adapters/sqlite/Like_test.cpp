#include "adapters/sqlite/Like.h"

#include <gtest/gtest.h>

namespace adapters::sqlite {
namespace {

TEST(Like, Pattern_matchesAsOnTheServer) {
  struct Case {
    std::string_view text;
    std::string_view pattern;
    bool matches;
  };
  const Case cases[] = {
      {"", "", true},
      {"", "%", true},
      {"", "_", false},
      {"a", "", false},
      {"abc", "abc", true},
      {"ABC", "abc", true},
      {"abc", "ab", false},
      {"abc", "%b%", true},
      {"abc", "%d%", false},
      {"aXbXc", "a%x_", true},
      {"aab", "%ab", true},
      {"ababac", "%abac", true},
      {"mississippi", "m%iss%pi", true},
      {"سلام", "____", true},
      {"سلام", "___", false},
      {"نیک\u200Cپی", "نیک_پی", true},
      {"کاظمی", "%ظم%", true},
      {"کاظمي", "کاظمی", false},
      {"5%", "5[%]", true},
      {"50", "5[%]", false},
      {"b", "[a-c]", true},
      {"B", "[a-c]", true},
      {"d", "[a-c]", false},
      {"-", "[a-]", true},
      {"-", "[-a]", true},
      {"d", "[^a-c]", true},
      {"b", "[^a-c]", false},
      {"ج", "[ا-خ]", true},
      {"س", "[ا-خ]", false},
      {"xay", "%[abc]y", true},
      {"xdy", "%[abc]y", false},
      {"[", "[[]", true},
      {"]", "]", true},
      {"a", "[a", false},
      {"1404/01/02", "1404/01/0[1-3]", true},
      {"\xC3", "_", true},
  };
  for (const auto& [text, pattern, matches] : cases) {
    EXPECT_EQ(Like(text, pattern), matches) << text << " like " << pattern;
  }
}

}  // namespace
}  // namespace adapters::sqlite
