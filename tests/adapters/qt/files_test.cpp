#include "adapters/qt/Files.h"

#include <sys/resource.h>

#include <csignal>

#include "contract/FileContract.h"

std::unique_ptr<platform::FileSystem> contract::MakeFileSystem() {
  return std::make_unique<adapters::qt::QtFileSystem>();
}

namespace contract {
namespace {

TEST_F(FileTest, FullDisk_IsAnErrorAndLeavesTheOldFile) {
  std::ofstream(folder / kName) << "old";
  // No file may grow beyond 64 KiB for the time.
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{1 << 16, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  std::int32_t number = 0;
  try {
    Written(std::string(1 << 20, 'x'))->Close();
  } catch (const platform::RuntimeError& error) {
    number = error.Number();
  }
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(number, 61);
  EXPECT_EQ(Content(), "old");
  EXPECT_EQ(FileCount(), 1);
}

}  // namespace
}  // namespace contract
