#include "report/Filling.h"

#include <chrono>
#include <utility>

#include "calendar/SolarHijriDate.h"
#include "report/Fill.h"

namespace report {

namespace {

using Calendar = ReportGroup::Calendar;
using calendar::SolarHijriDate;

constexpr std::int64_t kDaysOfWeek = 7;

std::int64_t Number(std::chrono::sys_days day) {
  return day.time_since_epoch().count();
}

SolarHijriDate DateOf(std::int64_t day) {
  return SolarHijriDate::FromDays(
      std::chrono::sys_days(std::chrono::days(static_cast<std::chrono::days::rep>(day))));
}

std::int64_t DaysInMonthOf(std::int64_t firstDay) {
  const SolarHijriDate date = DateOf(firstDay);
  return calendar::DaysInMonth(date.Year(), date.Month());
}

void AppendEscaped(std::string& text, std::string_view value) {
  for (const char c : value) {
    if (c == '&') {
      text += "&amp;";
    } else if (c == '<') {
      text += "&lt;";
    } else if (c == '>') {
      text += "&gt;";
    } else if (c == '"') {
      text += "&quot;";
    } else {
      text += c;
    }
  }
}

}  // namespace

Filling::Filling(std::shared_ptr<ReportData> data, const TaggedText& text, Escape escape)
    : data_(std::move(data)), nodes_(Compile(*data_, text)), escape_(escape) {}

bool Filling::Next(std::string& text, int& line) {
  for (;;) {
    const Node& node = nodes_[place_.node];
    std::size_t next = place_.node + 1;
    switch (node.kind) {
      case Node::Kind::kText:
        text += node.text;
        line = node.line;
        place_.node = next;
        return true;
      case Node::Kind::kField: {
        const std::string value = WithDigits(Value(node.field), data_->report.ShownDigits());
        place_.node = next;
        if (value.empty()) continue;
        if (escape_ == Escape::kHtml) {
          AppendEscaped(text, value);
        } else {
          text += value;
        }
        line = node.line;
        return true;
      }
      case Node::Kind::kIf:
      case Node::Kind::kUnless:
        if (Value(node.field).empty() == (node.kind == Node::Kind::kIf)) next = node.other;
        break;
      case Node::Kind::kItems:
        if (!Enter(node)) next = node.other;
        break;
      case Node::Kind::kNoItems:
        if (HasItems(node)) next = node.other;
        break;
      case Node::Kind::kEndOfItem:
        if (GoOn()) next = node.other + 1;
        break;
      case Node::Kind::kEnd:
        break;
      case Node::Kind::kStop:
        return false;
    }
    place_.node = next;
  }
}

const QueryRows::Level& Filling::LevelOf(const Node& section) const {
  return RowsOf(section).Levels()[section.level];
}

/// Whether a row of the query lies in the item.
bool Filling::IsIn(const Turn& turn, std::size_t row) const {
  const Node& section = SectionOf(turn);
  const QueryRows& rows = RowsOf(section);
  const QueryRows::Level& level = LevelOf(section);
  if (section.level + 1 == rows.Levels().size()) return row == turn.row;
  if (level.calendar == Calendar::kNone) {
    if (!rows.AreAlike(row, turn.row, level)) return false;
  } else if (level.calendar == Calendar::kMonth) {
    if (MonthOf(section, row) != turn.day) return false;
  } else {
    const std::int64_t length = level.calendar == Calendar::kWeek ? kDaysOfWeek : 1;
    const std::int64_t day = Number(rows.Date(row, level).Days());
    if (day < turn.day || day >= turn.day + length) return false;
  }
  return section.around == Node::kNone || IsIn(Around(turn), row);
}

/// Whether there is such a row, and it lies in the item that the section is of.
bool Filling::IsAround(const Node& section, std::size_t row) const {
  return RowsOf(section).Has(row) &&
         (section.around == Node::kNone || IsIn(place_.turns[section.around], row));
}

std::size_t Filling::FirstRow(const Node& section) const {
  return section.around == Node::kNone ? 0 : place_.turns[section.around].row;
}

/// The row after the item's last.
std::size_t Filling::EndOf(Turn& turn) const {
  if (turn.end == 0) {
    std::size_t row = turn.row;
    while (RowsOf(SectionOf(turn)).Has(row) && IsIn(turn, row)) ++row;
    turn.end = row;
  }
  return turn.end;
}

bool Filling::HasItems(const Node& section) const {
  // A month has weeks and a week days, with rows or without.
  const Calendar by = LevelOf(section).calendar;
  return by == Calendar::kWeek || by == Calendar::kDay || IsAround(section, FirstRow(section));
}

bool Filling::Enter(const Node& section) {
  if (!HasItems(section)) return false;
  Turn turn{.node = place_.node, .row = FirstRow(section), .number = 1};
  const Calendar by = LevelOf(section).calendar;
  if (by == Calendar::kMonth) turn.day = MonthOf(section, turn.row);
  if (by == Calendar::kWeek || by == Calendar::kDay) turn.day = place_.turns[section.around].day;
  if (by == Calendar::kWeek) turn.day -= DateOf(turn.day).Weekday();
  place_.turns.push_back(turn);
  return true;
}

/// To the section's next item; without one, out of the section.
bool Filling::GoOn() {
  Turn& item = place_.turns.back();
  const Node& section = SectionOf(item);
  const Calendar by = LevelOf(section).calendar;
  Turn next{.node = item.node, .row = EndOf(item), .number = item.number + 1};
  bool isLast = false;
  if (by == Calendar::kWeek || by == Calendar::kDay) {
    const Turn& around = Around(item);
    const std::int64_t length = by == Calendar::kWeek ? kDaysOfWeek : 1;
    const std::int64_t days = by == Calendar::kWeek ? DaysInMonthOf(around.day) : kDaysOfWeek;
    next.day = item.day + length;
    isLast = next.day >= around.day + days;
    RequireOrder(item, isLast, next);
  } else {
    isLast = !IsAround(section, next.row);
    if (!isLast && by == Calendar::kMonth) next.day = MonthOf(section, next.row);
  }
  if (!isLast) {
    item = next;
    return true;
  }
  if (section.around != Node::kNone) place_.turns[section.around].end = next.row;
  place_.turns.pop_back();
  return false;
}

/// Weeks and days are gone through once: a row that comes too late would be left out.
void Filling::RequireOrder(const Turn& item, bool isLast, const Turn& next) const {
  const Node& section = SectionOf(item);
  if (!IsAround(section, next.row)) return;
  const QueryRows& rows = RowsOf(section);
  const QueryRows::Level& level = LevelOf(section);
  if (isLast || Number(rows.Date(next.row, level).Days()) < next.day) {
    rows.RefuseOrder(next.row, level);
  }
}

/// The first day of the month that the row's date is of.
std::int64_t Filling::MonthOf(const Node& section, std::size_t row) const {
  const SolarHijriDate date = RowsOf(section).Date(row, LevelOf(section));
  return Number(date.Days()) - (date.Day() - 1);
}

/// Of an item that is a day: from 1; 0 where it is not of the month around it.
std::int64_t Filling::DayOfMonth(const Turn& day) const {
  const std::int64_t month = Around(Around(day)).day;
  const std::int64_t number = day.day - month + 1;
  return number >= 1 && number <= DaysInMonthOf(month) ? number : 0;
}

std::string Filling::Value(const Field& field) {
  if (field.kind == Field::Kind::kToday) return data_->today;
  Turn& turn = place_.turns[field.turn];
  switch (field.kind) {
    case Field::Kind::kColumn:
      return std::string(RowsOf(SectionOf(turn)).Text(turn.row, field.column));
    case Field::Kind::kRowNumber:
      return std::to_string(turn.number);
    case Field::Kind::kFirst:
      return turn.number == 1 ? "1" : "";
    case Field::Kind::kRowCount:
      return std::to_string(EndOf(turn) - turn.row);
    default:
      return DateValue(field, turn);
  }
}

std::string Filling::DateValue(const Field& field, const Turn& turn) const {
  switch (field.kind) {
    case Field::Kind::kColumnWeekday: {
      const auto date =
          SolarHijriDate::FromText(RowsOf(SectionOf(turn)).Text(turn.row, field.column));
      return std::string(date ? date->WeekdayName() : std::string_view());
    }
    case Field::Kind::kMonthName:
      return std::string(DateOf(turn.day).MonthName());
    case Field::Kind::kYear:
      return std::to_string(DateOf(turn.day).Year());
    case Field::Kind::kDay:
      return DayOfMonth(turn) == 0 ? "" : std::to_string(DayOfMonth(turn));
    case Field::Kind::kDate:
      return DayOfMonth(turn) == 0 ? "" : DateOf(turn.day).Text();
    case Field::Kind::kDateWeekday:
      if (DayOfMonth(turn) == 0) return {};
      [[fallthrough]];
    case Field::Kind::kWeekday:
      return std::string(calendar::WeekdayName(static_cast<int>(turn.number) - 1));
    case Field::Kind::kFriday:
      return turn.number == kDaysOfWeek ? "1" : "";
    default:
      return {};
  }
}

}  // namespace report
