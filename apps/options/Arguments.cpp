#include "apps/options/Arguments.h"

#include <charconv>

#include "text/Secrets.h"

namespace options {

std::string Quoted(const std::string& argument) {
  return "\"" + text::ShownConnection(argument) + "\"";
}

bool Arguments::Next() {
  option_ = next_++;
  return option_ < arguments_.size();
}

const std::string& Arguments::Value() {
  if (next_ >= arguments_.size() || arguments_[next_].empty()) {
    throw UsageError(Option() + " wants a value; see --help.");
  }
  return arguments_[next_++];
}

int Arguments::Number(int lowest, int highest) {
  const std::string& value = Value();
  int number = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  if (error != std::errc() || end != value.data() + value.size() || number < lowest ||
      number > highest) {
    throw UsageError(Option() + " wants a whole number from " + std::to_string(lowest) + " to " +
                     std::to_string(highest) + ", not " + Quoted(value) + ".");
  }
  return number;
}

}  // namespace options
