#pragma once

#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "demo/SampleOffice.h"

namespace desktop {

/// How a program ended, and all that it printed.
struct Ended {
  int status = -1;
  std::string said;
};

/// What is typed in a folder, where the host is found by its name. As cron starts it: no display,
/// and nothing else in the environment.
inline Ended Typed(const std::string& folder, const std::string& command) {
  const std::filesystem::path host = PROMOTER_DESKTOP;
  std::ofstream(folder + "/.typed") << "exec 2>&1\n" << command << "\n";
  const std::string shell = "cd '" + folder + "' && timeout 60 env -i PATH='" +
                            host.parent_path().string() + "':/usr/bin:/bin sh .typed";
  Ended ended;
  FILE* const pipe = popen(shell.c_str(), "r");
  for (int c = 0; (c = std::fgetc(pipe)) != EOF;) ended.said += static_cast<char>(c);
  const int status = pclose(pipe);
  ended.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return ended;
}

inline void MakeOffice(const std::string& file, int customers, const std::string& basePath = "") {
  demo::CreateSampleOffice(file, {.customers = customers,
                                  .today = std::chrono::year(2025) / std::chrono::November / 22,
                                  .basePath = basePath});
}

}  // namespace desktop
