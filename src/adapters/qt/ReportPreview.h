#pragma once

#include <QAbstractScrollArea>
#include <QDialog>
#include <functional>

#include "adapters/qt/ErrorGuard.h"
#include "adapters/qt/ReportPages.h"

class QLabel;

namespace adapters::qt {

/// The pages below each other, each painted afresh for what can be seen of it, so that a long
/// report is on the screen at once and is sharp at every size.
class PagesView : public QAbstractScrollArea {
 public:
  explicit PagesView(const ReportPages& pages);

  enum class Fit { kNone, kWidth, kPage };
  /// 1 is a page's true size.
  qreal Zoom() const { return zoom_; }
  void SetZoom(qreal zoom);
  /// Keeps the page as wide, or as large, as the window, whatever size that gets.
  void SetFit(Fit fit);
  /// The page in the middle of the view, from 0.
  int CurrentPage() const;
  void ShowPage(int page);

  /// Raised when another page or size is shown.
  std::function<void()> onMoved;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  QSizeF PagePixels() const;
  QRectF PagePlace(int page) const;
  void ApplyZoom(qreal zoom);
  void FitZoom();
  void SetScrollBars();

  const ReportPages& pages_;
  qreal zoom_ = 1;
  Fit fit_ = Fit::kWidth;
};

/// The preview's window: the pages with what a reader does with them. Modal to the program.
class ReportPreview : public QDialog {
 public:
  ReportPreview(const ReportPages& pages, ErrorGuard& guard);

  /// Shows it and waits until it is closed.
  void Run();
  PagesView& View() { return *view_; }
  /// Asks for a name and writes the pages there; a failure leaves an older file as it was.
  /// Throws RuntimeError.
  void SavePdf();

 private:
  void AddBar();
  void ShowPosition();

  const ReportPages& pages_;
  ErrorGuard& guard_;
  PagesView* view_;
  QLabel* position_ = nullptr;
  QLabel* size_ = nullptr;
};

/// Lets the user choose a printer and prints. Throws RuntimeError 482 when it refuses.
void PrintPages(const ReportPages& pages);

}  // namespace adapters::qt
