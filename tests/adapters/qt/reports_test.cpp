#include "adapters/qt/Reports.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QProcess>
#include <QTest>
#include <memory>

#include "adapters/qt/Convert.h"
#include "adapters/qt/Files.h"
#include "adapters/qt/PageOutlets.h"
#include "adapters/qt/QtFixture.h"
#include "adapters/qt/QtSurface.h"
#include "platform/RuntimeError.h"
#include "screens/PaintSheet.h"
#include "support/ErrorNumber.h"
#include "support/FakeProgress.h"

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
  /// The pages of program 1's report.
  std::unique_ptr<report::Pages> All() {
    auto pages = std::make_unique<report::Pages>(
        Fill(report::ReportTemplate::Load(kTemplate, "t.html"), Create(connectionString),
             "fmlID = 1", desktop.Today()),
        letters);
    while (pages->LayOutMore()) continue;
    return pages;
  }
  static QString Position(const QWidget& window) {
    const auto* const label = window.findChild<PaneView*>("lblPosition");
    return label == nullptr ? QString() : ToQString(label->Content().Describe().name);
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

  support::FakeProgress progress;
  QtFileSystem files;
  PageLetters letters;
  Reports reports{*this, files, desktop, adapter->guard, adapter->screen, progress};
};

TEST_F(ReportsTest, Pdf_OfLongProgram_HasEveryRowAndTheHeadOnEveryPage) {
  const std::unique_ptr<report::Pages> pages = All();
  QBuffer pdf;
  ASSERT_TRUE(pdf.open(QIODevice::WriteOnly));
  ASSERT_TRUE(WritePdf(*pages, progress, letters, pdf));
  const QStringList texts = TextOfPdf(pdf.data());
  ASSERT_EQ(texts.size(), pages->Count());
  EXPECT_GT(pages->Count(), 30);
  EXPECT_EQ(progress.advanced.back(), static_cast<std::size_t>(pages->Count()));
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
  EXPECT_EQ(NumberOf([&] { WritePdf(*pages, progress, letters, locked); }), 57);
  progress.stopAtCall = 1;
  QBuffer stopped;
  ASSERT_TRUE(stopped.open(QIODevice::WriteOnly));
  EXPECT_FALSE(WritePdf(*pages, progress, letters, stopped));
  EXPECT_FALSE(progress.UnderWay());
}

TEST_F(ReportsTest, Paper_HasItsLettersAsWideAsTheyWereMeasured) {
  controls::Sheet sheet{200, 100, {}, {}};
  const std::string text = "برنامه MMMM";
  const double width = letters.Width(text, {10, true});
  sheet.texts.push_back({text, {0, 0, 200, 100}, {10, true}, 0});
  QImage image(400, 200, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  QtSurface surface(painter, QFont(), screens::palette::Scheme::kDark, letters);
  screens::PaintSheet(sheet, surface, screens::Point{}, 2, {0, 0, 400, 200});
  const int edge = 400 - static_cast<int>(2 * width);
  EXPECT_EQ(Ink(image, {0, 0, edge - 3, 200}), 0);
  EXPECT_GT(Ink(image, {edge - 3, 80, 30, 40}), 10);
  EXPECT_DOUBLE_EQ(letters.Width(text, {20, true}), 2 * width);
}

TEST_F(ReportsTest, Produce_OnScreen_PreviewsUntilClosed) {
  OnModalWindow([&](QWidget& window) {
    auto* const view = window.findChild<PaneView*>("view");
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Position(window).endsWith("..."); }, 20'000))
        << "the pages are never counted";
    const QString count = Position(window).section(' ', -1);
    EXPECT_GT(count.toInt(), 30);
    const QImage picture = view->viewport()->grab().toImage();
    EXPECT_GT(Ink(picture, picture.rect().adjusted(30, 30, -30, -30)), 1000);
    QTest::keyClick(view, Qt::Key_End);
    EXPECT_EQ(ToUtf8(Position(window)), ToUtf8("صفحه " + count + " از " + count));
    QTest::keyClick(view, Qt::Key_Minus, Qt::ControlModifier);
    QTest::keyClick(view, Qt::Key_Escape);
  });
  Produce(kTemplate);
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
  EXPECT_THAT(*shown, testing::ContainsRegex("t.html:3: query v: .*'Nothing'"));
}

}  // namespace
}  // namespace adapters::qt
