#include "adapters/qt/Files.h"

#include <sys/resource.h>

#include <csignal>

#include "contract/FileContract.h"
#include "search/FormSearch.h"
#include "support/ScriptedPlatform.h"

std::unique_ptr<platform::FileSystem> contract::MakeFileSystem() {
  return std::make_unique<adapters::qt::QtFileSystem>();
}

namespace contract {
namespace {

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

TEST_F(FileTest, ExportOfASearch_ByEverySetting_IsTheseBytes) {
  support::ScriptedPlatform outside;
  host::modMain module{outside.Services(*files)};
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
  outside.desktop.chosen = name;
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
      std::string bytes;
      for (const char16_t unit : expected) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
      }
      EXPECT_EQ(Content(), bytes) << typed << headers << newLine;
    }
  }
  EXPECT_EQ(folder.FileCount(), 1);
  EXPECT_EQ(outside.components.messages.back(),
            (support::Message{"اطلاع", "فايل متني با نام «" + name + "» ذخيره شد."}));
}

TEST_F(FileTest, FullDiskOrLostFolder_IsAnErrorAndLeavesTheOldFile) {
  std::ofstream(onDisk) << "old";
  // No file may grow beyond a size for the time. What is short waits in memory until the end.
  for (const auto& [largest, length] : {std::pair(1 << 16, 1 << 20), {1 << 12, 3000}}) {
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{static_cast<rlim_t>(largest), before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    std::int32_t number = 0;
    try {
      Written(std::string(static_cast<std::size_t>(length), 'x'))->Close();
    } catch (const platform::RuntimeError& error) {
      number = error.Number();
    }
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(number, 61) << length;
    EXPECT_EQ(Content(), "old");
    EXPECT_EQ(folder.FileCount(), 1);
  }

  const auto file = Written(std::string(1 << 20, 'x'));
  std::filesystem::remove_all(folder.Path());
  try {
    file->Close();
    ADD_FAILURE() << "closed without its folder";
  } catch (const platform::RuntimeError& error) {
    EXPECT_EQ(error.Number(), 76);
  }
}

}  // namespace
}  // namespace contract
