#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace adapters::sqlite {

/// While it lives, the files of every newly opened database go through it. Calls fail as told, and
/// what the disk of a machine would hold after a power cut can be written out at any moment.
/// Plain() opens past it.
class FailingVfs {
 public:
  enum class Call { kOpen, kRead, kWrite, kSync, kDelete, kLock, kMap, kMapLock, kAny };

  FailingVfs();
  ~FailingVfs();
  FailingVfs(const FailingVfs&) = delete;
  FailingVfs& operator=(const FailingVfs&) = delete;

  /// The at-th call of a kind from now on fails with a result code; with it, when the fault lasts,
  /// all of its kind until Mend().
  void Fail(Call call, int code, int at, bool lasts);
  void Mend() { code_ = SQLITE_OK; }
  /// Whether a call has failed since Fail().
  bool Failed() const { return failed_; }

  /// Called before every write, truncation and sync.
  std::function<void()> onChange;
  /// Writes the files into a folder as a power cut leaves them: what was synced is there, of every
  /// later change all, nothing or some sectors.
  void WriteAfterPowerCut(const std::filesystem::path& folder, unsigned seed) const;

  static constexpr const char* Plain() { return "unix"; }

 private:
  struct File;
  struct Methods;
  struct Change {
    sqlite3_int64 offset;
    std::string bytes;
    bool truncates;
  };
  struct OnDisk {
    std::string synced;
    std::vector<Change> since;
  };
  static int Open(sqlite3_vfs* self, sqlite3_filename name, sqlite3_file* file, int flags,
                  int* outFlags);
  static int Delete(sqlite3_vfs* self, const char* name, int syncFolder);
  static FailingVfs& Of(sqlite3_vfs* self) { return *static_cast<FailingVfs*>(self->pAppData); }
  int Refusal(Call call);

  sqlite3_vfs* real_;
  sqlite3_vfs own_;
  Call call_ = Call::kAny;
  int code_ = SQLITE_OK;
  int left_ = 0;
  bool lasts_ = false;
  bool failed_ = false;
  std::map<std::string, OnDisk> disk_;
};

}  // namespace adapters::sqlite
