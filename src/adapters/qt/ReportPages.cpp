#include "adapters/qt/ReportPages.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QTextOption>

#include "adapters/qt/Convert.h"
#include "adapters/qt/RtlTables.h"
#include "adapters/qt/Theme.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {

namespace {

constexpr int kLayoutDpi = 96;
constexpr int kPdfDpi = 1200;
constexpr qreal kPointsPerInch = 72;
constexpr qreal kScale = kLayoutDpi / kPointsPerInch;  // points to the layout's units
constexpr std::int32_t kDeviceIo = 57;
constexpr std::int32_t kPrinterError = 482;

// All in points.
constexpr qreal kMargin = 34;
constexpr qreal kHeaderHeight = 26;
constexpr qreal kFooterHeight = 20;
constexpr qreal kGap = 8;
constexpr qreal kTextSize = 8.5;
constexpr qreal kTitleSize = 11;

QFont PrintFont(qreal points, bool bold = false) {
  QFont font(QGuiApplication::font().family());
  font.setPointSizeF(points);
  font.setBold(bold);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

}  // namespace

/// What the text is measured on.
class ReportPages::Paper : public QImage {
 public:
  Paper() : QImage(1, 1, QImage::Format_Grayscale8) {
    constexpr qreal kInchesPerMetre = 1000 / 25.4;
    setDotsPerMeterX(qRound(kLayoutDpi * kInchesPerMetre));
    setDotsPerMeterY(qRound(kLayoutDpi * kInchesPerMetre));
  }
};

ReportPages::ReportPages(const report::FilledReport& filled)
    : title_(ToQString(filled.title)),
      header_(ToQString(filled.header)),
      printDate_(ToQString(filled.printDate)),
      orientation_(filled.orientation == report::Orientation::kLandscape ? QPageLayout::Landscape
                                                                         : QPageLayout::Portrait),
      digits_(filled.digits),
      paper_(std::make_unique<Paper>()),
      document_(std::make_unique<QTextDocument>()) {
  document_->setUndoRedoEnabled(false);
  document_->documentLayout()->setPaintDevice(paper_.get());
  document_->setDocumentMargin(0);
  document_->setDefaultFont(PrintFont(kTextSize));
  QTextOption option;
  option.setTextDirection(Qt::RightToLeft);
  option.setUseDesignMetrics(true);
  document_->setDefaultTextOption(option);
  document_->setPageSize(ContentArea().size() * kScale);
  document_->setHtml(WithMirroredTables(ToQString(filled.html)));
}

ReportPages::~ReportPages() = default;

int ReportPages::Count() const {
  return document_->pageCount();
}

QPageLayout ReportPages::Layout() const {
  return {QPageSize(QPageSize::A4), orientation_, QMarginsF(), QPageLayout::Point};
}

QSizeF ReportPages::PageSize() const {
  return Layout().fullRect(QPageLayout::Point).size();
}

QRectF ReportPages::ContentArea() const {
  return QRectF(QPointF(), PageSize())
      .adjusted(kMargin, kMargin + kHeaderHeight + kGap, -kMargin,
                -(kMargin + kFooterHeight + kGap));
}

QString ReportPages::Shown(int number) const {
  return ToQString(report::WithDigits(std::to_string(number), digits_));
}

void ReportPages::Paint(QPainter& painter, int page) const {
  painter.save();
  PaintFrame(painter, page);
  const QRectF area = ContentArea();
  // Qt begins a table at the top of a page a little above that page: it must not show here.
  painter.setClipRect(area.adjusted(-1, 0, 1, -2), Qt::IntersectClip);
  painter.translate(area.topLeft());
  painter.scale(1 / kScale, 1 / kScale);
  const qreal height = area.height() * kScale;
  painter.translate(0, -page * height);
  QAbstractTextDocumentLayout::PaintContext context;
  context.palette.setColor(QPalette::Text, Qt::black);
  context.clip = QRectF(0, page * height, area.width() * kScale, height);
  document_->documentLayout()->draw(&painter, context);
  painter.restore();
}

void ReportPages::PaintFrame(QPainter& painter, int page) const {
  const QRectF inside =
      QRectF(QPointF(), PageSize()).adjusted(kMargin, kMargin, -kMargin, -kMargin);
  const QRectF top(inside.topLeft(), QSizeF(inside.width(), kHeaderHeight));
  const QRectF bottom(inside.left(), inside.bottom() - kFooterHeight, inside.width(),
                      kFooterHeight);
  painter.setLayoutDirection(Qt::RightToLeft);
  painter.setPen(QPen(theme::kAccent, 1.2));
  painter.drawLine(top.bottomLeft(), top.bottomRight());
  painter.setPen(QPen(theme::kLine, 0.6));
  painter.drawLine(bottom.topLeft(), bottom.topRight());

  // A font in points follows the device's resolution, the painter's scale does the rest: sizes in
  // pixels of the painter's points are the same on every device.
  const auto write = [&](const QRectF& place, Qt::Alignment side, const QFont& font,
                         const QColor& colour, const QString& text) {
    QFont scaled = font;
    scaled.setPixelSize(qRound(font.pointSizeF() * kScale));
    painter.save();
    painter.translate(place.topLeft());
    painter.scale(1 / kScale, 1 / kScale);
    painter.setFont(scaled);
    painter.setPen(colour);
    painter.drawText(
        QRectF(QPointF(), place.size() * kScale),
        static_cast<int>(side | Qt::AlignVCenter | Qt::AlignAbsolute) | Qt::TextSingleLine, text);
    painter.restore();
  };
  const QFont small = PrintFont(kTextSize);
  write(top, Qt::AlignRight, PrintFont(kTitleSize, true), theme::kText, title_);
  write(top, Qt::AlignLeft, small, theme::kMutedText, header_);
  write(bottom, Qt::AlignRight, small, theme::kMutedText,
        QStringLiteral("تاريخ چاپ: %1").arg(printDate_));
  write(bottom, Qt::AlignLeft, small, theme::kMutedText,
        QStringLiteral("صفحه %1 از %2").arg(Shown(page + 1), Shown(Count())));
}

void ReportPages::WritePdf(QIODevice& device) const {
  // Qt's writer does not look whether the device takes what it writes.
  QBuffer pdf;
  pdf.open(QIODevice::WriteOnly);
  QPdfWriter writer(&pdf);
  writer.setPageLayout(Layout());
  writer.setResolution(kPdfDpi);
  writer.setTitle(title_);
  QPainter painter;
  bool fine = painter.begin(&writer);
  painter.scale(kPdfDpi / kPointsPerInch, kPdfDpi / kPointsPerInch);
  for (int page = 0; fine && page < Count(); ++page) {
    if (page > 0) fine = writer.newPage();
    if (fine) Paint(painter, page);
  }
  fine = fine && painter.end() && device.write(pdf.data()) == pdf.size();
  if (!fine) {
    throw platform::RuntimeError(
        kDeviceIo, ToUtf8(QStringLiteral("فايل گزارش نوشته نشد.\n") + device.errorString()),
        "report");
  }
}

void ReportPages::Print(QPrinter& printer) const {
  printer.setFullPage(true);
  QPainter painter;
  bool fine = painter.begin(&printer);
  const QRectF paper = printer.pageLayout().fullRectPixels(printer.resolution());
  const QSizeF size = PageSize();
  // Another paper than A4 gets the pages made smaller or larger.
  const qreal scale = qMin(paper.width() / size.width(), paper.height() / size.height());
  painter.scale(scale, scale);
  const int first = printer.fromPage() > 0 ? printer.fromPage() - 1 : 0;
  const int end = printer.toPage() > 0 ? qMin(printer.toPage(), Count()) : Count();
  for (int page = first; fine && page < end; ++page) {
    if (page > first) fine = printer.newPage();
    if (fine) Paint(painter, page);
  }
  fine = fine && painter.end();
  if (!fine) {
    throw platform::RuntimeError(kPrinterError, "چاپگر پاسخ نمي دهد.\nPrinter error", "report");
  }
}

}  // namespace adapters::qt
