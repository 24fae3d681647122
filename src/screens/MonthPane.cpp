#include "screens/MonthPane.h"

#include <algorithm>
#include <string>

#include "screens/Palette.h"

namespace screens {

using calendar::SolarHijriDate;

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

}  // namespace

MonthPane::MonthPane(PaneHost& host) : SizedPane(host) {
  browser_.onChange = [this] {
    RepaintAll();
    Host().Announce(Tidings::kFocus, FocusedPart());
  };
}

Size MonthPane::Wanted() const {
  return {MonthPage::kDays * Design(kCellWidth) + 2 * Design(kMargin),
          Design(kTodayTop + kTodayHeight + kMargin)};
}

Rect MonthPane::DayPlace(int week, int weekday) const {
  const int right = Wanted().width - Design(kMargin) - weekday * Design(kCellWidth);
  return {right - Design(kCellWidth), Design(kDaysTop + week * kCellHeight), right,
          Design(kDaysTop + (week + 1) * kCellHeight)};
}

Rect MonthPane::PlaceOf(const Spot& spot) const {
  const int width = Wanted().width;
  const int margin = Design(kMargin);
  const int arrow = Design(kArrowWidth);
  const auto headButton = [&](int left) -> Rect {
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

MonthPane::Spot MonthPane::SpotAt(Point place) const {
  return MonthBrowser::Find([&](const Spot& spot) { return PlaceOf(spot).Contains(place); });
}

void MonthPane::Paint(Surface& surface, const Rect& dirty) const {
  surface.Fill(dirty, palette::kFrame);
  PaintHead(surface);
  for (int week = 0; week < MonthPage::kWeeks; ++week) {
    for (int weekday = 0; weekday < MonthPage::kDays; ++weekday) PaintDay(surface, week, weekday);
  }
  const bool hovered = browser_.Hovered().part == Part::kToday;
  surface.Text(browser_.TodayText(), PlaceOf({Part::kToday}),
               {hovered ? palette::kAccent : palette::kMutedText, Side::kCentre});
}

void MonthPane::PaintArrow(Surface& surface, Part part, bool toRight, int strokes) const {
  const Rect place = PlaceOf({part});
  if (browser_.Hovered().part == part) {
    surface.RoundBox(place, Design(kCorner), palette::kAccentGround, palette::kAccentGround);
  }
  const double unit = Host().GetScale().Unit();
  const double tip = (toRight ? 1.5 : -1.5) * unit;
  const double y = (place.top + place.bottom) / 2.0;
  for (int i = 0; i < strokes; ++i) {
    const double x = (place.left + place.right) / 2.0 + (strokes == 1 ? 0 : (5 * i - 2.5) * unit);
    surface.Stroke({{x - tip, y - 4 * unit}, {x + tip, y}, {x - tip, y + 4 * unit}}, 1.5 * unit,
                   palette::kText);
  }
}

void MonthPane::PaintHead(Surface& surface) const {
  PaintArrow(surface, Part::kYearBack, true, 2);
  PaintArrow(surface, Part::kMonthBack, true, 1);
  PaintArrow(surface, Part::kMonthOn, false, 1);
  PaintArrow(surface, Part::kYearOn, false, 2);
  const Rect on = PlaceOf({Part::kMonthOn});
  const Rect back = PlaceOf({Part::kMonthBack});
  surface.Text(browser_.Page().Title(), {on.right, on.top, back.left, on.bottom},
               {.colour = palette::kText, .side = Side::kCentre, .weight = Weight::kBold});
  for (int weekday = 0; weekday < MonthPage::kDays; ++weekday) {
    const bool friday = weekday == MonthPage::kFriday;
    surface.Text(MonthPage::WeekdayLetter(weekday), DayPlace(-1, weekday),
                 {friday ? palette::kRefused : palette::kMutedText, Side::kCentre});
  }
  const int y = Design(kDaysTop) - 1;
  surface.Fill({Design(kMargin), y, Wanted().width - Design(kMargin), y + 1}, palette::kLine);
}

void MonthPane::PaintDay(Surface& surface, int week, int weekday) const {
  const SolarHijriDate day = browser_.Page().DayAt(week, weekday);
  Rect place = DayPlace(week, weekday);
  const int inset = Design(1);
  place = {place.left + inset, place.top + inset, place.right - inset, place.bottom - inset};
  const bool friday = weekday == MonthPage::kFriday;
  const bool chosen = day == browser_.Cursor();
  controls::Colour ground = friday ? palette::kGridBand : palette::kFrame;
  if (browser_.Hovered() == Spot{Part::kDay, week, weekday}) ground = palette::kAccentGround;
  if (chosen) ground = palette::kAccent;
  const bool today = day == browser_.Today();
  surface.RoundBox(place, Design(kCorner), ground, today ? palette::kAccent : ground,
                   today ? std::max(1, Design(1.5)) : 1);
  controls::Colour ink = friday ? palette::kRefused : palette::kText;
  if (!browser_.Page().InMonth(day)) ink = palette::kMutedText;
  if (chosen) ink = palette::kOnAccent;
  surface.Text(std::to_string(day.Day()), place, {ink, Side::kCentre});
}

void MonthPane::Pointer(const PointerEvent& event) {
  const bool left = event.button == MouseButton::kLeft;
  switch (event.action) {
    case PointerEvent::Action::kPress:
      if (left) browser_.Press(SpotAt(event.place));
      break;
    case PointerEvent::Action::kMove:
      browser_.Hover(SpotAt(event.place));
      break;
    case PointerEvent::Action::kRelease:
      if (left) browser_.Release(SpotAt(event.place));
      break;
    case PointerEvent::Action::kLeave:
      browser_.Hover({});
      break;
  }
}

void MonthPane::Wheel(const WheelEvent& event) {
  const int notches = WholeSteps(event.up);
  if (notches != 0) browser_.Turn(-notches);
}

SolarHijriDate MonthPane::DayOf(int part) const {
  return browser_.Page().DayAt(part / MonthPage::kDays, part % MonthPage::kDays);
}

Accessible MonthPane::Describe() const {
  return {.role = Role::kTable,
          .name = browser_.Page().Title(),
          .place = Area(),
          .rows = MonthPage::kWeeks,
          .columns = MonthPage::kDays};
}

Accessible MonthPane::DescribePart(int part) const {
  const SolarHijriDate day = DayOf(part);
  Accessible described{.role = Role::kCell, .name = std::string(day.WeekdayName())};
  described.value = day.Text();
  if (day == browser_.Today()) described.description = "امروز";
  described.action = "برگزيدن";
  described.row = part / MonthPage::kDays;
  described.column = part % MonthPage::kDays;
  described.place = DayPlace(described.row, described.column);
  described.selectable = true;
  described.selected = described.focused = day == browser_.Cursor();
  return described;
}

int MonthPane::PartAt(Point place) const {
  const Spot spot = SpotAt(place);
  return spot.part == Part::kDay ? spot.week * MonthPage::kDays + spot.weekday : -1;
}

int MonthPane::FocusedPart() const {
  for (int part = 0; part < PartCount(); ++part) {
    if (DayOf(part) == browser_.Cursor()) return part;
  }
  return -1;
}

void MonthPane::Act(int part) {
  if (part < 0 || part >= PartCount()) return;
  const Spot day{Part::kDay, part / MonthPage::kDays, part % MonthPage::kDays};
  browser_.Press(day);
  browser_.Release(day);
}

}  // namespace screens
