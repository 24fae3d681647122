#include "report/Pages.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "report/Pieces.h"
#include "report/ReportError.h"
#include "report/Typewriter.h"
#include "support/Approved.h"

namespace report {
namespace {

using controls::Sheet;
using controls::SheetText;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;

const Typewriter kLetters;

FilledReport Report(const std::string& html, std::size_t cut = 0, std::size_t size = 7) {
  FilledReport report;
  report.name = "t.html";
  report.title = "T";
  report.header = "H";
  report.printDate = "1404/09/01";
  report.body = std::make_unique<Pieces>(html, cut, size);
  return report;
}

std::vector<Sheet> Sheets(FilledReport report) {
  Pages pages(std::move(report), kLetters);
  while (pages.LayOutMore()) {
  }
  std::vector<Sheet> sheets;
  for (int page = 0; page < pages.Count(); ++page) sheets.push_back(pages.At(page));
  return sheets;
}

std::string DumpAll(const std::vector<Sheet>& sheets) {
  std::string all;
  for (const Sheet& sheet : sheets) all += Dump(sheet) + "--\n";
  return all;
}

/// Without those of the frame.
std::vector<SheetText> TextsOf(Sheet sheet) {
  sheet.texts.resize(sheet.texts.size() - 4);
  return std::move(sheet.texts);
}

std::vector<std::string> Words(const Sheet& sheet) {
  std::vector<std::string> words;
  for (const SheetText& text : TextsOf(sheet)) words.push_back(text.text);
  return words;
}

std::vector<std::string> Words(const std::string& html) {
  return Words(Sheets(Report(html)).front());
}

std::string Repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

/// Rows of a table, numbered, each ten points high.
std::string Rows(int count) {
  std::string rows;
  for (int i = 1; i <= count; ++i) {
    rows += "<tr><td>" + std::to_string(i) + "</td><td>x</td></tr>\n<!-- no row -->";
  }
  return rows;
}

const std::string kTable = "<table cellpadding=0>";
const std::string kHead = "<thead><tr><td colspan=2>head</td></tr></thead>";
/// All that a template may say, over several pages.
const std::string kEverything =
    "<!doctype html><html dir=\"rtl\"><head><title>no</title><meta charset=utf-8>"
    "<style>/* no */ .a td, h2 { color: #123456; border-bottom: 1px solid red }\n"
    "p.end { page-break-after: always }</style></head><body>"
    "<h2>a &amp; b&nbsp;&#1740;</h2><!-- > no --><p class='end'>one <b>two</b> three</p>" +
    Repeated("<table class=a>" + kHead + "<tr><td width=90>0</td><td>first</td></tr>" + Rows(30) +
                 "</table><p>between<br>lines</p><!-- no --><hr>",
             11) +
    "<div>loose <meter value=1 max=2></div>" + "<table><tr><td>" + Repeated("long ", 2000) +
    "</td><td>short<div>er</div></td></tr></table>last</body></html>";

TEST(Pages, Pieces_CutAnywhere_GiveTheSameSheets) {
  const std::string html = "<style>p{color:red}</style><p>a&nbsp;b <!-- c --><b>d</b></p>" +
                           kTable + kHead + Rows(2) + "</table>";
  const std::string whole =
      "<head>" + html.substr(0, html.find("<p>")) + "</head>" + html.substr(html.find("<p>"));
  const std::string expected = DumpAll(Sheets(Report(whole, whole.size())));
  EXPECT_THAT(expected, HasSubstr("a\u00A0b"));
  for (std::size_t cut = 1; cut < whole.size(); ++cut) {
    ASSERT_EQ(DumpAll(Sheets(Report(whole, cut, whole.size()))), expected) << whole.substr(0, cut);
  }
  const std::string everything = DumpAll(Sheets(Report(kEverything, kEverything.size())));
  for (const std::size_t size : {1, 2, 3, 50, 1000}) {
    ASSERT_EQ(DumpAll(Sheets(Report(kEverything, 0, size))), everything) << size;
  }
}

TEST(Pages, Any_MadeAgain_IsAsItWas) {
  for (const std::size_t size : {3UL, 17UL, 40UL, 700UL, kEverything.size()}) {
    Pages pages(Report(kEverything, 0, size), kLetters);
    std::vector<std::string> forwards;
    for (bool more = true; more;) {
      more = pages.LayOutMore();
      forwards.push_back(Dump(pages.At(static_cast<int>(forwards.size()))));
    }
    ASSERT_TRUE(pages.Finished());
    ASSERT_GT(pages.Count(), 8) << "more than are kept";
    ASSERT_EQ(forwards.size(), static_cast<std::size_t>(pages.Count()));
    const auto body = [](const std::string& dump) { return dump.substr(0, dump.rfind("صفحه")); };
    for (int i = 0; i < 3 * pages.Count(); ++i) {
      const int page = i * 7 % pages.Count();
      ASSERT_EQ(body(Dump(pages.At(page))), body(forwards[static_cast<std::size_t>(page)])) << page;
    }
  }
}

TEST(Pages, Frame_SaysHowManyPagesWhenThatIsKnown) {
  FilledReport report = Report(kTable + Rows(100) + "</table>");
  report.digits = Digits::kPersian;
  Pages pages(std::move(report), kLetters);
  EXPECT_EQ(pages.Count(), 1);
  EXPECT_EQ(pages.At(0).texts.back().text, "صفحه ۱ از ...");
  EXPECT_EQ(pages.Count(), 1) << "reached by LayOutMore alone";
  EXPECT_TRUE(pages.LayOutMore());
  EXPECT_FALSE(pages.LayOutMore());
  EXPECT_EQ(pages.At(0).texts.back().text, "صفحه ۱ از ۲");
  EXPECT_EQ(Sheets(Report("")).size(), 1U);
}

TEST(Pages, Failure_OfTheDatabase_CanBeTriedAgain) {
  const std::string html = kTable + Rows(200) + "</table>";
  const std::string expected = DumpAll(Sheets(Report(html)));
  Pages pages(Report(html), kLetters);
  Pieces::failAt = 7 * 300;
  ASSERT_THROW(while (pages.LayOutMore()){}, platform::RuntimeError);
  Pieces::failAt = std::string::npos;
  while (pages.LayOutMore()) {
  }
  std::string all;
  for (int page = 0; page < pages.Count(); ++page) all += Dump(pages.At(page)) + "--\n";
  EXPECT_EQ(all, expected);
}

// tests/report/pages: boxes, texts, widths, lines, gaps, breaks, and what all of it together comes
// to.
TEST(Pages, Templates_OfEachKind_AreLaidOutAsApproved) {
  for (const auto& entry : std::filesystem::directory_iterator("tests/report/pages")) {
    std::filesystem::path file = entry.path();
    if (file.extension() != ".html") continue;
    const std::string dump = DumpAll(Sheets(Report(support::Content(file))));
    support::ExpectApproved(file.replace_extension(".txt").string(), dump);
  }
}

TEST(Pages, Head_StandsOnEveryPageAndNeverAlone) {
  const auto sheets = Sheets(Report(kTable + kHead + Rows(150) + "</table>"));
  ASSERT_EQ(sheets.size(), 3U);
  for (const Sheet& sheet : sheets) EXPECT_EQ(Words(sheet).front(), "head");
  EXPECT_EQ(Words(sheets[1])[1], "71");  // 712 points hold the head and 70 rows
  // One line is left below 70 lines: head and row do not both fit.
  const auto late = Sheets(Report(Repeated("a<br>", 70) + kTable + kHead + Rows(1) + "</table>"));
  ASSERT_EQ(late.size(), 2U);
  EXPECT_THAT(Words(late[1]), ElementsAre("head", "1", "x"));
  EXPECT_THAT(Words(kTable + kHead + "</table>"), ElementsAre("head")) << "but when it has no rows";
}

TEST(Pages, Row_HigherThanAPage_GoesOnWithEveryWord) {
  std::string html = kTable + kHead + "<tr><td>";
  for (int i = 0; i < 200; ++i) html += "w" + std::to_string(i) + "<br>";
  const auto sheets = Sheets(Report(html + "</td><td>beside</td></tr>" + Rows(1) + "</table>"));
  ASSERT_EQ(sheets.size(), 3U);
  std::vector<std::string> words;
  for (const Sheet& sheet : sheets) {
    for (const std::string& word : Words(sheet)) {
      if (word != "head") words.push_back(word);
    }
    for (const SheetText& text : TextsOf(sheet)) EXPECT_LE(text.box.bottom, 842 - 62 + 0.1);
  }
  std::vector<std::string> expected;
  for (int i = 0; i < 70; ++i) expected.push_back("w" + std::to_string(i));
  expected.emplace_back("beside");
  for (int i = 70; i < 200; ++i) expected.push_back("w" + std::to_string(i));
  expected.insert(expected.end(), {"1", "x"});
  EXPECT_THAT(words, ElementsAreArray(expected));
}

TEST(Pages, Markup_IsLaidOutOrRefusedWithItsLineAsApproved) {
  support::ExpectOutcomes("tests/report/markup.txt", [](const std::string& html) -> std::string {
    try {
      Sheet sheet = Sheets(Report(html)).front();
      sheet.texts = TextsOf(sheet);
      return Dump(sheet);
    } catch (const ReportError& failure) {
      return failure.Words() + "\n" + failure.Technical() + "\n";
    }
  });
}

}  // namespace
}  // namespace report
