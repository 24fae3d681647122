#pragma once

#include <cstdint>
#include <string>

#include "Options.h"
#include "adapters/odbc/OdbcConnection.h"
#include "apps/connection/Connections.h"

namespace desktop {

/// Embedded databases, and SQL Server through ODBC.
class Connections : public connection::Connections<adapters::odbc::OdbcConnection> {
 public:
  explicit Connections(const Options& options, platform::Progress* progress = nullptr)
      : connection::Connections<adapters::odbc::OdbcConnection>(options.logFile, progress) {}
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
