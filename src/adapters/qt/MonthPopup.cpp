#include "adapters/qt/MonthPopup.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <array>

#include "adapters/qt/Convert.h"
#include "adapters/qt/Theme.h"

namespace adapters::qt {

using calendar::SolarHijriDate;
using screens::MonthBrowser;
using screens::MonthPage;

namespace {

constexpr int kCellWidth = 32;
constexpr int kCellHeight = 25;
constexpr int kMargin = 8;
constexpr int kHeadHeight = 28;
constexpr int kArrowWidth = 24;
constexpr int kWeekdaysTop = kMargin + kHeadHeight;
constexpr int kDaysTop = kWeekdaysTop + kCellHeight;
constexpr int kTodayTop = kDaysTop + MonthPage::kWeeks * kCellHeight + 4;
constexpr QSize kPopupSize(MonthPage::kDays* kCellWidth + 2 * kMargin, kTodayTop + 26 + kMargin);

std::optional<MonthBrowser::Key> KeyOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return MonthBrowser::Key::kLeft;
    case Qt::Key_Right:
      return MonthBrowser::Key::kRight;
    case Qt::Key_Down:
      return MonthBrowser::Key::kDown;
    case Qt::Key_Up:
      return MonthBrowser::Key::kUp;
    case Qt::Key_PageDown:
      return MonthBrowser::Key::kPageDown;
    case Qt::Key_PageUp:
      return MonthBrowser::Key::kPageUp;
    case Qt::Key_Home:
      return MonthBrowser::Key::kHome;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      return MonthBrowser::Key::kPick;
    case Qt::Key_Escape:
    case Qt::Key_F4:
    case Qt::Key_Tab:
      return MonthBrowser::Key::kClose;
    default:
      return std::nullopt;
  }
}

}  // namespace

MonthPopup::MonthPopup(QWidget* parent) : QWidget(parent, Qt::Popup) {
  setAttribute(Qt::WA_NoMouseReplay);  // a click beside it only closes it
  setFixedSize(kPopupSize);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  browser_.onChange = [this] { update(); };
  browser_.onClose = [this] { hide(); };
  browser_.onPicked = [this](const SolarHijriDate& day) {
    if (onPicked) onPicked(day);
  };
}

void MonthPopup::Open(std::optional<SolarHijriDate> chosen, SolarHijriDate today) {
  browser_.Open(chosen, today);
}

QRect MonthPopup::DayPlace(int week, int weekday) const {
  return {width() - kMargin - (weekday + 1) * kCellWidth, kDaysTop + week * kCellHeight, kCellWidth,
          kCellHeight};
}

QRect MonthPopup::PlaceOf(const Spot& spot) const {
  // The past lies to the right, where reading begins.
  const auto headButton = [&](int left) {
    return QRect(left, kMargin, kArrowWidth, kHeadHeight - 4);
  };
  switch (spot.part) {
    case Part::kYearBack:
      return headButton(width() - kMargin - kArrowWidth);
    case Part::kMonthBack:
      return headButton(width() - kMargin - 2 * kArrowWidth);
    case Part::kMonthOn:
      return headButton(kMargin + kArrowWidth);
    case Part::kYearOn:
      return headButton(kMargin);
    case Part::kToday:
      return {kMargin, kTodayTop, width() - 2 * kMargin, 26};
    case Part::kDay:
      return DayPlace(spot.week, spot.weekday);
    case Part::kNone:
      break;
  }
  return {};
}

MonthPopup::Spot MonthPopup::SpotAt(const QPoint& place) const {
  return MonthBrowser::Find([&](const Spot& spot) { return PlaceOf(spot).contains(place); });
}

void MonthPopup::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), ToQColor(controls::palette::kFrame));
  painter.setPen(theme::kBorder);
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
  PaintHead(painter);
  for (int week = 0; week < MonthPage::kWeeks; ++week) {
    for (int weekday = 0; weekday < MonthPage::kDays; ++weekday) PaintDay(painter, week, weekday);
  }
  painter.setPen(browser_.Hovered().part == Part::kToday ? theme::kAccent : theme::kMutedText);
  painter.drawText(PlaceOf({Part::kToday}), Qt::AlignCenter, ToQString(browser_.TodayText()));
}

void MonthPopup::PaintHead(QPainter& painter) const {
  const auto arrow = [&](Part part, bool toRight, int strokes) {
    const QRectF place = PlaceOf({part});
    if (browser_.Hovered().part == part) {
      painter.setPen(Qt::NoPen);
      painter.setBrush(theme::kAccentGround);
      painter.drawRoundedRect(place, 4, 4);
    }
    painter.setPen(QPen(theme::kText, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    const qreal tip = toRight ? 3 : -3;
    for (int i = 0; i < strokes; ++i) {
      const QPointF centre = place.center() + QPointF(strokes == 1 ? 0 : 5 * i - 2.5, 0);
      const std::array<QPointF, 3> points = {centre + QPointF(-tip / 2, -4),
                                             centre + QPointF(tip / 2, 0),
                                             centre + QPointF(-tip / 2, 4)};
      painter.drawPolyline(points.data(), static_cast<int>(points.size()));
    }
  };
  arrow(Part::kYearBack, true, 2);
  arrow(Part::kMonthBack, true, 1);
  arrow(Part::kMonthOn, false, 1);
  arrow(Part::kYearOn, false, 2);

  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.setPen(theme::kText);
  painter.drawText(QRect(0, kMargin, width(), kHeadHeight - 4), Qt::AlignCenter,
                   ToQString(browser_.Page().Title()));
  painter.setFont(font());
  for (int weekday = 0; weekday < MonthPage::kDays; ++weekday) {
    painter.setPen(weekday == MonthPage::kFriday ? theme::kRefused : theme::kMutedText);
    painter.drawText(DayPlace(0, weekday).translated(0, -kCellHeight), Qt::AlignCenter,
                     ToQString(MonthPage::WeekdayLetter(weekday)));
  }
  painter.setPen(theme::kLine);
  painter.drawLine(kMargin, kDaysTop - 1, width() - kMargin, kDaysTop - 1);
}

void MonthPopup::PaintDay(QPainter& painter, int week, int weekday) const {
  const SolarHijriDate day = browser_.Page().DayAt(week, weekday);
  const QRectF place = QRectF(DayPlace(week, weekday)).adjusted(1.5, 1.5, -1.5, -1.5);
  QColor ground = Qt::transparent;
  if (weekday == MonthPage::kFriday) ground = ToQColor(controls::palette::kGridBand);
  if (browser_.Hovered() == Spot{Part::kDay, week, weekday}) ground = theme::kAccentGround;
  if (day == browser_.Cursor()) ground = theme::kAccent;
  painter.setBrush(ground);
  painter.setPen(day == browser_.Today() ? QPen(theme::kAccent, 1.5) : QPen(Qt::NoPen));
  painter.drawRoundedRect(place, 4, 4);
  QColor ink = weekday == MonthPage::kFriday ? theme::kRefused : theme::kText;
  if (!browser_.Page().InMonth(day)) ink = theme::kMutedText;
  if (day == browser_.Cursor()) ink = theme::kOnAccent;
  painter.setPen(ink);
  painter.drawText(place, Qt::AlignCenter, QString::number(day.Day()));
}

void MonthPopup::mousePressEvent(QMouseEvent* event) {
  if (!rect().contains(event->position().toPoint())) {
    hide();
    return;
  }
  browser_.Press(SpotAt(event->position().toPoint()));
}

void MonthPopup::mouseReleaseEvent(QMouseEvent* event) {
  browser_.Release(SpotAt(event->position().toPoint()));
}

void MonthPopup::mouseMoveEvent(QMouseEvent* event) {
  browser_.Hover(SpotAt(event->position().toPoint()));
}

void MonthPopup::leaveEvent(QEvent* event) {
  browser_.Hover({});
  QWidget::leaveEvent(event);
}

void MonthPopup::wheelEvent(QWheelEvent* event) {
  if (event->angleDelta().y() != 0) browser_.Turn(event->angleDelta().y() > 0 ? -1 : 1);
}

void MonthPopup::keyPressEvent(QKeyEvent* event) {
  if (const auto key = KeyOf(event->key())) {
    browser_.PressKey(*key, event->modifiers() & Qt::ControlModifier);
  } else {
    QWidget::keyPressEvent(event);
  }
}

}  // namespace adapters::qt
