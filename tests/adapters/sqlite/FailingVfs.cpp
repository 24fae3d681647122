#include "adapters/sqlite/FailingVfs.h"

#include <algorithm>
#include <fstream>
#include <random>
#include <sstream>

namespace adapters::sqlite {

namespace {

constexpr std::size_t kSector = 512;

// SQLite's calls for a file have no place for more than the file.
FailingVfs* current = nullptr;

std::string Content(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

}  // namespace

/// The calls in which the files differ from the real ones, which they are in all else.
struct FailingVfs::Calls {
  template <Call kCall, auto kMethod, typename... Args>
  static int Checked(sqlite3_file* file, Args... args) {
    const int code = current->Refusal(kCall);
    return code != SQLITE_OK ? code : (current->files_[file].real->*kMethod)(file, args...);
  }

  static int Write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset) {
    const std::string_view text(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
    current->Changing(file).since.push_back(
        {static_cast<std::size_t>(offset), std::string(text), false});
    return Checked<Call::kWrite, &sqlite3_io_methods::xWrite>(file, bytes, size, offset);
  }
  static int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    current->Changing(file).since.push_back({static_cast<std::size_t>(size), {}, true});
    return Checked<Call::kWrite, &sqlite3_io_methods::xTruncate>(file, size);
  }
  static int Sync(sqlite3_file* file, int /*flags*/) {
    OnDisk& disk = current->Changing(file);
    if (const int code = current->Refusal(Call::kSync)) return code;
    disk = {Content(current->files_[file].name), {}};
    return SQLITE_OK;
  }
  static int MapLock(sqlite3_file* file, int offset, int count, int flags) {
    if ((flags & SQLITE_SHM_UNLOCK) != 0) {
      return current->files_[file].real->xShmLock(file, offset, count, flags);
    }
    return Checked<Call::kMapLock, &sqlite3_io_methods::xShmLock>(file, offset, count, flags);
  }

  static int Open(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* file, int flags,
                  int* outFlags) {
    file->pMethods = nullptr;
    if (const int code = current->Refusal(Call::kOpen)) return code;
    std::string stored = name == nullptr ? std::string() : Content(name);
    const int result = current->real_->xOpen(current->real_, name, file, flags, outFlags);
    if (result != SQLITE_OK) return result;
    const File& own = current->files_[file] = {name == nullptr ? "" : name, file->pMethods};
    sqlite3_io_methods& methods =
        current->ownMethods_.try_emplace(own.real, *own.real).first->second;
    methods.xRead = Checked<Call::kRead, &sqlite3_io_methods::xRead>;
    methods.xWrite = Write;
    methods.xTruncate = Truncate;
    methods.xSync = Sync;
    methods.xLock = Checked<Call::kLock, &sqlite3_io_methods::xLock>;
    methods.xShmMap = Checked<Call::kMap, &sqlite3_io_methods::xShmMap>;
    methods.xShmLock = MapLock;
    file->pMethods = &methods;
    current->disk_.try_emplace(own.name, OnDisk{std::move(stored), {}});
    return SQLITE_OK;
  }
  static int Delete(sqlite3_vfs*, const char* name, int /*syncFolder*/) {
    if (const int code = current->Refusal(Call::kDelete)) return code;
    current->onChange();
    current->disk_.erase(name);
    return current->real_->xDelete(current->real_, name, 0);
  }
};

FailingVfs::FailingVfs() : real_(sqlite3_vfs_find(Plain())), own_(*real_) {
  current = this;
  own_.zName = "failing";
  own_.xOpen = Calls::Open;
  own_.xDelete = Calls::Delete;
  sqlite3_vfs_register(&own_, 1);
}

FailingVfs::~FailingVfs() {
  sqlite3_vfs_unregister(&own_);
  sqlite3_vfs_register(real_, 1);
  current = nullptr;
}

void FailingVfs::Fail(Call call, int code, int at, bool lasts) {
  call_ = call;
  code_ = code;
  left_ = at;
  lasts_ = lasts;
  failed_ = false;
}

int FailingVfs::Refusal(Call call) {
  if (code_ == SQLITE_OK || call != call_ || --left_ > 0 || (left_ < 0 && !lasts_))
    return SQLITE_OK;
  failed_ = true;
  return code_;
}

FailingVfs::OnDisk& FailingVfs::Changing(sqlite3_file* file) {
  onChange();
  return disk_[files_[file].name];
}

void FailingVfs::WriteAfterPowerCut(const std::filesystem::path& folder, unsigned seed) const {
  std::mt19937 random(seed);
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  for (const auto& [name, file] : disk_) {
    if (name.empty()) continue;
    std::string content = file.synced;
    for (const Change& change : file.since) {
      const std::size_t sectors = change.bytes.size() / kSector + 1;
      const std::size_t kept[] = {0, change.bytes.size(), (random() % (sectors + 1)) * kSector};
      const auto fate = random() % 3;
      if (fate == 0) continue;
      const std::size_t end = change.offset + std::min(kept[fate], change.bytes.size());
      if (change.truncates || content.size() < end) content.resize(end);
      content.replace(change.offset, end - change.offset, change.bytes, 0, end - change.offset);
    }
    std::ofstream(folder / std::filesystem::path(name).filename(), std::ios::binary) << content;
  }
}

}  // namespace adapters::sqlite
