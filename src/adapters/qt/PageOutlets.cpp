#include "adapters/qt/PageOutlets.h"

#include <QApplication>
#include <QFileDialog>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QSaveFile>

#include "adapters/qt/Convert.h"
#include "adapters/qt/QtSurface.h"
#include "platform/RuntimeError.h"
#include "screens/PaintSheet.h"
#include "screens/PutPages.h"

namespace adapters::qt {

namespace {

constexpr int kPdfDpi = 1200;
constexpr qreal kPointsPerInch = 72;
constexpr std::int32_t kPrinterError = 482;

/// Qt's writers do not look whether a device takes what they write: this one remembers.
class CheckedDevice : public QIODevice {
 public:
  explicit CheckedDevice(QIODevice& device) : device_(device) { open(WriteOnly); }
  bool Failed() const { return failed_; }

 protected:
  qint64 readData(char* /*data*/, qint64 /*most*/) override { return -1; }
  qint64 writeData(const char* data, qint64 size) override {
    if (!failed_) failed_ = device_.write(data, size) != size;
    return size;
  }

 private:
  QIODevice& device_;
  bool failed_ = false;
};

/// A4, upright or lying, without margins: those are within the page.
QPageLayout LayoutOf(const report::Pages& pages) {
  const bool lying = pages.Width() > pages.Height();
  return {QPageSize(QPageSize::A4), lying ? QPageLayout::Landscape : QPageLayout::Portrait,
          QMarginsF(), QPageLayout::Point};
}

/// Paints sheets, each on a page of its own.
class SheetPainter {
 public:
  SheetPainter(QPagedPaintDevice& device, const PageLetters& letters, qreal scale)
      : device_(device), fine_(painter_.begin(&device)), scale_(scale), letters_(letters) {}

  bool Fine() const { return fine_; }
  void Put(const controls::Sheet& sheet) {
    if (fine_ && used_) fine_ = device_.newPage();
    used_ = true;
    if (!fine_) return;
    QtSurface surface(painter_, QApplication::font(), screens::palette::Scheme::kLight, letters_);
    const screens::Rect all =
        screens::OnDevice({0, 0, sheet.width, sheet.height}, screens::Point{}, scale_);
    screens::PaintSheet(sheet, surface, screens::Point{}, scale_, all);
  }
  bool End() { return painter_.end() && fine_; }

 private:
  QPagedPaintDevice& device_;
  QPainter painter_;
  bool fine_;
  bool used_ = false;
  qreal scale_;
  const PageLetters& letters_;
};

[[noreturn]] void ThrowNotWritten(std::int32_t number, const QString& why) {
  throw platform::RuntimeError(number, ToUtf8(QStringLiteral("فايل گزارش نوشته نشد.\n") + why),
                               "report");
}

}  // namespace

bool WritePdf(report::Pages& pages, platform::Progress& progress, const PageLetters& letters,
              QIODevice& device) {
  CheckedDevice checked(device);
  QPdfWriter writer(&checked);
  writer.setPageLayout(LayoutOf(pages));
  writer.setResolution(kPdfDpi);
  writer.setTitle(ToQString(pages.Title()));
  SheetPainter painter(writer, letters, kPdfDpi / kPointsPerInch);
  const auto check = [&](bool fine) {
    if (fine && !checked.Failed()) return;
    ThrowNotWritten(platform::kDeviceError,
                    QStringLiteral("The device did not take all of it: ") + device.errorString());
  };
  check(painter.Fine());
  const bool all = screens::PutPages(pages, progress, "ذخيره PDF", 0, pages.Count(),
                                     [&](const controls::Sheet& sheet) {
                                       painter.Put(sheet);
                                       check(painter.Fine());
                                     });
  const bool ended = painter.End();
  if (all) check(ended);
  return all;
}

bool WritePdfFile(report::Pages& pages, platform::Progress& progress, const PageLetters& letters,
                  const std::string& path) {
  QSaveFile file(ToQString(path));
  const bool opened = file.open(QIODevice::WriteOnly);
  if (opened && !WritePdf(pages, progress, letters, file)) return false;
  // By itself, commit would put a file in its place whose last bytes the disk did not take.
  if (opened && file.flush() && file.commit()) return true;
  ThrowNotWritten(platform::kPathFileAccess,
                  file.fileName() + QStringLiteral(": ") + file.errorString());
}

void SavePdf(report::Pages& pages, platform::Progress& progress, const PageLetters& letters) {
  QString name = ToQString(pages.Title()) + QStringLiteral(".pdf");
  name.replace(QLatin1Char('/'), QLatin1Char('-'));
  QString path =
      QFileDialog::getSaveFileName(QApplication::activeWindow(), QStringLiteral("ذخيره گزارش"),
                                   name, QStringLiteral("PDF (*.pdf)"));
  if (path.isEmpty()) return;
  if (!path.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive)) path += QStringLiteral(".pdf");
  WritePdfFile(pages, progress, letters, ToUtf8(path));
}

void Print(report::Pages& pages, platform::Progress& progress, const PageLetters& letters,
           QPrinter& printer) {
  printer.setFullPage(true);
  const QRectF paper = printer.pageLayout().fullRectPixels(printer.resolution());
  // Another paper than A4 gets the pages made smaller or larger.
  SheetPainter painter(printer, letters,
                       qMin(paper.width() / pages.Width(), paper.height() / pages.Height()));
  const auto check = [](bool fine) {
    if (!fine) {
      throw platform::RuntimeError(kPrinterError, "چاپگر پاسخ نمي دهد.\nPrinter error", "report");
    }
  };
  check(painter.Fine());
  const int first = qMax(0, printer.fromPage() - 1);
  const int end = printer.toPage() > 0 ? qMin(printer.toPage(), pages.Count()) : pages.Count();
  const bool all = screens::PutPages(pages, progress, "چاپ گزارش", first, end,
                                     [&](const controls::Sheet& sheet) {
                                       painter.Put(sheet);
                                       check(painter.Fine());
                                     });
  if (!all) printer.abort();
  const bool ended = painter.End();
  if (all) check(ended);
}

void PrintPages(report::Pages& pages, platform::Progress& progress, const PageLetters& letters) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(ToQString(pages.Title()));
  printer.setPageLayout(LayoutOf(pages));
  QPrintDialog dialog(&printer, QApplication::activeWindow());
  dialog.setWindowTitle(QStringLiteral("چاپ گزارش"));
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  dialog.setMinMax(1, pages.Count());
  if (dialog.exec() == QDialog::Accepted) Print(pages, progress, letters, printer);
}

}  // namespace adapters::qt
