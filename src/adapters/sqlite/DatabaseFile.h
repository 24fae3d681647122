#pragma once

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "adapters/sqlite/Catalog.h"
#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/Watch.h"
#include "platform/RuntimeError.h"

namespace adapters::sqlite {

/// The database file of a connection (UTF-8 path, perhaps a link): opened when it is first used,
/// and anew after a failure to open, and when the path has come to mean another file or none.
class DatabaseFile {
 public:
  DatabaseFile(std::string path, std::chrono::milliseconds busyTimeout);

  const std::string& Path() const { return path_; }

  /// What `work` makes of the open database and its tables. Before it, 4060 when the file was moved
  /// or removed, or the path turned to another; rows that its log still held are then kept.
  ///
  /// A file without locks (IsWithoutLocks) is opened anew each time, and `work`, which can only
  /// read there, done a second time when the file changed meanwhile; changed again, 1222.
  ///
  /// `watch` is set on the handle from before its file is read for the first time.
  template <typename Work>
  auto Use(const Work& work, Watch* watch = nullptr) {
    for (bool again = false;; again = true) {
      sqlite3* database = Open(watch);
      const Watched watched(watch, database);
      if (!IsWithoutLocks(database)) return work(database, *catalog_);
      try {
        auto result = work(database, *catalog_);
        if (!HasChanged()) return result;
      } catch (const platform::RuntimeError&) {
        if (!HasChanged()) throw;
      }
      if (again) ThrowChanging();
    }
  }

 private:
  /// What a change of the file or a program that writes to it makes another.
  struct State {
    std::uint64_t number = 0;
    std::uintmax_t size = 0;
    std::filesystem::file_time_type written;
    bool hasLog = false;
    bool operator==(const State&) const = default;
  };

  sqlite3* Open(Watch* watch);
  void RequireInPlace();
  State StateNow() const;
  bool HasChanged() const { return StateNow() != opened_; }
  [[noreturn]] void ThrowChanging() const;

  std::string path_;
  std::chrono::milliseconds busyTimeout_;
  DatabaseHandle handle_;
  std::optional<Catalog> catalog_;  // of the handle
  std::string logPath_;             // where SQLite keeps the handle's log, links resolved
  std::uint64_t log_ = 0;           // number of the file that holds it
  State opened_;                    // before the handle was opened
};

}  // namespace adapters::sqlite
