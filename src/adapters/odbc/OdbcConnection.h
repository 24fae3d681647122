#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/Connection.h"

namespace adapters::odbc {

/// How long a server may take to answer the login before it counts as silent; `Connect Timeout` of
/// an OLE DB string goes before it.
inline constexpr std::chrono::seconds kLoginTimeout{15};

/// How long a statement may take: no limit to work (nothing that the module sends takes so long,
/// the largest batch included), but to waiting for a server that fell silent or for somebody's
/// lock. FreeTDS counts from the last byte that came, and waits as long again for the answer to its
/// cancelling. A server machine that vanished is noticed within a minute: its driver keeps the line
/// alive.
inline constexpr std::chrono::seconds kStatementTimeout{180};

/// The suite's database on Microsoft SQL Server, through the machine's ODBC driver. The connection
/// string is an ODBC one or an OLE DB one (ConnectionString.h); it is read and used only when the
/// first statement runs.
///
/// - A failure throws RuntimeError with the server's own number, where it gave one, and the full
///   text of every diagnostic, SQLSTATE included; a password is in none of them. What is no fault
///   of the statement (server unreachable, silent, refusing, lost) begins with a Persian sentence
///   for the user. Messages that only inform are no failures.
/// - A connection that was lost, or that ran into the statement's time limit, is given up: the
///   statement that found it so fails and is never sent again by itself, since the server may have
///   executed it; the next statement connects anew.
/// - Statements go as they are, never prepared, each committed by itself. All results of a batch
///   are read; the first one with columns is returned, an error in any is thrown.
/// - Parameters of a procedure go by their places; their names are not sent.
/// - The session has the settings that the server gives every ODBC and OLE DB client (quoted
///   identifiers, ANSI nulls, padding and warnings on); none is set here.
class OdbcConnection : public platform::Connection {
 public:
  explicit OdbcConnection(std::string_view connectionString,
                          std::chrono::seconds loginTimeout = kLoginTimeout,
                          std::chrono::seconds statementTimeout = kStatementTimeout);
  ~OdbcConnection() override;

  platform::RowSet Execute(std::string_view statement) override;
  std::int32_t CallProcedure(std::string_view name,
                             std::span<const platform::Parameter> parameters) override;

 private:
  class Session;
  template <typename Action>
  auto InSession(Action action);

  std::string connectionString_;
  std::chrono::seconds loginTimeout_;
  std::chrono::seconds statementTimeout_;
  std::unique_ptr<Session> session_;
};

}  // namespace adapters::odbc
