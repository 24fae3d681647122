#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace demo {

/// An office's file tells which program made it, by SQLite's application_id, and in which version
/// of the schema, by its user_version. Whoever changes OfficeSchema, or what every office has from
/// the beginning, raises the version and says in OfficeVersion.cpp how an older file gets there.
inline constexpr std::int32_t kOfficeApplication = 0x50724F66;
inline constexpr int kOfficeVersion = 2;

/// What makes a file one of this version.
std::string OfficeMark();

/// The version of an open file; 1 where an office was made before files told; nothing where another
/// program made it. Throws RuntimeError 4060, which tells both versions, for one that a newer
/// program made.
std::optional<int> OfficeVersion(sqlite3* database, const std::string& path);

struct OfficeUpdate {
  int from = 0;
  std::string copy;  // the file as it was
};
/// Puts the report templates that the program carries, and that are missing there, into a folder.
using PutTemplates = std::function<void(const std::string& folder)>;

/// Brings the office's file at `path` (UTF-8) to this program's version, in one transaction, after
/// a checked copy beside it. Nothing is done, and nothing returned, where the file has this
/// version, is not one of ours, is not there or may only be read. Templates go to where the office
/// looks for them, if that folder is there. Throws RuntimeError, and the file is as it was: as
/// OfficeVersion does, 1222 when another program writes to it, else what failed.
std::optional<OfficeUpdate> BringUpToDate(const std::string& path, const PutTemplates& put);

}  // namespace demo
