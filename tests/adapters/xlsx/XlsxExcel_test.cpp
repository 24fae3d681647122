#include "adapters/xlsx/XlsxExcel.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/RuntimeError.h"
#include "support/Fakes.h"

namespace adapters::xlsx {
namespace {

namespace fs = std::filesystem;
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

/// A folder of its own for each test.
class XlsxExcelTest : public testing::Test {
 protected:
  void TearDown() override { fs::remove_all(folder); }

  static fs::path MakeFolder() {
    std::string pattern = (fs::temp_directory_path() / "xlsx-XXXXXX").string();
    return mkdtemp(pattern.data());
  }
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
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
    return Part(folder / Files().front(), "xl/worksheets/sheet1.xml");
  }
  /// The error's number and description; 0 when there was none.
  static std::pair<std::int32_t, std::string> ErrorOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const platform::RuntimeError& error) {
      return {error.Number(), error.Description()};
    }
    return {0, ""};
  }

  support::FakeClock clock;
  fs::path folder = MakeFolder();
  std::vector<std::string> opened;
  XlsxExcel::Place place{.folder = folder.string(), .name = "promoter-list"};
  XlsxExcel::Opener opener = [this](const std::string& path) { opened.push_back(path); };
  XlsxExcel excel{place, clock, opener};
};

TEST_F(XlsxExcelTest, Cell_anyText_isANumberOnlyWhereNothingIsLost) {
  const std::vector<std::string> numbers = {"0", "-12", "0.5", "-0.25", "999999999999999"};
  const std::vector<std::string> texts = {"007",   "1234567890123456",
                                          "+5",    "-0",
                                          "1.50",  ".5",
                                          "5.",    "1e5",
                                          "1-2",   "50%",
                                          "=1+1",  "@A1",
                                          "۱۲",    "1404/02/01",
                                          "12:30", "nan",
                                          " 5",    "TRUE"};
  std::vector<std::string> cells = {"heading"};
  cells.insert(cells.end(), numbers.begin(), numbers.end());
  cells.insert(cells.end(), texts.begin(), texts.end());
  const std::string sheet = Copy(cells);
  for (std::size_t i = 1; i < cells.size(); ++i) {
    const std::string cell = Cell(sheet, "A" + std::to_string(i + 1));
    if (i <= numbers.size()) {
      EXPECT_THAT(cell, HasSubstr("<v>" + cells[i] + "</v>"));
      EXPECT_THAT(cell, Not(HasSubstr("t=\""))) << cells[i];
    } else {
      EXPECT_THAT(cell, HasSubstr("t=\"inlineStr\"")) << cells[i];
      EXPECT_THAT(cell, HasSubstr(cells[i] + "</t>"));
    }
  }
  EXPECT_THAT(sheet, Not(HasSubstr("<f>")));
  EXPECT_THAT(sheet, HasSubstr("rightToLeft=\"1\""));
  EXPECT_THAT(sheet, HasSubstr("<pane ySplit=\"1\" topLeftCell=\"A2\""));
}

TEST_F(XlsxExcelTest, Cell_markupControlsAndBrokenBytes_keepTheWorkbookReadable) {
  const std::string sheet = Copy({"<b> & \"c\"", "x\x01y", "m\xC3(n\xED\xA0\x80\xE2\x82"});
  EXPECT_THAT(Cell(sheet, "A1"), HasSubstr("&lt;b&gt; &amp; \"c\""));
  EXPECT_THAT(Cell(sheet, "A2"), HasSubstr("x_x0001_y"));
  EXPECT_THAT(Cell(sheet, "A3"), HasSubstr("m\uFFFD(n\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD</t>"));
}

TEST_F(XlsxExcelTest, Finish_namesTaken_takesTheNextAndOpensIt) {
  std::ofstream(folder / "promoter-list 1404-01-01 2.xlsx") << "mine";
  Copy({"a"});
  const auto second = excel.CreateApplication();
  second->AddWorkbook();
  second->SetCell(1, 1, "second");
  Copy({"b"});
  second->Finish();
  EXPECT_THAT(Files(),
              ElementsAre("promoter-list 1404-01-01 1.xlsx", "promoter-list 1404-01-01 2.xlsx",
                          "promoter-list 1404-01-01 3.xlsx", "promoter-list 1404-01-01 4.xlsx"));
  EXPECT_EQ(fs::file_size(folder / Files()[1]), 4U);
  EXPECT_THAT(Part(folder / Files()[2], "xl/worksheets/sheet1.xml"), HasSubstr(">b</t>"));
  EXPECT_THAT(Part(folder / Files()[3], "xl/worksheets/sheet1.xml"), HasSubstr(">second</t>"));
  EXPECT_THAT(opened, ElementsAre((folder / Files()[0]).string(), (folder / Files()[2]).string()));
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
  fs::remove(folder / Files().front());
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  // Room for nothing, for some of the rows, for all of them but not for the sheet around them.
  for (const rlim_t room : {rlim_t{0}, whole / 2, whole - 100}) {
    const rlimit limit{room, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    const auto [number, description] = ErrorOf([&] { Copy(cells); });
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(number, 61) << room << description;
    EXPECT_THAT(Files(), IsEmpty()) << room;
  }
  std::signal(SIGXFSZ, handler);
}

TEST_F(XlsxExcelTest, Copy_whatNoSheetOrFolderHolds_isRefused) {
  const struct {
    int row;
    int column;
    std::string text;
  } kCases[] = {{0, 1, "a"},
                {1, 0, "a"},
                {1'048'577, 1, "a"},
                {1, 16'385, "a"},
                {3, 1, std::string(32'768, 'a')},
                {1, 1, "after row 2"}};
  for (const auto& each : kCases) {
    const auto application = excel.CreateApplication();
    application->AddWorkbook();
    application->SetCell(2, 1, "a");
    const auto error = ErrorOf([&] { application->SetCell(each.row, each.column, each.text); });
    EXPECT_EQ(error.first, 1004) << each.row << ", " << each.column;
  }
  EXPECT_THAT(Files(), IsEmpty());
  std::ofstream(folder / "file") << "no folder";
  place.folder = (folder / "file" / "below").string();
  EXPECT_EQ(
      ErrorOf([&] { XlsxExcel(place, clock, opener).CreateApplication()->AddWorkbook(); }).first,
      76);
}

}  // namespace
}  // namespace adapters::xlsx
