#include "support/Session.h"

#include <algorithm>

#include "support/Approved.h"

namespace support {

void Session::Replay(const std::string& file) {
  lines_ = std::istringstream(Content(file));
  transcript_.clear();
  before_ = Now();
  HearMore();
  heard_.clear();
  while (DoNext()) TellChanges();
  ExpectApproved(file, transcript_);
}

/// False when there is no more.
bool Session::DoNext() {
  for (std::string line; std::getline(lines_, line);) {
    if (line.starts_with("  ")) continue;
    transcript_ += line + "\n";
    if (!line.starts_with("> ")) continue;
    Do(line.substr(2));
    return true;
  }
  return false;
}

void Session::GoOnUntil(const std::function<bool()>& done) {
  while (!done()) {
    TellChanges();
    if (!DoNext()) {
      ADD_FAILURE() << "the session ends too early";
      return;
    }
  }
}

void Session::TellChanges() {
  HearMore();
  const Shown now = Now();
  const auto tell = [this](std::string text) {  // on a line
    std::erase(text, '\r');
    std::ranges::replace(text, '\n', '|');
    transcript_ += "  " + text + "\n";
  };
  for (const std::string& each : std::exchange(heard_, {})) tell(each);
  for (const auto& each : now) {
    if (std::ranges::find(before_, each) == before_.end()) tell(each.first + ": " + each.second);
  }
  before_ = now;
}

void Session::Do(const std::string& line) {
  const std::size_t blank = std::min(line.find(' '), line.size());
  const std::string what = line.substr(0, blank);
  const std::string rest = line.substr(std::min(blank + 1, line.size()));
  try {
    const auto command = commands_.find(what);
    command != commands_.end() ? command->second(rest) : DoOther(what, rest);
  } catch (const platform::RuntimeError& error) {
    HearMore();
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
