#pragma once

#include <iosfwd>
#include <string_view>

#include "demo/SampleOffice.h"
#include "platform/Connection.h"

namespace demo {

/// The texts of demo/sqlserver, and what is put into them.
struct ServerScripts {
  std::string_view schema;
  std::string_view functions;
  std::string_view procedures;
  /// Of the columns that people read; empty: the one that the schema names.
  std::string_view collation = {};
};

/// Loads the sample office into a database on SQL Server: the scripts, then every row of the office
/// that CreateSampleOffice makes for the same options, ids included. The connection should be
/// fresh: its session keeps settings (NOCOUNT, XACT_ABORT). All of it is one transaction, so a
/// failure, a lost connection too, leaves the database as it was. Nothing is ever dropped or
/// replaced: a database that has one of the objects already is refused. What is done, and a
/// database whose collation would spoil what the module writes, is told on `progress`, line by
/// line.
///
/// Throws platform::RuntimeError: 2714 when the database holds such objects, which are named; else
/// what the server says and what it was about, or what CreateSampleOffice throws.
void LoadServerOffice(platform::Connection& server, const ServerScripts& scripts,
                      const SampleOptions& options, std::ostream& progress);

}  // namespace demo
