#include "demo/Inspection.h"

#include <sqlite3.h>

#include <cstddef>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "adapters/sqlite/Database.h"
#include "demo/OfficeVersion.h"
#include "demo/Schema.h"
#include "platform/RuntimeError.h"
#include "platform/ServerErrors.h"

namespace demo {

namespace {

using adapters::sqlite::ColumnText;
using adapters::sqlite::Prepare;
using adapters::sqlite::Step;
using platform::LeftToRight;

class Findings {
 public:
  /// `check` adds findings of one kind; what it fails with, in a damaged file, is one too.
  template <typename Check>
  void Of(const Check& check) {
    ofKind_ = 0;
    try {
      check();
    } catch (const platform::RuntimeError& error) {
      Add("اين بررسي به پايان نرسيد.", error.Description());
    }
    if (ofKind_ > kMostOfKind) {
      const std::string more = std::to_string(ofKind_ - kMostOfKind);
      lines_.push_back("و " + more + " يافته ديگر از همين نوع. And " + more +
                       " more of this kind.");
    }
  }
  void Add(const std::string& sentence, const std::string& words) {
    if (++ofKind_ <= kMostOfKind) lines_.push_back(sentence + " " + words);
  }
  std::vector<std::string> Lines() && { return std::move(lines_); }

 private:
  static constexpr std::size_t kMostOfKind = 100;
  std::vector<std::string> lines_;
  std::size_t ofKind_ = 0;
};

/// Statements of the schema by what they make, blanks and line ends being of no matter.
std::map<std::string, std::string> MadeBy(sqlite3* database, const std::string& file) {
  std::map<std::string, std::string> made;
  const auto statement = Prepare(database,
                                 "SELECT type || ' ' || name, sql FROM sqlite_schema "
                                 "WHERE sql IS NOT NULL AND name NOT LIKE 'sqlite%'",
                                 file);
  while (Step(statement, file)) {
    std::string& sql = made[std::string(ColumnText(statement, 0))];
    for (const char c : ColumnText(statement, 1)) {
      if (c != ' ' && c != '\n' && c != '\r' && c != '\t') sql += c;
    }
  }
  return made;
}

void CompareVersion(std::optional<int> version, Findings& findings) {
  if (version == kOfficeVersion) return;
  if (!version) {
    findings.Add("اين فايل نشان اين برنامه را ندارد.", "It does not bear this program's mark.");
    return;
  }
  const std::string is = std::to_string(*version);
  const std::string becomes = std::to_string(kOfficeVersion);
  findings.Add("نسخه فايل " + is + " است؛ با باز شدن در برنامه به نسخه " + becomes + " مي رسد.",
               "Its version is " + is + "; opened by the program, it becomes " + becomes + ".");
}

void CompareSchema(sqlite3* database, const std::string& file, Findings& findings) {
  const std::string memory = ":memory:";
  const auto model =
      adapters::sqlite::OpenDatabase(memory, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  adapters::sqlite::Run(model.get(), std::string(OfficeSchema()), memory);
  const auto made = MadeBy(database, file);
  for (const auto& [name, sql] : MadeBy(model.get(), memory)) {
    const auto found = made.find(name);
    if (found == made.end()) {
      findings.Add(LeftToRight(name) + " در اين پايگاه داده نيست.", "Missing: " + name + ".");
    } else if (found->second != sql) {
      findings.Add(LeftToRight(name) + " آن نيست كه اين برنامه مي سازد.",
                   "Not as this program makes it: " + name + ".");
    }
  }
}

void FollowReferences(sqlite3* database, const std::string& file, Findings& findings) {
  const auto rows =
      Prepare(database, "SELECT \"table\", rowid, parent FROM pragma_foreign_key_check", file);
  while (Step(rows, file)) {
    const std::string table(ColumnText(rows, 0));
    const std::string row(ColumnText(rows, 1));  // none where a table does not number its rows
    const std::string parent(ColumnText(rows, 2));
    std::string sentence("سطري از ");
    sentence.append(table).append(" به سطري از ").append(parent).append(" اشاره مي كند كه نيست.");
    std::string words("A row of ");
    words.append(table).append(" refers to a row of ").append(parent).append(" that is not there.");
    if (!row.empty()) words.append(" (rowid ").append(row).append(")");
    findings.Add(sentence, words);
  }
}

void LookForDoubleVisits(sqlite3* database, const std::string& file, Findings& findings) {
  const auto rows = Prepare(database,
                            "SELECT ProgramID, PromoterID, FarsiVisitDate, CustomerID, count(*) "
                            "FROM tblDistributionPromoterProgramDetail "
                            "GROUP BY ProgramID, PromoterID, VisitDate, CustomerID "
                            "HAVING count(*) > 1",
                            file);
  while (Step(rows, file)) {
    const auto text = [&](int column) { return std::string(ColumnText(rows, column)); };
    findings.Add("ويزيت تكراري: برنامه " + text(0) + "، بازارياب " + text(1) + "، روز " + text(2) +
                     "، مشتري " + text(3) + "، " + text(4) + " بار.",
                 "Visited more than once: program " + text(0) + ", promoter " + text(1) + ", day " +
                     text(2) + ", customer " + text(3) + ", " + text(4) + " times.");
  }
}

}  // namespace

std::vector<std::string> InspectOffice(const std::string& path) {
  const auto office = adapters::sqlite::OpenDatabase(path, SQLITE_OPEN_READONLY);
  sqlite3* const database = office.get();
  const std::optional<int> version = OfficeVersion(database, path);
  Findings findings;
  findings.Of([&] { CompareVersion(version, findings); });
  findings.Of([&] {
    for (const std::string& fault : adapters::sqlite::IntegrityFaults(database, path)) {
      findings.Add("پايگاه داده آسيب ديده است.", "Damaged: " + fault);
    }
  });
  findings.Of([&] { FollowReferences(database, path, findings); });
  findings.Of([&] { CompareSchema(database, path, findings); });
  findings.Of([&] { LookForDoubleVisits(database, path, findings); });
  return std::move(findings).Lines();
}

}  // namespace demo
