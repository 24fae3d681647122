#include "adapters/qt/Files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <functional>
#include <utility>

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
  const std::pair<std::string, QByteArray> cases[] = {
      {"", ""},
      {"ي‌ک€", QByteArray("\x4A\x06\x0C\x20\xA9\x06\xAC\x20", 8)},
      {"😀", QByteArray("\x3D\xD8\x00\xDE", 4)},
      {"\xC0\x80", QByteArray("\xFD\xFF\xFD\xFF", 4)},  // no UTF-8
      {"\xD9", QByteArray("\xFD\xFF", 2)},              // cut off
  };
  for (const auto& [text, bytes] : cases) {
    const auto file = files_.CreateTextFile(PathOf("list.txt"));
    file->Write(text);
    file->WriteLineBreak();
    file->Close();
    EXPECT_EQ(Content("list.txt"), QByteArray("\xFF\xFE", 2) + bytes + QByteArray("\r\0\n\0", 4));
  }
  EXPECT_EQ(Names(), QStringList{"list.txt"});
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
  QByteArray expected("\xFF\xFE", 2);
  for (const qsizetype length : {10'000, 1, 1'000'000, 3}) {  // within a block, and beyond any
    file->Write(std::string(static_cast<std::size_t>(length), 'n'));
    expected += QByteArray("n\0", 2).repeated(length);
  }
  file->Close();
  EXPECT_EQ(Content("list.txt"), expected);
}

TEST_F(FilesTest, TextFile_ThatCannotBe_IsAClearError) {
  Put("plain", "x");
  ASSERT_TRUE(QDir(folder_.path()).mkdir("folder"));
  for (const auto& [name, number] :
       {std::pair{"missing/list.txt", 76}, {"plain/list.txt", 76}, {"folder", 75}}) {
    const auto error = ErrorOf([&] { files_.CreateTextFile(PathOf(name)); });
    EXPECT_EQ(error.Number(), number) << name << ": " << error.Description();
    EXPECT_NE(error.Description().find(PathOf(name)), std::string::npos);
  }
  EXPECT_EQ(Names(), (QStringList{"folder", "plain"}));
  EXPECT_TRUE(files_.FileExists(PathOf("plain")));
  EXPECT_FALSE(files_.FileExists(PathOf("folder")));
  EXPECT_EQ(ErrorOf([] { QtLauncher().Start("no-such-program-anywhere /s"); }).Number(), 53);
}

TEST_F(FilesTest, FullDisk_IsAnErrorAndLeavesTheOldFile) {
  Put("list.txt", "old");
  // No file may grow beyond 64 KiB for the time.
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{1 << 16, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const auto error = ErrorOf([&] {
    const auto file = files_.CreateTextFile(PathOf("list.txt"));
    for (int i = 0; i < 100; ++i) file->Write(std::string(10000, 'x'));
    file->Close();
  });
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(error.Number(), 61) << error.Description();
  EXPECT_EQ(Content("list.txt"), "old");
  EXPECT_EQ(Names(), QStringList{"list.txt"});
}

}  // namespace
}  // namespace adapters::qt
