#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include "platform/Connection.h"

namespace adapters::log {

using Moment = std::chrono::sys_time<std::chrono::microseconds>;

/// A text file (UTF-8 path) for whoever supports the program. It is opened for each line and closed
/// again, so that several programs can share it and anybody may take it away. Before it grows
/// beyond `most` bytes it becomes FILE.1, in place of the one before. A file that is made is for
/// its owner alone. What cannot be written is lost, which `complaints` is told once.
class StatementLog {
 public:
  static constexpr std::uintmax_t kMost = 10'000'000;

  StatementLog(std::string file, std::function<Moment()> now, std::ostream& complaints,
               std::uintmax_t most = kMost);

  Moment Now() const { return now_(); }
  /// `line` without its end; breaks in it become blanks.
  void Write(std::string line);
  /// To tell the lines of several connections apart: 1, 2, ...
  int NextConnection() { return ++connections_; }

 private:
  bool Append(const std::string& line) const;

  std::string file_;
  std::function<Moment()> now_;
  std::ostream& complaints_;
  std::uintmax_t most_;
  int connections_ = 0;
  bool complained_ = false;
};

/// The same connection, which writes a line for each statement, procedure and reading of rows into
/// the log: the time it began (UTC), which connection, milliseconds, rows, what it failed with and
/// its text, set apart by tabs; passwords of the connection string are starred out. Nothing else
/// about it changes. Without a log it is given back as it is.
std::unique_ptr<platform::Connection> Logged(std::unique_ptr<platform::Connection> connection,
                                             const std::string& connectionString,
                                             std::shared_ptr<StatementLog> log);

}  // namespace adapters::log
