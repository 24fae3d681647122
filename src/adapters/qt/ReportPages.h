#pragma once

#include <QPageLayout>
#include <QString>
#include <QTextDocument>
#include <memory>

#include "report/Fill.h"

class QIODevice;
class QPainter;
class QPrinter;

namespace adapters::qt {

/// A filled report on A4 pages: on every page its title and header above, the day of printing and
/// «صفحه x از y» below, and the head of a table again where the table goes on. The pages are laid
/// out once, finely enough for a printer, and painted as text on any device.
class ReportPages {
 public:
  /// Throws RuntimeError 321 when tables do not close.
  explicit ReportPages(const report::FilledReport& filled);
  ReportPages(const ReportPages&) = delete;
  ReportPages& operator=(const ReportPages&) = delete;
  ~ReportPages();

  int Count() const;
  const QString& Title() const { return title_; }
  /// A4, upright or lying, without margins: those are within the painted page.
  QPageLayout Layout() const;
  /// Width and height of a page, in points.
  QSizeF PageSize() const;
  /// Page `page` (from 0) onto the rectangle from (0,0) to PageSize().
  void Paint(QPainter& painter, int page) const;

  /// All pages as a PDF file. Throws RuntimeError 57 when the device refuses.
  void WritePdf(QIODevice& device) const;
  /// The pages and copies that the printer was set to. Throws RuntimeError 482 when it refuses.
  void Print(QPrinter& printer) const;

 private:
  class Paper;
  QRectF ContentArea() const;
  void PaintFrame(QPainter& painter, int page) const;
  QString Shown(int number) const;

  QString title_;
  QString header_;
  QString printDate_;
  QPageLayout::Orientation orientation_;
  report::Digits digits_;
  std::unique_ptr<Paper> paper_;
  std::unique_ptr<QTextDocument> document_;
};

}  // namespace adapters::qt
