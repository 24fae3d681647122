#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <random>
#include <string>

#include "support/TestFolder.h"

namespace adapters::sqlite {

using support::Content;

/// While it lives, and it lives alone, the files of every newly opened database go through it:
/// calls fail as told, and what a power cut would leave can be written out at any moment. Opening
/// with kPlain goes past it. Nothing waits for the machine's disk.
class FailingVfs {
 public:
  enum class Call { kOpen, kRead, kWrite, kSync, kDelete, kLock, kMap, kMapLock };
  static constexpr const char* kPlain = "unix";

  FailingVfs() {
    current = this;
    own_.zName = "failing";
    own_.xOpen = Open;
    own_.xDelete = Delete;
    sqlite3_vfs_register(&own_, 1);
  }
  ~FailingVfs() {
    sqlite3_vfs_unregister(&own_);
    sqlite3_vfs_register(real_, 1);
  }
  FailingVfs(const FailingVfs&) = delete;
  FailingVfs& operator=(const FailingVfs&) = delete;

  /// The at-th call of a kind from now on fails with a result code; with it, when the fault lasts,
  /// all that follow until Mend().
  void Fail(Call call, int code, int at, bool lasts) {
    call_ = call;
    code_ = code;
    left_ = at;
    lasts_ = lasts;
    failed_ = false;
  }
  void Mend() { code_ = SQLITE_OK; }
  bool Failed() const { return failed_; }

  /// Called before every write, truncation, sync and deletion.
  std::function<void()> onChange = [] {};
  /// Writes the files into a folder as a power cut leaves them: what was synced is there, and of
  /// what was changed since then all, nothing or some sectors.
  void WriteAfterPowerCut(const std::filesystem::path& folder, unsigned seed) const {
    std::mt19937 random(seed);
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    for (const auto& [name, synced] : synced_) {
      const std::string now = Content(name);
      const auto fate = random() % 3;
      std::string left = fate == 0 || (fate == 1 && random() % 2 == 0) ? synced : now;
      for (std::size_t at = 0; at < left.size() && fate == 1; at += kSector) {
        const std::string& from = random() % 2 == 0 ? synced : now;
        if (at < from.size()) left.replace(at, kSector, from, at, kSector);
      }
      std::ofstream(folder / std::filesystem::path(name).filename(), std::ios::binary) << left;
    }
  }

 private:
  static constexpr std::size_t kSector = 512;
  struct File {
    std::string name;  // empty for one that SQLite drops again
    const sqlite3_io_methods* real;
    sqlite3_io_methods own;
  };
  // SQLite's calls for a file have no place for more than the file.
  static inline FailingVfs* current = nullptr;

  int Refusal(Call call) {
    if (code_ == SQLITE_OK || call != call_ || --left_ > 0 || (left_ < 0 && !lasts_)) {
      return SQLITE_OK;
    }
    failed_ = true;
    return code_;
  }

  template <Call kCall, auto kMethod, typename... Args>
  static int Checked(sqlite3_file* opened, Args... args) {
    const File& file = current->files_[opened];
    if (kCall == Call::kWrite || kCall == Call::kSync) current->onChange();
    if (const int code = current->Refusal(kCall)) return code;
    if (kCall != Call::kSync) return (file.real->*kMethod)(opened, args...);
    if (!file.name.empty()) current->synced_[file.name] = Content(file.name);
    return SQLITE_OK;
  }
  static int MapLock(sqlite3_file* file, int offset, int count, int flags) {
    const bool unlocks = (flags & SQLITE_SHM_UNLOCK) != 0;
    return unlocks
               ? current->files_[file].real->xShmLock(file, offset, count, flags)
               : Checked<Call::kMapLock, &sqlite3_io_methods::xShmLock>(file, offset, count, flags);
  }
  static int Open(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* opened, int flags, int* out) {
    opened->pMethods = nullptr;
    if (const int code = current->Refusal(Call::kOpen)) return code;
    if (name != nullptr) current->synced_.try_emplace(name, Content(name));
    const int result = current->real_->xOpen(current->real_, name, opened, flags, out);
    if (result != SQLITE_OK) return result;
    using Methods = sqlite3_io_methods;
    const Methods* real = opened->pMethods;
    File& file = current->files_[opened] = {name == nullptr ? "" : name, real, *real};
    file.own.xRead = Checked<Call::kRead, &Methods::xRead>;
    file.own.xWrite = Checked<Call::kWrite, &Methods::xWrite>;
    file.own.xTruncate = Checked<Call::kWrite, &Methods::xTruncate>;
    file.own.xSync = Checked<Call::kSync, &Methods::xSync>;
    file.own.xLock = Checked<Call::kLock, &Methods::xLock>;
    file.own.xShmMap = Checked<Call::kMap, &Methods::xShmMap>;
    file.own.xShmLock = MapLock;
    opened->pMethods = &file.own;
    return SQLITE_OK;
  }
  static int Delete(sqlite3_vfs*, const char* name, int /*syncFolder*/) {
    if (const int code = current->Refusal(Call::kDelete)) return code;
    current->onChange();
    current->synced_.erase(name);
    return current->real_->xDelete(current->real_, name, 0);
  }

  sqlite3_vfs* real_ = sqlite3_vfs_find(kPlain);
  sqlite3_vfs own_ = *real_;
  Call call_ = Call::kOpen;
  int code_ = SQLITE_OK;
  int left_ = 0;
  bool lasts_ = false;
  bool failed_ = false;
  std::map<sqlite3_file*, File> files_;
  std::map<std::string, std::string> synced_;  // what was, by the name of the file
};

}  // namespace adapters::sqlite
