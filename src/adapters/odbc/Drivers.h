#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace adapters::odbc {

/// A driver and the file of its library, or a data source and the driver behind it.
struct Registered {
  std::string name;
  std::string driver;
};

/// What the driver manager of a machine knows.
struct Installed {
  std::vector<Registered> drivers;
  std::vector<Registered> dataSources;
};

Installed ReadInstalled();

/// Whether `driver`, a driver's name or its library's file, is FreeTDS.
bool IsFreeTds(std::string_view driver, const Installed& installed);
/// The same of the driver behind a data source; false for one that is not known.
bool IsFreeTdsSource(std::string_view dataSource, const Installed& installed);

/// The driver for SQL Server by its name: Microsoft's newest, else FreeTDS, else empty.
std::string SqlServerDriver(const Installed& installed);

}  // namespace adapters::odbc
