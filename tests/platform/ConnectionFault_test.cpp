#include "platform/ConnectionFault.h"

#include <gtest/gtest.h>

#include <set>

#include "platform/FileErrors.h"
#include "platform/ServerErrors.h"

namespace platform {
namespace {

TEST(ConnectionFault, ErrorsOfBothPhases_AreJudgedTheSameWhateverSaidThem) {
  using enum ConnectionFault;
  const auto login = Phase::kLogin;
  const auto statement = Phase::kStatement;
  const struct {
    Phase phase;
    DatabaseErrors errors;
    ConnectionFault fault;
    bool dead = false;
  } cases[] = {
      {login, {{"28000", 0, ""}}, kRefused},
      {login, {{"08004", 0, ""}}, kRefused},
      {login, {{"", 18456, ""}}, kRefused},
      {login, {{"42000", 18488, ""}}, kRefused},
      {login, {{"01000", 5701, ""}, {"42000", 4060, ""}, {"08001", 0, ""}}, kRefused},
      {login, {{"08001", 0, ""}, {"HY000", 911, ""}}, kRefused},
      {login, {{"IM002", 0, ""}}, kNoDriver},
      {login, {{"01000", 0, "Can't open lib 'x'"}}, kNoDriver},
      {login, {{"", 3706, ""}}, kNoDriver},
      {login, {{"08001", 20009, ""}}, kUnreachable},
      {login, {{"", 10061, ""}}, kUnreachable},
      {login, {{"08001", 0, ""}, {"HYT00", 0, ""}}, kNoAnswer},
      {login, {{"HY000", 0, ""}}, kLogin},
      {login, {}, kLogin},
      {statement, {{"42S02", 208, ""}}, kStatement},
      {statement, {}, kStatement},
      {statement, {}, kLost, true},
      {statement, {{"08S01", 0, ""}}, kLost},
      {statement, {{"", 596, ""}}, kLost},
      {statement, {{"HYT00", 0, ""}}, kSilent},
      {statement, {{"", -2147217871, ""}}, kSilent},
      {statement, {{"08S01", 0, ""}, {"HYT00", 0, ""}}, kSilent, true},
      {statement, {{"HYT00", 1222, ""}}, kStatement},
  };
  for (const auto& [phase, errors, fault, dead] : cases) {
    const std::string shown = errors.empty() ? "" : errors[0].state;
    EXPECT_EQ(FaultOf(phase, errors, dead), fault)
        << shown << " " << NumberOf(errors) << (phase == login ? " of a login" : "");
  }
}

TEST(ConnectionFault, Number_IsTheFirstErrorsOwnElseMadeOfTheState) {
  EXPECT_EQ(NumberOf({{"01000", 5701, ""}, {"42S02", 208, ""}, {"42000", 8180, ""}}), 208);
  EXPECT_EQ(NumberOf({{"HY000", 0, ""}, {"01000", 5701, ""}}), 5701);
  EXPECT_EQ(NumberOf({{"0000Z", 0, ""}}), 1'000'000'035);
  EXPECT_GT(NumberOf({}), 1'000'000'000);
}

TEST(ConnectionFault, Sentences_AreOneForEachThatAUserCanActOn) {
  using enum ConnectionFault;
  std::set<std::string> sentences;
  for (const auto fault : {kLost, kSilent, kUnreachable, kNoAnswer, kRefused, kNoDriver, kLogin}) {
    EXPECT_TRUE(sentences.insert(UserSentence(fault)).second);
  }
  for (const std::int32_t number : {207, 208, 229, 512, 547, 1105, 1205, 1222, 2627, 3906}) {
    EXPECT_TRUE(sentences.insert(ServerSentence(number)).second) << number;
  }
  EXPECT_FALSE(sentences.contains(""));
  const std::pair<int, int> same[] = {{208, 2812}, {229, 230}, {1105, 9002}, {2627, 2601}};
  for (const auto& [one, other] : same) EXPECT_EQ(ServerSentence(one), ServerSentence(other));
  EXPECT_EQ(UserSentence(kStatement) + ServerSentence(245), "");
}

TEST(ServerErrors, Description_NamesTheDatabaseAndSetsEachForeignLineApart) {
  EXPECT_EQ(ServerSentence(3906), "پايگاه داده فقط خواندني است و چيزي در آن ثبت نشد.");
  EXPECT_EQ(ServerSentence(3906, "/o.db"),
            "پايگاه داده «\u202A/o.db\u202C» فقط خواندني است و چيزي در آن ثبت نشد.");
  EXPECT_EQ(Described("نشد.", "One.\n\nTwo."), "نشد.\n\u202AOne.\u202C\n\n\u202ATwo.\u202C");
  EXPECT_EQ(Described("", "One."), "One.");
}

TEST(FileErrors, Description_IsASentenceOfTheNumberThenThePathAndTheSystemsWords) {
  std::set<std::string> sentences;
  for (const auto number :
       {kDeviceError, kDiskFull, kPermissionDenied, kPathFileAccess, kPathNotFound}) {
    EXPECT_TRUE(sentences.insert(FileError(number, "/a", "", "x").Description()).second) << number;
  }
  EXPECT_EQ(FileError(kPathNotFound, "/a", "", "x").Description(), "پوشه اين فايل وجود ندارد. /a");
  const RuntimeError own = FileError(kDiskFull, "/a", "ENOSPC", "x", "نشد.");
  EXPECT_EQ(own.Description(), "نشد. /a (ENOSPC)");
  EXPECT_EQ(std::to_string(own.Number()) + own.Source(), "61x");
}

}  // namespace
}  // namespace platform
