#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>

#include "demo/SampleOffice.h"

namespace fuzz {

/// A sample office of a few customers in a file that goes with the process.
class Office {
 public:
  Office() {
    demo::SampleOptions options;
    options.customers = 2;
    options.today = std::chrono::year(2025) / std::chrono::November / 22;
    demo::CreateSampleOffice(file, options);
  }
  ~Office() {
    for (const char* end : {"", "-wal", "-shm"}) std::filesystem::remove(file + end);
  }
  Office(const Office&) = delete;
  Office& operator=(const Office&) = delete;

  const std::string file =
      (std::filesystem::temp_directory_path() / ("fuzz-office-" + std::to_string(getpid()) + ".db"))
          .string();
};

}  // namespace fuzz
