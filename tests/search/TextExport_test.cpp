#include "SearchHarness.h"
#include "platform/ResumeNext.h"

namespace search {
namespace {

using testing::IsEmpty;

/// What the user enters in the export's dialog.
struct Entry {
  std::string delimiter = ";";
  bool newLine = false;
  bool headers = false;
};

class TextExportTest : public SearchTest {
 protected:
  TextExportTest() { outside.fileDialog.chosen = "/out/list.txt"; }

  void Export(const Entry& entry) {
    outside.screen.OnModalForm<tools::FormSendToTextFile>(
        [entry](tools::FormSendToTextFile& dialog) {
          dialog.txtDelimiter.SetText(entry.delimiter);
          dialog.chkNewLine.SetChecked(entry.newLine);
          dialog.chkHeader.SetChecked(entry.headers);
          dialog.cmdSave.Click();
          dialog.cmdOk.Click();
        });
    form.cmdSentToText.Click();
  }
  /// Two lines of three visible columns: program, promoter, notes.
  void FindTwoLines() {
    Finds({{"5", "p\r\nq", "1,000"}, {"6", "\rr\n\n", ""}});
    Search();
    for (const int col : {3, 4, 5, 6, 7, 9, 10, 11}) form.flxSearch.SetColWidth(col, 0);
  }
  std::string Written() { return outside.fileSystem.files["/out/list.txt"]; }
};

TEST_F(TextExportTest, Export_CancelledOrOfAResultWithoutRows_WritesTheHeaderOrNothing) {
  outside.screen.OnModalForm<tools::FormSendToTextFile>([](tools::FormSendToTextFile& dialog) {
    dialog.cmdSave.Click();
    dialog.cmdCancel.Click();
  });
  form.cmdSentToText.Click();
  EXPECT_THAT(outside.fileSystem.files, IsEmpty()) << "cancelled";
  EXPECT_THAT(Said(), IsEmpty());

  Finds({});
  Search();
  for (int col = 2; col < 12; ++col) form.flxSearch.SetColWidth(col, 0);
  Export({.newLine = true});
  EXPECT_EQ(Written(), "");
  outside.fileSystem.files.clear();
  Export({.newLine = true, .headers = true});
  EXPECT_EQ(Written(), "شماره رايانه اي;\r\n");
}

TEST_F(TextExportTest, Export_ThatFails_TravelsOutAndLeavesTheOldFile) {
  FindTwoLines();
  for (const bool creates : {false, true}) {  // and the disk is full in the middle
    outside.fileSystem.failCreate = !creates;
    outside.fileSystem.failAfterBytes = 14;
    outside.fileSystem.files["/out/list.txt"] = "old";
    outside.components.WillAnswer({Answer::kYes});  // over the old file
    EXPECT_EQ(platform::ResumeNext([this] { Export({}); }), 70);
    EXPECT_EQ(Written(), "old") << creates;
    EXPECT_EQ(outside.screen.pointer, controls::MousePointer::kDefault);
    EXPECT_EQ(Said().size(), 1U) << "the question alone";
  }
}

/// Notes the longest piece that reaches a file at once, and keeps nothing.
class MeasuringFiles : public platform::FileSystem {
 public:
  std::size_t longest = 0;
  bool FileExists(const std::string&) override { return false; }
  std::unique_ptr<platform::TextFile> CreateTextFile(const std::string&) override {
    return std::make_unique<File>(longest);
  }

 private:
  class File : public platform::TextFile {
   public:
    explicit File(std::size_t& longest) : longest_(longest) {}
    void Write(std::string_view text) override { longest_ = std::max(longest_, text.size()); }
    void WriteLineBreak() override {}
    void Close() override {}

   private:
    std::size_t& longest_;
  };
};

TEST_F(TextExportTest, Export_ReachesTheFileRowByRow) {
  MeasuringFiles files;
  host::modMain measured(outside.Services(files));
  FormSearch large(measured);
  large.Load();
  platform::RowSet rows({"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k"});
  for (int cell = 0; cell < 1000 * 11; ++cell) rows.Append("0123456789");
  outside.database.When(Beginning("Select ID as")).Gives(std::move(rows));
  large.txtID.SetText("1");
  large.cmdSearch.Click();
  outside.screen.OnModalForm<tools::FormSendToTextFile>([](tools::FormSendToTextFile& dialog) {
    dialog.cmdSave.Click();
    dialog.cmdOk.Click();
  });
  large.cmdSentToText.Click();
  EXPECT_GT(files.longest, 0U);
  EXPECT_LE(files.longest, 500U) << "the headings, or a row";
}

}  // namespace
}  // namespace search
