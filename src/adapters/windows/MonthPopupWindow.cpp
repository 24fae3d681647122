#include "adapters/windows/MonthPopupWindow.h"

#include <windowsx.h>

#include <chrono>
#include <stdexcept>
#include <string>

#include "adapters/windows/Wide.h"

namespace adapters::windows {

using calendar::SolarHijriDate;
using controls::Colour;
using controls::MonthPage;

namespace {

constexpr int kDays = 7;
constexpr int kFriday = 6;
// Lengths at 96 dpi.
constexpr int kCellWidth = 32;
constexpr int kCellHeight = 25;
constexpr int kMargin = 8;
constexpr int kHeadHeight = 28;
constexpr int kArrowWidth = 24;
constexpr int kTodayHeight = 26;
constexpr int kCorner = 4;
constexpr int kDaysTop = kMargin + kHeadHeight + kCellHeight;
constexpr int kTodayTop = kDaysTop + MonthPage::kWeeks * kCellHeight + 4;

/// Weekdays by one letter each, from Saturday.
constexpr const wchar_t* kWeekdayLetters[kDays] = {L"ش", L"ی", L"د", L"س", L"چ", L"پ", L"ج"};

RECT Inside(RECT area, int by) {
  InflateRect(&area, -by, -by);
  return area;
}

}  // namespace

MonthPopupWindow::MonthPopupWindow(const Surroundings& surroundings, HWND field)
    : PopupWindow(surroundings, field),
      today_(SolarHijriDate::FromDays(std::chrono::sys_days())),
      cursor_(today_),
      page_(today_) {
  WindowPlan plan;
  plan.style = WS_POPUP;
  plan.extendedStyle = WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW;
  plan.parent = GetAncestor(field, GA_ROOT);
  Create(plan);
}

void MonthPopupWindow::Open(std::optional<SolarHijriDate> chosen, SolarHijriDate today) {
  today_ = today;
  cursor_ = chosen.value_or(today);
  page_ = MonthPage(cursor_);
  hover_ = {};
  pressed_ = {};
  ShowBelow(Size());
  Invalidate();
}

SIZE MonthPopupWindow::Size() const {
  return {kDays * Design(kCellWidth) + 2 * Design(kMargin),
          Design(kTodayTop + kTodayHeight + kMargin)};
}

RECT MonthPopupWindow::DayPlace(int week, int weekday) const {
  const int right = Size().cx - Design(kMargin) - weekday * Design(kCellWidth);
  const int top = Design(kDaysTop + week * kCellHeight);
  return {right - Design(kCellWidth), top, right, Design(kDaysTop + (week + 1) * kCellHeight)};
}

RECT MonthPopupWindow::PartPlace(Part part) const {
  const int width = Size().cx;
  const int margin = Design(kMargin);
  const int arrow = Design(kArrowWidth);
  const auto headButton = [&](int left) -> RECT {
    return {left, margin, left + arrow, Design(kMargin + kHeadHeight - 4)};
  };
  // The past lies to the right, where reading begins.
  switch (part) {
    case Part::kYearBack:
      return headButton(width - margin - arrow);
    case Part::kMonthBack:
      return headButton(width - margin - 2 * arrow);
    case Part::kMonthOn:
      return headButton(margin + arrow);
    case Part::kYearOn:
      return headButton(margin);
    case Part::kToday:
      return {margin, Design(kTodayTop), width - margin, Design(kTodayTop + kTodayHeight)};
    default:
      return {};
  }
}

MonthPopupWindow::Hit MonthPopupWindow::HitAt(POINT place) const {
  const auto within = [&](const RECT& area) { return PtInRect(&area, place) != FALSE; };
  for (const Part part :
       {Part::kYearBack, Part::kMonthBack, Part::kMonthOn, Part::kYearOn, Part::kToday}) {
    if (within(PartPlace(part))) return {part};
  }
  for (int week = 0; week < MonthPage::kWeeks; ++week) {
    for (int weekday = 0; weekday < kDays; ++weekday) {
      if (within(DayPlace(week, weekday))) return {Part::kDay, week, weekday};
    }
  }
  return {};
}

void MonthPopupWindow::Paint() const {
  const PaintSession session(Handle());
  session.Fill(session.Area(), controls::palette::kFrame);
  session.Frame(session.Area(), theme::kLine);
  PaintHead(session);
  for (int week = 0; week < MonthPage::kWeeks; ++week) {
    for (int weekday = 0; weekday < kDays; ++weekday) PaintDay(session, week, weekday);
  }
  TextLook look;
  look.font = Look().Font();
  look.colour = hover_.part == Part::kToday ? theme::kAccent : theme::kMutedText;
  look.across = Across::kCentre;
  session.Text(L"امروز: " + Wide(today_.Text()), PartPlace(Part::kToday), look);
}

void MonthPopupWindow::PaintArrow(const Canvas& canvas, Part part, bool toRight,
                                  int strokes) const {
  const RECT place = PartPlace(part);
  if (hover_.part == part) {
    canvas.RoundBox(place, Design(kCorner), theme::kAccentGround, theme::kAccentGround);
  }
  const double unit = Look().GetScale().Dpi() / 96.0;
  const double tip = (toRight ? 1.5 : -1.5) * unit;
  const double y = (place.top + place.bottom) / 2.0;
  for (int i = 0; i < strokes; ++i) {
    const double x = (place.left + place.right) / 2.0 + (strokes == 1 ? 0 : (5 * i - 2.5) * unit);
    canvas.Stroke({{x - tip, y - 4 * unit}, {x + tip, y}, {x - tip, y + 4 * unit}}, 1.5 * unit,
                  theme::kText);
  }
}

void MonthPopupWindow::PaintHead(const Canvas& canvas) const {
  PaintArrow(canvas, Part::kYearBack, true, 2);
  PaintArrow(canvas, Part::kMonthBack, true, 1);
  PaintArrow(canvas, Part::kMonthOn, false, 1);
  PaintArrow(canvas, Part::kYearOn, false, 2);
  TextLook look;
  look.font = Look().BoldFont();
  look.across = Across::kCentre;
  const RECT title{PartPlace(Part::kMonthOn).right, Design(kMargin),
                   PartPlace(Part::kMonthBack).left, Design(kMargin + kHeadHeight - 4)};
  canvas.Text(Wide(page_.Title()), title, look);
  look.font = Look().Font();
  for (int weekday = 0; weekday < kDays; ++weekday) {
    look.colour = weekday == kFriday ? theme::kRefused : theme::kMutedText;
    canvas.Text(kWeekdayLetters[weekday], DayPlace(-1, weekday), look);
  }
  const int y = Design(kDaysTop) - 1;
  canvas.Line(Design(kMargin), y, Size().cx - Design(kMargin), y, theme::kLine);
}

void MonthPopupWindow::PaintDay(const Canvas& canvas, int week, int weekday) const {
  const SolarHijriDate day = page_.DayAt(week, weekday);
  const RECT place = Inside(DayPlace(week, weekday), Design(1));
  const bool friday = weekday == kFriday;
  Colour ground = friday ? controls::palette::kGridBand : controls::palette::kFrame;
  if (hover_ == Hit{Part::kDay, week, weekday}) ground = theme::kAccentGround;
  if (day == cursor_) ground = theme::kAccent;
  const Colour line = day == today_ ? theme::kAccent : ground;
  canvas.RoundBox(place, Design(kCorner), ground, line);
  TextLook look;
  look.font = Look().Font();
  look.across = Across::kCentre;
  look.colour = friday ? theme::kRefused : theme::kText;
  if (!page_.InMonth(day)) look.colour = theme::kLine;
  if (day == cursor_) look.colour = theme::kWhite;
  canvas.Text(std::to_wstring(day.Day()), place, look);
}

void MonthPopupWindow::Hover(Hit hit) {
  if (hit == hover_) return;
  hover_ = hit;
  Invalidate();
}

void MonthPopupWindow::Act(Hit hit) {
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

void MonthPopupWindow::OnKey(WPARAM key, bool control) {
  switch (key) {
    case VK_LEFT:  // reading goes on to the left
      return Step(1);
    case VK_RIGHT:
      return Step(-1);
    case VK_DOWN:
      return Step(kDays);
    case VK_UP:
      return Step(-kDays);
    case VK_NEXT:
      return Turn(control ? 12 : 1);
    case VK_PRIOR:
      return Turn(control ? -12 : -1);
    case VK_HOME:
      return MoveTo(today_);
    case VK_RETURN:
    case VK_SPACE:
      return Pick(cursor_);
    case VK_ESCAPE:
    case VK_F4:
    case VK_TAB:
      return Hide();
    default:
      return;
  }
}

void MonthPopupWindow::Turn(int months) {
  try {
    MoveTo(cursor_.PlusMonths(months));
  } catch (const std::out_of_range&) {
    // The calendar ends here.
  }
}

void MonthPopupWindow::Step(int days) {
  try {
    MoveTo(cursor_.PlusDays(days));
  } catch (const std::out_of_range&) {
    // The calendar ends here.
  }
}

void MonthPopupWindow::MoveTo(const SolarHijriDate& day) {
  cursor_ = day;
  page_ = MonthPage(cursor_);
  Invalidate();
}

void MonthPopupWindow::Pick(const SolarHijriDate& day) {
  Hide();
  if (onPicked) onPicked(day);
}

LRESULT MonthPopupWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const POINT place{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  switch (message) {
    case WM_PAINT:
      Paint();
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      pressed_ = HitAt(place);
      return 0;
    case WM_LBUTTONUP: {
      const Hit pressed = std::exchange(pressed_, {});
      if (HitAt(place) == pressed) Act(pressed);
      return 0;
    }
    case WM_MOUSEMOVE: {
      Hover(HitAt(place));
      TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, Handle(), 0};
      TrackMouseEvent(&leaving);
      return 0;
    }
    case WM_MOUSELEAVE:
      Hover({});
      return 0;
    case WM_MOUSEWHEEL: {
      wheelRest_ += static_cast<short>(HIWORD(wParam));
      const int notches = wheelRest_ / WHEEL_DELTA;
      wheelRest_ -= notches * WHEEL_DELTA;
      if (notches != 0) Turn(-notches);
      return 0;
    }
    default:
      return PopupWindow::OnMessage(message, wParam, lParam);
  }
}

}  // namespace adapters::windows
