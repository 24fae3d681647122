#include "adapters/sqlite/StepwiseReader.h"

#include <string_view>
#include <utility>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Rows.h"
#include "adapters/sqlite/Watch.h"
#include "platform/RunningStatement.h"

namespace adapters::sqlite {

namespace {

bool KeepsLog(sqlite3* database, const std::string& file) {
  const StatementHandle mode = Prepare(database, "PRAGMA journal_mode", file);
  if (sqlite3_step(mode.get()) != SQLITE_ROW) throw LastError(database, file);
  const auto* name = reinterpret_cast<const char*>(sqlite3_column_text(mode.get(), 0));
  return name != nullptr && std::string_view(name) == "wal" && !IsWithoutLocks(database);
}

}  // namespace

StepwiseReader::StepwiseReader(std::string file, Translation translation, Limits limits,
                               platform::Progress* progress)
    : file_(std::move(file)),
      translation_(std::move(translation)),
      limits_(limits),
      progress_(progress),
      names_(NoRows(translation_.columns).Columns()),
      database_(
          OpenDatabase(file_, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, limits_.busyTimeout)) {}

std::unique_ptr<StepwiseReader> StepwiseReader::Open(const std::string& file,
                                                     Translation translation, Limits limits,
                                                     platform::Progress* progress) {
  std::unique_ptr<StepwiseReader> reader(
      new StepwiseReader(file, std::move(translation), limits, progress));
  sqlite3* database = reader->database_.get();
  if (!KeepsLog(database, file)) return nullptr;
  reader->statement_ = Prepare(database, reader->translation_.sql, file);
  return reader;
}

bool StepwiseReader::Read(platform::RowSet& rows, std::size_t most) {
  if (!rows.ReturnsRows()) rows = NoRows(translation_.columns);
  if (!statement_) return false;
  platform::RunningStatement running(progress_);
  try {
    Watch watch(running, limits_.statementLimit, limits_.busyTimeout);
    const Watched watched(&watch, database_.get());
    if (ReadSome(rows, most)) return true;
  } catch (const platform::RuntimeError& error) {
    sqlite3_reset(statement_.get());
    underWay_ = false;
    if (!running.Cancelled()) throw;
    throw platform::CancelledError(platform::Cancelled::kReading, {}, error.Source());
  }
  statement_.reset();
  database_.reset();
  return false;
}

/// False after the last row.
bool StepwiseReader::ReadSome(platform::RowSet& rows, std::size_t most) {
  if (!underWay_) StepOverGiven();
  for (; most > 0; --most) {
    if (!Step()) return false;
    if (given_ == 0) version_ = DataVersion();
    AppendRow(rows, statement_.get(), translation_.columns);
    ++given_;
  }
  return true;
}

bool StepwiseReader::Step() {
  const int result = sqlite3_step(statement_.get());
  if (result != SQLITE_ROW && result != SQLITE_DONE) throw LastError(database_.get(), file_);
  return result == SQLITE_ROW;
}

/// After a failure the statement begins anew. The same data give the same rows in the same order;
/// others might leave out a row or give it twice.
void StepwiseReader::StepOverGiven() {
  for (std::size_t row = 0; row < given_; ++row) {
    if (!Step() || (row == 0 && DataVersion() != version_)) {
      throw MakeError(kOther,
                      "داده ها پس از آغاز خواندن تغيير كردند؛ از آغاز دوباره تلاش كنيد. The data "
                      "changed while they were read.");
    }
  }
  underWay_ = true;
}

/// Of what the statement that is under way reads; another program's commit gives another number.
int StepwiseReader::DataVersion() const {
  const StatementHandle version = Prepare(database_.get(), "PRAGMA data_version", file_);
  if (sqlite3_step(version.get()) != SQLITE_ROW) throw LastError(database_.get(), file_);
  return sqlite3_column_int(version.get(), 0);
}

}  // namespace adapters::sqlite
