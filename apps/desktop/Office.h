#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "Options.h"
#include "adapters/log/StatementLog.h"
#include "adapters/server/ServerConnection.h"
#include "platform/Connection.h"
#include "platform/Progress.h"

namespace desktop {

/// Connections by what their string says: `sqlite:` and a file is the embedded database, any other
/// string SQL Server through ODBC.
class Connections : public platform::ConnectionFactory {
 public:
  /// Statements are logged where the options say. `progress` shows those that take long; null where
  /// nobody waits.
  explicit Connections(const Options& options, platform::Progress* progress = nullptr);
  std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override;
  bool Busy() const override { return progress_ != nullptr && progress_->UnderWay(); }

 private:
  platform::Progress* progress_;
  std::shared_ptr<adapters::log::StatementLog> log_;
  adapters::server::Outages outages_;
};

/// Path of the user's sample office with so many customers, around that day.
std::string SampleOfficePath(const Options& options);

/// Makes a sample office at `path` unless there is one, and says so on the terminal. Its report
/// templates go into the folder "templates" beside it; those that are missing there are put back.
/// Throws RuntimeError.
void EnsureSampleOffice(const std::string& path, const Options& options);

/// The connection string of what the options name or, where they name nothing, of the sample office
/// at `made`, which is then ensured. A file that an older program made is brought up to date, which
/// is said on the terminal. Throws RuntimeError, 53 with the way to make one when a file is named
/// that is not there.
std::string OfficeToOpen(const Options& options, const std::string& made);

/// The path of the embedded database that the options name, else of the sample office. Throws
/// RuntimeError 53 when no file is there.
std::string OfficeFile(const Options& options);

/// Makes the sample office where options.connect says, in a server's empty database or in a file
/// that is not there yet, and says on the terminal how it goes. The office looks for its report
/// templates in the user's data folder. Throws RuntimeError.
void LoadSample(const Options& options);

/// Sends the statements of options.replayFile to where the options say; see Replay.h. True when all
/// of them ran. Throws RuntimeError when the file cannot be read or the database not be reached.
bool ReplayStatements(const Options& options);

}  // namespace desktop
