#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "calendar/SolarHijriDate.h"
#include "controls/Control.h"

namespace controls {

/// The suite's Solar Hijri date box. It holds a day or is empty; it never holds a text that is no
/// date.
class DateBox : public Control {
 public:
  DateBox(Container& parent, std::string name);
  void Accept(ControlVisitor& visitor) override;

  bool IsEmpty() const { return !date_; }
  void Clear();
  /// yyyy/mm/dd with Latin digits, or empty.
  std::string Text() const { return date_ ? date_->Text() : std::string(); }
  /// Empty text clears. A text that is no date throws RuntimeError 380, which names it, and
  /// changes nothing.
  void SetText(std::string_view yyyymmdd);
  std::optional<std::chrono::sys_days> Value() const;
  /// Throws RuntimeError 380 for a day outside the calendar's years, as StepDays does for a step
  /// there; the date then stays.
  void SetValue(std::chrono::sys_days gregorian);
  std::optional<calendar::SolarHijriDate> Date() const { return date_; }
  /// The date value plus whole days; nothing happens while empty.
  void StepDays(int days);
  /// Empty text and 0 while empty.
  std::string_view WeekdayName() const;
  int MonthNumber() const { return date_ ? date_->Month() : 0; }

  /// Raised on every change of the date, by code or by the user.
  std::function<void()> onChange;

  // For the screen: what a person does with the box. All of it does nothing while disabled.

  /// kEnter raises onChange for the same date too, so that what hangs on the date is fetched again.
  enum class Typing { kLeft, kEnter };
  /// The user finished typing. Returns the empty text when it was understood (or empty: the box is
  /// cleared); otherwise a sentence that tells the user what is wrong, and the date stays as it
  /// was.
  std::string EnterTyped(std::string_view typed, Typing how = Typing::kLeft);
  enum class Key { kUp, kDown, kPageUp, kPageDown };
  /// Up and page up go a day and a month forward, down and page down back; an empty box takes
  /// `today`. Nothing happens at the ends of the calendar.
  void PressKey(Key key, std::chrono::sys_days today);

 private:
  void Assign(std::optional<calendar::SolarHijriDate> date);
  std::optional<calendar::SolarHijriDate> date_;
};

}  // namespace controls
