#include "adapters/server/StatementLimit.h"

#include <gtest/gtest.h>

#include <tuple>

#include "platform/RuntimeError.h"
#include "platform/StatementLimit.h"

namespace adapters::server {
namespace {

TEST(StatementLimit, ItsWord_IsTakenOutOfTheStringAndNothingElse) {
  const std::tuple<std::string, std::string, int> cases[] = {
      {"Driver=FreeTDS; statement timeout = 600 ;UID=u", "Driver=FreeTDS; UID=u", 600},
      {"DSN=x;StatementTimeout={7}", "DSN=x;", 7},
      {"DSN=x;Statement Timeout=1;Statement Timeout=2;A=b", "DSN=x;A=b", 1},
      {"Provider=P;Statement Timeout=\"5\";Password=';Statement Timeout=9;'",
       "Provider=P;Password=';Statement Timeout=9;'", 5},
      {"Statement Timeout=1;Provider=P;Statement Timeout=86400", "Provider=P;", 86400},
  };
  for (const auto& [given, rest, seconds] : cases) {
    const LimitedString read = TakeStatementLimit(given);
    EXPECT_EQ(read.rest, rest);
    EXPECT_EQ(read.limit, std::chrono::seconds(seconds)) << given;
  }
  const std::string without = " DSN=x;;PWD={;Statement Timeout=9} ; Connect Timeout=3";
  EXPECT_EQ(TakeStatementLimit(without).rest, without);
  EXPECT_EQ(TakeStatementLimit(without).limit, platform::kStatementLimit);
  for (const char* const wrong : {"0", "-1", "", "5s", "86401", "99999999999"}) {
    EXPECT_THROW(TakeStatementLimit("DSN=x;Statement Timeout=" + std::string(wrong)),
                 platform::RuntimeError)
        << wrong;
  }
}

}  // namespace
}  // namespace adapters::server
