#include "adapters/server/ServerConnection.h"

#include <algorithm>

#include "adapters/server/ConnectionWords.h"
#include "adapters/server/StatementLimit.h"
#include "platform/RuntimeError.h"
#include "platform/ServerErrors.h"
#include "text/Secrets.h"

namespace adapters::server {

namespace {

using platform::ConnectionFault;
using platform::DatabaseError;
using platform::DatabaseErrors;

/// Every text once, a line each.
std::string AllTexts(const DatabaseErrors& errors) {
  std::string words;
  for (auto each = errors.begin(); each != errors.end(); ++each) {
    const auto sameText = [&](const DatabaseError& other) { return other.text == each->text; };
    if (each->text.empty() || std::any_of(errors.begin(), each, sameText)) continue;
    if (!words.empty()) words += '\n';
    words += each->text;
    if (!each->state.empty()) words += " (SQLSTATE " + each->state + ")";
  }
  return words;
}

std::string Sentence(ConnectionFault fault, const DatabaseErrors& errors) {
  if (fault != ConnectionFault::kStatement) return platform::UserSentence(fault);
  const std::string known = platform::ServerSentence(NumberOf(errors));
  return known.empty() ? "پايگاه داده دستور را نپذيرفت." : known;
}

/// A statement that begins so stores nothing.
bool Reads(std::string_view statement) {
  constexpr std::string_view kSelect = "select";
  statement.remove_prefix(std::min(statement.find_first_not_of(" \t\r\n"), statement.size()));
  return Folded(statement.substr(0, kSelect.size())) == kSelect;
}

}  // namespace

Session& ServerConnection::OpenSession(platform::RunningStatement& running) {
  if (session_ && outagesSeen_ != *outages_) session_.reset();
  if (!session_) {
    const LimitedString read = TakeStatementLimit(connectionString_);
    session_ = LogIn(read.rest, read.limit, running);
    outagesSeen_ = *outages_;
  }
  return *session_;
}

platform::RuntimeError ServerConnection::Judge(const Failure& failure) {
  const DatabaseErrors& errors = failure.Errors();
  const auto phase = session_ ? platform::Phase::kStatement : platform::Phase::kLogin;
  const ConnectionFault fault = FaultOf(phase, errors, failure.SessionDead());
  if (fault != ConnectionFault::kStatement) session_.reset();
  if (fault == ConnectionFault::kLost || fault == ConnectionFault::kUnreachable) ++*outages_;
  // Nothing is what FreeTDS says of a "?" outside the texts of a statement, which it takes for a
  // parameter.
  const std::string words =
      errors.empty() ? "The driver refused without a reason." : AllTexts(errors);
  return {NumberOf(errors), platform::Described(Sentence(fault, errors), words), failure.Source()};
}

platform::RuntimeError ServerConnection::JudgeCancelled(const Failure& failure,
                                                        platform::Cancelled left) {
  if (!session_) left = platform::Cancelled::kReading;
  const auto fault = FaultOf(platform::Phase::kStatement, failure.Errors(), failure.SessionDead());
  if (fault != ConnectionFault::kStatement) session_.reset();
  return platform::CancelledError(left, AllTexts(failure.Errors()), failure.Source());
}

template <typename Action>
auto ServerConnection::InSession(platform::Cancelled left, Action action) {
  const auto withoutPasswords = [this](const platform::RuntimeError& error) {
    return platform::RuntimeError(error.Number(),
                                  text::WithoutPasswords(error.Description(), connectionString_),
                                  error.Source());
  };
  platform::RunningStatement running(progress_);
  try {
    return action(OpenSession(running), running);
  } catch (const Failure& failure) {
    throw withoutPasswords(running.Cancelled() ? JudgeCancelled(failure, left) : Judge(failure));
  } catch (const platform::RuntimeError& error) {
    throw withoutPasswords(error);
  }
}

platform::RowSet ServerConnection::Execute(std::string_view statement) {
  const auto left =
      Reads(statement) ? platform::Cancelled::kReading : platform::Cancelled::kPerhapsStored;
  return InSession(left, [&](Session& session, platform::RunningStatement& running) {
    return session.Execute(statement, running);
  });
}

std::int32_t ServerConnection::CallProcedure(std::string_view name,
                                             std::span<const platform::Parameter> parameters) {
  return InSession(platform::Cancelled::kPerhapsStored,
                   [&](Session& session, platform::RunningStatement& running) {
                     return session.CallProcedure(name, parameters, running);
                   });
}

}  // namespace adapters::server
