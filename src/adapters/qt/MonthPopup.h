#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "calendar/SolarHijriDate.h"
#include "screens/MonthBrowser.h"

namespace adapters::qt {

/// One month of the Solar Hijri calendar to pick a day from: Saturday at the right, Friday tinted,
/// today framed. What keys and clicks do is in screens/MonthBrowser.h.
class MonthPopup : public QWidget {
 public:
  explicit MonthPopup(QWidget* parent);
  /// Turns to the page of `chosen`, or of `today` where nothing is chosen.
  void Open(std::optional<calendar::SolarHijriDate> chosen, calendar::SolarHijriDate today);
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
  using Part = screens::MonthBrowser::Part;
  using Spot = screens::MonthBrowser::Spot;
  QRect PlaceOf(const Spot& spot) const;
  Spot SpotAt(const QPoint& place) const;
  void PaintHead(QPainter& painter) const;
  void PaintDay(QPainter& painter, int week, int weekday) const;

  screens::MonthBrowser browser_;
};

}  // namespace adapters::qt
