#pragma once

#include <memory>
#include <string>

#include "adapters/log/StatementLog.h"
#include "adapters/server/ServerConnection.h"
#include "platform/Connection.h"
#include "platform/Progress.h"

namespace activex {

/// Connections by what their string says: `sqlite:` and a file is the embedded database, to try the
/// control without a server; everything else is for ADO to understand. Their statements are logged
/// where the environment variable DISTPROMOTER_LOG, else the registry's setting Log, names a file.
class Databases : public platform::ConnectionFactory {
 public:
  /// `progress` shows statements that take long; null where nobody waits.
  explicit Databases(platform::Progress* progress = nullptr);
  std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override;
  bool Busy() const override { return progress_ != nullptr && progress_->UnderWay(); }

 private:
  platform::Progress* progress_;
  std::shared_ptr<adapters::log::StatementLog> log_;
  adapters::server::Outages outages_;
};

}  // namespace activex
