#pragma once

#include <functional>
#include <optional>

#include "adapters/windows/Paint.h"
#include "adapters/windows/PopupWindow.h"
#include "calendar/SolarHijriDate.h"
#include "controls/DateBox.h"

namespace adapters::windows {

/// One month of the Solar Hijri calendar to pick a day from: Saturday at the right, Friday tinted,
/// today framed. Arrow keys move by days and weeks, page keys by months (with control: years),
/// Enter picks, Esc closes.
class MonthPopupWindow : public PopupWindow {
 public:
  MonthPopupWindow(const Surroundings& surroundings, HWND field);
  /// Opens the page of `chosen`, or of `today` where nothing is chosen.
  void Open(std::optional<calendar::SolarHijriDate> chosen, calendar::SolarHijriDate today);
  const controls::MonthPage& Page() const { return page_; }
  /// Where a day of the page is painted, in client coordinates.
  RECT DayPlace(int week, int weekday) const;
  /// A key that came to the field.
  void OnKey(WPARAM key, bool control);

  /// The user picked a day; the popup is closed by then.
  std::function<void(const calendar::SolarHijriDate&)> onPicked;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  enum class Part { kNone, kYearBack, kMonthBack, kMonthOn, kYearOn, kDay, kToday };
  struct Hit {
    Part part = Part::kNone;
    int week = 0;
    int weekday = 0;
    friend bool operator==(const Hit&, const Hit&) = default;
  };
  SIZE Size() const;
  RECT PartPlace(Part part) const;
  Hit HitAt(POINT place) const;
  void Hover(Hit hit);
  void Act(Hit hit);
  void Turn(int months);
  void Step(int days);
  void MoveTo(const calendar::SolarHijriDate& day);
  void Pick(const calendar::SolarHijriDate& day);
  void Paint() const;
  void PaintHead(const Canvas& canvas) const;
  void PaintArrow(const Canvas& canvas, Part part, bool toRight, int strokes) const;
  void PaintDay(const Canvas& canvas, int week, int weekday) const;

  calendar::SolarHijriDate today_;
  calendar::SolarHijriDate cursor_;  // what the keys move
  controls::MonthPage page_;
  Hit hover_;
  Hit pressed_;
  int wheelRest_ = 0;
};

}  // namespace adapters::windows
