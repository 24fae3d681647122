#include "adapters/qt/PaneView.h"

#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <utility>

#include "adapters/qt/PaneAccessible.h"
#include "adapters/qt/PaneEvents.h"
#include "adapters/qt/PaneField.h"
#include "adapters/qt/PanePopup.h"
#include "adapters/qt/QtSurface.h"
#include "adapters/qt/Theme.h"

namespace adapters::qt {

using screens::PointerEvent;

PaneView::PaneView(const Surroundings& surroundings, QWidget* parent)
    : QAbstractScrollArea(parent), surroundings_(surroundings) {
  setFrameStyle(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  viewport()->setMouseTracking(true);
  viewport()->setAutoFillBackground(false);
}

PaneView::~PaneView() {
  // Its popups and timers are this one's.
  pane_.reset();
  // While this is still what the field tells that it loses the keyboard.
  delete field_;
}

void PaneView::SetFramed() {
  if (frameStyle() != QFrame::NoFrame) return;
  setFrameStyle(QFrame::Box | QFrame::Plain);
}

void PaneView::PaintFrame() {
  QPainter painter(this);
  painter.fillRect(rect(), Painted(screens::palette::kFrame));  // the corner between the bars
  const controls::Colour ofChild = hasFocus() ? screens::palette::kAccent : screens::palette::kLine;
  painter.setPen(Painted(isWindow() ? screens::palette::kBorder : ofChild));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

// What the pane asks.

screens::Scale PaneView::GetScale() const {
  return FormScale(logicalDpiX() * devicePixelRatioF());
}

QFont PaneView::PaneFont() const {
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * devicePixelRatioF());
  return large;
}

int PaneView::LineHeight() const {
  return QFontMetrics(PaneFont()).height();
}

int PaneView::TextWidth(std::string_view text, screens::Weight weight) const {
  const QFont font = weight == screens::Weight::kBold ? Bold(PaneFont()) : PaneFont();
  // Whole pixels that it fits into.
  return static_cast<int>(std::ceil(QFontMetricsF(font).horizontalAdvance(ToQString(text))));
}

void PaneView::Repaint(const screens::Rect& area) {
  viewport()->update(OnViewport(area));
}

void PaneView::ScrollPart(const screens::Rect& area, int down) {
  // Qt moves by its own pixels alone.
  if (devicePixelRatioF() == 1.0) {
    viewport()->scroll(0, down, ToQRect(area));
  } else {
    Repaint(area);
  }
}

void PaneView::SetScrollBar(screens::Axis axis, const screens::ScrollRange& range) {
  SetFramed();
  QScrollBar& bar = axis == screens::Axis::kDown ? *verticalScrollBar() : *horizontalScrollBar();
  const bool outer = std::exchange(settingBars_, true);
  // A window that reads from the right turns the bar across about, so it too begins at the right.
  bar.setSingleStep(range.step);
  bar.setPageStep(std::max(1, range.page));
  bar.setRange(0, std::max(0, range.count - range.page));
  bar.setValue(range.place);
  settingBars_ = outer;
}

void PaneView::SetTimer(int milliseconds) {
  if (milliseconds == 0) {
    timer_.stop();
  } else if (!timer_.isActive()) {
    timer_.start(milliseconds, this);
  }
}

void PaneView::CopyToClipboard(const std::string& text) {
  QApplication::clipboard()->setText(ToQString(text));
}

screens::TextField& PaneView::Field() {
  if (field_ == nullptr) {
    field_ = new PaneField(*this);
    setFocusProxy(field_);
  }
  return *field_;
}

void PaneView::Announce(screens::Tidings what, int part) {
  TellScreenReader(*this, what, part);
}

std::unique_ptr<screens::Popup> PaneView::MakePopup(screens::PopupKind kind,
                                                    const screens::PaneMaker& make) {
  return std::make_unique<PanePopup>(*this, surroundings_, kind, make);
}

screens::Size PaneView::PopupRoom(screens::PopupKind kind) const {
  return InDevicePixels(kind == screens::PopupKind::kNote ? window()->size()
                                                          : screen()->availableGeometry().size());
}

// What the pane is told.

screens::Point PaneView::ToPane(const QPointF& place) const {
  const qreal ratio = devicePixelRatioF();
  return {static_cast<int>(std::floor(place.x() * ratio)),
          static_cast<int>(std::floor(place.y() * ratio))};
}

screens::Size PaneView::InDevicePixels(const QSize& size) const {
  const qreal ratio = devicePixelRatioF();
  return {qRound(size.width() * ratio), qRound(size.height() * ratio)};
}

QRect PaneView::OnViewport(const screens::Rect& place) const {
  const qreal ratio = devicePixelRatioF();
  return QRectF(place.left / ratio, place.top / ratio, place.Width() / ratio,
                place.Height() / ratio)
      .toAlignedRect();
}

bool PaneView::HasField() const {
  return field_ != nullptr && field_->InUse();
}

QWidget& PaneView::KeyReceiver() {
  return HasField() ? static_cast<QWidget&>(*field_) : *this;
}

void PaneView::PassSize() {
  const screens::Size size = InDevicePixels(viewport()->size());
  Call([&](screens::Pane& pane) { pane.Resized(size); });
}

void PaneView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const qreal ratio = devicePixelRatioF();
  if (ratio != 1.0) painter.scale(1 / ratio, 1 / ratio);
  QtSurface surface(painter, PaneFont(), CurrentScheme(), surroundings_.letters);
  const screens::Point from = ToPane(event->rect().topLeft());
  const QRect& dirty = event->rect();
  const screens::Point to{static_cast<int>(std::ceil((dirty.right() + 1) * ratio)),
                          static_cast<int>(std::ceil((dirty.bottom() + 1) * ratio))};
  Call([&](screens::Pane& pane) { pane.Paint(surface, {from.x, from.y, to.x, to.y}); });
}

void PaneView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  PassSize();
}

void PaneView::showEvent(QShowEvent* event) {
  QAbstractScrollArea::showEvent(event);
  NameField(*this);
  PassSize();  // on a screen of another scale perhaps
}

void PaneView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange) PassSize();
  // Also when it is the frame around that was enabled or disabled.
  if (event->type() == QEvent::EnabledChange) {
    Call([](screens::Pane& pane) { pane.Changed({controls::Aspect::kEnabled}); });
  }
  if (event->type() == QEvent::ActivationChange && !isActiveWindow()) {
    Call([](screens::Pane& pane) { pane.PointerLost(); });
  }
}

void PaneView::PassPointer(const QMouseEvent& event) {
  if (event.type() == QEvent::MouseMove && event.buttons() == Qt::NoButton) {
    const screens::Cursor cursor = pane_->CursorAt(ToPane(event.position()));
    const bool border = cursor == screens::Cursor::kColumnBorder;
    viewport()->setCursor(border ? Qt::SplitHCursor : Qt::ArrowCursor);
  }
  const PointerEvent passed = ToPointerEvent(event, ToPane(event.position()));
  Call([&](screens::Pane& pane) { pane.Pointer(passed); });
  // A list that the press opened has the mouse from here on.
  const QWidget* const popup = QApplication::activePopupWidget();
  if (passed.action == PointerEvent::Action::kPress && popup != nullptr && popup != window()) {
    Call([](screens::Pane& pane) { pane.PointerLost(); });
  }
}

void PaneView::wheelEvent(QWheelEvent* event) {
  Call([&](screens::Pane& pane) { pane.Wheel(ToWheelEvent(*event)); });
  event->accept();
}

bool PaneView::PressKey(const QKeyEvent& event) {
  bool used = false;
  if (const auto key = ToKeyEvent(event)) {
    Call([&](screens::Pane& pane) { used = pane.PressKey(*key); });
  }
  return used;
}

bool PaneView::event(QEvent* event) {
  if (event->type() == ActEvent::kType) {
    const int part = static_cast<ActEvent*>(event)->Part();
    Call([part](screens::Pane& pane) { pane.Act(part); });
    return true;
  }
  if (event->type() == QEvent::Paint) {  // of the window around the viewport
    if (frameStyle() != QFrame::NoFrame) PaintFrame();
    return true;
  }
  // Qt would move on at once.
  if (event->type() == QEvent::KeyPress && !HasField() && hasFocus()) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool tab = key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab;
    if (tab && PressKey(*key)) return true;
  }
  return QAbstractScrollArea::event(event);
}

void PaneView::keyPressEvent(QKeyEvent* event) {
  // Also what a field or a control in it had no use for comes by here, on its way to the form.
  event->setAccepted(!HasField() && hasFocus() && PressKey(*event));
}

void PaneView::PassFocus(const QFocusEvent& event) {
  if (event.reason() == Qt::PopupFocusReason) return;
  if (frameStyle() != QFrame::NoFrame) update();
  Call([&](screens::Pane& pane) { pane.FocusChanged(event.gotFocus()); });
}

void PaneView::timerEvent(QTimerEvent* event) {
  if (event->timerId() != timer_.timerId()) return QAbstractScrollArea::timerEvent(event);
  Call([](screens::Pane& pane) { pane.Tick(); });
}

bool PaneView::viewportEvent(QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
      PassPointer(*static_cast<QMouseEvent*>(event));
      return true;
    case QEvent::ToolTip:
      ShowTip(*static_cast<QHelpEvent*>(event));
      return true;
    case QEvent::Leave:
      Call([](screens::Pane& pane) { pane.Pointer({PointerEvent::Action::kLeave, {}}); });
      break;
    default:
      break;
  }
  return QAbstractScrollArea::viewportEvent(event);
}

void PaneView::ShowTip(const QHelpEvent& event) {
  const screens::Tip tip = pane_->TipAt(ToPane(event.pos()));
  QToolTip::showText(event.globalPos(), ToQString(tip.text), viewport(), OnViewport(tip.place));
}

void PaneView::scrollContentsBy(int /*dx*/, int dy) {
  if (settingBars_) return;
  const bool down = dy != 0;
  const int place = down ? verticalScrollBar()->value() : horizontalScrollBar()->value();
  Call([&](screens::Pane& pane) {
    pane.Scrolled(down ? screens::Axis::kDown : screens::Axis::kAcross, place);
  });
}

}  // namespace adapters::qt
