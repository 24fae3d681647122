// The host is killed at any moment of storing a month of visits: all of them are there or none, the
// file is whole, and the host goes on with it.
//
//   PROMOTER_POWER_CUTS=200 PROMOTER_POWER_CUT_SEED=7 desktop_test --gtest_filter='PowerCut.*'

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <random>
#include <thread>

#include "batch/BatchInsert.h"
#include "demo/PlainDatabase.h"
#include "demo/SampleOffice.h"
#include "support/TestFolder.h"

namespace {

namespace fs = std::filesystem;

#if defined(__SANITIZE_ADDRESS__)
constexpr int kCustomers = 484;
#else
constexpr int kCustomers = 4840;
#endif
constexpr long kCuts = 3;
constexpr std::uintmax_t kOpened = 10'000;  // bytes in the log of a file that was only opened
constexpr std::int32_t kProgram = 14;  // the sample office's last, temporary and without visits

long Setting(const char* name, long otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : std::strtol(text, nullptr, 10);
}

std::string Numbers(int from, int count) {
  std::string list = std::to_string(from);
  for (int i = 1; i < count; ++i) list += "," + std::to_string(from + i);
  return list;
}

class PowerCut : public testing::Test {
 protected:
  PowerCut() {
    demo::CreateSampleOffice(template_,
                             {.customers = kCustomers,
                              .today = std::chrono::year(2025) / std::chrono::November / 22,
                              .basePath = {}});
    std::ofstream(script_) << batch::BatchInsertStatement({.programId = kProgram,
                                                           .promoterId = 1,
                                                           .dates = Numbers(14040101, 31),
                                                           .customerIds = Numbers(1, kCustomers),
                                                           .notesLiteral = "'it''s a month'"});
  }

  void NewOffice() const {
    for (const char* part : {"-wal", "-shm"}) fs::remove(file_ + part);
    fs::copy_file(template_, file_, fs::copy_options::overwrite_existing);
  }

  /// How many visits are stored in a file that is whole; -1 when it is not.
  int Visits() const {
    const std::string found = demo::PlainDatabase(file_).Text(
        "PRAGMA integrity_check; PRAGMA foreign_key_check; SELECT count(*) FROM "
        "tblDistributionPromoterProgramDetail WHERE ProgramID = " +
        std::to_string(kProgram));
    EXPECT_TRUE(found.starts_with("ok;")) << found;
    return found.starts_with("ok;") ? std::stoi(found.substr(3)) : -1;
  }

  static constexpr std::uintmax_t kNever = ~std::uintmax_t{0};
  struct Met {
    bool killed;
    bool told;           // that the month was stored
    std::uintmax_t log;  // its size at the end, or the largest seen
  };
  /// Lets the host store the month and kills it when its log has that size, or when it has told.
  Met Host(std::uintmax_t killAt) const {
    const std::string told = folder_.File("told");
    const std::string command = std::string("exec '") + PROMOTER_DESKTOP + "' --database '" +
                                file_ + "' --replay '" + script_ + "' > '" + told + "'";
    fs::remove(told);
    const pid_t host = fork();
    if (host == 0) {
      execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
      _exit(127);
    }
    Met met{};
    const auto look = [&] {
      std::error_code none;
      const auto size = fs::file_size(file_ + "-wal", none);
      if (!none) met.log = std::max(met.log, size);
      met.told = support::Content(told).find("done") != std::string::npos;
    };
    int status = 0;
    while (waitpid(host, &status, WNOHANG) == 0) {
      look();
      if (killAt != kNever && (met.told || met.log >= killAt)) kill(host, SIGKILL);
      std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    look();
    met.killed = WIFSIGNALED(status);
    EXPECT_TRUE(met.killed || status == 0) << status;
    return met;
  }

 private:
  support::TestFolder folder_;
  std::string template_ = folder_.File("template.db");
  std::string script_ = folder_.File("month.sql");
  std::string file_ = folder_.File("office.db");
};

TEST_F(PowerCut, AtAnyMomentOfABatch_LeavesAllOrNoneAndTheHostGoesOn) {
  const long cuts = Setting("PROMOTER_POWER_CUTS", kCuts);
  std::mt19937_64 random(static_cast<std::uint64_t>(Setting("PROMOTER_POWER_CUT_SEED", 1404)));
  NewOffice();
  const std::uintmax_t log = Host(kNever).log;
  const int month = Visits();
  ASSERT_GE(month, 31 * kCustomers);
  std::map<std::string, int> times;
  for (long cut = 0; cut < cuts && !HasFailure(); ++cut) {
    NewOffice();
    // From the first look at the file, one in eight, to beyond the commit.
    const Met met = Host(random() % 8 == 0 ? 1 : random() % (log + log / 4));
    const int stored = Visits();
    std::string when = met.log > kOpened ? "while it wrote" : "before it wrote";
    if (met.told) when = met.killed ? "while it closed the file" : "too late";
    EXPECT_TRUE(stored == month || (stored == 0 && !met.told)) << stored << " stored, " << when;
    ++times[when + (stored > 0 ? ", all stored" : ", none stored")];
    EXPECT_TRUE(Host(kNever).told);
    EXPECT_EQ(Visits(), month);
  }
  for (const auto& [when, count] : times) std::cout << count << " killed " << when << "\n";
}

}  // namespace
