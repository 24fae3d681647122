#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "calendar/SolarHijriDate.h"
#include "controls/DateBox.h"

namespace adapters::qt {

/// One month of the Solar Hijri calendar to pick a day from: Saturday at the right, Friday tinted,
/// today framed. Arrow keys move by days and weeks, page keys by months (with control: years),
/// Enter picks, Esc closes.
class MonthPopup : public QWidget {
 public:
  explicit MonthPopup(QWidget* parent);
  /// Turns to the page of `chosen`, or of `today` where nothing is chosen.
  void Open(std::optional<calendar::SolarHijriDate> chosen, calendar::SolarHijriDate today);
  const controls::MonthPage& Page() const { return page_; }
  /// Where a day of the page is painted.
  QRect DayPlace(int week, int weekday) const;

  /// The user picked a day; the popup is closed by then.
  std::function<void(const calendar::SolarHijriDate&)> onPicked;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  enum class Part { kNone, kYearBack, kMonthBack, kMonthOn, kYearOn, kDay, kToday };
  struct Hit {
    Part part = Part::kNone;
    int week = 0;
    int weekday = 0;
    friend bool operator==(const Hit&, const Hit&) = default;
  };
  QRect PartPlace(Part part) const;
  Hit HitAt(const QPoint& place) const;
  void Turn(int months);
  void Step(int days);
  void MoveTo(const calendar::SolarHijriDate& day);
  void Pick(const calendar::SolarHijriDate& day);
  void PaintHead(QPainter& painter) const;
  void PaintDay(QPainter& painter, int week, int weekday) const;

  calendar::SolarHijriDate today_;
  calendar::SolarHijriDate cursor_;  // what the keys move
  controls::MonthPage page_;
  Hit hover_;
  Hit pressed_;
};

}  // namespace adapters::qt
