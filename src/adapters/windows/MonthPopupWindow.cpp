#include "adapters/windows/MonthPopupWindow.h"

#include <windowsx.h>

#include <string>

#include "adapters/windows/Wide.h"

namespace adapters::windows {

using calendar::SolarHijriDate;
using controls::Colour;
using screens::MonthBrowser;
using screens::MonthPage;

namespace {

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

std::optional<MonthBrowser::Key> KeyOf(WPARAM key) {
  switch (key) {
    case VK_LEFT:
      return MonthBrowser::Key::kLeft;
    case VK_RIGHT:
      return MonthBrowser::Key::kRight;
    case VK_DOWN:
      return MonthBrowser::Key::kDown;
    case VK_UP:
      return MonthBrowser::Key::kUp;
    case VK_NEXT:
      return MonthBrowser::Key::kPageDown;
    case VK_PRIOR:
      return MonthBrowser::Key::kPageUp;
    case VK_HOME:
      return MonthBrowser::Key::kHome;
    case VK_RETURN:
    case VK_SPACE:
      return MonthBrowser::Key::kPick;
    case VK_ESCAPE:
    case VK_F4:
    case VK_TAB:
      return MonthBrowser::Key::kClose;
    default:
      return std::nullopt;
  }
}

RECT Inside(RECT area, int by) {
  InflateRect(&area, -by, -by);
  return area;
}

}  // namespace

MonthPopupWindow::MonthPopupWindow(const Surroundings& surroundings, HWND field)
    : PopupWindow(surroundings, field) {
  browser_.onChange = [this] { Invalidate(); };
  browser_.onClose = [this] { Hide(); };
  browser_.onPicked = [this](const SolarHijriDate& day) {
    if (onPicked) onPicked(day);
  };
  WindowPlan plan;
  plan.style = WS_POPUP;
  plan.extendedStyle = WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW;
  plan.parent = GetAncestor(field, GA_ROOT);
  Create(plan);
}

void MonthPopupWindow::Open(std::optional<SolarHijriDate> chosen, SolarHijriDate today) {
  browser_.Open(chosen, today);
  ShowBelow(Size());
}

SIZE MonthPopupWindow::Size() const {
  return {MonthPage::kDays * Design(kCellWidth) + 2 * Design(kMargin),
          Design(kTodayTop + kTodayHeight + kMargin)};
}

RECT MonthPopupWindow::DayPlace(int week, int weekday) const {
  const int right = Size().cx - Design(kMargin) - weekday * Design(kCellWidth);
  const int top = Design(kDaysTop + week * kCellHeight);
  return {right - Design(kCellWidth), top, right, Design(kDaysTop + (week + 1) * kCellHeight)};
}

RECT MonthPopupWindow::PlaceOf(const Spot& spot) const {
  const int width = Size().cx;
  const int margin = Design(kMargin);
  const int arrow = Design(kArrowWidth);
  const auto headButton = [&](int left) -> RECT {
    return {left, margin, left + arrow, Design(kMargin + kHeadHeight - 4)};
  };
  // The past lies to the right, where reading begins.
  switch (spot.part) {
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
    case Part::kDay:
      return DayPlace(spot.week, spot.weekday);
    case Part::kNone:
      break;
  }
  return {};
}

MonthPopupWindow::Spot MonthPopupWindow::SpotAt(POINT place) const {
  return MonthBrowser::Find([&](const Spot& spot) {
    const RECT area = PlaceOf(spot);
    return PtInRect(&area, place) != FALSE;
  });
}

void MonthPopupWindow::Paint() const {
  const PaintSession session(Handle());
  session.Fill(session.Area(), controls::palette::kFrame);
  session.Frame(session.Area(), theme::kBorder);
  PaintHead(session);
  for (int week = 0; week < MonthPage::kWeeks; ++week) {
    for (int weekday = 0; weekday < MonthPage::kDays; ++weekday) PaintDay(session, week, weekday);
  }
  TextLook look;
  look.font = Look().Font();
  look.colour = browser_.Hovered().part == Part::kToday ? theme::kAccent : theme::kMutedText;
  look.across = Across::kCentre;
  session.Text(Wide(browser_.TodayText()), PlaceOf({Part::kToday}), look);
}

void MonthPopupWindow::PaintArrow(const Canvas& canvas, Part part, bool toRight,
                                  int strokes) const {
  const RECT place = PlaceOf({part});
  if (browser_.Hovered().part == part) {
    canvas.RoundBox(place, Design(kCorner), theme::kAccentGround, theme::kAccentGround);
  }
  const double unit = Look().GetScale().Unit();
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
  const RECT title{PlaceOf({Part::kMonthOn}).right, Design(kMargin),
                   PlaceOf({Part::kMonthBack}).left, Design(kMargin + kHeadHeight - 4)};
  canvas.Text(Wide(browser_.Page().Title()), title, look);
  look.font = Look().Font();
  for (int weekday = 0; weekday < MonthPage::kDays; ++weekday) {
    look.colour = weekday == MonthPage::kFriday ? theme::kRefused : theme::kMutedText;
    canvas.Text(Wide(MonthPage::WeekdayLetter(weekday)), DayPlace(-1, weekday), look);
  }
  const int y = Design(kDaysTop) - 1;
  canvas.Line(Design(kMargin), y, Size().cx - Design(kMargin), y, theme::kLine);
}

void MonthPopupWindow::PaintDay(const Canvas& canvas, int week, int weekday) const {
  const SolarHijriDate day = browser_.Page().DayAt(week, weekday);
  const RECT place = Inside(DayPlace(week, weekday), Design(1));
  const bool friday = weekday == MonthPage::kFriday;
  Colour ground = friday ? controls::palette::kGridBand : controls::palette::kFrame;
  if (browser_.Hovered() == Spot{Part::kDay, week, weekday}) ground = theme::kAccentGround;
  if (day == browser_.Cursor()) ground = theme::kAccent;
  const Colour line = day == browser_.Today() ? theme::kAccent : ground;
  canvas.RoundBox(place, Design(kCorner), ground, line);
  TextLook look;
  look.font = Look().Font();
  look.across = Across::kCentre;
  look.colour = friday ? theme::kRefused : theme::kText;
  if (!browser_.Page().InMonth(day)) look.colour = theme::kMutedText;
  if (day == browser_.Cursor()) look.colour = theme::kOnAccent;
  canvas.Text(std::to_wstring(day.Day()), place, look);
}

void MonthPopupWindow::OnKey(WPARAM key, bool control) {
  if (const auto known = KeyOf(key)) browser_.PressKey(*known, control);
}

LRESULT MonthPopupWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const POINT place{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  switch (message) {
    case WM_PAINT:
      Paint();
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      browser_.Press(SpotAt(place));
      return 0;
    case WM_LBUTTONUP:
      browser_.Release(SpotAt(place));
      return 0;
    case WM_MOUSEMOVE: {
      browser_.Hover(SpotAt(place));
      TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, Handle(), 0};
      TrackMouseEvent(&leaving);
      return 0;
    }
    case WM_MOUSELEAVE:
      browser_.Hover({});
      return 0;
    case WM_MOUSEWHEEL: {
      wheelRest_ += static_cast<short>(HIWORD(wParam));
      const int notches = wheelRest_ / WHEEL_DELTA;
      wheelRest_ -= notches * WHEEL_DELTA;
      if (notches != 0) browser_.Turn(-notches);
      return 0;
    }
    default:
      return PopupWindow::OnMessage(message, wParam, lParam);
  }
}

}  // namespace adapters::windows
