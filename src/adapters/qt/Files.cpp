#include "adapters/qt/Files.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStringDecoder>
#include <utility>

#include "adapters/qt/Convert.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {

namespace {

constexpr qsizetype kBlockChars = 1 << 16;

[[noreturn]] void ThrowFor(const QFileDevice& file) {
  const QFileInfo place(file.fileName());
  std::int32_t number = 57;
  QString words = QStringLiteral("فايل نوشته نشد.");
  if (file.fileName().isEmpty() || place.isDir()) {
    number = 75;
    words = QStringLiteral("اين نام يک فايل نيست.");
  } else if (!place.absoluteDir().exists()) {
    number = 76;
    words = QStringLiteral("پوشه اين فايل وجود ندارد.");
  } else if (file.error() == QFileDevice::PermissionsError ||
             (place.exists() && !place.isWritable())) {
    number = 70;
    words = QStringLiteral("اجازه نوشتن اين فايل را نداريد.");
  } else if (file.error() == QFileDevice::ResourceError ||
             file.error() == QFileDevice::WriteError || file.error() == QFileDevice::NoError) {
    // No error: the system took a part of a block only.
    number = 61;
    words = QStringLiteral("فايل نوشته نشد؛ شايد ديسک پر است.");
  }
  words += QLatin1Char(' ') + file.fileName();
  if (file.error() != QFileDevice::NoError) {
    words += QStringLiteral(" (") + file.errorString() + QLatin1Char(')');
  }
  throw platform::RuntimeError(number, ToUtf8(words), "QtFileSystem");
}

/// Decodes UTF-8 sequences of one and two bytes, all that Persian text is made of, several times as
/// fast as the general decoder; stops before anything else. Returns the bytes that it took.
qsizetype DecodeShort(std::string_view text, QChar*& to) {
  const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  std::size_t i = 0;
  while (i < text.size()) {
    const unsigned lead = byte(i);
    if (lead < 0x80) {
      *to++ = QChar(lead);
      ++i;
    } else if (lead >= 0xC2 && lead < 0xE0 && i + 1 < text.size() && byte(i + 1) >> 6U == 2) {
      *to++ = QChar((lead & 0x1FU) << 6U | (byte(i + 1) & 0x3FU));
      i += 2;
    } else {
      break;
    }
  }
  return static_cast<qsizetype>(i);
}

/// UTF-16LE with a byte order mark. Texts are decoded straight into one block, without a string of
/// their own: a large export is as good as all decoding and copying.
class SavedTextFile : public platform::TextFile {
 public:
  explicit SavedTextFile(const QString& path) : file_(path) {
    if (path.isEmpty() || !file_.open(QIODevice::WriteOnly)) ThrowFor(file_);
    block_.append(QChar::ByteOrderMark);
    used_ = block_.size();
    block_.resize(kBlockChars);
  }

  void Write(std::string_view text) override {
    const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
    const qsizetype room = decoder_.requiredSpace(bytes.size());
    if (block_.size() - used_ < room) Flush();
    if (block_.size() < room) block_.resize(room);
    QChar* end = block_.data() + used_;
    const qsizetype done = DecodeShort(text, end);
    end = decoder_.appendToBuffer(end, bytes.sliced(done));
    used_ = end - block_.constData();
  }
  void WriteLineBreak() override { Write("\r\n"); }

  void Close() override {
    Flush();
    if (!file_.commit()) ThrowFor(file_);
  }

 private:
  void Flush() {
    static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "the file's byte order is the machine's");
    const qsizetype bytes = std::exchange(used_, 0) * static_cast<qsizetype>(sizeof(QChar));
    if (file_.write(reinterpret_cast<const char*>(block_.constData()), bytes) != bytes) {
      ThrowFor(file_);
    }
  }

  QSaveFile file_;
  QString block_;
  qsizetype used_ = 0;  // characters of block_ that wait to be written
  QStringDecoder decoder_{QStringDecoder::Utf8, QStringDecoder::Flag::Stateless};
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
