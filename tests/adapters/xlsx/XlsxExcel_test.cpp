#include "adapters/xlsx/XlsxExcel.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "platform/ResumeNext.h"
#include "support/Approved.h"
#include "support/ScriptedPlatform.h"
#include "text/Text.h"
#include "tools/CopyToExcel.h"

namespace adapters::xlsx {
namespace {

namespace fs = std::filesystem;
using platform::ResumeNext;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// One part of a workbook, unpacked.
std::string Part(const fs::path& workbook, const std::string& part) {
  const std::string command = "unzip -p '" + workbook.string() + "' " + part;
  std::FILE* pipe = popen(command.c_str(), "r");
  std::string text;
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) text += static_cast<char>(c);
  EXPECT_EQ(pclose(pipe), 0) << command;
  return text;
}

class XlsxExcelTest : public testing::Test {
 protected:
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder.Path())) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }
  /// A copy of so many cells, a row each; gives the sheet of the first workbook in the folder.
  std::string Copy(const std::vector<std::string>& cells) {
    const auto application = excel.CreateApplication();
    application->AddWorkbook();
    application->SetVisible(true);
    for (std::size_t row = 0; row < cells.size(); ++row) {
      application->SetCell(static_cast<int>(row) + 1, 1, cells[row]);
    }
    application->Finish();
    return Sheet(Files().front());
  }
  std::string Sheet(const std::string& workbook) const {
    return Part(folder.File(workbook), "xl/worksheets/sheet1.xml");
  }

  support::FakeDesktop desktop;
  support::TestFolder folder;
  std::vector<std::string> opened;
  XlsxExcel::Place place{.folder = folder.Path().string(), .name = "promoter-list"};
  XlsxExcel::Opener opener = [this](const std::string& path) { opened.push_back(path); };
  XlsxExcel excel{place, desktop, opener};
};

TEST_F(XlsxExcelTest, CopyOfAGrid_numbersAreNumbers_anyOtherCellIsItsTextAndNoneAFormula) {
  std::istringstream list(
      "12|0|-12|0.5|-0.25|999999999999999|"
      "007|1234567890123456|-0|1.50|.5|5.|1e5|1-2|50%|۱۲|1404/02/01|12:30|nan| 5|TRUE|"
      "http://a/?b=1&c|mailto:a@b|internal:Sheet1!A1|علي\u200Cكي ی ک 😀|<b> & \"c\" 'd'|"
      "x\x01y\x7F|a\r\nb\tc\n|_x0041_|_x005F_|_X0041_ _x00g1_ _x41_| blanks  |{=1+1}");
  std::vector<std::string> cells;
  for (std::string cell; std::getline(list, cell, '|');) cells.push_back(cell);
  for (const char* sign : {"=", "+", "-", "@", "＝", "＋", "－", "＠"}) {
    for (const char* before : {"", " ", "\t", "\r", "\n", "'", "\u00A0", "\u200E"}) {
      cells.push_back(std::string(before) + sign + "cmd|' /C x'!A0");
      cells.push_back(std::string(before) + sign + "1+5");
    }
  }
  const std::string longest(32'767, '=');
  cells.push_back(longest);
  support::ScriptedPlatform outside;
  host::modMain module{outside.Services(excel)};
  controls::Form form{outside.screen, "form", controls::Form::Border::kFixed};
  controls::FlexGrid grid{form, "grid"};
  grid.SetRows(static_cast<int>(cells.size()));
  grid.SetCols(2);
  for (std::size_t row = 0; row < cells.size(); ++row) {
    for (const int col : {0, 1}) grid.SetTextMatrix(static_cast<int>(row), col, cells[row]);
  }
  tools::CopyToExcel(module, grid);
  ASSERT_THAT(outside.components.messages,
              ElementsAre(testing::Field(&support::Message::title, "موفقيت")));
  std::string sheet = text::Replace(Sheet(Files().front()), longest, "(the longest)");
  sheet = text::Replace(text::Replace(sheet, "\r", ""), "<row", "\n<row") + "\n";
  support::ExpectApproved("tests/adapters/xlsx/sheet.xml", sheet);
  for (const char* never : {"<f", "<hyperlink", "<v>=", "t=\"str\""}) {
    EXPECT_THAT(sheet, Not(HasSubstr(never)));
  }
  EXPECT_THAT(Part(folder.File(Files().front()), "'*' -x xl/worksheets/sheet1.xml"),
              Not(HasSubstr("cmd|")));
}

TEST_F(XlsxExcelTest, Finish_namesTaken_takesTheNextAndOpensItWhateverTheCellsHold) {
  std::ofstream(folder.File("promoter-list 1404-01-01 2.xlsx")) << "mine";
  const std::string sheet = Copy({"m\xC3(n\xED\xA0\x80\xE2\x82", std::string("a\0b", 3)});
  EXPECT_THAT(sheet, HasSubstr("<t>m\uFFFD(n\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD</t>"));
  EXPECT_THAT(sheet, HasSubstr("<t>a\uFFFDb</t>"));
  const auto second = excel.CreateApplication();
  second->AddWorkbook();
  second->SetCell(1, 1, "second");
  Copy({"b"});
  second->Finish();
  EXPECT_THAT(Files(),
              ElementsAre("promoter-list 1404-01-01 1.xlsx", "promoter-list 1404-01-01 2.xlsx",
                          "promoter-list 1404-01-01 3.xlsx", "promoter-list 1404-01-01 4.xlsx"));
  EXPECT_EQ(support::Content(folder.File(Files()[1])), "mine");
  EXPECT_THAT(Sheet(Files()[2]), HasSubstr(">b</t>"));
  EXPECT_THAT(Sheet(Files()[3]), HasSubstr(">second</t>"));
  EXPECT_THAT(opened, ElementsAre(folder.File(Files()[0]), folder.File(Files()[2])));
}

TEST_F(XlsxExcelTest, Application_droppedUnfinished_leavesNothingBehind) {
  const auto openFiles = [] {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
  };
  const auto before = openFiles();
  {
    const auto application = excel.CreateApplication();
    application->AddWorkbook();
    for (int row = 1; row <= 5000; ++row) application->SetCell(row, 1, "مشهد");
    EXPECT_EQ(Files().size(), 1U);
  }
  EXPECT_THAT(Files(), IsEmpty());
  EXPECT_EQ(openFiles(), before);
}

TEST_F(XlsxExcelTest, Copy_diskFullAtAnyPoint_saysSoAndLeavesNothing) {
  const std::vector<std::string> cells(10'000, "12345");
  const rlim_t whole = Copy(cells).size();
  fs::remove(folder.File(Files().front()));
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  // Room for nothing, for some of the rows, for all of them but not for the sheet around them.
  for (const rlim_t room : {rlim_t{0}, whole / 2, whole - 100}) {
    const rlimit limit{room, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    const std::int32_t number = ResumeNext([&] { Copy(cells); });
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(number, 61) << room;
    EXPECT_THAT(Files(), IsEmpty()) << room;
  }
  std::signal(SIGXFSZ, handler);
}

TEST_F(XlsxExcelTest, Copy_whatNoSheetOrFolderHolds_isRefused) {
  const std::tuple<int, int, std::string> kCases[] = {
      {0, 1, "a"},
      {1, 0, "a"},
      {1'048'577, 1, "a"},
      {1, 16'385, "a"},
      {3, 1, std::string(32'768, 'a')},
      {3, 1, text::Replace(std::string(16'384, 'a'), "a", "😀")},
      {1, 1, "after row 2"}};
  for (const auto& [row, column, text] : kCases) {
    const auto application = excel.CreateApplication();
    application->AddWorkbook();
    application->SetCell(2, 1, "a");
    const auto set = [&, row = row, column = column, &text = text] {
      application->SetCell(row, column, text);
    };
    EXPECT_EQ(ResumeNext(set), 1004) << row << ", " << column;
  }
  EXPECT_THAT(Files(), IsEmpty());
  std::ofstream(folder.File("file")) << "no folder";
  place.folder = folder.File("file/below");
  XlsxExcel nowhere(place, desktop, opener);
  const auto application = nowhere.CreateApplication();
  EXPECT_EQ(ResumeNext([&] { application->AddWorkbook(); }), 76);
}

}  // namespace
}  // namespace adapters::xlsx
