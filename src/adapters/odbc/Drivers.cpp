#include "adapters/odbc/Drivers.h"

#include <algorithm>
#include <charconv>
#include <span>

#include "adapters/odbc/Handles.h"
#include "adapters/odbc/Utf16.h"
#include "adapters/server/ConnectionWords.h"

namespace adapters::odbc {

namespace {

using server::Folded;

constexpr std::size_t kNameUnits = 512;
constexpr std::size_t kMoreUnits = 8192;

using Enumerate = SQLRETURN(SQL_API*)(SQLHENV, SQLUSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLSMALLINT*,
                                      SQLWCHAR*, SQLSMALLINT, SQLSMALLINT*);

/// The value of "Driver=" in a driver's attributes, each of which ends with a zero.
std::string LibraryOf(const Utf16& buffer, SQLINTEGER length) {
  constexpr std::string_view kKey = "driver=";
  std::string all;
  AppendUtf8(all, std::span(buffer).first(std::min(static_cast<std::size_t>(length), kMoreUnits)));
  for (std::string_view rest = all; !rest.empty();) {
    const std::string_view entry = rest.substr(0, rest.find('\0'));
    if (Folded(entry.substr(0, kKey.size())) == kKey) return std::string(entry.substr(kKey.size()));
    rest.remove_prefix(std::min(entry.size() + 1, rest.size()));
  }
  return {};
}

std::vector<Registered> List(const Environment& environment, Enumerate enumerate,
                             std::string (*driverIn)(const Utf16&, SQLINTEGER)) {
  std::vector<Registered> list;
  Utf16 name(kNameUnits);
  Utf16 more(kMoreUnits);
  SQLSMALLINT nameLength = 0;
  SQLSMALLINT moreLength = 0;
  SQLUSMALLINT direction = SQL_FETCH_FIRST;
  while (SQL_SUCCEEDED(enumerate(environment.Get(), direction, name.data(),
                                 static_cast<SQLSMALLINT>(name.size()), &nameLength, more.data(),
                                 static_cast<SQLSMALLINT>(more.size()), &moreLength))) {
    list.push_back({ToUtf8(name, nameLength), driverIn(more, moreLength)});
    direction = SQL_FETCH_NEXT;
  }
  return list;
}

bool SaysFreeTds(std::string_view text) {
  const std::string folded = Folded(text);
  return folded.find("freetds") != std::string::npos || folded.find("tdsodbc") != std::string::npos;
}

const Registered* Find(const std::vector<Registered>& list, std::string_view name) {
  const auto found = std::find_if(list.begin(), list.end(), [&](const Registered& entry) {
    return Folded(entry.name) == Folded(name);
  });
  return found == list.end() ? nullptr : &*found;
}

/// NN of "ODBC Driver NN for SQL Server"; 0 of any other name.
int MicrosoftVersion(std::string_view name) {
  constexpr std::string_view kBefore = "odbcdriver";
  const std::string folded = Folded(name);
  if (!folded.starts_with(kBefore)) return 0;
  int version = 0;
  const char* const end = folded.data() + folded.size();
  const auto read = std::from_chars(folded.data() + kBefore.size(), end, version);
  return std::string_view(read.ptr, end) == "forsqlserver" ? version : 0;
}

}  // namespace

Installed ReadInstalled() {
  Installed installed;
  const Environment environment = MakeEnvironment();
  if (!environment) return installed;
  installed.drivers = List(environment, SQLDriversW, LibraryOf);
  installed.dataSources = List(environment, SQLDataSourcesW, ToUtf8);
  return installed;
}

bool IsFreeTds(std::string_view driver, const Installed& installed) {
  if (SaysFreeTds(driver)) return true;
  const Registered* const known = Find(installed.drivers, driver);
  return known != nullptr && SaysFreeTds(known->driver);
}

bool IsFreeTdsSource(std::string_view dataSource, const Installed& installed) {
  const Registered* const source = Find(installed.dataSources, dataSource);
  return source != nullptr && IsFreeTds(source->driver, installed);
}

std::string SqlServerDriver(const Installed& installed) {
  std::string chosen;
  int newest = 0;
  for (const Registered& driver : installed.drivers) {
    const int version = MicrosoftVersion(driver.name);
    if (version > newest || (chosen.empty() && IsFreeTds(driver.name, installed))) {
      newest = version;
      chosen = driver.name;
    }
  }
  return chosen;
}

}  // namespace adapters::odbc
