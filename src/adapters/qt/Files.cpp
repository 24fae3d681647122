#include "adapters/qt/Files.h"

#include <fcntl.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cstdint>
#include <utility>
#include <vector>

#include "adapters/qt/Convert.h"
#include "platform/FileErrors.h"
#include "text/Utf8.h"

namespace adapters::qt {

namespace {

constexpr std::size_t kBlockUnits = 1 << 16;
constexpr int kBlocksAtOnce = 32;

[[noreturn]] void ThrowFor(const QFileDevice& file) {
  const QFileInfo place(file.fileName());
  platform::ErrorNumber number = platform::kDeviceError;
  const char* sentence = "";
  if (file.fileName().isEmpty() || place.isDir()) {
    number = platform::kPathFileAccess;
  } else if (!place.absoluteDir().exists()) {
    number = platform::kPathNotFound;
  } else if (file.error() == QFileDevice::PermissionsError ||
             (place.exists() && !place.isWritable())) {
    number = platform::kPermissionDenied;
  } else if (file.error() == QFileDevice::ResourceError ||
             file.error() == QFileDevice::WriteError || file.error() == QFileDevice::NoError) {
    // No error: the system took a part of a block only.
    number = platform::kDiskFull;
    sentence = "فايل نوشته نشد؛ شايد ديسك پر است.";
  }
  const bool known = file.error() != QFileDevice::NoError;
  throw platform::FileError(number, ToUtf8(file.fileName()),
                            known ? ToUtf8(file.errorString()) : std::string(), "QtFileSystem",
                            sentence);
}

/// UTF-16LE with a byte order mark. Texts are decoded straight into one block, without a string of
/// their own: a large export is as good as all decoding and copying.
class SavedTextFile : public platform::TextFile {
 public:
  explicit SavedTextFile(const QString& path) : file_(path) {
    if (path.isEmpty() || !file_.open(QIODevice::WriteOnly)) ThrowFor(file_);
    block_[used_++] = QChar::ByteOrderMark;
  }

  void Write(std::string_view text) override {
    if (block_.size() - used_ < text.size()) Flush();
    if (block_.size() < text.size()) block_.resize(text.size());
    used_ = static_cast<std::size_t>(text::PutUtf16(text, block_.data() + used_) - block_.data());
  }
  void WriteLineBreak() override { Write("\r\n"); }

  void Close() override {
    Flush();
    // By itself, commit would put a file in its place whose last bytes the disk did not take.
    if (!file_.flush() || !file_.commit()) ThrowFor(file_);
  }

 private:
  void Flush() {
    static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "the file's byte order is the machine's");
    const auto bytes = static_cast<qint64>(std::exchange(used_, 0) * sizeof(char16_t));
    if (file_.write(reinterpret_cast<const char*>(block_.data()), bytes) != bytes) {
      ThrowFor(file_);
    }
    // The disk begins on it meanwhile; Close waits until it has all.
    if (++blocks_ % kBlocksAtOnce == 0) {
      sync_file_range(file_.handle(), 0, 0, SYNC_FILE_RANGE_WRITE);
    }
  }

  QSaveFile file_;
  std::vector<char16_t> block_ = std::vector<char16_t>(kBlockUnits);
  std::size_t used_ = 0;  // units of block_ that wait to be written
  int blocks_ = 0;
};

}  // namespace

bool QtFileSystem::FileExists(const std::string& path) {
  return QFileInfo(ToQString(path)).isFile();
}

std::string QtFileSystem::ReadFile(const std::string& path) {
  QFile file(ToQString(path));
  QByteArray bytes;
  if (file.open(QIODevice::ReadOnly)) bytes = file.readAll();
  if (file.error() != QFileDevice::NoError) {
    throw platform::RuntimeError(platform::kFileNotFound, path + ": " + ToUtf8(file.errorString()),
                                 "QtFileSystem");
  }
  return bytes.toStdString();
}

std::unique_ptr<platform::TextFile> QtFileSystem::CreateTextFile(const std::string& path) {
  return std::make_unique<SavedTextFile>(ToQString(path));
}

}  // namespace adapters::qt
