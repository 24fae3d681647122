#include "adapters/qt/PaneWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "adapters/qt/QtSurface.h"
#include "adapters/qt/Theme.h"

namespace adapters::qt {

using screens::Key;
using screens::PointerEvent;

namespace {

screens::Modifiers ModifiersOf(Qt::KeyboardModifiers held) {
  return {.shift = held.testFlag(Qt::ShiftModifier),
          .control = held.testFlag(Qt::ControlModifier),
          .alt = held.testFlag(Qt::AltModifier)};
}

screens::MouseButton ButtonOf(Qt::MouseButton button) {
  if (button == Qt::RightButton) return screens::MouseButton::kRight;
  return button == Qt::MiddleButton ? screens::MouseButton::kMiddle : screens::MouseButton::kLeft;
}

/// kText for a key that has no name.
Key KeyOf(int key) {
  static constexpr std::pair<Qt::Key, Key> kKeys[] = {{Qt::Key_Return, Key::kEnter},
                                                      {Qt::Key_Enter, Key::kEnter},
                                                      {Qt::Key_Escape, Key::kEscape},
                                                      {Qt::Key_Up, Key::kUp},
                                                      {Qt::Key_Backspace, Key::kBackspace},
                                                      {Qt::Key_Down, Key::kDown},
                                                      {Qt::Key_Left, Key::kLeft},
                                                      {Qt::Key_Right, Key::kRight},
                                                      {Qt::Key_PageUp, Key::kPageUp},
                                                      {Qt::Key_Home, Key::kHome},
                                                      {Qt::Key_PageDown, Key::kPageDown},
                                                      {Qt::Key_End, Key::kEnd},
                                                      {Qt::Key_F3, Key::kF3},
                                                      {Qt::Key_F6, Key::kF6},
                                                      {Qt::Key_A, Key::kA},
                                                      {Qt::Key_C, Key::kC},
                                                      {Qt::Key_D, Key::kD},
                                                      {Qt::Key_I, Key::kI},
                                                      {Qt::Key_Insert, Key::kInsert}};
  const auto* const found =
      std::ranges::find(kKeys, key, [](const auto& pair) { return int{pair.first}; });
  return found == std::end(kKeys) ? Key::kText : found->second;
}

bool IsLetter(Key key) {
  return key == Key::kA || key == Key::kC || key == Key::kD || key == Key::kI;
}

}  // namespace

PaneWidget::PaneWidget(const Surroundings& surroundings, QWidget* parent)
    : QAbstractScrollArea(parent), surroundings_(surroundings) {
  setFrameStyle(QFrame::Box | QFrame::Plain);
  ShowFocus(false);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setMouseTracking(true);
  viewport()->setAutoFillBackground(false);
}

void PaneWidget::Detach() {
  Unfollow();
  pane_->Detach();
}

void PaneWidget::Refresh(const controls::Change& change) {
  pane_->Changed(change);
}

// What the pane asks.

screens::Scale PaneWidget::GetScale() const {
  return screens::Scale(logicalDpiX() * devicePixelRatioF());
}

QFont PaneWidget::PaneFont() const {
  QFont large = font();
  const qreal ratio = devicePixelRatioF();
  if (large.pointSizeF() > 0) {
    large.setPointSizeF(large.pointSizeF() * ratio);
  } else {
    large.setPixelSize(qRound(large.pixelSize() * ratio));
  }
  return large;
}

int PaneWidget::LineHeight() const {
  return QFontMetrics(PaneFont()).height();
}

int PaneWidget::TextWidth(std::string_view text, screens::Weight weight) const {
  const QFont font = weight == screens::Weight::kBold ? Bold(PaneFont()) : PaneFont();
  // Whole pixels that it fits into.
  return static_cast<int>(std::ceil(QFontMetricsF(font).horizontalAdvance(ToQString(text))));
}

void PaneWidget::Repaint(const screens::Rect& area) {
  viewport()->update(OnViewport(area));
}

void PaneWidget::ScrollPart(const screens::Rect& area, int down) {
  // Qt moves by its own pixels alone.
  if (devicePixelRatioF() == 1.0) {
    viewport()->scroll(0, down, ToQRect(area));
  } else {
    Repaint(area);
  }
}

void PaneWidget::SetScrollBar(screens::Axis axis, const screens::ScrollRange& range) {
  QScrollBar& bar = axis == screens::Axis::kDown ? *verticalScrollBar() : *horizontalScrollBar();
  const bool outer = std::exchange(settingBars_, true);
  // A window that reads from the right turns the bar across about, so it too begins at the right.
  bar.setSingleStep(range.step);
  bar.setPageStep(std::max(1, range.page));
  bar.setRange(0, std::max(0, range.count - range.page));
  bar.setValue(range.place);
  settingBars_ = outer;
}

void PaneWidget::SetTimer(int milliseconds) {
  if (milliseconds == 0) {
    timer_.stop();
  } else if (!timer_.isActive()) {
    timer_.start(milliseconds, this);
  }
}

void PaneWidget::CopyToClipboard(const std::string& text) {
  QApplication::clipboard()->setText(ToQString(text));
}

// What the pane is told.

screens::Point PaneWidget::ToPane(const QPointF& place) const {
  const qreal ratio = devicePixelRatioF();
  return {static_cast<int>(std::floor(place.x() * ratio)),
          static_cast<int>(std::floor(place.y() * ratio))};
}

QRect PaneWidget::OnViewport(const screens::Rect& place) const {
  const qreal ratio = devicePixelRatioF();
  return QRectF(place.left / ratio, place.top / ratio, place.Width() / ratio,
                place.Height() / ratio)
      .toAlignedRect();
}

void PaneWidget::PassSize() {
  const qreal ratio = devicePixelRatioF();
  pane_->Resized({qRound(viewport()->width() * ratio), qRound(viewport()->height() * ratio)});
}

void PaneWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const qreal ratio = devicePixelRatioF();
  if (ratio != 1.0) painter.scale(1 / ratio, 1 / ratio);
  QtSurface surface(painter, PaneFont());
  const screens::Point from = ToPane(event->rect().topLeft());
  const QRect& dirty = event->rect();
  const screens::Point to{static_cast<int>(std::ceil((dirty.right() + 1) * ratio)),
                          static_cast<int>(std::ceil((dirty.bottom() + 1) * ratio))};
  Call([&](screens::Pane& pane) { pane.Paint(surface, {from.x, from.y, to.x, to.y}); });
}

void PaneWidget::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  PassSize();
}

void PaneWidget::showEvent(QShowEvent* event) {
  QAbstractScrollArea::showEvent(event);
  PassSize();  // on a screen of another scale perhaps
}

void PaneWidget::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (!pane_) return;
  if (event->type() == QEvent::FontChange) PassSize();
  if (event->type() == QEvent::ActivationChange && !isActiveWindow()) pane_->PointerLost();
}

void PaneWidget::PassPointer(const QMouseEvent& event, PointerEvent::Action action, int clicks) {
  const PointerEvent passed{.action = action,
                            .place = ToPane(event.position()),
                            .button = ButtonOf(event.button()),
                            .clicks = clicks,
                            .leftHeld = event.buttons().testFlag(Qt::LeftButton),
                            .modifiers = ModifiersOf(event.modifiers())};
  Call([&](screens::Pane& pane) { pane.Pointer(passed); });
}

void PaneWidget::mousePressEvent(QMouseEvent* event) {
  PassPointer(*event, PointerEvent::Action::kPress);
}

void PaneWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  PassPointer(*event, PointerEvent::Action::kPress, 2);
}

void PaneWidget::mouseMoveEvent(QMouseEvent* event) {
  const bool border = pane_->CursorAt(ToPane(event->position())) == screens::Cursor::kColumnBorder;
  if (event->buttons() == Qt::NoButton) {
    viewport()->setCursor(border ? Qt::SplitHCursor : Qt::ArrowCursor);
  }
  PassPointer(*event, PointerEvent::Action::kMove);
}

void PaneWidget::mouseReleaseEvent(QMouseEvent* event) {
  PassPointer(*event, PointerEvent::Action::kRelease);
}

void PaneWidget::wheelEvent(QWheelEvent* event) {
  constexpr double kNotch = QWheelEvent::DefaultDeltasPerStep;
  const screens::WheelEvent passed{.up = event->angleDelta().y() / kNotch,
                                   .left = event->angleDelta().x() / kNotch,
                                   .lines = QApplication::wheelScrollLines(),
                                   .modifiers = ModifiersOf(event->modifiers())};
  Call([&](screens::Pane& pane) { pane.Wheel(passed); });
  event->accept();
}

void PaneWidget::keyPressEvent(QKeyEvent* event) {
  screens::KeyEvent passed{KeyOf(event->key()), ModifiersOf(event->modifiers()), {}};
  const bool command = passed.modifiers.control || passed.modifiers.alt;
  if (!command && IsLetter(passed.key)) passed.key = Key::kText;
  bool used = false;
  if (passed.key == Key::kText) {
    const QString text = event->text();
    if (!command && !text.isEmpty() && text.front().isPrint()) passed.text = ToUtf8(text);
    if (passed.text == " ") passed.key = Key::kSpace;
  }
  if (passed.key != Key::kText || !passed.text.empty()) {
    Call([&](screens::Pane& pane) { used = pane.PressKey(passed); });
  }
  event->setAccepted(used);
}

void PaneWidget::ShowFocus(bool focused) {
  QPalette framed = palette();
  framed.setColor(QPalette::WindowText, focused ? theme::kAccent : theme::kLine);
  setPalette(framed);
}

void PaneWidget::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  ShowFocus(true);
  pane_->FocusChanged(true);
}

void PaneWidget::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  ShowFocus(false);
  pane_->FocusChanged(false);
}

void PaneWidget::timerEvent(QTimerEvent* event) {
  if (event->timerId() != timer_.timerId()) return QAbstractScrollArea::timerEvent(event);
  Call([](screens::Pane& pane) { pane.Tick(); });
}

bool PaneWidget::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const screens::Tip tip = pane_->TipAt(ToPane(help->pos()));
  QToolTip::showText(help->globalPos(), tip.text.empty() ? toolTip() : ToQString(tip.text),
                     viewport(), OnViewport(tip.place));
  return true;
}

void PaneWidget::scrollContentsBy(int /*dx*/, int dy) {
  if (settingBars_) return;
  const bool down = dy != 0;
  const int place = down ? verticalScrollBar()->value() : horizontalScrollBar()->value();
  Call([&](screens::Pane& pane) {
    pane.Scrolled(down ? screens::Axis::kDown : screens::Axis::kAcross, place);
  });
}

}  // namespace adapters::qt
