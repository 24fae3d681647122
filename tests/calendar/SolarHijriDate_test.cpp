#include "calendar/SolarHijriDate.h"

#include <gtest/gtest.h>
#include <unicode/calendar.h>
#include <unicode/timezone.h>

#include <memory>
#include <stdexcept>
#include <tuple>

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

TEST(FromText, OnlyTenCharactersThatAreADay_AreRead) {
  EXPECT_EQ(TextOf(SolarHijriDate::FromText("1403/12/30")), "1403/12/30");
  EXPECT_EQ(TextOf(SolarHijriDate::FromText("0001/01/01")), "0001/01/01");
  for (const std::string_view refused :
       {"", "1404/12/30", "1403/13/01", "1403/00/01", "1403/07/31", "1403/01/00", "0000/01/01",
        "9378/01/01", "1403-12-30", "1403/1/01", "1403/12/300", " 1403/12/3", "1403/1a/01",
        "+403/01/01", "۱۴۰۳/۱"}) {
    EXPECT_EQ(TextOf(SolarHijriDate::FromText(refused)), "none") << refused;
  }
}

TEST(FromTyped, WhatPeopleType_IsUnderstood) {
  for (const std::string_view typed :
       {"1404/02/05", "1404/2/5", "۱۴۰۴/۰۲/۰۵", "١٤٠٤/٢/٥", "1404-2-5", "1404.02.05", "1404 2 5",
        " 1404 / 02 / 05 ", "1404/2-5", "14040205", "۱۴۰۴۰۲۰۵", "04/2/5",
        "\u200F1404/02/05\u200E"}) {
    EXPECT_EQ(TextOf(SolarHijriDate::FromTyped(typed)), "1404/02/05") << typed;
  }
  EXPECT_EQ(TextOf(SolarHijriDate::FromTyped("49/1/1")), "1449/01/01");
  EXPECT_EQ(TextOf(SolarHijriDate::FromTyped("50/1/1")), "1350/01/01");
}

TEST(FromTyped, WhatIsNoDate_IsRefused) {
  for (const std::string_view typed :
       {"", "1403/13/40", "1404/1", "1404/1/1/1", "1404//1/1", "1404/1/", "4/1/1", "404/1/1",
        "140412/1/1", "1404/1/001", "1404021", "140402051", "1404/1/1x", "1404/-1/1", "5/2/1404",
        "0/0/0", "99999999999999999999/1/1"}) {
    EXPECT_EQ(TextOf(SolarHijriDate::FromTyped(typed)), "none") << typed;
  }
}

TEST(PlusMonths, LongMonthIntoShorter_GivesItsLastDay) {
  EXPECT_EQ(Date("1404/06/31").PlusMonths(1).Text(), "1404/07/30");
  EXPECT_EQ(Date("1404/11/30").PlusMonths(1).Text(), "1404/12/29");
  EXPECT_EQ(Date("1404/12/15").PlusMonths(1).Text(), "1405/01/15");
  EXPECT_EQ(Date("1404/01/31").PlusMonths(-1).Text(), "1403/12/30");
  EXPECT_EQ(Date("1404/03/31").PlusMonths(-27).Text(), "1401/12/29");
}

TEST(Names, WeekdaysAndMonths_AreNamedByNumber) {
  EXPECT_EQ(Date("1404/01/01").WeekdayName(), "جمعه");
  EXPECT_EQ(calendar::WeekdayName(0), "شنبه");
  EXPECT_EQ(calendar::WeekdayName(1).substr(0, 2), "\u064A");  // Arabic yeh, as the texts have it
  EXPECT_EQ(Date("1404/02/01").MonthName(), "ارديبهشت");
  for (const int other : {12, 13, 0, -1}) EXPECT_EQ(calendar::MonthName(other), "اسفند") << other;
}

TEST(FirstOfNextMonth, DateTexts_GiveTheNextMonthsFirstDay) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"1402/12/15", "1403/01/01"}, {"1402/08/15", "1402/09/01"},
      {"1402/09/01", "1402/10/01"}, {"1402/11/01", "1402/12/01"},
      {"1402/13/01", ""},           {"1402/12", "1403/01/01"},
      {"1402/00/01", "1402/01/01"}, {"", "01/01"},
      {"abc", "abc01/01"}};
  for (const auto& [date, expected] : cases) {
    EXPECT_EQ(calendar::FirstOfNextMonth(date), expected) << date;
  }
}

}  // namespace
