#include "adapters/qt/Reports.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QProcess>

#include "adapters/qt/Convert.h"
#include "adapters/qt/QtFixture.h"
#include "adapters/qt/ReportPages.h"
#include "adapters/qt/ReportPreview.h"
#include "adapters/qt/RtlTables.h"
#include "platform/RuntimeError.h"
#include "support/ErrorNumber.h"

namespace adapters::qt {
namespace {

using platform::ReportOutput;
using support::NumberOf;
using testing::HasSubstr;

/// Ten tables of 200 rows, numbered from C1C, for the program 1.
constexpr auto kTemplate = R"(<!--report
title: Visits
query visits:
  Select a.Code as Day, ROW_NUMBER() OVER(order by a.ID, b.ID) as Number,
  b.Address as Address from tblOrganization a, tblOrganization b
  where a.ID <= 10 and 1 = {fmlID} order by a.ID, b.ID
group visits: days by Day
-->
{{#days}}
<table dir="rtl" width="100%" cellpadding="3" cellspacing="0">
<thead><tr><td colspan="2">{{Day}}</td></tr>
<tr><th width="20%">CODE</th><th width="20%">نشاني</th></tr></thead>
{{#visits}}<tr><td>C{{Number}}C</td><td>{{Address}}</td></tr>{{/visits}}
</table>
{{/days}}
)";

class ReportsTest : public QtOfficeTest {
 protected:
  report::FilledReport Filled(const std::string& text = kTemplate) {
    return Fill(report::ReportTemplate::Load(text, "t.html"), *Create(connectionString),
                "fmlID = 1", clock.Today());
  }
  std::string WriteFile(const QByteArray& content, const char* name = "t.html") {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    return ToUtf8(file.fileName());
  }
  /// Shows the report of program 1.
  void Produce(const char* text) {
    const auto engine = reports.Create();
    engine->LoadReportFile(WriteFile(text));
    engine->SetConnectionString(connectionString);
    engine->SetSelectionFormula(1, "fmlID = 1");
    engine->Produce(ReportOutput::kScreen);
  }
  /// How many of the pixels are not white.
  static int Ink(const QImage& image, const QRect& place) {
    int ink = 0;
    for (int y = place.top(); y <= place.bottom(); ++y) {
      for (int x = place.left(); x <= place.right(); ++x) ink += qGray(image.pixel(x, y)) < 200;
    }
    return ink;
  }
  /// The text of a PDF file, a page each.
  QStringList TextOfPdf(const QByteArray& pdf) {
    QProcess reader;
    reader.start("pdftotext", {ToQString(WriteFile(pdf, "t.pdf")), "-"});
    EXPECT_TRUE(reader.waitForFinished()) << "pdftotext (poppler-utils) does not run";
    QStringList texts = QString::fromUtf8(reader.readAllStandardOutput()).split(QChar::FormFeed);
    EXPECT_TRUE(!texts.isEmpty() && texts.takeLast().isEmpty());
    return texts;
  }

  Reports reports{*this, clock, adapter->guard};
};

TEST_F(ReportsTest, Tables_MarkedRightToLeft_HaveTheirCellsTurnedAround) {
  const std::string rows[] = {
      "<tr><td>1</td> <td>2</td><th>3</th></tr>",
      "<tr><th>3</th><td>2</td><td>1</td></tr>",
      "<thead><TR class=\"x\"><td colspan=\"2\">1</td><td>2</td></TR></thead><tr></tr>",
      "<thead><TR class=\"x\"><td>2</td><td colspan=\"2\">1</td></TR></thead><tr></tr>",
      "<tr><td>1<table><tr><td>a</td><td>b</td></tr></table></td><td>2</td></tr>",
      "<tr><td>2</td><td>1<table><tr><td>a</td><td>b</td></tr></table></td></tr>"};
  for (std::size_t i = 0; i < std::size(rows); i += 2) {
    const std::string head = "a<TABLE width=\"9\" DIR=\"RTL\">";
    EXPECT_EQ(ToUtf8(WithMirroredTables(ToQString(head + rows[i] + "</TABLE>"))),
              head + rows[i + 1] + "</TABLE>");
  }
  const char* plain = "<p>tr td</p><table><tr><td>1</td><td>2</td></tr></table>";
  EXPECT_EQ(WithMirroredTables(plain), plain);
  for (const char* broken : {"<table>", "</table>", "<tr></tr>", "<table><td></td></table>",
                             "<table><tr></td></tr></table>"}) {
    EXPECT_EQ(NumberOf([&] { WithMirroredTables(broken); }), 321) << broken;
  }
}

TEST_F(ReportsTest, Pdf_OfLongProgram_HasEveryRowAndTheHeadOnEveryPage) {
  const ReportPages pages(Filled());
  QBuffer pdf;
  ASSERT_TRUE(pdf.open(QIODevice::WriteOnly));
  pages.WritePdf(pdf);
  const QStringList texts = TextOfPdf(pdf.data());
  ASSERT_EQ(texts.size(), pages.Count());
  EXPECT_GT(pages.Count(), 30);
  int next = 1;
  for (const QString& text : texts) {
    EXPECT_TRUE(text.contains("CODE")) << ToUtf8(text);
    EXPECT_TRUE(text.contains("Visits"));
    // Each row is on one page, whole and in its turn.
    while (text.contains(QStringLiteral("C%1C").arg(next))) ++next;
  }
  EXPECT_EQ(next, 2001);
  QBuffer locked;
  ASSERT_TRUE(locked.open(QIODevice::ReadOnly));
  EXPECT_EQ(NumberOf([&] { pages.WritePdf(locked); }), 57);
}

TEST_F(ReportsTest, Pages_Painted_ShowTheFirstColumnAtTheRight) {
  const ReportPages pages(Filled(
      "<!--report\ntitle: T\nquery v: Select {fmlID} as ID\n-->"
      "<table dir=\"rtl\" width=\"100%\"><tr><td width=\"50%\">MMMMMM</td><td></td></tr></table>"));
  ASSERT_EQ(pages.Count(), 1);
  QImage image(pages.PageSize().toSize(), QImage::Format_RGB32);
  EXPECT_EQ(image.size(), QSize(595, 842)) << "A4";
  image.fill(Qt::white);
  QPainter painter(&image);
  pages.Paint(painter, 0);
  const int middle = image.width() / 2;
  const QRect left(40, 70, middle - 45, 30);
  EXPECT_GT(Ink(image, left.translated(middle - 40, 0)), 40);
  EXPECT_EQ(Ink(image, left), 0);
}

TEST_F(ReportsTest, Load_FileThatIsNone_Throws) {
  const auto engine = reports.Create();
  EXPECT_EQ(NumberOf([&] { engine->LoadReportFile("/no/such/t.html"); }), 53);
  for (const char* content : {"<html>", "<!--report \xC3\x28"}) {
    EXPECT_EQ(NumberOf([&] { engine->LoadReportFile(WriteFile(content)); }), 321) << content;
  }
  EXPECT_EQ(NumberOf([&] { engine->SetSelectionFormula(2, "fmlID = 1"); }), 5);
}

TEST_F(ReportsTest, Produce_OnScreen_PreviewsUntilClosed) {
  int ink = 0;
  OnModalWindow([&](QWidget& window) {
    PagesView& view = dynamic_cast<ReportPreview&>(window).View();
    const QImage picture = view.viewport()->grab().toImage();
    ink = Ink(picture, picture.rect().adjusted(30, 30, -30, -30));
    view.ShowPage(3);
    view.SetFit(PagesView::Fit::kPage);
    EXPECT_EQ(view.CurrentPage(), 3);
    window.close();
  });
  Produce(kTemplate);
  EXPECT_GT(ink, 1000);
}

TEST_F(ReportsTest, Produce_QueryFails_ShowsItAndThrows) {
  const auto shown = AnswerDialog();
  EXPECT_EQ(NumberOf([&] {
              Produce(
                  "<!--report\ntitle: T\nquery v: Select Nothing from tblOrganization "
                  "where ID={fmlID}\n-->");
            }),
            207);
  EXPECT_THAT(*shown, HasSubstr("پرسش «\u202Av\u202C» قالب گزارش «\u202At.html\u202C» اجرا نشد."));
  EXPECT_THAT(*shown, testing::ContainsRegex("t.html:3: query v: .* ندارد.*\n.*'Nothing'"));
}

}  // namespace
}  // namespace adapters::qt
