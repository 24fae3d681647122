#include "platform/ConnectionFault.h"

#include "platform/FileErrors.h"
#include "platform/ServerErrors.h"
#include "support/Tables.h"

namespace platform {
namespace {

using Given = std::vector<std::string>;

constexpr const char* kFaults[] = {"statement", "lost",    "silent",   "unreachable",
                                   "noAnswer",  "refused", "noDriver", "login"};

/// "STATE NUMBER WORDS" each, behind the first part.
DatabaseErrors ErrorsOf(const Given& given) {
  DatabaseErrors errors;
  for (std::size_t i = 1; i < given.size(); ++i) {
    DatabaseError& error = errors.emplace_back();
    std::istringstream words(given[i]);
    std::getline(words >> error.state >> error.number >> std::ws, error.text);
    if (error.state == "-") error.state.clear();
  }
  return errors;
}

std::string Shown(const RuntimeError& error) {
  return std::to_string(error.Number()) + " " + error.Source() + " " + error.Description();
}

TEST(ConnectionFault, ErrorsOfDatabasesAndFiles_ComeToWhatIsWrittenDown) {
  support::ExpectTable(
      "tests/platform/faults.txt",
      {{"FaultOf",
        [](const Given& given) {
          const Phase phase = given[0].starts_with("login") ? Phase::kLogin : Phase::kStatement;
          const auto fault = FaultOf(phase, ErrorsOf(given), given[0].ends_with(" dead"));
          return kFaults[static_cast<std::size_t>(fault)];
        }},
       {"NumberOf", [](const Given& given) { return std::to_string(NumberOf(ErrorsOf(given))); }},
       {"UserSentence",
        [](const Given& given) {
          const auto at = std::ranges::find(kFaults, given[0]) - kFaults;
          return UserSentence(static_cast<ConnectionFault>(at));
        }},
       {"ServerSentence",
        [](const Given& given) {
          return ServerSentence(std::stoi(given[0]), given.size() > 1 ? given[1] : "");
        }},
       {"Described", [](const Given& given) { return Described(given[0], given.at(1)); }},
       {"FileError", [](const Given& given) {
          const int number = std::stoi(given[0]);
          return Shown(given.size() > 1 ? FileError(number, "/a", given[1], "x", given.at(2))
                                        : FileError(number, "/a", "", "x"));
        }}});
}

}  // namespace
}  // namespace platform
