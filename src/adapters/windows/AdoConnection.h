#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "adapters/server/ServerConnection.h"

namespace adapters::windows {

/// The suite's database through ADO, late bound, with whatever provider the connection string
/// names; the string goes to ADO as it is. The thread has COM initialised, and everything stays on
/// it. What holds of every way to a server is told of server::ServerConnection; besides:
///
/// - Statements run as batches of the session itself, so that what one leaves behind
///   (SCOPE_IDENTITY) is there for the next. Cells are as AdoRows.h says.
/// - ADO's own time limit of a statement, 30 s, would cut a large batch on a busy server short: it
///   gets ours.
/// - Where somebody waits, ADO executes and connects asynchronously, and its State is looked at;
/// the
///   further results of a batch are waited for.
class AdoConnection : public server::ServerConnection {
 public:
  explicit AdoConnection(std::string_view connectionString,
                         server::Outages::Count outages = server::Outages().Of({}),
                         platform::Progress* progress = nullptr)
      : ServerConnection(connectionString, std::move(outages), progress) {}

 private:
  std::unique_ptr<server::Session> LogIn(const std::string& connectionString,
                                         std::chrono::seconds statementLimit,
                                         platform::RunningStatement& running) override;
};

}  // namespace adapters::windows
