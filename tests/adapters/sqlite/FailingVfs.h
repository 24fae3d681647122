#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace adapters::sqlite {

/// While it lives, and it lives alone, the files of every newly opened database go through it:
/// calls fail as told, and what a power cut would leave can be written out at any moment. Opening
/// with Plain() goes past it. Nothing waits for the machine's disk.
class FailingVfs {
 public:
  enum class Call { kOpen, kRead, kWrite, kSync, kDelete, kLock, kMap, kMapLock };

  FailingVfs();
  ~FailingVfs();
  FailingVfs(const FailingVfs&) = delete;
  FailingVfs& operator=(const FailingVfs&) = delete;

  /// The at-th call of a kind from now on fails with a result code; with it, when the fault lasts,
  /// all that follow until Mend().
  void Fail(Call call, int code, int at, bool lasts);
  void Mend() { code_ = SQLITE_OK; }
  bool Failed() const { return failed_; }

  /// Called before every write, truncation, sync and deletion.
  std::function<void()> onChange = [] {};
  /// Writes the files into a folder as a power cut leaves them: what was synced is there, and of
  /// every later change all, nothing or some sectors.
  void WriteAfterPowerCut(const std::filesystem::path& folder, unsigned seed) const;

  static constexpr const char* Plain() { return "unix"; }

 private:
  struct Calls;
  struct File {
    std::string name;  // empty for one that SQLite drops again
    const sqlite3_io_methods* real;
  };
  struct Change {
    std::size_t offset;
    std::string bytes;
    bool truncates;
  };
  struct OnDisk {
    std::string synced;
    std::vector<Change> since;
  };
  int Refusal(Call call);
  OnDisk& Changing(sqlite3_file* file);

  sqlite3_vfs* real_;
  sqlite3_vfs own_;
  Call call_ = Call::kOpen;
  int code_ = SQLITE_OK;
  int left_ = 0;
  bool lasts_ = false;
  bool failed_ = false;
  std::map<sqlite3_file*, File> files_;
  std::map<const sqlite3_io_methods*, sqlite3_io_methods> ownMethods_;
  std::map<std::string, OnDisk> disk_;
};

}  // namespace adapters::sqlite
