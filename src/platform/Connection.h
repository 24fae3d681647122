#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "platform/RowReader.h"
#include "platform/RowSet.h"

namespace platform {

/// One argument of a stored procedure; the name carries its "@".
struct Parameter {
  std::string name;
  std::variant<std::int32_t, std::string, std::chrono::sys_days> value;
};

/// One connection to the suite's database. It opens itself on the first statement, so that setting
/// it up never fails; every failure is a RuntimeError with the database's own number and text.
/// A statement that failed changed nothing, and the connection stays usable; one that the user
/// cancelled (RunningStatement.h) fails with 18.
class Connection {
 public:
  virtual ~Connection() = default;

  /// Executes one statement in the server's dialect and returns all of its rows.
  virtual RowSet Execute(std::string_view statement) = 0;

  /// Begins a statement whose rows are wanted bit by bit: what it reads is as it stood at the first
  /// Read, and nobody who writes waits for it. What a connection itself remembers
  /// (SCOPE_IDENTITY) is asked with Execute. An engine that cannot do so executes it whole here.
  virtual std::unique_ptr<RowReader> Open(std::string_view statement);

  /// Calls a stored procedure, its parameters in the procedure's own order, and returns its return
  /// value. `name` is as it stands in the call: "spZomirHasPermission".
  virtual std::int32_t CallProcedure(std::string_view name,
                                     std::span<const Parameter> parameters) = 0;
};

/// Makes connections from connection strings. Which engine a string means is settled by the
/// program's composition root.
class ConnectionFactory {
 public:
  virtual ~ConnectionFactory() = default;
  /// Never touches the server; the string is taken as it is, empty included.
  virtual std::unique_ptr<Connection> Create(const std::string& connectionString) = 0;
  /// Whether a statement of one of them runs, while the screen breathes. None of them may be
  /// destroyed or asked for another meanwhile.
  virtual bool Busy() const { return false; }
};

}  // namespace platform
