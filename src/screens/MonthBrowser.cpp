#include "screens/MonthBrowser.h"

#include <chrono>
#include <stdexcept>
#include <utility>

namespace screens {

using calendar::SolarHijriDate;

namespace {

constexpr int kYear = 12;

}  // namespace

MonthBrowser::MonthBrowser()
    : today_(SolarHijriDate::FromDays(std::chrono::sys_days())), cursor_(today_), page_(today_) {}

void MonthBrowser::Open(std::optional<SolarHijriDate> chosen, SolarHijriDate today) {
  today_ = today;
  hovered_ = {};
  pressed_ = {};
  MoveTo(chosen.value_or(today));
}

std::string MonthBrowser::TodayText() const {
  return "امروز: " + today_.Text();
}

void MonthBrowser::PressKey(Key key, bool control) {
  const int months = control ? kYear : 1;
  switch (key) {
    case Key::kLeft:  // reading goes on to the left
      return Step(1);
    case Key::kRight:
      return Step(-1);
    case Key::kDown:
      return Step(MonthPage::kDays);
    case Key::kUp:
      return Step(-MonthPage::kDays);
    case Key::kPageDown:
      return Turn(months);
    case Key::kPageUp:
      return Turn(-months);
    case Key::kHome:
      return MoveTo(today_);
    case Key::kPick:
      return Pick(cursor_);
    case Key::kClose:
      if (onClose) onClose();
  }
}

void MonthBrowser::Hover(const Spot& spot) {
  if (spot == hovered_) return;
  hovered_ = spot;
  if (onChange) onChange();
}

void MonthBrowser::Release(const Spot& spot) {
  if (std::exchange(pressed_, {}) == spot) Click(spot);
}

void MonthBrowser::Click(const Spot& spot) {
  switch (spot.part) {
    case Part::kYearBack:
      return Turn(-kYear);
    case Part::kMonthBack:
      return Turn(-1);
    case Part::kMonthOn:
      return Turn(1);
    case Part::kYearOn:
      return Turn(kYear);
    case Part::kDay:
      return Pick(page_.DayAt(spot.week, spot.weekday));
    case Part::kToday:
      return Pick(today_);
    case Part::kNone:
      return;
  }
}

void MonthBrowser::Turn(int months) {
  try {
    MoveTo(cursor_.PlusMonths(months));
  } catch (const std::out_of_range&) {
    // The calendar ends here.
  }
}

void MonthBrowser::Step(int days) {
  try {
    MoveTo(cursor_.PlusDays(days));
  } catch (const std::out_of_range&) {
    // The calendar ends here.
  }
}

void MonthBrowser::MoveTo(const SolarHijriDate& day) {
  cursor_ = day;
  page_ = MonthPage(cursor_);
  if (onChange) onChange();
}

/// The day by value: who is told may open another page meanwhile.
void MonthBrowser::Pick(SolarHijriDate day) {
  if (onClose) onClose();
  if (onPicked) onPicked(day);
}

MonthBrowser::Spot MonthBrowser::Find(const std::function<bool(const Spot&)>& holds) {
  for (const Part part :
       {Part::kYearBack, Part::kMonthBack, Part::kMonthOn, Part::kYearOn, Part::kToday}) {
    if (holds({part})) return {part};
  }
  for (int week = 0; week < MonthPage::kWeeks; ++week) {
    for (int weekday = 0; weekday < MonthPage::kDays; ++weekday) {
      const Spot day{Part::kDay, week, weekday};
      if (holds(day)) return day;
    }
  }
  return {};
}

}  // namespace screens
