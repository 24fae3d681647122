#pragma once

#include <chrono>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

#include "adapters/log/StatementLog.h"
#include "adapters/server/ServerConnection.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "platform/Connection.h"
#include "platform/Progress.h"

namespace connection {

/// What the connection string of an embedded database begins with; its file follows.
inline constexpr std::string_view kEmbedded = "sqlite:";

/// Connections by what their string says: an embedded database, or a server, which `Server`
/// reaches.
template <typename Server>
class Connections : public platform::ConnectionFactory {
 public:
  /// Statements are written down in the file `log`, unless it has no name. `progress` shows those
  /// that take long; null where nobody waits.
  Connections(const std::string& log, platform::Progress* progress) : progress_(progress) {
    if (log.empty()) return;
    const auto now = [] {
      return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
    };
    log_ = std::make_shared<adapters::log::StatementLog>(log, now, std::cerr);
  }

  std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override {
    std::unique_ptr<platform::Connection> made;
    if (connectionString.starts_with(kEmbedded)) {
      made = std::make_unique<adapters::sqlite::SqliteConnection>(
          connectionString, adapters::sqlite::kBusyTimeout, platform::kStatementLimit, progress_);
    } else {
      made = std::make_unique<Server>(connectionString, outages_.Of(connectionString), progress_);
    }
    return adapters::log::Logged(std::move(made), connectionString, log_);
  }
  bool Busy() const override { return progress_ != nullptr && progress_->UnderWay(); }

 private:
  platform::Progress* progress_;
  std::shared_ptr<adapters::log::StatementLog> log_;
  adapters::server::Outages outages_;
};

}  // namespace connection
