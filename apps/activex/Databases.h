#pragma once

#include <memory>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/windows/AdoConnection.h"
#include "platform/Connection.h"
#include "platform/Progress.h"

namespace activex {

/// Connections by what their string says: `sqlite:` and a file is the embedded database, to try the
/// control without a server; everything else is for ADO to understand.
class Databases : public platform::ConnectionFactory {
 public:
  /// `progress` shows statements that take long; null where nobody waits.
  explicit Databases(platform::Progress* progress = nullptr) : progress_(progress) {}
  std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override {
    if (connectionString.starts_with("sqlite:")) {
      return std::make_unique<adapters::sqlite::SqliteConnection>(
          connectionString, adapters::sqlite::kBusyTimeout, platform::kStatementLimit, progress_);
    }
    return std::make_unique<adapters::windows::AdoConnection>(
        connectionString, outages_.Of(connectionString), progress_);
  }
  bool Busy() const override { return progress_ != nullptr && progress_->UnderWay(); }

 private:
  platform::Progress* progress_;
  adapters::server::Outages outages_;
};

}  // namespace activex
