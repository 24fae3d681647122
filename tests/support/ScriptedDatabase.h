#pragma once

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Connection.h"
#include "platform/RuntimeError.h"
#include "support/Events.h"

namespace support {

using Cell = std::optional<std::string>;

/// A result: RowSetOf({"ID", "Name"}, {{"1", "a"}, {"2", std::nullopt}}). A row with another number
/// of cells than columns throws std::logic_error.
platform::RowSet RowSetOf(const std::vector<std::string>& columns,
                          const std::vector<std::vector<Cell>>& rows = {});

/// Which statements a reply is for.
using Statement = std::function<bool(std::string_view)>;
inline Statement Exact(std::string text) {
  return [text = std::move(text)](std::string_view statement) { return statement == text; };
}
inline Statement Beginning(std::string text) {
  return
      [text = std::move(text)](std::string_view statement) { return statement.starts_with(text); };
}
inline Statement Holding(std::string text, std::string too = {}) {
  return [text = std::move(text), too = std::move(too)](std::string_view statement) {
    return statement.find(text) != std::string_view::npos &&
           statement.find(too) != std::string_view::npos;
  };
}

/// The reply to one kind of statement.
class Reply {
 public:
  void Gives(platform::RowSet rows) {
    make_ = [rows = std::move(rows)] { return rows; };
  }
  void Fails(const platform::RuntimeError& error) {
    make_ = [error]() -> platform::RowSet { throw platform::RuntimeError(error); };
  }

 private:
  friend class ScriptedDatabase;
  std::function<platform::RowSet()> make_;
};

/// What stands behind every RecordingConnection of a test: the script of replies and the record of
/// what was asked. Of several replies that fit a statement the one scripted last is given. A SELECT
/// that no script fits finds no rows; any other statement succeeds; every permission is held.
class ScriptedDatabase : public platform::ConnectionFactory {
 public:
  struct Call {
    std::string connectionString;
    std::string text;  // the statement, or the procedure as "name(@A=1, @B='text')"
    bool procedure = false;
  };

  explicit ScriptedDatabase(Events& events) : events_(events) {}

  std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override;
  /// The strings of all connections made, in order.
  std::vector<std::string> connectionStrings;
  /// How many connections there are now.
  int connections = 0;

  /// Scripts a reply: When(Holding("getdate()")).Gives(RowSetOf({"today"}, {{"2025-03-21"}})).
  Reply& When(Statement statement);
  /// The n-th call from now on (statement or procedure, 1 is the next) fails.
  void FailAtCall(std::size_t n, platform::RuntimeError error);

  /// All that was asked, in order, and the texts of it.
  const std::vector<Call>& Calls() const { return calls_; }
  std::vector<std::string> Log() const;
  /// The statements alone, without procedure calls; those that hold `part`.
  std::vector<std::string> Statements(std::string_view part = {}) const;
  /// Forgets what was asked, keeps the script.
  void ForgetCalls() { calls_.clear(); }

 private:
  friend class RecordingConnection;
  platform::RowSet Execute(const std::string& connectionString, std::string_view statement);
  std::int32_t CallProcedure(const std::string& connectionString, std::string_view name,
                             std::span<const platform::Parameter> parameters);
  void Record(Call call);

  Events& events_;
  std::list<std::pair<Statement, Reply>> script_;
  std::optional<platform::RuntimeError> failOnce_;
  std::size_t callsUntilFailure_ = 0;
  std::vector<Call> calls_;
};

/// One connection to a ScriptedDatabase.
class RecordingConnection : public platform::Connection {
 public:
  RecordingConnection(ScriptedDatabase& database, std::string connectionString)
      : database_(database), connectionString_(std::move(connectionString)) {
    ++database_.connections;
  }
  ~RecordingConnection() override { --database_.connections; }
  RecordingConnection(const RecordingConnection&) = delete;
  RecordingConnection& operator=(const RecordingConnection&) = delete;
  platform::RowSet Execute(std::string_view statement) override {
    return database_.Execute(connectionString_, statement);
  }
  std::int32_t CallProcedure(std::string_view name,
                             std::span<const platform::Parameter> parameters) override {
    return database_.CallProcedure(connectionString_, name, parameters);
  }

 private:
  ScriptedDatabase& database_;
  std::string connectionString_;
};

}  // namespace support
