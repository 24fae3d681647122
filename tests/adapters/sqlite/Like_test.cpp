#include "adapters/sqlite/Like.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace adapters::sqlite {
namespace {

TEST(Like, Pattern_matchesAsOnTheServer) {
  using Texts = std::vector<std::string_view>;
  const std::tuple<std::string_view, Texts, Texts> cases[] = {
      // a pattern, what matches, what not
      {"", {""}, {"a"}},
      {"%", {"", "a"}, {}},
      {"_", {"a", "س", "\xC3"}, {"", "سل"}},
      {"abc", {"abc", "ABC"}, {"ab", "abcd"}},
      {"%abac", {"ababac"}, {"ababa"}},
      {"m%iss%pi", {"mississippi"}, {"misspip"}},
      {"نیک_پی", {"نیک\u200Cپی"}, {"نیکپی"}},
      {"کاظمی", {"کاظمی"}, {"کاظمي"}},
      {"5[%]", {"5%"}, {"50"}},
      {"[a-c]", {"b", "B"}, {"d", "-"}},
      {"[a-]", {"-", "a"}, {"b"}},
      {"[ا-ت]", {"ب", "پ"}, {"ث", "a"}},
      {"[^a-c]", {"d"}, {"b"}},
      {"%[abc]y", {"xay"}, {"xdy"}},
      {"[[]", {"["}, {"]"}},
      {"[a", {}, {"a"}},
  };
  for (const auto& [pattern, matching, others] : cases) {
    for (const auto text : matching)
      EXPECT_TRUE(Like(text, pattern)) << text << " like " << pattern;
    for (const auto text : others) EXPECT_FALSE(Like(text, pattern)) << text << " like " << pattern;
  }
}

}  // namespace
}  // namespace adapters::sqlite
