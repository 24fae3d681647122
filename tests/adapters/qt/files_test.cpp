#include "adapters/qt/Files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <functional>

#include "adapters/qt/Convert.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {
namespace {

class FilesTest : public testing::Test {
 protected:
  std::string PathOf(const QString& name) const { return ToUtf8(folder_.filePath(name)); }
  QByteArray Content(const QString& name) const {
    QFile file(folder_.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << ToUtf8(name);
    return file.readAll();
  }
  void Put(const QString& name, const QByteArray& content) const {
    QFile file(folder_.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
  }
  /// Names of all in the folder, hidden ones too.
  QStringList Names() const {
    return QDir(folder_.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
  }
  static platform::RuntimeError ErrorOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const platform::RuntimeError& error) {
      return error;
    }
    ADD_FAILURE() << "no error";
    return {0, ""};
  }

  QTemporaryDir folder_;
  QtFileSystem files_;
};

TEST_F(FilesTest, TextFile_IsUtf16LittleEndianWithMarkAndCrLf) {
  const struct {
    std::vector<std::string> pieces;
    QByteArray content;
  } cases[] = {
      {{}, ""},
      {{"ab"}, QByteArray("a\0b\0", 4)},
      {{"ي", "ک"}, QByteArray("\x4A\x06\xA9\x06", 4)},
      {{"😀"}, QByteArray("\x3D\xD8\x00\xDE", 4)},
      {{"ي‌ک€"}, QByteArray("\x4A\x06\x0C\x20\xA9\x06\xAC\x20", 8)},
      {{"a\xFF"
        "b"},
       QByteArray("a\0\xFD\xFF"
                  "b\0",
                  6)},  // no UTF-8
      {{"\xC0\x80"}, QByteArray("\xFD\xFF\xFD\xFF", 4)},
      {{"\xD9"}, QByteArray("\xFD\xFF", 2)},  // cut off
      {{"", "\t"}, QByteArray("\t\0", 2)},
  };
  for (const auto& c : cases) {
    const auto file = files_.CreateTextFile(PathOf("list.txt"));
    for (const std::string& piece : c.pieces) file->Write(piece);
    file->WriteLineBreak();
    file->Close();
    EXPECT_EQ(Content("list.txt"),
              QByteArray("\xFF\xFE", 2) + c.content + QByteArray("\r\0\n\0", 4));
  }
  EXPECT_EQ(Names(), QStringList{"list.txt"});
}

TEST_F(FilesTest, TextFile_LargerThanABlock_IsWhole) {
  const QString line = QStringLiteral("برنامه 123 ").repeated(1000);
  const QString long_line = line.repeated(20);  // longer than any block
  QString expected(QChar::ByteOrderMark);
  const auto file = files_.CreateTextFile(PathOf("list.txt"));
  for (const QString& text : {line, long_line, line, line, long_line, QString("end")}) {
    for (int time = 0; time < 7; ++time) {
      file->Write(ToUtf8(text));
      file->WriteLineBreak();
      expected += text + "\r\n";
    }
  }
  file->Close();
  const QByteArray content = Content("list.txt");
  EXPECT_EQ(QString::fromUtf16(reinterpret_cast<const char16_t*>(content.constData()),
                               content.size() / 2),
            expected.mid(1))
      << "the mark is swallowed by reading";
}

TEST_F(FilesTest, TextFile_OverAnExistingOne_TakesItsPlaceOnlyWhenClosed) {
  Put("list.txt", "the old one, which is longer than the new one");
  {
    const auto file = files_.CreateTextFile(PathOf("list.txt"));
    file->Write(std::string(1 << 20, 'x'));
  }
  EXPECT_EQ(Content("list.txt"), "the old one, which is longer than the new one");
  EXPECT_EQ(Names(), QStringList{"list.txt"}) << "nothing half is left";
  const auto file = files_.CreateTextFile(PathOf("list.txt"));
  file->Write("n");
  file->Close();
  EXPECT_EQ(Content("list.txt"), QByteArray("\xFF\xFEn\0", 4));
}

TEST_F(FilesTest, TextFile_ThatCannotBe_IsAClearError) {
  Put("plain", "x");
  ASSERT_TRUE(QDir(folder_.path()).mkdir("folder"));
  const struct {
    QString name;
    std::int32_t number;
  } cases[] = {{"missing/list.txt", 76}, {"plain/list.txt", 76}, {"folder", 75}};
  for (const auto& c : cases) {
    const auto error = ErrorOf([&] { files_.CreateTextFile(PathOf(c.name)); });
    EXPECT_EQ(error.Number(), c.number) << ToUtf8(c.name) << ": " << error.Description();
    EXPECT_NE(error.Description().find(PathOf(c.name)), std::string::npos);
  }
  EXPECT_EQ(ErrorOf([&] { files_.CreateTextFile(""); }).Number(), 75);
  EXPECT_EQ(Names(), (QStringList{"folder", "plain"}));
}

TEST_F(FilesTest, TextFile_WithoutTheRight_IsRefused) {
  if (geteuid() == 0) GTEST_SKIP() << "root may write anywhere";
  Put("list.txt", "old");
  QFile::setPermissions(folder_.filePath("list.txt"), QFile::ReadOwner);
  EXPECT_EQ(ErrorOf([&] { files_.CreateTextFile(PathOf("list.txt")); }).Number(), 70);
  QFile::setPermissions(folder_.path(), QFile::ReadOwner | QFile::ExeOwner);
  EXPECT_EQ(ErrorOf([&] { files_.CreateTextFile(PathOf("new.txt")); }).Number(), 70);
  QFile::setPermissions(folder_.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  EXPECT_EQ(Content("list.txt"), "old");
}

/// No file may grow beyond 64 KiB while it lives, as on a full disk.
class SmallDisk {
 public:
  SmallDisk() {
    getrlimit(RLIMIT_FSIZE, &before_);
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = before_;
    small.rlim_cur = 1 << 16;
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int) = nullptr;
};

TEST_F(FilesTest, FullDisk_IsAnErrorAndLeavesTheOldFile) {
  Put("list.txt", "old");
  {
    const SmallDisk small;
    const auto error = ErrorOf([&] {
      const auto file = files_.CreateTextFile(PathOf("list.txt"));
      for (int i = 0; i < 100; ++i) file->Write(std::string(10000, 'x'));
      file->Close();
    });
    EXPECT_EQ(error.Number(), 61) << error.Description();
  }
  EXPECT_EQ(Content("list.txt"), "old");
  EXPECT_EQ(Names(), QStringList{"list.txt"});
}

TEST_F(FilesTest, FileExists_OnlyOfFiles) {
  Put("list.txt", "");
  EXPECT_TRUE(files_.FileExists(PathOf("list.txt")));
  EXPECT_FALSE(files_.FileExists(PathOf("other.txt")));
  EXPECT_FALSE(files_.FileExists(ToUtf8(folder_.path())));
  EXPECT_FALSE(files_.FileExists(""));
}

TEST_F(FilesTest, Launcher_OfAMissingProgram_Throws53) {
  EXPECT_EQ(ErrorOf([] { QtLauncher().Start("no-such-program-anywhere /s"); }).Number(), 53);
  EXPECT_EQ(ErrorOf([] { QtLauncher().Start(""); }).Number(), 53);
}

}  // namespace
}  // namespace adapters::qt
