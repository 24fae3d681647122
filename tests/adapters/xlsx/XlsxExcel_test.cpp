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

/// Every file of this process cut off at so many bytes, as a full disk does it.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit before_{};
  void (*signal_)(int);
};

/// A folder of its own for each test.
class XlsxExcelTest : public testing::Test {
 protected:
  using Rows = std::vector<std::vector<std::string>>;

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

  static void Fill(platform::ExcelApplication& application, const Rows& rows) {
    for (std::size_t row = 0; row < rows.size(); ++row) {
      for (std::size_t col = 0; col < rows[row].size(); ++col) {
        application.SetCell(static_cast<int>(row) + 1, static_cast<int>(col) + 1, rows[row][col]);
      }
    }
  }

  void Copy(const Rows& rows, bool visible = true) {
    const auto application = excel.CreateApplication();
    application->AddWorkbook();
    application->SetVisible(visible);
    Fill(*application, rows);
    application->Finish();
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

  std::string Sheet() const {
    return Part(folder / "promoter-list 1404-01-01 1.xlsx", "xl/worksheets/sheet1.xml");
  }

  support::FakeClock clock;
  fs::path folder = MakeFolder();
  std::vector<std::string> opened;
  XlsxExcel::Place place{.folder = folder.string(), .name = "promoter-list"};
  XlsxExcel::Opener opener = [this](const std::string& path) { opened.push_back(path); };
  XlsxExcel excel{place, clock, opener};
};

TEST_F(XlsxExcelTest, Cell_anyText_isANumberOnlyWhereNothingIsLost) {
  const std::vector<std::string> numbers = {"0",     "7",    "-12",      "1404",           "0.5",
                                            "-0.25", "3.14", "14020509", "999999999999999"};
  const std::vector<std::string> texts = {"007",        "09121234567", "1234567890123456",
                                          "+5",         "-0",          "1.50",
                                          ".5",         "5.",          "-",
                                          ".",          "1e5",         "1E+15",
                                          "1-2",        "1,000",       "1404/02/01",
                                          "1404-02-01", "12:30",       "50%",
                                          "=1+1",       "+A1",         "-A1",
                                          "@SUM(A1)",   "=cmd|'/c'!A", "{=A1}",
                                          "۱۲",         "TRUE",        "0x10",
                                          "nan",        "inf",         "http://a.ir",
                                          " 5",         "مشهد",        "mailto:a",
                                          "#N/A"};
  Rows rows = {{"ستون"}};
  for (const auto& text : numbers) rows.push_back({text});
  for (const auto& text : texts) rows.push_back({text});
  Copy(rows);
  const std::string sheet = Sheet();
  std::size_t row = 2;
  for (const auto& text : numbers) {
    const std::string cell = Cell(sheet, "A" + std::to_string(row++));
    EXPECT_THAT(cell, HasSubstr("<v>" + text + "</v>"));
    EXPECT_THAT(cell, Not(HasSubstr("t=\""))) << text;
  }
  for (const auto& text : texts) {
    const std::string cell = Cell(sheet, "A" + std::to_string(row++));
    EXPECT_THAT(cell, HasSubstr("t=\"inlineStr\"")) << text;
    EXPECT_THAT(cell, HasSubstr(text + "</t>"));
  }
  EXPECT_THAT(sheet, Not(HasSubstr("<f>")));
  EXPECT_THAT(sheet, Not(HasSubstr("<hyperlink")));
}

TEST_F(XlsxExcelTest, Cell_markupControlsAndBrokenBytes_keepTheWorkbookReadable) {
  Copy({{"a"},
        {"<b> & \"c\""},
        {std::string("x\x01y")},
        {std::string("m\xC3(n\xED\xA0\x80\xF5\xE2\x82")},
        {std::string("p\0q", 3)}});
  const std::string sheet = Sheet();
  EXPECT_THAT(Cell(sheet, "A2"), HasSubstr("&lt;b&gt; &amp; \"c\""));
  EXPECT_THAT(Cell(sheet, "A3"), HasSubstr("x_x0001_y"));
  EXPECT_THAT(Cell(sheet, "A4"), HasSubstr("m\uFFFD(n\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD</t>"));
  EXPECT_THAT(Cell(sheet, "A5"), HasSubstr("p\uFFFDq"));
}

TEST_F(XlsxExcelTest, Sheet_anyRows_readsFromRightToLeftBelowAFrozenBoldHeading) {
  Copy({{"نام", "1404"}, {"رضا", "12"}, {std::string(200, 'n'), ""}});
  const std::string sheet = Sheet();
  EXPECT_THAT(sheet, HasSubstr("rightToLeft=\"1\""));
  EXPECT_THAT(sheet, HasSubstr("<pane ySplit=\"1\" topLeftCell=\"A2\""));
  EXPECT_THAT(sheet, HasSubstr("state=\"frozen\""));
  EXPECT_THAT(Cell(sheet, "B1"), HasSubstr("<t>1404</t>"));
  EXPECT_THAT(sheet, HasSubstr("<col min=\"1\" max=\"1\" width=\"60."));
  EXPECT_THAT(sheet, HasSubstr("<col min=\"2\" max=\"2\" width=\"8."));

  // The heading's style names a font that is bold, that of the cells one that is not.
  const std::string styles = Part(folder / Files().front(), "xl/styles.xml");
  const auto fontOf = [&](const std::string& cell) {
    const std::size_t style = cell.find(" s=\"") + 4;
    std::size_t at = styles.find("<cellXfs");
    for (int skip = std::atoi(cell.c_str() + style); skip >= 0; --skip) {
      at = styles.find("<xf ", at + 1);
    }
    std::size_t font = styles.find("<fonts");
    for (int skip = std::atoi(styles.c_str() + styles.find("fontId=\"", at) + 8); skip >= 0;
         --skip) {
      font = styles.find("<font>", font + 1);
    }
    return styles.substr(font, styles.find("</font>", font) - font);
  };
  EXPECT_THAT(fontOf(Cell(sheet, "A1")), HasSubstr("<b/>"));
  EXPECT_THAT(fontOf(Cell(sheet, "A2")), Not(HasSubstr("<b/>")));
}

TEST_F(XlsxExcelTest, Finish_namesTaken_takesTheNextAndLeavesTheOthers) {
  std::ofstream(folder / "promoter-list 1404-01-01 2.xlsx") << "mine";
  Copy({{"a"}});
  Copy({{"b"}});
  clock.today += std::chrono::days(1);
  Copy({{"c"}});
  EXPECT_THAT(Files(),
              ElementsAre("promoter-list 1404-01-01 1.xlsx", "promoter-list 1404-01-01 2.xlsx",
                          "promoter-list 1404-01-01 3.xlsx", "promoter-list 1404-01-02 1.xlsx"));
  std::ifstream other(folder / "promoter-list 1404-01-01 2.xlsx");
  std::string content;
  std::getline(other, content);
  EXPECT_EQ(content, "mine");
  EXPECT_THAT(Part(folder / Files()[2], "xl/worksheets/sheet1.xml"), HasSubstr(">b</t>"));
}

TEST_F(XlsxExcelTest, Finish_twoCopiesAtOnce_bothAreWhole) {
  const auto first = excel.CreateApplication();
  const auto second = excel.CreateApplication();
  first->AddWorkbook();
  second->AddWorkbook();
  first->SetCell(1, 1, "first");
  second->SetCell(1, 1, "second");
  second->Finish();
  first->Finish();
  EXPECT_THAT(Sheet(), HasSubstr(">second</t>"));
  EXPECT_THAT(Part(folder / Files()[1], "xl/worksheets/sheet1.xml"), HasSubstr(">first</t>"));
  EXPECT_EQ(Files().size(), 2U);
}

TEST_F(XlsxExcelTest, Finish_visible_opensTheWholeFile) {
  Copy({{"a"}}, false);
  EXPECT_THAT(opened, IsEmpty());
  Copy({{"b"}});
  EXPECT_THAT(opened, ElementsAre((folder / "promoter-list 1404-01-01 2.xlsx").string()));

  opener = [this](const std::string& path) {
    EXPECT_THAT(Part(path, "xl/worksheets/sheet1.xml"), HasSubstr(">c</t>"));
    EXPECT_EQ(Files().size(), 3U);  // nothing but workbooks
    throw platform::RuntimeError(53, "no program");
  };
  const auto application = XlsxExcel(place, clock, opener).CreateApplication();
  application->AddWorkbook();
  application->SetVisible(true);
  application->SetCell(1, 1, "c");
  EXPECT_EQ(ErrorOf([&] { application->Finish(); }).second, "no program");
  EXPECT_EQ(Files().size(), 3U);
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
    EXPECT_THAT(Files().front(), testing::EndsWith(".part"));
  }
  EXPECT_THAT(Files(), IsEmpty());
  EXPECT_EQ(openFiles(), before);
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(XlsxExcelTest, Copy_diskFullAtAnyPoint_saysSoAndLeavesNothing) {
  const auto copy = [&] {
    const auto application = excel.CreateApplication();
    application->AddWorkbook();
    for (int row = 1; row <= 10'000; ++row) application->SetCell(row, 1, "12345");
    application->Finish();
  };
  copy();
  const rlim_t whole = Sheet().size();
  fs::remove(folder / Files().front());
  // Room for nothing, for some of the rows, for all of them but not for the sheet around them.
  for (const rlim_t room : {rlim_t{0}, whole / 2, whole - 100}) {
    const auto [number, description] = ErrorOf([&] {
      const FileSizeLimit limit(room);
      copy();
    });
    EXPECT_EQ(number, 61) << room;
    EXPECT_THAT(description, HasSubstr("جا روي ديسك كم است"));
    EXPECT_THAT(description, HasSubstr(folder.string()));
    EXPECT_THAT(Files(), IsEmpty()) << room;
  }
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(XlsxExcelTest, AddWorkbook_folder_isMadeOrRefused) {
  place.folder = (folder / "اسناد" / "فهرست").string();
  const auto makes = XlsxExcel(place, clock, {}).CreateApplication();
  makes->AddWorkbook();
  makes->SetVisible(true);  // without an opener
  makes->Finish();
  EXPECT_TRUE(fs::exists(fs::path(place.folder) / "promoter-list 1404-01-01 1.xlsx"));

  std::ofstream(folder / "file") << "no folder";
  place.folder = (folder / "file" / "below").string();
  const auto [number, description] =
      ErrorOf([&] { XlsxExcel(place, clock, opener).CreateApplication()->AddWorkbook(); });
  EXPECT_EQ(number, 76);
  EXPECT_THAT(description, HasSubstr(place.folder + " (Not a directory)"));
}

TEST_F(XlsxExcelTest, SetCell_whatNoSheetHolds_endsTheCopy) {
  const struct {
    int row;
    int column;
    std::string text;
  } kCases[] = {{0, 1, "a"},          {1, 0, "a"},      {1'048'577, 1, "a"},
                {1, 16'385, "a"},     {1, 65'537, "a"}, {3, 1, std::string(32'768, 'a')},
                {1, 1, "after row 2"}};
  for (const auto& each : kCases) {
    const auto application = excel.CreateApplication();
    EXPECT_EQ(ErrorOf([&] { application->SetCell(1, 1, "a"); }).first, 9);
    application->AddWorkbook();
    application->SetCell(2, 1, "a");
    const auto [number, description] =
        ErrorOf([&] { application->SetCell(each.row, each.column, each.text); });
    EXPECT_EQ(number, 1004) << each.row << ", " << each.column;
    EXPECT_THAT(description, Not(IsEmpty()));
  }
  EXPECT_THAT(Files(), IsEmpty());
}

}  // namespace
}  // namespace adapters::xlsx
