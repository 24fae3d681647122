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

bool MonthBrowser::PressKey(const KeyEvent& event) {
  const int months = event.modifiers.control ? kYear : 1;
  const Count days = &SolarHijriDate::PlusDays;
  switch (event.key) {
    case Key::kLeft:  // reading goes on to the left
      MoveBy(days, 1);
      break;
    case Key::kRight:
      MoveBy(days, -1);
      break;
    case Key::kDown:
      MoveBy(days, MonthPage::kDays);
      break;
    case Key::kUp:
      MoveBy(days, -MonthPage::kDays);
      break;
    case Key::kPageDown:
      Turn(months);
      break;
    case Key::kPageUp:
      Turn(-months);
      break;
    case Key::kHome:
      MoveTo(today_);
      break;
    case Key::kEnter:
    case Key::kSpace:
      Pick(cursor_);
      break;
    case Key::kEscape:
    case Key::kF4:
    case Key::kTab:
      if (onClose) onClose();
      break;
    default:
      return false;
  }
  return true;
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
  MoveBy(&SolarHijriDate::PlusMonths, months);
}

void MonthBrowser::MoveBy(Count plus, int count) {
  try {
    MoveTo((cursor_.*plus)(count));
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
