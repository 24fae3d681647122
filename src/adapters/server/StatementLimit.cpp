#include "adapters/server/StatementLimit.h"

#include <algorithm>
#include <charconv>

#include "adapters/server/ConnectionWords.h"
#include "platform/RuntimeError.h"
#include "platform/ServerErrors.h"
#include "platform/StatementLimit.h"

namespace adapters::server {

namespace {

constexpr std::string_view kWord = "statementtimeout";
constexpr int kLongest = 86400;

std::chrono::seconds LimitOf(const std::string& value) {
  int seconds = 0;
  const char* const end = value.data() + value.size();
  const auto read = std::from_chars(value.data(), end, seconds);
  if (read.ec != std::errc() || read.ptr != end || seconds < 1 || seconds > kLongest) {
    throw platform::RuntimeError(
        platform::kProviderNotFound,
        platform::Described(
            "در رشته اتصال Statement Timeout درست نيست.",
            "Statement Timeout wants a whole number of seconds from 1 to 86400, not '" + value +
                "'."));
  }
  return std::chrono::seconds(seconds);
}

}  // namespace

LimitedString TakeStatementLimit(std::string_view connectionString) {
  LimitedString result{std::string(connectionString), platform::kStatementLimit};
  const Syntax syntax = SyntaxOf(connectionString);
  const Words words = ReadWords(connectionString, syntax);
  const Word* const counts = FindWord(words, {kWord}, syntax);
  if (counts == nullptr) return result;
  result.limit = LimitOf(counts->value);
  for (auto word = words.rbegin(); word != words.rend(); ++word) {
    if (word->key == kWord) result.rest.erase(word->from, word->end - word->from);
  }
  return result;
}

}  // namespace adapters::server
