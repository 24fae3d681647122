// The disk under the embedded database fails, is full, or loses its power at any call: what was
// reported stored is stored, what failed is not, and the same connection works on.

#include <gmock/gmock.h>

#include <iostream>
#include <set>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/FailingVfs.h"
#include "adapters/sqlite/Office.h"

namespace adapters::sqlite {
namespace {

using namespace std::chrono_literals;
using Call = FailingVfs::Call;

/// Whether a file is whole, and all rows of the tables that the work writes to; read past the
/// failing files.
std::string Whole(const std::filesystem::path& file) {
  demo::PlainDatabase database(file, FailingVfs::kPlain);
  std::string rows = database.Text(
      "PRAGMA synchronous = OFF; PRAGMA integrity_check; SELECT * FROM "
      "tblDistributionPromoterProgram; SELECT * FROM tblDistributionPromoterProgramDetail");
  EXPECT_TRUE(rows.starts_with("ok;")) << rows.substr(0, 300);
  return rows;
}

class Storage : public testing::Test {
 protected:
  /// Learns what the undisturbed work returns, and what is stored after each of its statements.
  Storage() {
    // As an office comes: not yet with a log.
    demo::PlainDatabase(office.file).Query("PRAGMA journal_mode = DELETE");
    const auto connection = Connect();
    states = {Whole(file)};
    for (const std::string& statement : work) {
      answers.push_back(Lines(connection->Execute(statement)));
      states.push_back(Whole(file));
    }
  }

  /// A connection to a fresh copy of the office.
  std::unique_ptr<SqliteConnection> Connect() {
    for (const char* part : {"", "-wal"}) std::filesystem::remove(file + part);
    std::filesystem::copy_file(office.file, file);
    return std::make_unique<SqliteConnection>("sqlite:" + file, 5ms);
  }

  /// The statements of a planner's work. Their rows fill a good many pages.
  const std::vector<std::string> work{
      "select count(*) from tblEmployee",
      "insert into tblDistributionPromoterProgram (Notes, Code) values ('نو', null)",
      "insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, FarsiVisitDate, "
      "CustomerID, Notes, Sequence) select 3, 7, convert(varchar,d.ID), o.ID, 'بخش شمالی شهر و "
      "بازار', ROW_NUMBER() OVER(ORDER BY d.ID, o.ID) from dbo.fnZomirStringToTable('" +
          Numbers(14040101, 15) + "') d, dbo.fnZomirStringToTable('" + Numbers(5, 60) + "') o",
      "Select SCOPE_IDENTITY() as newID",
      "update tblDistributionPromoterProgramDetail Set Notes='دیگر' Where ProgramID=3",
      "delete tblDistributionPromoterProgramDetail Where ProgramID=3 and CustomerID<30",
      "select count(*), sum(CustomerID) from tblDistributionPromoterProgramDetail"};
  Office office;
  std::string file = office.folder.File("work.db");
  std::vector<std::string> states;
  std::vector<std::string> answers;
};

struct Fault {
  Call call;
  int code;
  int number;
};

class FailingDisk : public Storage, public testing::WithParamInterface<Fault> {
 protected:
  /// The work with one fault, which is over when it was told; whether it came to it.
  bool WorkUntilTold(int at, bool lasts) {
    const auto connection = Connect();
    vfs_.Fail(GetParam().call, GetParam().code, at, lasts);
    for (std::size_t i = 0; i < work.size(); ++i) {
      try {
        EXPECT_EQ(Lines(connection->Execute(work[i])), answers[i]);
        continue;
      } catch (const platform::RuntimeError& error) {
        EXPECT_EQ(error.Number(), GetParam().number) << error.what();
        EXPECT_THAT(error.Description(), testing::HasSubstr("پايگاه داده " + Quoted(file)));
      }
      vfs_.Mend();
      EXPECT_TRUE(Whole(file) == states[i]) << "half of " << work[i];
      EXPECT_EQ(Lines(connection->Execute(work[i])), answers[i]);
    }
    vfs_.Mend();
    EXPECT_TRUE(Whole(file) == states.back());
    return vfs_.Failed();
  }

  FailingVfs vfs_;
};

TEST_P(FailingDisk, EveryCallInTurn_IsToldAndLosesNothing) {
  for (const bool lasts : {false, true}) {
    // SQLite tries for ten seconds before it gives this one up.
    if (lasts && GetParam().call == Call::kMapLock && GetParam().code == SQLITE_BUSY) break;
    int at = 0;
    for (bool failed = true; failed && !HasFailure();) {
      SCOPED_TRACE("call " + std::to_string(++at) + (lasts ? " and all that follow" : ""));
      failed = WorkUntilTold(at, lasts);
    }
    EXPECT_GT(at, 1);
    std::cout << at - 1 << (lasts ? " lasting faults\n" : " single faults\n");
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, FailingDisk,
                         testing::Values(Fault{Call::kOpen, SQLITE_CANTOPEN, 4060},
                                         Fault{Call::kRead, SQLITE_IOERR_READ, 823},
                                         Fault{Call::kWrite, SQLITE_IOERR_WRITE, 823},
                                         Fault{Call::kWrite, SQLITE_FULL, 1105},
                                         Fault{Call::kSync, SQLITE_IOERR_FSYNC, 823},
                                         Fault{Call::kDelete, SQLITE_IOERR_DELETE, 823},
                                         Fault{Call::kLock, SQLITE_BUSY, 1222},
                                         Fault{Call::kLock, SQLITE_IOERR_LOCK, 823},
                                         Fault{Call::kMap, SQLITE_IOERR_SHMMAP, 823},
                                         Fault{Call::kMap, SQLITE_IOERR_SHMSIZE, 1105},
                                         Fault{Call::kMapLock, SQLITE_BUSY, 1222},
                                         Fault{Call::kMapLock, SQLITE_IOERR_SHMLOCK, 823}));

using PowerCut = Storage;

TEST_F(PowerCut, AtAnyChangeOfTheDisk_LeavesWholeStatementsAndAllThatWereReported) {
  const std::filesystem::path after = file + "-after";
  int cuts = 0;
  for (int round = 0; round < 3; ++round) {
    FailingVfs vfs;
    const auto stored = [&] {
      vfs.WriteAfterPowerCut(after, static_cast<unsigned>(++cuts));
      return Whole(after / "work.db");
    };
    std::set<std::string> seen;
    auto connection = Connect();
    vfs.onChange = [&] { seen.insert(stored()); };
    for (std::size_t i = 0; i < work.size() && !HasFailure(); ++i) {
      SCOPED_TRACE(work[i]);
      seen = {states[i], states[i + 1]};
      const std::size_t possible = seen.size();
      connection->Execute(work[i]);
      EXPECT_EQ(seen.size(), possible) << "half of it";
      EXPECT_TRUE(stored() == states[i + 1]) << "reported, and lost";
    }
    connection.reset();
    EXPECT_EQ(seen.size(), 1U) << "after the end";
  }
  std::cout << cuts << " power cuts\n";
}

}  // namespace
}  // namespace adapters::sqlite
