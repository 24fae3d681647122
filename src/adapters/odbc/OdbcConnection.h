#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/Connection.h"

namespace adapters::odbc {

/// How long a server may take to answer the login before it counts as silent.
inline constexpr std::chrono::seconds kLoginTimeout{15};

/// How long a statement may take. Nothing that the module sends takes so long, the largest batch
/// included; it is the end of waiting for a server that fell silent, or for somebody's lock.
inline constexpr std::chrono::seconds kStatementTimeout{300};

/// The suite's database on Microsoft SQL Server, through the machine's ODBC driver. The connection
/// string is an ODBC one or an OLE DB one (ConnectionString.h); it is read and used only when the
/// first statement runs. A failure throws RuntimeError with the server's own number, where it gave
/// one, and the full text of every diagnostic, SQLSTATE included; a password is in none of them.
///
/// A connection that was lost is given up: the statement that found it so fails and is never sent
/// again by itself, since the server may have executed it; the next statement connects anew.
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
