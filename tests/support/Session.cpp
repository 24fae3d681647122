#include "support/Session.h"

#include <algorithm>
#include <sstream>

#include "support/Approved.h"

namespace support {

void Session::Replay(const std::string& file) {
  std::istringstream approved(Content(file));
  std::string transcript;
  before_ = Now();
  heard_.clear();
  for (std::string line; std::getline(approved, line);) {
    if (line.starts_with("  ")) continue;
    transcript += line + "\n";
    if (!line.starts_with("> ")) continue;
    Do(line.substr(2));
    const Shown now = Now();
    const auto tell = [&transcript](std::string text) {  // on a line
      std::erase(text, '\r');
      std::ranges::replace(text, '\n', '|');
      transcript += "  " + text + "\n";
    };
    for (const std::string& each : std::exchange(heard_, {})) tell(each);
    for (const auto& each : now) {
      if (std::ranges::find(before_, each) == before_.end()) tell(each.first + ": " + each.second);
    }
    before_ = now;
  }
  ExpectApproved(file, transcript);
}

void Session::Do(const std::string& line) {
  const std::size_t blank = std::min(line.find(' '), line.size());
  const std::string what = line.substr(0, blank);
  const std::string rest = line.substr(std::min(blank + 1, line.size()));
  try {
    const auto command = commands_.find(what);
    command != commands_.end() ? command->second(rest) : DoOther(what, rest);
  } catch (const platform::RuntimeError& error) {
    HearError(error);
  }
}

void Session::HearError(const platform::RuntimeError& error) {
  const std::string source = error.Source().empty() ? "" : " (" + error.Source() + ")";
  Hear("error " + std::to_string(error.Number()) + " " + error.Description() + source);
}

void Session::DoOther(const std::string& what, const std::string& /*rest*/) {
  ADD_FAILURE() << "nobody knows what this is: " << what;
}

}  // namespace support
