// The host is asked to end by the system: it closes its database in order.

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "desktop/Host.h"
#include "support/TestFolder.h"

namespace {

TEST(Ending, AskedBySignal_ClosesTheDatabaseAndReportsSuccess) {
  const support::TestFolder folder;
  const std::string file = folder.File("office.db");
  const auto logIsThere = [log = file + "-wal"] { return std::filesystem::exists(log); };
  desktop::MakeOffice(file, 50);
  for (const int signal : {SIGTERM, SIGHUP}) {
    const pid_t host = fork();
    if (host == 0) {
      setenv("QT_QPA_PLATFORM", "offscreen", 1);
      execl(PROMOTER_DESKTOP, PROMOTER_DESKTOP, "--database", file.c_str(), nullptr);
      _exit(127);
    }
    int status = 0;
    while (!logIsThere() && waitpid(host, &status, WNOHANG) == 0) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    ASSERT_TRUE(logIsThere()) << "the host ended by itself: " << status;
    kill(host, signal);
    waitpid(host, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    EXPECT_FALSE(logIsThere());
  }
}

}  // namespace
