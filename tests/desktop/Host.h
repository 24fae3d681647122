#pragma once

#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <string>

#include "demo/SampleOffice.h"

namespace desktop {

/// How a program ended, and all that it printed.
struct Ended {
  int status = -1;
  std::string said;
};

inline Ended Shell(const std::string& command) {
  Ended ended;
  FILE* const pipe = popen(("exec 2>&1; " + command).c_str(), "r");
  for (int c = 0; (c = std::fgetc(pipe)) != EOF;) ended.said += static_cast<char>(c);
  const int status = pclose(pipe);
  ended.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return ended;
}

/// The host as cron starts it: no display, and of the environment what `variables` say.
inline Ended Host(const std::string& options, const std::string& variables = "") {
  return Shell("timeout 60 env -i " + variables + " '" PROMOTER_DESKTOP "' " + options);
}

inline void MakeOffice(const std::string& file, int customers, const std::string& basePath = "") {
  demo::CreateSampleOffice(file, {.customers = customers,
                                  .today = std::chrono::year(2025) / std::chrono::November / 22,
                                  .basePath = basePath});
}

}  // namespace desktop
