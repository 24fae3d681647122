#include "adapters/qt/ReportPreview.h"

#include <QApplication>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSaveFile>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "adapters/qt/Convert.h"
#include "adapters/qt/Theme.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {

namespace {

constexpr qreal kPointsPerInch = 72;
constexpr qreal kLeastZoom = 0.2;
constexpr qreal kMostZoom = 5;
constexpr qreal kZoomStep = 1.2;
constexpr int kGapPixels = 14;
constexpr std::int32_t kPathFileAccessError = 75;

}  // namespace

PagesView::PagesView(const ReportPages& pages) : pages_(pages) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  // Pages scroll alike in both directions of writing.
  setLayoutDirection(Qt::LeftToRight);
}

QSizeF PagesView::PagePixels() const {
  return pages_.PageSize() * (zoom_ * logicalDpiX() / kPointsPerInch);
}

QRectF PagesView::PagePlace(int page) const {
  const QSizeF size = PagePixels();
  const qreal spare = viewport()->width() - size.width();
  const qreal left =
      spare > 2 * kGapPixels ? spare / 2 : kGapPixels - horizontalScrollBar()->value();
  const qreal top = kGapPixels + page * (size.height() + kGapPixels) - verticalScrollBar()->value();
  return {QPointF(qRound(left), qRound(top)), size};
}

int PagesView::CurrentPage() const {
  const qreal middle = verticalScrollBar()->value() + viewport()->height() / 2.0;
  const int page = static_cast<int>((middle - kGapPixels) / (PagePixels().height() + kGapPixels));
  return qBound(0, page, pages_.Count() - 1);
}

void PagesView::ShowPage(int page) {
  const int shown = qBound(0, page, pages_.Count() - 1);
  verticalScrollBar()->setValue(qRound(shown * (PagePixels().height() + kGapPixels)));
}

void PagesView::SetZoom(qreal zoom) {
  fit_ = Fit::kNone;
  ApplyZoom(zoom);
}

void PagesView::SetFit(Fit fit) {
  fit_ = fit;
  FitZoom();
}

void PagesView::FitZoom() {
  if (fit_ == Fit::kNone) return SetScrollBars();
  const QSizeF page = pages_.PageSize() * (logicalDpiX() / kPointsPerInch);
  const qreal wide = (viewport()->width() - 2 * kGapPixels) / page.width();
  const qreal high = (viewport()->height() - 2 * kGapPixels) / page.height();
  const int current = CurrentPage();
  ApplyZoom(fit_ == Fit::kWidth ? wide : qMin(wide, high));
  if (fit_ == Fit::kPage) ShowPage(current);
}

void PagesView::ApplyZoom(qreal zoom) {
  const qreal before = PagePixels().height();
  const qreal place = verticalScrollBar()->value() / before;
  zoom_ = qBound(kLeastZoom, zoom, kMostZoom);
  SetScrollBars();
  verticalScrollBar()->setValue(qRound(place * PagePixels().height()));
  viewport()->update();
  if (onMoved) onMoved();
}

void PagesView::SetScrollBars() {
  const QSizeF size = PagePixels();
  const int height = qRound(kGapPixels + pages_.Count() * (size.height() + kGapPixels));
  const int width = qRound(size.width() + 2 * kGapPixels);
  verticalScrollBar()->setRange(0, qMax(0, height - viewport()->height()));
  verticalScrollBar()->setPageStep(viewport()->height());
  verticalScrollBar()->setSingleStep(qMax(1, viewport()->height() / 12));
  horizontalScrollBar()->setRange(0, qMax(0, width - viewport()->width()));
  horizontalScrollBar()->setPageStep(viewport()->width());
}

void PagesView::scrollContentsBy(int, int) {
  viewport()->update();
  if (onMoved) onMoved();
}

void PagesView::resizeEvent(QResizeEvent*) {
  FitZoom();
}

void PagesView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter.fillRect(event->rect(), Painted(screens::palette::kFaintLine));
  const qreal scale = zoom_ * logicalDpiX() / kPointsPerInch;
  for (int page = 0; page < pages_.Count(); ++page) {
    const QRectF place = PagePlace(page);
    if (place.bottom() < event->rect().top()) continue;
    if (place.top() > event->rect().bottom()) break;
    painter.setPen(Painted(screens::palette::kLine));
    painter.setBrush(Qt::white);
    painter.drawRect(place);
    painter.save();
    painter.translate(place.topLeft());
    painter.scale(scale, scale);
    pages_.Paint(painter, page);
    painter.restore();
  }
}

void PagesView::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) {
    return QAbstractScrollArea::wheelEvent(event);
  }
  SetZoom(event->angleDelta().y() > 0 ? zoom_ * kZoomStep : zoom_ / kZoomStep);
}

void PagesView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_PageDown:
    case Qt::Key_Space:
      return verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
    case Qt::Key_PageUp:
      return verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
    case Qt::Key_Home:
      return ShowPage(0);
    case Qt::Key_End:
      return ShowPage(pages_.Count() - 1);
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

ReportPreview::ReportPreview(const ReportPages& pages, ErrorGuard& guard)
    : QDialog(QApplication::activeWindow()),
      pages_(pages),
      guard_(guard),
      view_(new PagesView(pages)) {
  setWindowTitle(QStringLiteral("پيش‌نمايش چاپ - %1").arg(pages.Title()));
  setWindowModality(Qt::ApplicationModal);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  AddBar();
  all->addWidget(view_, 1);
  view_->onMoved = [this] { ShowPosition(); };
  const QSize room = screen()->availableGeometry().size();
  resize(qMin(960, room.width() * 9 / 10), qMin(1000, room.height() * 9 / 10));
  view_->setFocus();
  ShowPosition();
}

void ReportPreview::AddBar() {
  auto* buttons = new QWidget;
  buttons->setStyleSheet(QStringLiteral("QPushButton { padding: 4px 9px; min-width: 16px; }"));
  auto* bar = new QHBoxLayout(buttons);
  bar->setContentsMargins(10, 8, 10, 8);
  bar->setSpacing(6);
  const auto add = [&](const QString& caption, const QString& hint, const QKeySequence& key,
                       std::function<void()> action) {
    auto* button = new QPushButton(caption);
    button->setAutoDefault(false);
    button->setMinimumHeight(28);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(key.isEmpty() ? hint
                                     : QStringLiteral("%1 (%2)").arg(
                                           hint, key.toString(QKeySequence::NativeText)));
    const auto run = [this, action = std::move(action)] { guard_.Run(action); };
    connect(button, &QPushButton::clicked, this, run);
    if (!key.isEmpty()) connect(new QShortcut(key, this), &QShortcut::activated, this, run);
    bar->addWidget(button);
  };
  const auto addLabel = [&](int width) {
    auto* label = new QLabel;
    label->setAlignment(Qt::AlignCenter);
    label->setMinimumWidth(width);
    bar->addWidget(label);
    return label;
  };
  add(QStringLiteral("چاپ..."), QStringLiteral("چاپ گزارش"), QKeySequence::Print,
      [this] { PrintPages(pages_); });
  add(QStringLiteral("ذخيره PDF..."), QStringLiteral("ذخيره گزارش در فايل PDF"), QKeySequence::Save,
      [this] { SavePdf(); });
  bar->addStretch(1);
  add(QStringLiteral("قبلي"), QStringLiteral("صفحه قبلي"), {},
      [this] { view_->ShowPage(view_->CurrentPage() - 1); });
  position_ = addLabel(100);
  add(QStringLiteral("بعدي"), QStringLiteral("صفحه بعدي"), {},
      [this] { view_->ShowPage(view_->CurrentPage() + 1); });
  bar->addStretch(1);
  add(QStringLiteral("−"), QStringLiteral("كوچك‌تر"), QKeySequence::ZoomOut,
      [this] { view_->SetZoom(view_->Zoom() / kZoomStep); });
  size_ = addLabel(44);
  add(QStringLiteral("+"), QStringLiteral("بزرگ‌تر"), QKeySequence::ZoomIn,
      [this] { view_->SetZoom(view_->Zoom() * kZoomStep); });
  add(QStringLiteral("عرض صفحه"), QStringLiteral("به اندازه عرض پنجره"), {},
      [this] { view_->SetFit(PagesView::Fit::kWidth); });
  add(QStringLiteral("تمام صفحه"), QStringLiteral("همه صفحه در پنجره"), {},
      [this] { view_->SetFit(PagesView::Fit::kPage); });
  bar->addStretch(1);
  add(QStringLiteral("بستن"), QStringLiteral("بستن پيش‌نمايش"), {},
      [this] { accept(); });
  layout()->addWidget(buttons);
}

void ReportPreview::ShowPosition() {
  position_->setText(
      QStringLiteral("صفحه %1 از %2").arg(view_->CurrentPage() + 1).arg(pages_.Count()));
  size_->setText(QStringLiteral("%1٪").arg(qRound(view_->Zoom() * 100)));
}

void ReportPreview::Run() {
  // The hourglass of the work that asked would hide that the window waits for the user.
  QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
  exec();
  QGuiApplication::restoreOverrideCursor();
}

void ReportPreview::SavePdf() {
  QString name = pages_.Title() + QStringLiteral(".pdf");
  name.replace(QLatin1Char('/'), QLatin1Char('-'));
  QString path = QFileDialog::getSaveFileName(this, QStringLiteral("ذخيره گزارش"), name,
                                              QStringLiteral("PDF (*.pdf)"));
  if (path.isEmpty()) return;
  if (!path.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive)) path += QStringLiteral(".pdf");
  QSaveFile file(path);
  const bool opened = file.open(QIODevice::WriteOnly);
  if (opened) pages_.WritePdf(file);
  if (!opened || !file.commit()) {
    throw platform::RuntimeError(
        kPathFileAccessError,
        ToUtf8(QStringLiteral("فايل گزارش نوشته نشد.\n%1: %2").arg(path, file.errorString())),
        "report");
  }
}

void PrintPages(const ReportPages& pages) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(pages.Title());
  printer.setPageLayout(pages.Layout());
  QPrintDialog dialog(&printer, QApplication::activeWindow());
  dialog.setWindowTitle(QStringLiteral("چاپ گزارش"));
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  dialog.setMinMax(1, pages.Count());
  QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
  const int answer = dialog.exec();
  QGuiApplication::restoreOverrideCursor();
  if (answer == QDialog::Accepted) pages.Print(printer);
}

}  // namespace adapters::qt
