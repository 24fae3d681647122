#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "adapters/server/ServerConnection.h"

namespace adapters::odbc {

/// The suite's database on Microsoft SQL Server, through the machine's ODBC driver. The connection
/// string is an ODBC one or an OLE DB one (ConnectionString.h). What holds of every way to a server
/// is told of server::ServerConnection; besides:
///
/// - `Connect Timeout` of an OLE DB string goes before `loginLimit`.
/// - FreeTDS waits for the answer to its cancelling as long again as it has waited for the
///   statement: a server that answers nothing at all is given up after twice the statement's limit.
///   It counts from the last byte that came. A server machine that vanished is noticed within a
///   minute: its driver keeps the line alive.
/// - Statements go as they are, never prepared, each committed by itself. All results of a batch
///   are read; the first one with columns is returned, an error in any is thrown.
/// - Where somebody waits, calls of the driver that block run on a thread of their own (Aside.h). A
///   driver that does not end soon what was cancelled, and a login, which none can end, are left to
///   that thread with the session.
/// - Parameters of a procedure go by their places; their names are not sent.
/// - The session has the settings that the server gives every ODBC and OLE DB client (quoted
///   identifiers, ANSI nulls, padding and warnings on); none is set here.
class OdbcConnection : public server::ServerConnection {
 public:
  explicit OdbcConnection(std::string_view connectionString,
                          std::chrono::seconds loginLimit = server::kLoginLimit)
      : OdbcConnection(connectionString, server::Outages().Of({}), nullptr, loginLimit) {}
  OdbcConnection(std::string_view connectionString, server::Outages::Count outages,
                 platform::Progress* progress = nullptr,
                 std::chrono::seconds loginLimit = server::kLoginLimit)
      : ServerConnection(connectionString, std::move(outages), progress), loginLimit_(loginLimit) {}

 private:
  std::unique_ptr<server::Session> LogIn(const std::string& connectionString,
                                         std::chrono::seconds statementLimit,
                                         platform::RunningStatement& running) override;

  std::chrono::seconds loginLimit_;
};

}  // namespace adapters::odbc
