#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace demo {

struct SampleOptions {
  /// 1 to 1,000,000.
  int customers = 5000;
  std::uint64_t seed = 1404;
  /// The day around which the programs lie.
  std::chrono::sys_days today;
  /// The install folder that the office tells the module, ending in a path separator: where it
  /// looks for the files of demo/templates, which the office lists. Nothing is stored when it is
  /// empty.
  std::string basePath;
};

/// Makes a sample sales office at `path`, UTF-8: the same content for the same options on every
/// machine. It is written beside `path` under another name and takes its name when it is whole, so
/// that an interrupted run leaves no half office there.
/// Throws platform::RuntimeError: 58 when something of that name exists already, which is left as
/// it was; 5 when the number of customers is out of range; else what the database or the file
/// system says.
void CreateSampleOffice(const std::string& path, const SampleOptions& options);

}  // namespace demo
