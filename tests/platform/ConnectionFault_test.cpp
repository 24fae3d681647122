#include "platform/ConnectionFault.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using platform::ConnectionFault;

TEST(UserSentence, FaultsThatAUserCanActOn_HaveEachItsOwn) {
  using enum ConnectionFault;
  std::set<std::string_view> sentences;
  for (const auto fault : {kLost, kSilent, kUnreachable, kNoAnswer, kRefused, kNoDriver}) {
    EXPECT_TRUE(sentences.insert(platform::UserSentence(fault)).second);
  }
  EXPECT_FALSE(sentences.contains(""));
  for (const auto fault : {kStatement, kLogin}) EXPECT_EQ(platform::UserSentence(fault), "");
}

TEST(IsRefusal, RefusedLoginsAndDatabases_AreKnownByStateOrNumber) {
  EXPECT_TRUE(platform::IsRefusal("28000", 0));
  EXPECT_TRUE(platform::IsRefusal("42000", 4060));
  EXPECT_TRUE(platform::IsRefusal("", 18456));
  EXPECT_FALSE(platform::IsRefusal("08001", 17));
}

}  // namespace
