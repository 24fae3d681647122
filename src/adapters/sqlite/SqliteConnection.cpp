#include "adapters/sqlite/SqliteConnection.h"

#include <algorithm>
#include <vector>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Procedures.h"
#include "adapters/sqlite/Translator.h"
#include "platform/RunningStatement.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

constexpr std::string_view kPrefix = "sqlite:";

/// While it lives, what the handle runs is interrupted once the limit is over or the user has
/// cancelled; another program's lock is waited for as long as the handle did before, unless so.
class Watch {
 public:
  Watch(sqlite3* database, std::chrono::milliseconds limit, std::chrono::milliseconds busyTimeout,
        platform::RunningStatement& running)
      : database_(database),
        busyTimeout_(busyTimeout),
        end_(Clock::now() + limit),
        running_(running) {
    constexpr int kStepsBetween = 10000;  // about a tenth of a millisecond
    const auto isOver = [](void* self) { return static_cast<Watch*>(self)->IsOver() ? 1 : 0; };
    const auto waitMore = [](void* self, int times) {
      return static_cast<Watch*>(self)->WaitForLock(times) ? 1 : 0;
    };
    sqlite3_progress_handler(database_, kStepsBetween, isOver, this);
    sqlite3_busy_handler(database_, waitMore, this);
  }
  ~Watch() {
    sqlite3_progress_handler(database_, 0, nullptr, nullptr);
    sqlite3_busy_timeout(database_, static_cast<int>(busyTimeout_.count()));
  }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

 private:
  using Clock = std::chrono::steady_clock;

  bool IsOver() { return !running_.GoesOn() || Clock::now() > end_; }

  bool WaitForLock(int times) {
    constexpr int kLongestPause = 20;
    if (times == 0) lockGivenUp_ = Clock::now() + busyTimeout_;
    if (!running_.GoesOn() || Clock::now() >= lockGivenUp_) return false;
    sqlite3_sleep(std::min(times + 1, kLongestPause));
    return true;
  }

  sqlite3* database_;
  std::chrono::milliseconds busyTimeout_;
  Clock::time_point end_;
  Clock::time_point lockGivenUp_;
  platform::RunningStatement& running_;
};

/// A moment's text "yyyymmdd hh:mm:ss" with its dashes; any other as it is.
void AppendMoment(platform::RowSet& rows, std::string_view stored) {
  std::string moment(stored);
  if (moment.size() > 8 && moment[8] == ' ') moment.insert(6, "-").insert(4, "-");
  rows.Append(moment);
}

void AppendCell(platform::RowSet& rows, sqlite3_stmt* statement, int column, Type::Kind type) {
  const int stored = sqlite3_column_type(statement, column);
  const bool isDay = type == Type::Kind::kDate || type == Type::Kind::kMoment;
  if (stored == SQLITE_NULL) {
    rows.AppendNull();
  } else if (stored == SQLITE_FLOAT) {
    rows.Append(text::DecimalText(sqlite3_column_double(statement, column)));
  } else if (stored == SQLITE_INTEGER && isDay) {
    rows.Append(DateText(sqlite3_column_int64(statement, column)));
  } else {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    const std::string_view cell =
        bytes == nullptr ? std::string_view() : std::string_view(bytes, size);
    if (type == Type::Kind::kMoment) {
      AppendMoment(rows, cell);
    } else {
      rows.Append(cell);
    }
  }
}

platform::RowSet Read(sqlite3* database, sqlite3_stmt* statement,
                      const std::vector<ResultColumn>& columns, const std::string& file) {
  std::vector<std::string> names;
  for (const ResultColumn& column : columns) names.push_back(column.name);
  platform::RowSet rows(std::move(names));
  int result = sqlite3_step(statement);
  for (; result == SQLITE_ROW; result = sqlite3_step(statement)) {
    int index = 0;
    for (const ResultColumn& column : columns) AppendCell(rows, statement, index++, column.type);
  }
  if (result != SQLITE_DONE) throw LastError(database, file);
  return rows;
}

}  // namespace

SqliteConnection::SqliteConnection(std::string_view connectionString,
                                   std::chrono::milliseconds busyTimeout,
                                   std::chrono::milliseconds statementLimit,
                                   platform::Progress* progress)
    : connectionString_(connectionString),
      file_(connectionString_.starts_with(kPrefix) ? connectionString_.substr(kPrefix.size()) : "",
            busyTimeout),
      busyTimeout_(busyTimeout),
      statementLimit_(statementLimit),
      progress_(progress) {}

DatabaseFile& SqliteConnection::File() {
  if (!connectionString_.starts_with(kPrefix)) {
    throw MakeError(kCannotOpenDatabase,
                    // Not shown: it may be a server's, with a password.
                    "رشته اتصال نام فايل پايگاه داده ندارد. Cannot open database. "
                    "(the connection string must be sqlite:FILE)");
  }
  return file_;
}

template <typename Work>
auto SqliteConnection::Run(const Work& work) {
  DatabaseFile& file = File();
  platform::RunningStatement running(progress_);
  // A statement is stored whole or not at all.
  try {
    return file.Use([&](sqlite3* database, Catalog& catalog) {
      const Watch watch(database, statementLimit_, busyTimeout_, running);
      return work(database, catalog);
    });
  } catch (const platform::RuntimeError& error) {
    if (!running.Cancelled()) throw;
    throw platform::CancelledError(platform::Cancelled::kTakenBack, {}, error.Source());
  }
}

platform::RowSet SqliteConnection::Execute(std::string_view statement) {
  return Run(
      [&](sqlite3* database, Catalog& catalog) { return ExecuteOn(database, catalog, statement); });
}

platform::RowSet SqliteConnection::ExecuteOn(sqlite3* database, Catalog& catalog,
                                             std::string_view statement) {
  const Translation translation = Translate(statement, catalog);
  StatementHandle prepared;
  try {
    prepared = Prepare(database, translation.sql, file_.Path());
  } catch (const platform::RuntimeError&) {
    catalog.Forget();  // another program may have changed a table
    throw;
  }
  if (!translation.columns.empty()) {
    return Read(database, prepared.get(), translation.columns, file_.Path());
  }
  Write(database, prepared.get(), translation.givesIdentity);
  platform::RowSet none;
  none.SetAffectedRows(sqlite3_changes64(database));
  return none;
}

/// SQLite counts every inserted row as an identity; the server only those of an identity column,
/// and none of a statement that failed.
void SqliteConnection::Write(sqlite3* database, sqlite3_stmt* statement, bool givesIdentity) {
  const sqlite3_int64 identity = sqlite3_last_insert_rowid(database);
  if (sqlite3_step(statement) != SQLITE_DONE) {
    const platform::RuntimeError error = LastError(database, file_.Path());
    sqlite3_reset(statement);
    sqlite3_set_last_insert_rowid(database, identity);
    throw error;
  }
  if (!givesIdentity) sqlite3_set_last_insert_rowid(database, identity);
}

std::int32_t SqliteConnection::CallProcedure(std::string_view name,
                                             std::span<const platform::Parameter> parameters) {
  return Run([&](sqlite3* database, Catalog&) {
    return CallStoredProcedure(database, name, parameters, file_.Path());
  });
}

}  // namespace adapters::sqlite
