#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "adapters/server/Session.h"
#include "platform/Connection.h"
#include "platform/Progress.h"
#include "platform/RunningStatement.h"
#include "platform/RuntimeError.h"

namespace adapters::server {

/// How long a server may take to answer the login before it counts as silent, unless the connection
/// string says otherwise.
inline constexpr std::chrono::seconds kLoginLimit{15};

/// How often servers were found gone, by connection string. Whoever makes connections keeps one of
/// these, so that those to the same server learn of each other's loss.
class Outages {
 public:
  using Count = std::shared_ptr<std::uint32_t>;

  Count Of(const std::string& connectionString) {
    Count& count = counts_[connectionString];
    if (!count) count = std::make_shared<std::uint32_t>(0);
    return count;
  }

 private:
  std::map<std::string, Count> counts_;
};

/// The suite's database on Microsoft SQL Server, whatever reaches it: a session is opened by the
/// first statement and kept. The connection string is read and used only then; its word
/// `Statement Timeout` is ours (StatementLimit.h) and not handed on.
///
/// - A failure throws RuntimeError with the server's own number, where it gave one, and every text
///   that was said, once, with its SQLSTATE. What the user can do something about begins with a
///   Persian sentence (platform/ConnectionFault.h, platform/ServerErrors.h). A password of the
///   connection string is in none of it.
/// - A session that was lost, or that ran into the statement's time limit, is given up: the
///   statement that found it so fails and is never sent again by itself, since the server may have
///   executed it; the next statement opens a new one.
/// - What the user cancels fails with 18. A session whose driver does not end it soon is given up;
///   what was cancelled is no loss of the server.
/// - Where one connection finds the server gone, the sessions that others with the same string left
///   idle are gone too: theirs are dropped unasked, and opened anew by their next statement.
class ServerConnection : public platform::Connection {
 public:
  platform::RowSet Execute(std::string_view statement) override;
  std::int32_t CallProcedure(std::string_view name,
                             std::span<const platform::Parameter> parameters) override;

 protected:
  /// `progress` is asked while the server is waited for; may be null.
  ServerConnection(std::string_view connectionString, Outages::Count outages,
                   platform::Progress* progress)
      : connectionString_(connectionString), outages_(std::move(outages)), progress_(progress) {}

 private:
  /// Logs in. Throws Failure, or RuntimeError where the string cannot be understood.
  virtual std::unique_ptr<Session> LogIn(const std::string& connectionString,
                                         std::chrono::seconds statementLimit,
                                         platform::RunningStatement& running) = 0;

  Session& OpenSession(platform::RunningStatement& running);
  /// `left`: what is left behind should the user cancel.
  template <typename Action>
  auto InSession(platform::Cancelled left, Action action);
  platform::RuntimeError Judge(const Failure& failure);
  platform::RuntimeError JudgeCancelled(const Failure& failure, platform::Cancelled left);

  std::string connectionString_;
  Outages::Count outages_;
  platform::Progress* progress_;
  std::uint32_t outagesSeen_ = 0;  // when the session was opened
  std::unique_ptr<Session> session_;
};

}  // namespace adapters::server
