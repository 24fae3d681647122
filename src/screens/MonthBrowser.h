#pragma once

#include <functional>
#include <optional>
#include <string>

#include "calendar/SolarHijriDate.h"
#include "screens/MonthPage.h"
#include "screens/Pane.h"

namespace screens {

/// A person's walk through the month pages of a date box, to pick a day: what keys, clicks and the
/// wheel do. Arrow keys move by days and weeks, page keys by months (with control: years), home to
/// today; Enter and a blank pick, Esc, F4 and Tab close. Where the calendar ends, nothing moves.
class MonthBrowser {
 public:
  enum class Part { kNone, kYearBack, kMonthBack, kMonthOn, kYearOn, kDay, kToday };
  /// A part that the mouse can point at; week and weekday count for a day alone.
  struct Spot {
    Part part = Part::kNone;
    int week = 0;
    int weekday = 0;
    friend bool operator==(const Spot&, const Spot&) = default;
  };
  MonthBrowser();
  /// Turns to the page of `chosen`, or of `today` where nothing is chosen.
  void Open(std::optional<calendar::SolarHijriDate> chosen, calendar::SolarHijriDate today);

  const MonthPage& Page() const { return page_; }
  /// The day that the keys move and Enter picks.
  const calendar::SolarHijriDate& Cursor() const { return cursor_; }
  const calendar::SolarHijriDate& Today() const { return today_; }
  /// "امروز: 1404/02/15", what the part that picks today says.
  std::string TodayText() const;
  const Spot& Hovered() const { return hovered_; }

  /// False for a key that means nothing here.
  bool PressKey(const KeyEvent& event);
  /// The mouse is over another part; kNone when it left.
  void Hover(const Spot& spot);
  /// A button went down and up. It is a click where both were on the same part.
  void Press(const Spot& spot) { pressed_ = spot; }
  void Release(const Spot& spot);
  /// Moves by months, as the wheel does.
  void Turn(int months);

  /// The first part that `holds` says yes to; kNone when there is none.
  static Spot Find(const std::function<bool(const Spot&)>& holds);

  /// The page is to be painted anew.
  std::function<void()> onChange;
  /// The page is to be closed.
  std::function<void()> onClose;
  /// A day was picked; raised after onClose.
  std::function<void(const calendar::SolarHijriDate&)> onPicked;

 private:
  using Count = calendar::SolarHijriDate (calendar::SolarHijriDate::*)(int) const;
  void Click(const Spot& spot);
  void MoveBy(Count plus, int count);
  void MoveTo(const calendar::SolarHijriDate& day);
  void Pick(calendar::SolarHijriDate day);

  calendar::SolarHijriDate today_;
  calendar::SolarHijriDate cursor_;
  MonthPage page_;
  Spot hovered_;
  Spot pressed_;
};

}  // namespace screens
