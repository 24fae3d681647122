#include "demo/OfficeVersion.h"

#include <filesystem>
#include <system_error>

#include "adapters/sqlite/Backup.h"
#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/Errors.h"
#include "demo/ReportTemplates.h"
#include "platform/RuntimeError.h"
#include "platform/ServerErrors.h"

namespace demo {

namespace {

namespace fs = std::filesystem;
using adapters::sqlite::ColumnText;
using adapters::sqlite::DatabaseHandle;
using adapters::sqlite::OpenDatabase;
using adapters::sqlite::PathOf;
using adapters::sqlite::Prepare;
using adapters::sqlite::Run;
using adapters::sqlite::Step;

std::string TextOf(sqlite3* database, const std::string& query, const std::string& path) {
  const auto statement = Prepare(database, query, path);
  return Step(statement, path) ? std::string(ColumnText(statement, 0)) : std::string();
}

int NumberOf(sqlite3* database, const std::string& query, const std::string& path) {
  const auto statement = Prepare(database, query, path);
  return Step(statement, path) ? sqlite3_column_int(statement.get(), 0) : 0;
}

/// What all files have that were made before files told their version.
constexpr char kFirstOffice[] =
    "SELECT count(*) = 4 FROM sqlite_schema WHERE name IN ('tblZomirReportTemplate', "
    "'vwZomirBasePath', 'tblDistributionPromoterProgramDetail', 'ixPromoterProgramDetailVisit')";

[[noreturn]] void RefuseNewer(int version, const std::string& path) {
  const std::string made = std::to_string(version);
  const std::string known = std::to_string(kOfficeVersion);
  throw platform::RuntimeError(
      adapters::sqlite::kCannotOpenDatabase,
      platform::Described("پايگاه داده " + adapters::sqlite::Quoted(path) +
                              " را نسخه تازه تري از اين برنامه ساخته است (نسخه فايل " + made +
                              "، اين برنامه تا نسخه " + known +
                              ")؛ آن را با برنامه تازه تر باز كنيد. چيزي تغيير نكرد.",
                          "Cannot open database. (its version is " + made +
                              ", this program knows versions up to " + known + ")"));
}

/// An earlier copy of that name stays.
std::string FreeName(const std::string& path) {
  const std::string name = path + ".before-" + std::to_string(kOfficeVersion);
  std::string found = name;
  std::error_code none;
  for (int number = 2; fs::exists(PathOf(found), none); ++number) {
    found = name + "-" + std::to_string(number);
  }
  return found;
}

void ListTemplates(sqlite3* database, int from, const std::string& path) {
  const auto add = Prepare(database,
                           "INSERT INTO tblZomirReportTemplate (FormTypeID, Title, FilePath) "
                           "SELECT ?1, ?2, ?3 WHERE NOT EXISTS (SELECT 1 FROM "
                           "tblZomirReportTemplate WHERE FormTypeID = ?1 AND FilePath = ?3)",
                           path);
  const auto bind = [&](int place, std::string_view text) {
    sqlite3_bind_text64(add.get(), place, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
  };
  for (const ShippedTemplate& shipped : kShippedTemplates) {
    if (shipped.since <= from) continue;
    sqlite3_bind_int(add.get(), 1, kTemplateFormType);
    bind(2, shipped.title);
    bind(3, shipped.file);
    Step(add, path);
    sqlite3_reset(add.get());
  }
}

/// From each version to the next, then what is the same for all. What is there already stays: a
/// file may have been made between two versions.
void Change(sqlite3* database, int from, const std::string& path, const PutTemplates& put) {
  if (from < 2) {
    Run(database,
        "CREATE INDEX IF NOT EXISTS ixPromoterProgramDetailDay "
        "ON tblDistributionPromoterProgramDetail (ProgramID, VisitDate)",
        path);
  }
  ListTemplates(database, from, path);
  const std::string folder =
      TextOf(database, "SELECT BasePath FROM tblZomirBasePath WHERE ID = 1", path);
  std::error_code none;
  if (put && fs::is_directory(PathOf(folder), none)) put(folder);
  Run(database, OfficeMark(), path);
}

/// The version that the file needs to be brought from, if any.
std::optional<int> Older(sqlite3* database, const std::string& path) {
  const std::optional<int> version = OfficeVersion(database, path);
  return version == kOfficeVersion ? std::nullopt : version;
}

}  // namespace

std::string OfficeMark() {
  return "PRAGMA application_id = " + std::to_string(kOfficeApplication) +
         "; PRAGMA user_version = " + std::to_string(kOfficeVersion);
}

std::optional<int> OfficeVersion(sqlite3* database, const std::string& path) {
  const int application = NumberOf(database, "PRAGMA application_id", path);
  const int version = NumberOf(database, "PRAGMA user_version", path);
  if (application == kOfficeApplication) {
    if (version > kOfficeVersion) RefuseNewer(version, path);
    return version;
  }
  if (application != 0 || version != 0 || NumberOf(database, kFirstOffice, path) == 0) {
    return std::nullopt;
  }
  return 1;
}

std::optional<OfficeUpdate> BringUpToDate(const std::string& path, const PutTemplates& put) {
  std::error_code none;
  if (!fs::exists(PathOf(path), none)) return std::nullopt;
  // Looked at without the right to change anything: it may be anybody's.
  if (!Older(OpenDatabase(path, SQLITE_OPEN_READONLY).get(), path)) return std::nullopt;

  const DatabaseHandle office = OpenDatabase(path, SQLITE_OPEN_READWRITE);
  sqlite3* const database = office.get();
  if (sqlite3_db_readonly(database, "main") != 0) return std::nullopt;
  // From here on nobody else writes, so that the copy is the file before the change.
  Run(database, "BEGIN IMMEDIATE", path);
  const std::optional<int> from = Older(database, path);
  if (!from) return std::nullopt;  // another program was faster
  const std::string copy = FreeName(path);
  try {
    adapters::sqlite::BackUp(path, copy, {});
    Change(database, *from, path, put);
    Run(database, "COMMIT", path);
  } catch (const platform::RuntimeError& error) {
    fs::remove(PathOf(copy), none);
    throw platform::RuntimeError(
        error.Number(),
        platform::Described("پايگاه داده " + adapters::sqlite::Quoted(path) + " به نسخه " +
                                std::to_string(kOfficeVersion) + " رسانده نشد و همان است كه بود.",
                            error.Description()),
        error.Source());
  }
  return OfficeUpdate{*from, copy};
}

}  // namespace demo
