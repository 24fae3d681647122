#include "adapters/qt/MonthPopup.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <array>
#include <chrono>
#include <stdexcept>

#include "adapters/qt/Convert.h"
#include "adapters/qt/Theme.h"

namespace adapters::qt {

using calendar::SolarHijriDate;
using controls::MonthPage;

namespace {

constexpr int kDays = 7;
constexpr int kFriday = 6;
constexpr int kCellWidth = 32;
constexpr int kCellHeight = 25;
constexpr int kMargin = 8;
constexpr int kHeadHeight = 28;
constexpr int kArrowWidth = 24;
constexpr int kWeekdaysTop = kMargin + kHeadHeight;
constexpr int kDaysTop = kWeekdaysTop + kCellHeight;
constexpr int kTodayTop = kDaysTop + MonthPage::kWeeks * kCellHeight + 4;
constexpr QSize kPopupSize(kDays* kCellWidth + 2 * kMargin, kTodayTop + 26 + kMargin);

/// Weekdays by one letter each, from Saturday.
constexpr std::array<const char*, kDays> kWeekdayLetters = {"ش", "ی", "د", "س", "چ", "پ", "ج"};

}  // namespace

MonthPopup::MonthPopup(QWidget* parent)
    : QWidget(parent, Qt::Popup),
      today_(SolarHijriDate::FromDays(std::chrono::sys_days())),
      cursor_(today_),
      page_(today_) {
  setAttribute(Qt::WA_NoMouseReplay);  // a click beside it only closes it
  setFixedSize(kPopupSize);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
}

void MonthPopup::Open(std::optional<SolarHijriDate> chosen, SolarHijriDate today) {
  today_ = today;
  cursor_ = chosen.value_or(today);
  page_ = MonthPage(cursor_);
  hover_ = {};
  pressed_ = {};
  update();
}

QRect MonthPopup::DayPlace(int week, int weekday) const {
  return {width() - kMargin - (weekday + 1) * kCellWidth, kDaysTop + week * kCellHeight, kCellWidth,
          kCellHeight};
}

QRect MonthPopup::PartPlace(Part part) const {
  // The past lies to the right, where reading begins.
  const auto headButton = [&](int left) {
    return QRect(left, kMargin, kArrowWidth, kHeadHeight - 4);
  };
  switch (part) {
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
    default:
      return {};
  }
}

MonthPopup::Hit MonthPopup::HitAt(const QPoint& place) const {
  for (const Part part :
       {Part::kYearBack, Part::kMonthBack, Part::kMonthOn, Part::kYearOn, Part::kToday}) {
    if (PartPlace(part).contains(place)) return {part};
  }
  for (int week = 0; week < MonthPage::kWeeks; ++week) {
    for (int weekday = 0; weekday < kDays; ++weekday) {
      if (DayPlace(week, weekday).contains(place)) return {Part::kDay, week, weekday};
    }
  }
  return {};
}

void MonthPopup::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), ToQColor(controls::palette::kFrame));
  painter.setPen(theme::kLine);
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
  PaintHead(painter);
  for (int week = 0; week < MonthPage::kWeeks; ++week) {
    for (int weekday = 0; weekday < kDays; ++weekday) PaintDay(painter, week, weekday);
  }
  const QRect todayPlace = PartPlace(Part::kToday);
  painter.setPen(hover_.part == Part::kToday ? theme::kAccent : theme::kMutedText);
  painter.drawText(todayPlace, Qt::AlignCenter,
                   QStringLiteral("امروز: %1").arg(ToQString(today_.Text())));
}

void MonthPopup::PaintHead(QPainter& painter) const {
  const auto arrow = [&](Part part, bool toRight, int strokes) {
    const QRectF place = PartPlace(part);
    if (hover_.part == part) {
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
                   ToQString(page_.Title()));
  painter.setFont(font());
  for (int weekday = 0; weekday < kDays; ++weekday) {
    painter.setPen(weekday == kFriday ? theme::kRefused : theme::kMutedText);
    painter.drawText(DayPlace(0, weekday).translated(0, -kCellHeight), Qt::AlignCenter,
                     QString::fromUtf8(kWeekdayLetters[static_cast<std::size_t>(weekday)]));
  }
  painter.setPen(theme::kLine);
  painter.drawLine(kMargin, kDaysTop - 1, width() - kMargin, kDaysTop - 1);
}

void MonthPopup::PaintDay(QPainter& painter, int week, int weekday) const {
  const SolarHijriDate day = page_.DayAt(week, weekday);
  const QRectF place = QRectF(DayPlace(week, weekday)).adjusted(1.5, 1.5, -1.5, -1.5);
  QColor ground = Qt::transparent;
  if (weekday == kFriday) ground = ToQColor(controls::palette::kGridBand);
  if (hover_ == Hit{Part::kDay, week, weekday}) ground = theme::kAccentGround;
  if (day == cursor_) ground = theme::kAccent;
  painter.setBrush(ground);
  painter.setPen(day == today_ ? QPen(theme::kAccent, 1.5) : QPen(Qt::NoPen));
  painter.drawRoundedRect(place, 4, 4);
  QColor ink = weekday == kFriday ? theme::kRefused : theme::kText;
  if (!page_.InMonth(day)) ink = theme::kLine;
  if (day == cursor_) ink = Qt::white;
  painter.setPen(ink);
  painter.drawText(place, Qt::AlignCenter, QString::number(day.Day()));
}

void MonthPopup::mousePressEvent(QMouseEvent* event) {
  if (!rect().contains(event->position().toPoint())) {
    hide();
    return;
  }
  pressed_ = HitAt(event->position().toPoint());
}

void MonthPopup::mouseReleaseEvent(QMouseEvent* event) {
  const Hit hit = HitAt(event->position().toPoint());
  const Hit pressed = pressed_;
  pressed_ = {};
  if (hit != pressed) return;
  switch (hit.part) {
    case Part::kYearBack:
      return Turn(-12);
    case Part::kMonthBack:
      return Turn(-1);
    case Part::kMonthOn:
      return Turn(1);
    case Part::kYearOn:
      return Turn(12);
    case Part::kDay:
      return Pick(page_.DayAt(hit.week, hit.weekday));
    case Part::kToday:
      return Pick(today_);
    case Part::kNone:
      return;
  }
}

void MonthPopup::mouseMoveEvent(QMouseEvent* event) {
  const Hit hit = HitAt(event->position().toPoint());
  if (hit == hover_) return;
  hover_ = hit;
  update();
}

void MonthPopup::leaveEvent(QEvent* event) {
  hover_ = {};
  update();
  QWidget::leaveEvent(event);
}

void MonthPopup::wheelEvent(QWheelEvent* event) {
  if (event->angleDelta().y() != 0) Turn(event->angleDelta().y() > 0 ? -1 : 1);
}

void MonthPopup::keyPressEvent(QKeyEvent* event) {
  const bool years = event->modifiers() & Qt::ControlModifier;
  switch (event->key()) {
    case Qt::Key_Left:  // reading goes on to the left
      return Step(1);
    case Qt::Key_Right:
      return Step(-1);
    case Qt::Key_Down:
      return Step(kDays);
    case Qt::Key_Up:
      return Step(-kDays);
    case Qt::Key_PageDown:
      return Turn(years ? 12 : 1);
    case Qt::Key_PageUp:
      return Turn(years ? -12 : -1);
    case Qt::Key_Home:
      return MoveTo(today_);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      return Pick(cursor_);
    case Qt::Key_Escape:
    case Qt::Key_F4:
    case Qt::Key_Tab:
      hide();
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

void MonthPopup::Turn(int months) {
  try {
    MoveTo(cursor_.PlusMonths(months));
  } catch (const std::out_of_range&) {
    // The calendar ends here.
  }
}

void MonthPopup::Step(int days) {
  try {
    MoveTo(cursor_.PlusDays(days));
  } catch (const std::out_of_range&) {
    // The calendar ends here.
  }
}

void MonthPopup::MoveTo(const SolarHijriDate& day) {
  cursor_ = day;
  page_ = MonthPage(cursor_);
  update();
}

void MonthPopup::Pick(const SolarHijriDate& day) {
  hide();
  if (onPicked) onPicked(day);
}

}  // namespace adapters::qt
