// A search of 100,000 lines from the click to the bound, numbered and coloured grid, beside SQL
// written by hand for SQLite whose rows go to a CSV file; the text export of these lines, beside
// writing the same bytes.

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "adapters/qt/Files.h"
#include "adapters/sqlite/Functions.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"
#include "search/FormSearch.h"
#include "support/ScriptedPlatform.h"

namespace {

namespace fs = std::filesystem;

constexpr int kLines = 100000;

// As the search asks it, without what the dialect adds.
constexpr const char* kHandWritten =
    "SELECT p.ID, (SELECT x.Name FROM vwSalePromoterMajor x WHERE x.ID = PromoterID),"
    " FarsiVisitDate, (SELECT x.Code FROM tblOrganization x WHERE x.ID = CustomerID),"
    " (SELECT trim(ifnull(x.FirstName, '') || ' ' || ifnull(x.Name, '')) FROM tblOrganization x"
    "  WHERE x.ID = CustomerID),"
    " (SELECT r.Description FROM tblDistributionRegion r INNER JOIN tblDistributionPath t"
    "  ON t.RegionID = r.ID WHERE t.ID IN (SELECT o.PathID FROM tblDistributionOrganization o"
    "  WHERE o.OrganizationID = CustomerID)),"
    " (SELECT t.Name FROM tblDistributionPath t WHERE t.ID IN (SELECT o.PathID"
    "  FROM tblDistributionOrganization o WHERE o.OrganizationID = CustomerID)),"
    " p.Notes, FarsiCreateDate, (SELECT x.Name FROM vwEmployeeMajor x WHERE x.ID = SupervisorID),"
    " (SELECT x.Name FROM vwAccountBranchMajor x WHERE x.ID = BranchID)"
    " FROM tblDistributionPromoterProgram p LEFT OUTER JOIN"
    " tblDistributionPromoterProgramDetail pd ON p.ID = pd.ProgramID"
    " WHERE p.ID = 14 ORDER BY pd.VisitDate, 2, 4";

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
};
struct CloseFile {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;
using File = std::unique_ptr<std::FILE, CloseFile>;

/// A sample office whose program 14 has 100,000 visits, in a folder that goes with it.
class Office {
 public:
  Office() {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    demo::SampleOptions options;
    options.today = std::chrono::year(2025) / std::chrono::November / 22;
    demo::CreateSampleOffice(Path("office.db"), options);
    const std::string visits =
        "DELETE FROM tblDistributionPromoterProgramDetail WHERE ProgramID = 14;"
        "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < " +
        std::to_string(kLines - 1) +
        ") INSERT INTO tblDistributionPromoterProgramDetail (ProgramID, PromoterID,"
        " FarsiVisitDate, VisitDate, CustomerID, Sequence)"
        " SELECT 14, (SELECT min(EmployeeID) FROM tblSalePromoter) + i % 24,"
        " '1404/09/' || printf('%02d', 1 + i % 9), 20251122 + i % 9, 1 + i % 5000, i FROM n";
    if (sqlite3_exec(Open().get(), visits.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
      throw std::runtime_error("no visits");
    }
  }
  ~Office() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  Office(const Office&) = delete;
  Office& operator=(const Office&) = delete;

  std::string Path(const std::string& name) const { return (folder_ / name).string(); }
  Database Open() const {
    sqlite3* opened = nullptr;
    if (sqlite3_open(Path("office.db").c_str(), &opened) != SQLITE_OK) {
      throw std::runtime_error("no office");
    }
    adapters::sqlite::RegisterCollation(opened);
    return Database(opened);
  }

 private:
  fs::path folder_ = fs::temp_directory_path() / "search_bench";
};

const Office& TheOffice() {
  static const Office office;
  return office;
}

class Connections : public platform::ConnectionFactory {
 public:
  std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override {
    return std::make_unique<adapters::sqlite::SqliteConnection>(connectionString);
  }
};

/// The search over that office and the files of this machine.
struct Desk {
  support::ScriptedPlatform outside;
  Connections connections;
  adapters::qt::QtFileSystem files;
  host::modMain module{{.screen = outside.screen,
                        .connections = connections,
                        .components = outside.components,
                        .desktop = outside.desktop,
                        .excel = outside.excel,
                        .progress = outside.progress,
                        .fileSystem = files,
                        .reports = outside.reports}};
  search::FormSearch form{module};

  Desk() {
    module.SetContext({.userId = 1,
                       .positionId = 1,
                       .employeeId = 1,
                       .connectionString = "sqlite:" + TheOffice().Path("office.db")});
    form.Load();
    form.txtID.SetText("14");
  }
  void Search() {
    form.cmdSearch.Click();
    if (form.flxSearch.Rows() != kLines + 1) throw std::runtime_error("not all lines");
  }
};

void WriteCsvCell(std::FILE* file, std::string_view cell) {
  if (cell.find_first_of(",\"\r\n ") == std::string_view::npos) {
    std::fwrite(cell.data(), 1, cell.size(), file);
    return;
  }
  std::fputc('"', file);
  for (const char c : cell) {
    if (c == '"') std::fputc('"', file);
    std::fputc(c, file);
  }
  std::fputc('"', file);
}

void WriteCsv(sqlite3* database, const char* sql, std::FILE* file) {
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(database, sql, -1, &prepared, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database));
  }
  const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(prepared, sqlite3_finalize);
  int lines = 0;
  for (; sqlite3_step(prepared) == SQLITE_ROW; ++lines) {
    for (int col = 0; col < sqlite3_column_count(prepared); ++col) {
      if (col > 0) std::fputc(',', file);
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(prepared, col));
      if (text != nullptr) {
        WriteCsvCell(file, {text, static_cast<std::size_t>(sqlite3_column_bytes(prepared, col))});
      }
    }
    std::fputs("\r\n", file);
  }
  if (lines != kLines) throw std::runtime_error("not all lines");
}

void BM_Search_HandWrittenSqlToCsv(benchmark::State& state) {
  const Database database = TheOffice().Open();
  const File null(std::fopen("/dev/null", "wb"));
  for (auto _ : state) WriteCsv(database.get(), kHandWritten, null.get());
}
BENCHMARK(BM_Search_HandWrittenSqlToCsv)->Unit(benchmark::kMillisecond);

void BM_Search_ClickToColouredGrid(benchmark::State& state) {
  Desk desk;
  for (auto _ : state) desk.Search();
}
BENCHMARK(BM_Search_ClickToColouredGrid)->Unit(benchmark::kMillisecond);

/// The statement through the adapter into a row set, no form.
void BM_Search_StatementToRowSet(benchmark::State& state) {
  support::ScriptedPlatform outside;
  host::modMain module(outside.Services());
  search::FormSearch form(module);
  form.txtID.SetText("14");
  form.cmdSearch.Click();
  const std::string statement = outside.database.Log().back();
  adapters::sqlite::SqliteConnection connection("sqlite:" + TheOffice().Path("office.db"));
  for (auto _ : state) benchmark::DoNotOptimize(connection.Execute(statement));
}
BENCHMARK(BM_Search_StatementToRowSet)->Unit(benchmark::kMillisecond);

void BM_Export_TextFile(benchmark::State& state) {
  Desk desk;
  desk.Search();
  const std::string path = TheOffice().Path("list.txt");
  desk.outside.desktop.chosen = path;
  for (auto _ : state) {
    state.PauseTiming();
    fs::remove(path);
    desk.outside.screen.OnModalForm<tools::FormSendToTextFile>(
        [](tools::FormSendToTextFile& dialog) {
          dialog.cmdSave.Click();
          dialog.cmdOk.Click();
        });
    state.ResumeTiming();
    desk.form.cmdSentToText.Click();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(fs::file_size(path)) *
                          static_cast<std::int64_t>(state.iterations()));
}
BENCHMARK(BM_Export_TextFile)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Argument 1 waits, as the export does, until the bytes are on the disk.
void BM_Export_SameBytes(benchmark::State& state) {
  const std::string exported = TheOffice().Path("list.txt");
  if (!fs::exists(exported)) return state.SkipWithError("needs the file of BM_Export_TextFile");
  std::string bytes(fs::file_size(exported), '\0');
  std::ifstream(exported, std::ios::binary)
      .read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  const std::string path = TheOffice().Path("same.txt");
  for (auto _ : state) {
    state.PauseTiming();
    fs::remove(path);
    state.ResumeTiming();
    const File file(std::fopen(path.c_str(), "wb"));
    if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) {
      throw std::runtime_error("not written");
    }
    if (state.range(0) == 1 && (std::fflush(file.get()) != 0 || fsync(fileno(file.get())) != 0)) {
      throw std::runtime_error("not on the disk");
    }
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes.size()) *
                          static_cast<std::int64_t>(state.iterations()));
}
BENCHMARK(BM_Export_SameBytes)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
