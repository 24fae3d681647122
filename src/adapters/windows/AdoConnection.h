#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "adapters/windows/Com.h"
#include "platform/Connection.h"

namespace adapters::windows {

/// How long a server may take to answer before it counts as silent.
inline constexpr std::chrono::seconds kConnectionTimeout{15};

/// How long a statement may take. ADO's own 30 s would cut a large batch on a busy server short;
/// this is the end of waiting for a server that fell silent, or for somebody's lock.
inline constexpr std::chrono::seconds kCommandTimeout{300};

/// The suite's database through ADO, late bound, with whatever provider the connection string
/// names; the string goes to ADO as it is, when the first statement runs. The thread has COM
/// initialised, and everything stays on it.
///
/// Statements run as batches of the session itself, so that what one leaves behind (SCOPE_IDENTITY)
/// is there for the next. Cells are as AdoRows.h says. A failure throws RuntimeError with the
/// server's own number, where it gave one, every description that the provider gave and its source
/// (AdoErrors.h); a password of the connection string is in none of them.
///
/// A connection that was lost is given up: the statement that found it so fails and is never sent
/// again by itself, since the server may have executed it; the next statement connects anew.
class AdoConnection : public platform::Connection {
 public:
  explicit AdoConnection(std::string_view connectionString) : connectionString_(connectionString) {}
  AdoConnection(const AdoConnection&) = delete;
  AdoConnection& operator=(const AdoConnection&) = delete;
  ~AdoConnection() override { Close(); }

  platform::RowSet Execute(std::string_view statement) override;
  std::int32_t CallProcedure(std::string_view name,
                             std::span<const platform::Parameter> parameters) override;

 private:
  void Open();
  void Close();
  /// Runs `action` on an open connection and tells its failure as this class does.
  template <typename Action>
  auto InSession(Action action);

  std::string connectionString_;
  Dispatch connection_;  // empty until the first statement, and after a loss
};

}  // namespace adapters::windows
