#include "adapters/sqlite/FailingVfs.h"

#include <algorithm>
#include <fstream>
#include <random>
#include <sstream>

namespace adapters::sqlite {

namespace {

constexpr std::size_t kSector = 512;

std::string Content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

}  // namespace

/// What SQLite knows as an open file; the real one lies behind it in the same piece of memory.
struct FailingVfs::File : sqlite3_file {
  FailingVfs* vfs;
  const char* name;
  sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
  static File& Of(sqlite3_file* file) { return *static_cast<File*>(file); }
};

struct FailingVfs::Methods {
  template <Call kCall, auto kMethod, typename... Args>
  static int Forward(sqlite3_file* file, Args... args) {
    if (const int code = File::Of(file).vfs->Refusal(kCall)) return code;
    sqlite3_file* real = File::Of(file).Real();
    return (real->pMethods->*kMethod)(real, args...);
  }

  static void NoteChange(File& file, Change change) {
    if (file.vfs->onChange) file.vfs->onChange();
    if (file.name != nullptr) file.vfs->disk_[file.name].since.push_back(std::move(change));
  }
  static int Write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset) {
    const auto* from = static_cast<const char*>(bytes);
    NoteChange(File::Of(file), {offset, std::string(from, from + size), false});
    return Forward<Call::kWrite, &sqlite3_io_methods::xWrite>(file, bytes, size, offset);
  }
  static int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    NoteChange(File::Of(file), {size, {}, true});
    return Forward<Call::kWrite, &sqlite3_io_methods::xTruncate>(file, size);
  }
  /// The machine's disk is not waited for: the tests are about order, not about a disk.
  static int Sync(sqlite3_file* file, int /*flags*/) {
    File& own = File::Of(file);
    if (own.vfs->onChange) own.vfs->onChange();
    if (const int code = own.vfs->Refusal(Call::kSync)) return code;
    if (own.name != nullptr) own.vfs->disk_[own.name] = {Content(own.name), {}};
    return SQLITE_OK;
  }
  static void Barrier(sqlite3_file* file) {
    sqlite3_file* real = File::Of(file).Real();
    real->pMethods->xShmBarrier(real);
  }

  static constexpr sqlite3_io_methods kAll{
      .iVersion = 2,
      .xClose = Forward<Call::kAny, &sqlite3_io_methods::xClose>,
      .xRead = Forward<Call::kRead, &sqlite3_io_methods::xRead>,
      .xWrite = Write,
      .xTruncate = Truncate,
      .xSync = Sync,
      .xFileSize = Forward<Call::kAny, &sqlite3_io_methods::xFileSize>,
      .xLock = Forward<Call::kLock, &sqlite3_io_methods::xLock>,
      .xUnlock = Forward<Call::kAny, &sqlite3_io_methods::xUnlock>,
      .xCheckReservedLock = Forward<Call::kLock, &sqlite3_io_methods::xCheckReservedLock>,
      .xFileControl = Forward<Call::kAny, &sqlite3_io_methods::xFileControl>,
      .xSectorSize = Forward<Call::kAny, &sqlite3_io_methods::xSectorSize>,
      .xDeviceCharacteristics = Forward<Call::kAny, &sqlite3_io_methods::xDeviceCharacteristics>,
      .xShmMap = Forward<Call::kMap, &sqlite3_io_methods::xShmMap>,
      .xShmLock =
          [](sqlite3_file* file, int offset, int n, int flags) {
            const bool locks = (flags & SQLITE_SHM_LOCK) != 0;
            const int code = locks ? File::Of(file).vfs->Refusal(Call::kMapLock) : SQLITE_OK;
            return code != SQLITE_OK
                       ? code
                       : Forward<Call::kAny, &sqlite3_io_methods::xShmLock>(file, offset, n, flags);
          },
      .xShmBarrier = Barrier,
      .xShmUnmap = Forward<Call::kAny, &sqlite3_io_methods::xShmUnmap>,
      .xFetch = nullptr,
      .xUnfetch = nullptr};
};

FailingVfs::FailingVfs() : real_(sqlite3_vfs_find(Plain())), own_(*real_) {
  own_.szOsFile = static_cast<int>(sizeof(File)) + real_->szOsFile;
  own_.zName = "failing";
  own_.pAppData = this;
  own_.xOpen = Open;
  own_.xDelete = Delete;
  sqlite3_vfs_register(&own_, 1);
}

FailingVfs::~FailingVfs() {
  sqlite3_vfs_unregister(&own_);
  sqlite3_vfs_register(real_, 1);
}

void FailingVfs::Fail(Call call, int code, int at, bool lasts) {
  call_ = call;
  code_ = code;
  left_ = at;
  lasts_ = lasts;
  failed_ = false;
}

int FailingVfs::Refusal(Call call) {
  if (code_ == SQLITE_OK || call != call_ || --left_ > 0) return SQLITE_OK;
  if (left_ < 0 && !lasts_) return SQLITE_OK;
  failed_ = true;
  return code_;
}

int FailingVfs::Open(sqlite3_vfs* self, sqlite3_filename name, sqlite3_file* file, int flags,
                     int* outFlags) {
  file->pMethods = nullptr;
  FailingVfs& vfs = Of(self);
  if (const int code = vfs.Refusal(Call::kOpen)) return code;
  File& own = File::Of(file);
  own.vfs = &vfs;
  own.name = name;
  const bool isNew = name != nullptr && !std::filesystem::exists(name);
  const int result = vfs.real_->xOpen(vfs.real_, name, own.Real(), flags, outFlags);
  if (result != SQLITE_OK) return result;
  own.pMethods = &Methods::kAll;
  if (name != nullptr && !vfs.disk_.contains(name)) {
    vfs.disk_[name].synced = isNew ? std::string() : Content(name);
  }
  return SQLITE_OK;
}

int FailingVfs::Delete(sqlite3_vfs* self, const char* name, int /*syncFolder*/) {
  FailingVfs& vfs = Of(self);
  if (const int code = vfs.Refusal(Call::kDelete)) return code;
  if (vfs.onChange) vfs.onChange();
  vfs.disk_.erase(name);
  return vfs.real_->xDelete(vfs.real_, name, 0);
}

void FailingVfs::WriteAfterPowerCut(const std::filesystem::path& folder, unsigned seed) const {
  std::mt19937 random(seed);
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  for (const auto& [name, file] : disk_) {
    std::string content = file.synced;
    for (const Change& change : file.since) {
      const auto offset = static_cast<std::size_t>(change.offset);
      const std::size_t sectors = change.bytes.size() / kSector + 1;
      const auto fate = random() % 3;
      if (fate == 0) continue;
      const std::size_t size =
          fate == 1 ? change.bytes.size()
                    : std::min(change.bytes.size(), (random() % (sectors + 1)) * kSector);
      if (change.truncates || content.size() < offset + size) content.resize(offset + size);
      content.replace(offset, size, change.bytes, 0, size);
    }
    std::ofstream(folder / std::filesystem::path(name).filename(), std::ios::binary) << content;
  }
}

}  // namespace adapters::sqlite
