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
#include "search/FormSearch.h"
#include "support/ScriptedPlatform.h"

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

/// Cells and what stands for them in the file: the compiler's own UTF-16, without line breaks.
const std::pair<std::string, std::u16string> kCells[] = {
    {"1,000;b \"c\" 'd'\te||^t", u"1,000;b \"c\" 'd'\te||^t"},
    {"\r\nx\ry\nz\n\r\r\n", u"xyz"},
    {"علي\u200Cكي ی ک ۱۲ ي", u"علي\u200Cكي ی ک ۱۲ ي"},
    {"€\uFEFF\u2028\uFFFF😀\U0010FFFF.", u"€\uFEFF\u2028\uFFFF😀\U0010FFFF."},
    {std::string("n\0m", 3), std::u16string(u"n\0m", 3)},
    {"\xC3(\xE2\x82x\xED\xA0\x80\xC0\x80", u"\uFFFD(\uFFFD\uFFFDx\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"\xF4\x90\x80\x80گ\xF0\x9F\x98", u"\uFFFD\uFFFD\uFFFD\uFFFDگ\uFFFD\uFFFD\uFFFD"},
    {"", u""},
};

TEST_F(FilesTest, ExportOfASearch_ByEverySetting_IsTheseBytes) {
  support::ScriptedPlatform outside;
  host::modMain module{outside.Services(files_)};
  search::FormSearch form{module};
  form.Load();
  controls::FlexGrid& grid = form.flxSearch;
  grid.SetRows(1 + static_cast<int>(std::size(kCells)));
  for (int col = 3; col < grid.Cols(); ++col) grid.SetColWidth(col, 0);
  for (int row = 1; row < grid.Rows(); ++row) {
    const int mirrored = grid.Rows() - row;
    grid.SetTextMatrix(row, 1, kCells[static_cast<std::size_t>(row) - 1].first);
    grid.SetTextMatrix(row, 2, kCells[static_cast<std::size_t>(mirrored) - 1].first);
  }
  outside.fileDialog.chosen = PathOf("list.txt");
  outside.components.otherwise = [] { return support::Answer::kYes; };
  const std::pair<std::string, std::u16string> delimiters[] = {
      {";", u";"}, {" ^T ", u"\t"}, {"", u""}, {" | ", u" | "}, {"؛\u200C😀", u"؛\u200C😀"}};
  for (const auto& [typed, delimiter] : delimiters) {
    for (const auto& [headers, newLine] : {std::pair{0, 0}, {0, 1}, {1, 0}, {1, 1}}) {
      outside.screen.OnModalForm<tools::FormSendToTextFile>([&](auto& dialog) {
        dialog.txtDelimiter.SetText(typed);
        dialog.chkHeader.SetChecked(headers == 1);
        dialog.chkRemoveMoney.SetChecked(headers == 1);  // of no effect
        dialog.chkNewLine.SetChecked(newLine == 1);
        dialog.cmdSave.Click();
        dialog.cmdOk.Click();
      });
      form.cmdSentToText.Click();
      std::u16string expected = u"\uFEFF";
      if (headers == 1)
        expected += u"شماره رايانه اي" + delimiter + u"بازارياب" + delimiter + u"\r\n";
      for (std::size_t row = 0; row < std::size(kCells); ++row) {
        expected += kCells[row].second + delimiter;
        expected += kCells[std::size(kCells) - 1 - row].second + delimiter;
        if (newLine == 1 || row + 1 < std::size(kCells)) expected += u"\r\n";
      }
      QByteArray bytes;
      for (const char16_t unit : expected) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
      }
      EXPECT_EQ(Content("list.txt"), bytes) << typed << headers << newLine;
    }
  }
  EXPECT_EQ(Names(), QStringList{"list.txt"});
  EXPECT_EQ(outside.components.messages.back(),
            (support::Message{"اطلاع", "فايل متني با نام «" + PathOf("list.txt") + "» ذخيره شد."}));
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

TEST_F(FilesTest, FullDiskOrLostFolder_IsAnErrorAndLeavesTheOldFile) {
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

  ASSERT_TRUE(QDir(folder_.path()).mkdir("lost"));
  const auto file = files_.CreateTextFile(PathOf("lost/list.txt"));
  file->Write(std::string(1 << 20, 'x'));
  QDir(folder_.filePath("lost")).removeRecursively();
  EXPECT_EQ(ErrorOf([&] { file->Close(); }).Number(), 76);
  EXPECT_EQ(Names(), QStringList{"list.txt"});
}

}  // namespace
}  // namespace adapters::qt
