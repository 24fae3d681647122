// A batch of 31 days and 5,000 customers from the commit of the batch form to the grouped grid,
// beside SQL written by hand for SQLite; opening a program of 150,000 visits; small statements.

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "calendar/Gregorian.h"
#include "calendar/SolarHijriDate.h"
#include "demo/SampleOffice.h"
#include "module/Module.h"
#include "support/ScriptedPlatform.h"
#include "text/Text.h"
#include "tools/comFlex.h"

namespace {

namespace fs = std::filesystem;
namespace sqlite = adapters::sqlite;
/// Seconds on this process's processor: other work on the machine stays out of the figures.
double ProcessorTime() {
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

constexpr int kCustomers = 5000;
constexpr int kDays = 31;
constexpr int kVisits = kCustomers * kDays;
constexpr int kOpenedVisits = kCustomers * (kDays - 1);
constexpr std::string_view kFirstDay = "1404/01/01";
constexpr std::string_view kLastDay = "1404/01/31";

/// A file that goes with its object, and the log files beside it with it.
class File {
 public:
  explicit File(std::string_view name)
      : path_((fs::temp_directory_path() / ("batch_bench." + std::string(name))).string()) {
    Remove();
  }
  ~File() { Remove(); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  const std::string& Path() const { return path_; }
  void CopyOf(const File& other) const {
    Remove();
    fs::copy_file(other.path_, path_);
  }

 private:
  void Remove() const {
    std::error_code ignored;
    for (const char* suffix : {"", "-wal", "-shm"}) fs::remove(path_ + suffix, ignored);
  }
  std::string path_;
};

void Run(sqlite3* database, const std::string& sql) {
  if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database));
  }
}

int Number(sqlite3* database, std::string_view sql) {
  const sqlite::StatementHandle statement = sqlite::Prepare(database, sql, {});
  if (sqlite3_step(statement.get()) != SQLITE_ROW)
    throw std::runtime_error(sqlite3_errmsg(database));
  return sqlite3_column_int(statement.get(), 0);
}

std::string JoinedWith(const std::string& list, const std::string& element) {
  return list.empty() ? element : list + "," + element;
}

/// The days of the batch from the first on, compact: 14040101.
std::vector<std::string> CompactDays(int count) {
  std::vector<std::string> days;
  auto day = calendar::SolarHijriDate::FromText(kFirstDay)->Days();
  for (int i = 0; i < count; ++i, day += std::chrono::days(1)) {
    days.push_back(text::Replace(calendar::SolarHijriDate::FromDays(day).Text(), "/", ""));
  }
  return days;
}

/// The sample office with a promoter of every path, every customer on a path, and a program without
/// visits.
class OfficeFile {
 public:
  OfficeFile() : file_("office.db") {
    demo::SampleOptions options;
    options.customers = kCustomers;
    options.today = std::chrono::year(2025) / 3 / 21;
    demo::CreateSampleOffice(file_.Path(), options);
    const auto database = sqlite::OpenDatabase(file_.Path(), SQLITE_OPEN_READWRITE);
    promoter = Number(database.get(), "SELECT min(EmployeeID) FROM tblSalePromoter");
    Run(database.get(), "INSERT OR IGNORE INTO tblDistributionPathPromoters SELECT " +
                            std::to_string(promoter) + ", ID FROM tblDistributionPath");
    Run(database.get(), "INSERT INTO tblDistributionPromoterProgram (CreatorID) VALUES (1)");
    Run(database.get(),
        "INSERT INTO tblDistributionOrganization (OrganizationID, PathID) SELECT ID, 1 FROM"
        " tblOrganization WHERE ID NOT IN (SELECT OrganizationID FROM "
        "tblDistributionOrganization)");
    program = Number(database.get(), "SELECT max(ID) FROM tblDistributionPromoterProgram");
    const sqlite::StatementHandle statement =
        sqlite::Prepare(database.get(), "SELECT ID FROM tblOrganization", {});
    while (sqlite3_step(statement.get()) == SQLITE_ROW) {
      customers.push_back(std::to_string(sqlite3_column_int(statement.get(), 0)));
    }
  }
  const File& Get() const { return file_; }

  int promoter = 0;
  int program = 0;
  std::vector<std::string> customers;

 private:
  File file_;
};

const OfficeFile& Office() {
  static const OfficeFile office;
  return office;
}

std::string List(const std::vector<std::string>& elements) {
  std::string list;
  for (const std::string& element : elements) list = JoinedWith(list, element);
  return list;
}

/// The same rows as one would write them for SQLite: lists as JSON, each day converted once, the
/// look-up in the words of the table's index.
std::string HandWrittenInsert(const std::vector<std::string>& days) {
  const std::string program = std::to_string(Office().program);
  const std::string promoter = std::to_string(Office().promoter);
  const std::string farsi = "substr(value,1,4)||'/'||substr(value,5,2)||'/'||substr(value,7,2)";
  return "INSERT INTO tblDistributionPromoterProgramDetail"
         " (ProgramID, PromoterID, FarsiVisitDate, VisitDate, CustomerID, Notes, Sequence)"
         " WITH Day AS MATERIALIZED (SELECT value AS ID, '' || value AS Digits, " +
         farsi + " AS Farsi, getEnglishDate(" + farsi + ") AS Visit FROM json_each('[" +
         List(days) + "]')), Customer AS (SELECT value AS ID FROM json_each('[" +
         List(Office().customers) + "]')) SELECT " + program + ", " + promoter +
         ", d.Farsi, d.Visit, o.ID, NULL, row_number() OVER (ORDER BY d.ID, o.ID)"
         " FROM Day d, Customer o"
         " LEFT JOIN tblDistributionOrganization do ON do.OrganizationID = o.ID"
         " WHERE NOT EXISTS (SELECT 1 FROM tblDistributionPromoterProgramDetail pd"
         " WHERE pd.ProgramID = " +
         program + " AND pd.PromoterID = " + promoter +
         " AND replace(pd.FarsiVisitDate, '/', '') = d.Digits AND pd.CustomerID = o.ID)";
}

/// One prepared insert a row in one transaction; it looks for nothing that is there already.
void InsertRowByRow(sqlite3* database, const std::vector<std::string>& days) {
  Run(database, "BEGIN");
  const sqlite::StatementHandle insert = sqlite::Prepare(
      database,
      "INSERT INTO tblDistributionPromoterProgramDetail (ProgramID, PromoterID, FarsiVisitDate,"
      " VisitDate, CustomerID, Notes, Sequence) VALUES (?1, ?2, ?3, ?4, ?5, NULL, ?6)",
      {});
  sqlite3_bind_int(insert.get(), 1, Office().program);
  sqlite3_bind_int(insert.get(), 2, Office().promoter);
  int sequence = 0;
  for (const std::string& day : days) {
    const std::string farsi = day.substr(0, 4) + "/" + day.substr(4, 2) + "/" + day.substr(6, 2);
    const std::string visit =
        calendar::GregorianLiteral(calendar::SolarHijriDate::FromText(farsi)->Days());
    sqlite3_bind_text(insert.get(), 3, farsi.c_str(), -1, SQLITE_STATIC);
    sqlite3_bind_text(insert.get(), 4, visit.c_str(), -1, SQLITE_STATIC);
    for (const std::string& customer : Office().customers) {
      sqlite3_bind_int(insert.get(), 5, std::stoi(customer));
      sqlite3_bind_int(insert.get(), 6, ++sequence);
      if (sqlite3_step(insert.get()) != SQLITE_DONE) {
        throw std::runtime_error(sqlite3_errmsg(database));
      }
      sqlite3_reset(insert.get());
    }
  }
  Run(database, "COMMIT");
}

std::string GroupStatement() {
  return "SELECT PromoterID, (SELECT x.Name FROM vwEmployeeMajor x WHERE x.ID = PromoterID),"
         " VisitDate, FarsiVisitDate, Notes, count(*) FROM tblDistributionPromoterProgramDetail"
         " WHERE ProgramID = " +
         std::to_string(Office().program) +
         " GROUP BY PromoterID, VisitDate, FarsiVisitDate, Notes";
}

/// Reads all rows into texts, as a grid would want them; the number of rows.
int ReadRows(sqlite3* database, const std::string& sql) {
  const sqlite::StatementHandle statement = sqlite::Prepare(database, sql, {});
  int rows = 0;
  std::vector<std::string> cells;
  while (sqlite3_step(statement.get()) == SQLITE_ROW) {
    ++rows;
    for (int column = 0; column < sqlite3_column_count(statement.get()); ++column) {
      const auto* text =
          reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column));
      cells.emplace_back(text == nullptr ? "" : text);
    }
  }
  benchmark::DoNotOptimize(cells.data());
  return rows;
}

/// Connections to files, whatever the string says after "sqlite:".
class FileConnections : public platform::ConnectionFactory {
 public:
  std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override {
    return std::make_unique<sqlite::SqliteConnection>(connectionString);
  }
};

/// The module in a host program on one file, its user everything by script.
class Host {
 public:
  explicit Host(const std::string& path) : module_(Services()) {
    control_.SetUserID(1);
    control_.SetEmployeeID(Office().promoter);
    control_.SetOLEConnectionString("sqlite:" + path);
  }

  editor::FormMain& Open(int program) {
    control_.View(program);
    return module_.Editor();
  }

  /// The time from the commit of the batch form to the grid that shows the visits.
  double AddBatch() {
    double committed = 0;
    outside_.components.WillAnswer({support::Answer::kYes});
    outside_.screen.OnModalForm<batch::FormAddBatch>([&](batch::FormAddBatch& form) {
      form.sltPromoter.Select(Office().promoter);
      form.datDateTo.SetText(std::string(kLastDay));
      form.datDateFrom.SetText(std::string(kFirstDay));
      form.flxDate.cmdSelectAll.Click();
      form.flxRegion.cmdSelectAll.Click();
      form.flxPath.cmdSelectAll.Click();
      form.cmdSearch.Click();
      form.flxCustomer.cmdSelectAll.Click();
      form.cmdAdd.Click();
      committed = ProcessorTime();
    });
    module_.Editor().cmdAddBatch.Click();
    return ProcessorTime() - committed;
  }

 private:
  host::Services Services() {
    host::Services scripted = outside_.Services();
    return {.screen = scripted.screen,
            .connections = connections_,
            .components = scripted.components,
            .desktop = scripted.desktop,
            .excel = scripted.excel,
            .progress = scripted.progress,
            .fileSystem = scripted.fileSystem,
            .reports = scripted.reports};
  }
  support::ScriptedPlatform outside_;
  FileConnections connections_;
  module::Module module_;
  host::DistPromoterProg control_{module_.Main(), module_.Editor(), outside_.controlSite};
};

enum class Before { kNothing, kSameBatch };

/// Times `insert` on a fresh office each time, or on one that has the whole batch already; checks
/// how many visits the program has then.
template <typename Insert>
void MeasureInsert(benchmark::State& state, Before before, const Insert& insert) {
  const std::vector<std::string> days = CompactDays(kDays);
  const File start("start.db");
  start.CopyOf(Office().Get());
  if (before == Before::kSameBatch) {
    const auto database = sqlite::OpenDatabase(start.Path(), SQLITE_OPEN_READWRITE);
    Run(database.get(), HandWrittenInsert(days));
  }
  const File file("work.db");
  while (state.KeepRunning()) {
    file.CopyOf(start);
    state.SetIterationTime(insert(file.Path(), days));
    const auto database = sqlite::OpenDatabase(file.Path(), SQLITE_OPEN_READWRITE);
    if (Number(database.get(),
               "SELECT count(*) FROM tblDistributionPromoterProgramDetail"
               " WHERE ProgramID = " +
                   std::to_string(Office().program)) != kVisits) {
      state.SkipWithError("wrong number of visits");
      return;
    }
  }
}

void BatchByModule(benchmark::State& state, Before before) {
  MeasureInsert(state, before, [](const std::string& path, const auto&) {
    Host host(path);
    host.Open(Office().program);
    return host.AddBatch();
  });
}

/// `insert`, then what the editor's grid needs, on a connection that is open.
template <typename Insert>
double InsertAndRead(const std::string& path, const Insert& insert) {
  const auto database = sqlite::OpenDatabase(path, SQLITE_OPEN_READWRITE);
  (void)ReadRows(database.get(), GroupStatement());
  const double begun = ProcessorTime();
  insert(database.get());
  (void)ReadRows(database.get(), GroupStatement());
  return ProcessorTime() - begun;
}

void BatchByHandWrittenStatement(benchmark::State& state, Before before) {
  MeasureInsert(state, before, [](const std::string& path, const auto& days) {
    return InsertAndRead(path, [&](sqlite3* database) { Run(database, HandWrittenInsert(days)); });
  });
}

void BatchRowByRow(benchmark::State& state) {
  MeasureInsert(state, Before::kNothing, [](const std::string& path, const auto& days) {
    return InsertAndRead(path, [&](sqlite3* database) { InsertRowByRow(database, days); });
  });
}

/// The office with a batch of 30 days.
const File& OpenedOffice() {
  static const File file("opened.db");
  static const bool filled = [] {
    file.CopyOf(Office().Get());
    const auto database = sqlite::OpenDatabase(file.Path(), SQLITE_OPEN_READWRITE);
    Run(database.get(), HandWrittenInsert(CompactDays(kDays - 1)));
    return sqlite3_changes(database.get()) == kOpenedVisits;
  }();
  if (!filled) throw std::runtime_error("wrong number of visits");
  return file;
}

void OpenLargeProgramByModule(benchmark::State& state) {
  Host host(OpenedOffice().Path());
  while (state.KeepRunning()) {
    if (host.Open(Office().program).flxDetail.Rows() != kDays) state.SkipWithError("wrong rows");
  }
}

void OpenLargeProgramByStatement(benchmark::State& state) {
  const auto database = sqlite::OpenDatabase(OpenedOffice().Path(), SQLITE_OPEN_READWRITE);
  while (state.KeepRunning()) {
    if (ReadRows(database.get(), GroupStatement()) != kDays - 1) state.SkipWithError("wrong rows");
  }
}

/// All the statements of opening: settings, permission, header, selectors' names, visits.
void OpenSmallProgramByModule(benchmark::State& state) {
  Host host(Office().Get().Path());
  while (state.KeepRunning()) benchmark::DoNotOptimize(host.Open(1).flxDetail.Rows());
}

void OneHeaderStatement(benchmark::State& state) {
  sqlite::SqliteConnection connection("sqlite:" + Office().Get().Path());
  while (state.KeepRunning()) {
    benchmark::DoNotOptimize(
        connection.Execute("select * from tblDistributionPromoterProgram Where ID=1"));
  }
}

/// «++» on a list of 100,000 rows, or its undo and redo, with nobody listening; sorted, names of
/// rows follow each other no more.
void MarkAll(benchmark::State& state, bool sorted, bool takenBack) {
  support::ScriptedPlatform outside;
  host::modMain module(outside.Services());
  controls::Form form(outside.screen, "Form", controls::Form::Border::kSizable);
  tools::comFlex list(form, "flxList", module);
  constexpr int kRows = 100000;
  list.getFlex().SetRedraw(false);
  for (int row = 0; row < kRows; ++row) {
    list.getFlex().AddItem("\t" + std::to_string(row * 7919LL % kRows));
  }
  list.getFlex().SetCol(1);
  if (sorted) list.getFlex().Sort(7);
  list.cmdSelectInverse.Click();
  while (state.KeepRunning()) {
    if (takenBack) {
      list.getFlex().markSteps->Undo();
      list.getFlex().markSteps->Redo();
    } else {
      list.cmdSelectInverse.Click();
    }
  }
}

const auto kWholeTime = [](auto* bench) {
  bench->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);
};
BENCHMARK_CAPTURE(BatchByModule, fresh, Before::kNothing)->Apply(kWholeTime);
BENCHMARK_CAPTURE(BatchByHandWrittenStatement, fresh, Before::kNothing)->Apply(kWholeTime);
BENCHMARK(BatchRowByRow)->Apply(kWholeTime);
BENCHMARK_CAPTURE(BatchByModule, repeated, Before::kSameBatch)->Apply(kWholeTime);
BENCHMARK_CAPTURE(BatchByHandWrittenStatement, repeated, Before::kSameBatch)->Apply(kWholeTime);
BENCHMARK(OpenLargeProgramByModule)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenLargeProgramByStatement)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenSmallProgramByModule)->Unit(benchmark::kMicrosecond);
BENCHMARK(OneHeaderStatement)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(MarkAll, gesture, false, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MarkAll, gestureWhereSorted, true, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MarkAll, undoAndRedo, false, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MarkAll, undoAndRedoWhereSorted, true, true)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
