#include "adapters/sqlite/Backup.h"

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <random>
#include <system_error>
#include <vector>

#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/DatabaseFile.h"
#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Functions.h"
#include "platform/RuntimeError.h"
#include "platform/ServerErrors.h"

namespace adapters::sqlite {

namespace {

namespace fs = std::filesystem;

constexpr int kPagesAtOnce = 1024;

std::string Utf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

[[noreturn]] void Refuse(const std::string& sentence, const std::string& words) {
  throw platform::RuntimeError(platform::kPathFileAccess, platform::Described(sentence, words),
                               "SQLite");
}

/// A name for the copy that a failure leaves nothing of.
class Unfinished {
 public:
  explicit Unfinished(const fs::path& wanted) : path_(wanted) {
    path_ += "." + std::to_string(std::random_device{}()) + ".unfinished";
  }
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;
  ~Unfinished() {
    std::error_code ignored;
    fs::remove(path_, ignored);
    fs::remove(fs::path(path_) += "-journal", ignored);
  }
  const fs::path& Path() const { return path_; }

 private:
  fs::path path_;
};

struct FinishBackup {
  void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
};

void CopyPages(sqlite3* source, sqlite3* copy, const std::string& file,
               const BackupProgress& progress) {
  std::unique_ptr<sqlite3_backup, FinishBackup> backup(
      sqlite3_backup_init(copy, "main", source, "main"));
  int result = backup ? SQLITE_OK : SQLITE_ERROR;
  while (result == SQLITE_OK) {
    result = sqlite3_backup_step(backup.get(), kPagesAtOnce);
    const int total = sqlite3_backup_pagecount(backup.get());
    if (progress) progress(total - sqlite3_backup_remaining(backup.get()), total);
  }
  backup.reset();  // leaves what went wrong on the copy's handle
  if (result != SQLITE_DONE) throw LastError(copy, file);
}

/// All of it, from the copy's first byte to its check.
void WriteCopy(sqlite3* source, const fs::path& path, const BackupProgress& progress) {
  const std::string file = Utf8(path);
  sqlite3* opened = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_EXCLUSIVE;
  const int result = sqlite3_open_v2(file.c_str(), &opened, flags, nullptr);
  const DatabaseHandle copy(opened);
  if (result != SQLITE_OK) throw LastError(opened, file);
  const fs::path model = PathOf(sqlite3_db_filename(source, "main"));
  fs::permissions(path, fs::status(model).permissions());
  RegisterFunctions(opened);
  CopyPages(source, opened, file, progress);
  // Without a log beside it, so that it can lie on what is only read.
  Run(opened, "PRAGMA journal_mode = DELETE", file);
  const std::vector<std::string> faults = IntegrityFaults(opened, file);
  if (!faults.empty()) {
    throw MakeError(kInconsistentFile, "The copy is damaged: " + faults.front(),
                    sqlite3_db_filename(source, "main"));
  }
}

/// What is taken for the log of a file that has another's name would be laid over it; an empty one,
/// which a program that only reads leaves, holds nothing.
void RequireNoLog(const fs::path& target) {
  for (const char* ending : {"-wal", "-journal"}) {
    const fs::path log = fs::path(target) += ending;
    if (!fs::exists(log) || fs::file_size(log) == 0) continue;
    Refuse("در برنامه اي ديگر باز است؛ آن برنامه را ببنديد.",
           "A program works on it: " + Utf8(log) + " is there.");
  }
}

}  // namespace

void BackUp(const std::string& from, const std::string& to, const BackupProgress& progress) {
  try {
    const fs::path target = fs::weakly_canonical(PathOf(to));
    std::error_code none;
    if (fs::equivalent(PathOf(from), target, none)) {
      Refuse("همان پايگاه داده است.", "It is the database itself.");
    }
    if (fs::is_directory(target)) Refuse("اين نام يك فايل نيست.", "It is a folder.");
    RequireNoLog(target);
    const Unfinished copy(target);
    DatabaseFile(from, kBusyTimeout).Use([&](sqlite3* source, Catalog&) {
      // One state of it is copied, whatever others store meanwhile, and they need not wait.
      Run(source, "BEGIN; SELECT 1 FROM sqlite_schema", from);
      fs::remove(copy.Path());
      WriteCopy(source, copy.Path(), progress);
      Run(source, "COMMIT", from);
      return true;
    });
    RequireNoLog(target);
    fs::rename(copy.Path(), target);
  } catch (const fs::filesystem_error& error) {
    throw platform::RuntimeError(
        platform::kPathFileAccess,
        platform::Described("فايل پشتيبان " + Quoted(to) + " نوشته نشد.", error.code().message()),
        "SQLite");
  } catch (const platform::RuntimeError& error) {
    throw platform::RuntimeError(
        error.Number(), "فايل پشتيبان " + Quoted(to) + " نوشته نشد.\n" + error.Description(),
        error.Source());
  }
}

}  // namespace adapters::sqlite
