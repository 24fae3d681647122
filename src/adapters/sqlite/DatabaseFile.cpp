#include "adapters/sqlite/DatabaseFile.h"

#include <sys/stat.h>

#include <cstdio>
#include <system_error>
#include <utility>

#include "adapters/sqlite/Errors.h"

namespace adapters::sqlite {

namespace {

/// What tells a file from others that have or had its name; 0 where there is none, or no such
/// number.
std::uint64_t FileNumber(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

}  // namespace

DatabaseFile::DatabaseFile(std::string path, std::chrono::milliseconds busyTimeout)
    : path_(std::move(path)), busyTimeout_(busyTimeout) {}

DatabaseFile::State DatabaseFile::StateNow() const {
  const std::filesystem::path file = PathOf(path_);
  std::error_code none;
  return {.number = FileNumber(path_),
          .size = std::filesystem::file_size(file, none),
          .written = std::filesystem::last_write_time(file, none),
          .hasLog = std::filesystem::exists(PathOf(logPath_), none)};
}

sqlite3* DatabaseFile::Open(Watch* watch) {
  if (handle_ && IsWithoutLocks(handle_.get())) handle_.reset();
  if (handle_) RequireInPlace();
  if (!handle_) {
    const State before = StateNow();
    handle_ = OpenDatabase(path_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, busyTimeout_, watch);
    logPath_ = LogPath(handle_.get());
    log_ = FileNumber(logPath_);
    catalog_.emplace(handle_.get(), path_);
    opened_ = before;
  }
  return handle_.get();
}

/// A file that was renamed or removed under an open handle would take rows that nobody finds again.
/// What its log holds goes into it, and the log away, lest it be taken for that of a file put in
/// its place; unless that file has one of its own by now.
void DatabaseFile::RequireInPlace() {
  int moved = 0;
  sqlite3_file_control(handle_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  // Ours may be in its place, and the path a link that leads to another one by now.
  if (moved == 0 && FileNumber(path_) == opened_.number) return;
  std::string kept;
  if (moved != 0 && log_ != 0 && log_ == FileNumber(logPath_)) {
    if (sqlite3_wal_checkpoint_v2(handle_.get(), "main", SQLITE_CHECKPOINT_TRUNCATE, nullptr,
                                  nullptr) == SQLITE_OK) {
      std::remove(logPath_.c_str());
    } else {
      // The disk is full, or another program reads just now.
      kept = logPath_ + "-" + std::to_string(log_);
      if (std::rename(logPath_.c_str(), kept.c_str()) != 0) kept = logPath_;
    }
    const std::string file = sqlite3_db_filename(handle_.get(), "main");
    std::remove((file + "-shm").c_str());
  }
  handle_.reset();
  std::string words = "فايل پايگاه داده " + Quoted(path_) +
                      " جابه‌جا يا پاك شده است و چيزي ثبت نشد. ";
  if (!kept.empty()) {
    words += "آنچه پيش از اين ثبت شد و هنوز به آن فايل نرسيده در " + Quoted(kept) +
             " است؛ آن را كنار فايل، با نام آن و پايان -wal بگذاريد. ";
  }
  throw MakeError(kCannotOpenDatabase,
                  words + "Cannot open database. (the file was moved or removed)");
}

void DatabaseFile::ThrowChanging() const {
  throw MakeError(kLockTimeout,
                  "Lock request time out period exceeded. (the file changed while it was read)",
                  path_);
}

}  // namespace adapters::sqlite
