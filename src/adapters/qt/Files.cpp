#include "adapters/qt/Files.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStringEncoder>

#include "adapters/qt/Convert.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {

namespace {

constexpr qsizetype kBufferBytes = 1 << 16;

[[noreturn]] void ThrowFor(const QFileDevice& file) {
  std::int32_t number = 57;
  QString words = QStringLiteral("فايل نوشته نشد.");
  if (file.error() == QFileDevice::PermissionsError) {
    number = 70;
    words = QStringLiteral("اجازه نوشتن اين فايل را نداريد.");
  } else if (!QFileInfo(file.fileName()).absoluteDir().exists()) {
    number = 76;
    words = QStringLiteral("پوشه اين فايل وجود ندارد.");
  } else if (file.error() == QFileDevice::ResourceError ||
             file.error() == QFileDevice::WriteError) {
    number = 61;
    words = QStringLiteral("فايل نوشته نشد؛ شايد ديسک پر است.");
  }
  throw platform::RuntimeError(number,
                               ToUtf8(words + QLatin1Char(' ') + file.fileName() +
                                      QStringLiteral(" (") + file.errorString() + QLatin1Char(')')),
                               "QtFileSystem");
}

/// UTF-16LE with a byte order mark, gathered into blocks.
class SavedTextFile : public platform::TextFile {
 public:
  explicit SavedTextFile(const QString& path) : file_(path) {
    if (!file_.open(QIODevice::WriteOnly)) ThrowFor(file_);
    buffer_.append("\xFF\xFE", 2);
  }

  void Write(std::string_view text) override {
    buffer_.append(encoder_(ToQString(text)));
    if (buffer_.size() >= kBufferBytes) Flush();
  }
  void WriteLineBreak() override { Write("\r\n"); }

  void Close() override {
    Flush();
    if (!file_.commit()) ThrowFor(file_);
  }

 private:
  void Flush() {
    if (file_.write(buffer_) != buffer_.size()) ThrowFor(file_);
    buffer_.clear();
  }

  QSaveFile file_;
  QByteArray buffer_;
  QStringEncoder encoder_{QStringConverter::Utf16LE};
};

}  // namespace

bool QtFileSystem::FileExists(const std::string& path) {
  return QFileInfo(ToQString(path)).isFile();
}

std::unique_ptr<platform::TextFile> QtFileSystem::CreateTextFile(const std::string& path) {
  return std::make_unique<SavedTextFile>(ToQString(path));
}

void QtLauncher::Start(const std::string& commandLine) {
  QStringList arguments = QProcess::splitCommand(ToQString(commandLine));
  const QString program = arguments.isEmpty() ? QString() : arguments.takeFirst();
  if (program.isEmpty() || !QProcess::startDetached(program, arguments)) {
    throw platform::RuntimeError(53, "File not found: " + ToUtf8(program), "QtLauncher");
  }
}

}  // namespace adapters::qt
