#include "adapters/xlsx/XlsxExcel.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/ResumeNext.h"
#include "support/ScriptedPlatform.h"
#include "support/TestFolder.h"
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

/// The cell's element; empty when the sheet has no such cell.
std::string Cell(const std::string& sheet, const std::string& place) {
  const std::size_t begin = sheet.find("<c r=\"" + place + "\"");
  if (begin == std::string::npos) return {};
  return sheet.substr(begin, sheet.find("</c>", begin) - begin);
}

std::string Between(const std::string& text, const std::string& begin, const std::string& end) {
  const std::size_t from = text.find(begin);
  if (from == std::string::npos) return "nothing between " + begin + " and " + end;
  return text.substr(from + begin.size(), text.find(end, from) - from - begin.size());
}

/// The text that a spreadsheet reads in a cell: without xml:space="preserve" one loses its blanks,
/// and _xHHHH_ stands for a character.
std::string TextOf(const std::string& cell) {
  const std::string_view blanks = " \t\n";
  const bool kept = cell.find("<t xml:space=\"preserve\">") != std::string::npos;
  std::string text = Between(cell, kept ? "<t xml:space=\"preserve\">" : "<t>", "</t>");
  if (!kept && !text.empty() &&
      (blanks.find(text.front()) != blanks.npos || blanks.find(text.back()) != blanks.npos)) {
    return "blanks are lost of " + text;
  }
  for (const auto& [entity, character] :
       {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}}) {
    text = text::Replace(text, entity, character);
  }
  const std::regex escape("_x([0-9A-Fa-f]{4})_");
  std::string read;
  std::smatch found;
  for (; std::regex_search(text, found, escape); text = found.suffix()) {
    read += found.prefix().str() + static_cast<char>(std::stoi(found[1], nullptr, 16));
  }
  return read + text;
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
  const std::vector<std::string> numbers = {"0", "-12", "0.5", "-0.25", "999999999999999"};
  std::istringstream list(
      "007|1234567890123456|-0|1.50|.5|5.|1e5|1-2|50%|۱۲|1404/02/01|12:30|nan| 5|TRUE|"
      "http://a/?b=1&c|mailto:a@b|internal:Sheet1!A1|علي\u200Cكي ی ک 😀|<b> & \"c\" 'd'|"
      "x\x01y\x7F|a\r\nb\tc\n|_x0041_|_x005F_|_X0041_ _x00g1_ _x41_| blanks  |{=1+1}");
  std::vector<std::string> texts = {std::string(32'767, '=')};
  for (std::string text; std::getline(list, text, '|');) texts.push_back(text);
  for (const char* sign : {"=", "+", "-", "@", "＝", "＋", "－", "＠"}) {
    for (const char* before : {"", " ", "\t", "\r", "\n", "'", "\u00A0", "\u200E"}) {
      texts.push_back(std::string(before) + sign + "cmd|' /C x'!A0");
      texts.push_back(std::string(before) + sign + "1+5");
    }
  }
  support::ScriptedPlatform outside;
  host::modMain module{outside.Services(excel)};
  controls::Form form{outside.screen, "form", controls::Form::Border::kFixed};
  controls::FlexGrid grid{form, "grid"};
  std::vector<std::string> cells = {"12"};  // in the heading a text
  cells.insert(cells.end(), numbers.begin(), numbers.end());
  cells.insert(cells.end(), texts.begin(), texts.end());
  grid.SetRows(static_cast<int>(cells.size()));
  grid.SetCols(2);
  for (std::size_t row = 0; row < cells.size(); ++row) {
    for (const int col : {0, 1}) grid.SetTextMatrix(static_cast<int>(row), col, cells[row]);
  }
  tools::CopyToExcel(module, grid);
  ASSERT_THAT(outside.components.messages,
              ElementsAre(testing::Field(&support::Message::title, "موفقيت")));
  const std::string sheet = Sheet(Files().front());
  for (std::size_t row = 0; row < cells.size(); ++row) {
    for (const char* col : {"A", "B"}) {
      const std::string cell = Cell(sheet, col + std::to_string(row + 1));
      const bool isNumber = row > 0 && row <= numbers.size();
      EXPECT_EQ(cell.find(" t=\"inlineStr\"") == std::string::npos, isNumber) << cells[row];
      EXPECT_EQ(isNumber ? Between(cell, "<v>", "</v>") : TextOf(cell), cells[row]);
    }
  }
  for (const char* never : {"<f", "<hyperlink", "<v>=", "t=\"str\""}) {
    EXPECT_THAT(sheet, Not(HasSubstr(never)));
  }
  EXPECT_THAT(Part(folder.File(Files().front()), "'*' -x xl/worksheets/sheet1.xml"),
              Not(HasSubstr("cmd|")));
  EXPECT_THAT(sheet, HasSubstr("rightToLeft=\"1\""));
  EXPECT_THAT(sheet, HasSubstr("<pane ySplit=\"1\" topLeftCell=\"A2\""));
}

TEST_F(XlsxExcelTest, Finish_namesTaken_takesTheNextAndOpensItWhateverTheCellsHold) {
  std::ofstream(folder.File("promoter-list 1404-01-01 2.xlsx")) << "mine";
  const std::string sheet = Copy({"m\xC3(n\xED\xA0\x80\xE2\x82", std::string("a\0b", 3)});
  EXPECT_EQ(TextOf(Cell(sheet, "A1")), "m\uFFFD(n\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(TextOf(Cell(sheet, "A2")), "a\uFFFDb");
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
