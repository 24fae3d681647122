#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "adapters/odbc/Drivers.h"

namespace adapters::odbc {

/// The ODBC connection string, UTF-8, that means the same as `connectionString`.
///
/// - A string with an OLE DB provider for SQL Server ("Provider=SQLOLEDB;Data Source=...;Initial
///   Catalog=...;User ID=...;Password=...", "Integrated Security=SSPI") is read into the ODBC
///   words, for the SQL Server driver that this machine has: Microsoft's newest, else FreeTDS.
///   Words that have no meaning for a driver (Persist Security Info, Auto Translate) are left out.
/// - Any other string is ODBC's own and is passed on as it is, but for what a FreeTDS driver needs
///   to keep Persian text (TDS_Version, ClientCharset), added where it is not said.
///
/// Throws RuntimeError: 3706 when the string names a provider that is not SQL Server's or names
/// nothing to connect to, or when no driver for SQL Server is installed.
std::string OdbcConnectionString(std::string_view connectionString);

/// The same for a machine that has `installed`.
std::string OdbcConnectionString(std::string_view connectionString, const Installed& installed);

/// `Connect Timeout` of an OLE DB string; absent when it is not said, or 0 (wait for ever).
std::optional<std::chrono::seconds> ConnectTimeout(std::string_view connectionString);

}  // namespace adapters::odbc
