#include "adapters/windows/AdoErrors.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/ResumeNext.h"

namespace adapters::windows {

namespace {

constexpr std::int32_t kProviderNotFound = 3706;
// DB_E_ABORTLIMITREACHED: the time limit of a statement.
constexpr auto kTimeLimitReached = static_cast<std::int32_t>(0x80040E31);

template <typename Condition>
bool AnyOf(const AdoFailure& failure, Condition holds) {
  return std::any_of(failure.errors.begin(), failure.errors.end(), holds);
}

bool IsTimeOut(const AdoError& error) {
  return error.state == "HYT00" || error.state == "HYT01" || error.result == kTimeLimitReached;
}

/// Class 08 is the connection's; the numbers are a killed session's and the network's own.
bool IsAboutTheConnection(const AdoError& error) {
  static constexpr auto kNumbers = std::to_array<std::int32_t>({596, 10053, 10054, 10060, 10061});
  return error.state.starts_with("08") || error.state == "HYT01" ||
         std::find(kNumbers.begin(), kNumbers.end(), error.number) != kNumbers.end();
}

bool IsRefusal(const AdoError& error) {
  return platform::IsRefusal(error.state, error.number);
}

/// A message that only informs (class 01) may come before the error itself.
std::int32_t NumberOf(const AdoFailure& failure) {
  const auto isError = [](const AdoError& e) {
    return e.number != 0 && !e.state.starts_with("01");
  };
  const auto found = std::find_if(failure.errors.begin(), failure.errors.end(), isError);
  return found != failure.errors.end() ? found->number : failure.raised.Number();
}

AdoError ReadError(const Dispatch& item) {
  AdoError error;
  // A provider need not know every member.
  platform::ResumeNext([&] { error.state = item.Property("SQLState").Text(); });
  platform::ResumeNext([&] { error.number = item.Property("NativeError").Number(); });
  platform::ResumeNext([&] { error.result = item.Property("Number").Number(); });
  platform::ResumeNext([&] { error.text = item.Property("Description").Text(); });
  platform::ResumeNext([&] { error.source = item.Property("Source").Text(); });
  return error;
}

}  // namespace

AdoFailure ReadFailure(const Dispatch& connection, const platform::RuntimeError& raised) {
  AdoFailure failure{.raised = raised, .errors = {}};
  platform::ResumeNext([&] {
    const Dispatch errors = connection.Child("Errors");
    const std::int32_t count = errors.Property("Count").Number();
    for (std::int32_t i = 0; i < count; ++i) {
      const std::array<Variant, 1> index{i};
      failure.errors.push_back(ReadError(errors.Child("Item", index)));
    }
  });
  platform::ResumeNext(
      [&] { failure.connectionOpen = connection.Property("State").Number() != 0; });
  return failure;
}

ConnectionFault StatementFault(const AdoFailure& failure) {
  if (!failure.connectionOpen || AnyOf(failure, IsAboutTheConnection))
    return ConnectionFault::kLost;
  const bool timeOut = AnyOf(failure, IsTimeOut) || failure.raised.Number() == kTimeLimitReached;
  return timeOut ? ConnectionFault::kSilent : ConnectionFault::kStatement;
}

ConnectionFault LoginFault(const AdoFailure& failure) {
  // IM... is ODBC's own: no such data source or driver behind the provider.
  const auto noDriver = [](const AdoError& error) { return error.state.starts_with("IM"); };
  if (failure.raised.Number() == kProviderNotFound || AnyOf(failure, noDriver)) {
    return ConnectionFault::kNoDriver;
  }
  if (AnyOf(failure, IsRefusal)) return ConnectionFault::kRefused;
  if (AnyOf(failure, IsTimeOut)) return ConnectionFault::kNoAnswer;
  return AnyOf(failure, IsAboutTheConnection) ? ConnectionFault::kUnreachable
                                              : ConnectionFault::kLogin;
}

platform::RuntimeError MakeError(ConnectionFault fault, const AdoFailure& failure) {
  std::vector<std::string> lines;
  if (const std::string_view sentence = platform::UserSentence(fault); !sentence.empty()) {
    lines.emplace_back(sentence);
  }
  std::string source = failure.raised.Source();
  for (const AdoError& error : failure.errors) {
    const bool isNew = std::find(lines.begin(), lines.end(), error.text) == lines.end();
    if (isNew && !error.text.empty()) lines.push_back(error.text);
  }
  if (failure.errors.empty()) {
    lines.push_back(failure.raised.Description());
  } else if (!failure.errors.front().source.empty()) {
    source = failure.errors.front().source;
  }
  std::string description;
  for (const std::string& line : lines) description += (description.empty() ? "" : "\n") + line;
  return {NumberOf(failure), description, source};
}

}  // namespace adapters::windows
