#include "adapters/server/StatementLimit.h"

#include "platform/RuntimeError.h"
#include "support/Tables.h"

namespace adapters::server {
namespace {

TEST(StatementLimit, ItsWord_IsTakenOutOfTheStringAndNothingElse) {
  support::ExpectTable("tests/adapters/server/limits.txt",
                       {{"StatementLimit", [](const std::vector<std::string>& given) {
                           try {
                             const LimitedString read = TakeStatementLimit(given[0]);
                             return std::to_string(read.limit.count()) + " [" + read.rest + "]";
                           } catch (const platform::RuntimeError& error) {
                             return "error: " + error.Description();
                           }
                         }}});
}

}  // namespace
}  // namespace adapters::server
