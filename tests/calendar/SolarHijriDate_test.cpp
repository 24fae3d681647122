#include "calendar/SolarHijriDate.h"

#include <unicode/calendar.h>
#include <unicode/timezone.h>

#include <memory>
#include <stdexcept>
#include <tuple>

#include "calendar/Gregorian.h"
#include "support/Tables.h"

namespace {

using calendar::SolarHijriDate;
using std::chrono::sys_days;

SolarHijriDate Date(std::string_view text) {
  return SolarHijriDate::FromText(text).value();
}

std::string TextOf(const std::optional<SolarHijriDate>& date) {
  return date ? date->Text() : "none";
}

TEST(SolarHijriDate, EveryDayOf1206To1498_IsTheDayOfIcu) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::Calendar> icuCalendar(icu::Calendar::createInstance(
      icu::TimeZone::createTimeZone("GMT"), icu::Locale("fa_IR@calendar=persian"), status));
  ASSERT_TRUE(U_SUCCESS(status));
  const sys_days end = Date("1498/12/30").Days() + std::chrono::days(1);
  int count = 0;
  for (sys_days day = Date("1206/01/01").Days(); day < end; day += std::chrono::days(1), ++count) {
    icuCalendar->setTime(static_cast<double>(day.time_since_epoch().count()) * 86'400'000, status);
    const int year = icuCalendar->get(UCAL_YEAR, status);
    const int month = icuCalendar->get(UCAL_MONTH, status) + 1;
    const int dayOfMonth = icuCalendar->get(UCAL_DATE, status);
    ASSERT_TRUE(U_SUCCESS(status));
    const SolarHijriDate date = SolarHijriDate::FromDays(day);
    ASSERT_EQ(std::tuple(date.Year(), date.Month(), date.Day(), date.Weekday()),
              std::tuple(year, month, dayOfMonth, icuCalendar->get(UCAL_DAY_OF_WEEK, status) % 7));
    const auto back = SolarHijriDate::FromYearMonthDay(year, month, dayOfMonth);
    ASSERT_TRUE(back && back->Days() == day) << date.Text();
  }
  EXPECT_EQ(count, 293 * 365 + 71);
}

TEST(SolarHijriDate, YearsOfTheRule_HaveTheirLeapDayAndFollowOnEachOther) {
  std::optional<SolarHijriDate> lastDay;
  for (int year = 1; year <= 9377; ++year) {
    const auto leapDay = SolarHijriDate::FromYearMonthDay(year, 12, 30);
    ASSERT_EQ(leapDay.has_value(), (25 * year + 11) % 33 < 8) << year;
    const auto first = SolarHijriDate::FromYearMonthDay(year, 1, 1);
    if (lastDay) {
      ASSERT_EQ(first->Days() - lastDay->Days(), std::chrono::days(1)) << year;
    }
    lastDay = leapDay ? leapDay : SolarHijriDate::FromYearMonthDay(year, 12, 29);
    ASSERT_EQ(SolarHijriDate::FromDays(lastDay->Days()).Text(), lastDay->Text());
    ASSERT_EQ(SolarHijriDate::FromDays(first->Days()).Text(), first->Text());
  }
}

TEST(SolarHijriDate, DaysBeyondTheCalendar_AreRefused) {
  const sys_days first = SolarHijriDate::FromYearMonthDay(1, 1, 1)->Days();
  const sys_days last = Date("9377/12/30").Days();
  EXPECT_THROW(SolarHijriDate::FromDays(first - std::chrono::days(1)), std::out_of_range);
  EXPECT_THROW(SolarHijriDate::FromDays(last + std::chrono::days(1)), std::out_of_range);
  EXPECT_THROW(Date("9377/12/30").PlusDays(1), std::out_of_range);
  EXPECT_THROW(Date("9377/12/30").PlusMonths(1), std::out_of_range);
  EXPECT_THROW(Date("0001/01/01").PlusMonths(-1), std::out_of_range);
}

TEST(Calendar, Functions_MakeOfTextsWhatIsWrittenDown) {
  using Given = std::vector<std::string>;
  support::ExpectTable(
      "tests/calendar/dates.txt",
      {{"FromText", [](const Given& given) { return TextOf(SolarHijriDate::FromText(given[0])); }},
       {"FromTyped",
        [](const Given& given) { return TextOf(SolarHijriDate::FromTyped(given[0])); }},
       {"PlusMonths",
        [](const Given& given) {
          return Date(given[0]).PlusMonths(std::stoi(given.at(1))).Text();
        }},
       {"Names",
        [](const Given& given) {
          return std::string(Date(given[0]).WeekdayName()) + " " +
                 std::string(Date(given[0]).MonthName());
        }},
       {"WeekdayName",
        [](const Given& given) { return std::string(calendar::WeekdayName(std::stoi(given[0]))); }},
       {"MonthName",
        [](const Given& given) { return std::string(calendar::MonthName(std::stoi(given[0]))); }},
       {"FirstOfNextMonth",
        [](const Given& given) { return calendar::FirstOfNextMonth(given[0]); }},
       {"Gregorian", [](const Given& given) {
          const auto day = calendar::GregorianFromText(given[0]);
          return day ? calendar::GregorianText(*day) + " " + calendar::GregorianLiteral(*day)
                     : "none";
        }}});
}

}  // namespace
