#pragma once

#include <functional>
#include <optional>

#include "adapters/windows/Paint.h"
#include "adapters/windows/PopupWindow.h"
#include "calendar/SolarHijriDate.h"
#include "screens/MonthBrowser.h"

namespace adapters::windows {

/// One month of the Solar Hijri calendar to pick a day from: Saturday at the right, Friday tinted,
/// today framed. What keys and clicks do is in screens/MonthBrowser.h.
class MonthPopupWindow : public PopupWindow {
 public:
  MonthPopupWindow(const Surroundings& surroundings, HWND field);
  /// Opens the page of `chosen`, or of `today` where nothing is chosen.
  void Open(std::optional<calendar::SolarHijriDate> chosen, calendar::SolarHijriDate today);
  /// Where a day of the page is painted, in client coordinates.
  RECT DayPlace(int week, int weekday) const;
  /// A key that came to the field.
  void OnKey(WPARAM key, bool control);

  /// The user picked a day; the popup is closed by then.
  std::function<void(const calendar::SolarHijriDate&)> onPicked;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  using Part = screens::MonthBrowser::Part;
  using Spot = screens::MonthBrowser::Spot;
  SIZE Size() const;
  RECT PlaceOf(const Spot& spot) const;
  Spot SpotAt(POINT place) const;
  void Paint() const;
  void PaintHead(const Canvas& canvas) const;
  void PaintArrow(const Canvas& canvas, Part part, bool toRight, int strokes) const;
  void PaintDay(const Canvas& canvas, int week, int weekday) const;

  screens::MonthBrowser browser_;
  int wheelRest_ = 0;
};

}  // namespace adapters::windows
