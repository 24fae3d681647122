#pragma once

#include <chrono>
#include <cstdint>
#include <exception>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Connection.h"
#include "platform/ConnectionFault.h"
#include "platform/RunningStatement.h"

namespace adapters::server {

/// What a session, or the opening of one, fails with: all that was said of it, not yet judged.
class Failure : public std::exception {
 public:
  Failure(platform::DatabaseErrors errors, std::string source, bool sessionDead = false)
      : errors_(std::move(errors)), source_(std::move(source)), sessionDead_(sessionDead) {}

  const platform::DatabaseErrors& Errors() const { return errors_; }
  /// Who raised it, as RuntimeError has it.
  const std::string& Source() const { return source_; }
  /// The driver or provider counts the session as gone.
  bool SessionDead() const { return sessionDead_; }
  const char* what() const noexcept override { return "the database failed"; }

 private:
  platform::DatabaseErrors errors_;
  std::string source_;
  bool sessionDead_;
};

/// How long a driver or provider may take to end what was cancelled before it is left alone with
/// it.
inline constexpr std::chrono::milliseconds kCancelLimit{3000};

/// The failure of what was cancelled, where nobody else says so.
inline Failure Stopped(const std::string& source, bool sessionDead) {
  return {{{"HY008", 0, "Operation canceled"}}, source, sessionDead};
}

/// One login to a server; it ends with this. Both calls are platform::Connection's and throw
/// Failure. They keep asking `running`; once it goes on no longer, whatever they throw counts as
/// cancelled.
class Session {
 public:
  virtual ~Session() = default;
  virtual platform::RowSet Execute(std::string_view statement,
                                   platform::RunningStatement& running) = 0;
  virtual std::int32_t CallProcedure(std::string_view name,
                                     std::span<const platform::Parameter> parameters,
                                     platform::RunningStatement& running) = 0;
};

}  // namespace adapters::server
