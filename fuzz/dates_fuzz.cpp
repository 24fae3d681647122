// Dates as a person types them: a box holds a day of the calendar or what it held before, and every
// day that it can hold survives each way of writing it.

#include "Fuzz.h"
#include "calendar/Gregorian.h"
#include "controls/DateBox.h"
#include "controls/FlexGridHarness.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = fuzz::Text(data, size);
  LoneContainer container;
  controls::DateBox box(container, "box");
  box.SetText("1404/01/01");
  const std::string refusal = box.EnterTyped(input);
  if (!refusal.empty()) {
    fuzz::Require(box.Text() == "1404/01/01", "a refused date changes nothing");
  } else if (!box.IsEmpty()) {
    const calendar::SolarHijriDate date = *box.Date();
    fuzz::Require(calendar::SolarHijriDate::FromTyped(date.Text()) == date, "typed again");
    fuzz::Require(calendar::SolarHijriDate::FromText(date.Text()) == date, "read again");
    fuzz::Require(calendar::SolarHijriDate::FromDays(date.Days()) == date, "by its day");
    fuzz::Require(calendar::DaysInMonth(date.Year(), date.Month()) >= date.Day(), "in its month");
    const std::string next = calendar::FirstOfNextMonth(date.Text());
    // The years before 1000 lose their zeros there, as required.
    const auto follows = calendar::SolarHijriDate::FromText(next);
    fuzz::Require(
        date.Year() < 999 || date.Year() == 9377 || (follows && follows->Days() > date.Days()),
        "a month follows", next);
    for (int key = 0; key < 4; ++key) {
      box.PressKey(static_cast<controls::DateBox::Key>(key), {});
    }
    const std::string day = calendar::GregorianText(date.Days());
    fuzz::Require(calendar::GregorianFromText(day) == date.Days(), "as the server's", day);
  }
  calendar::FirstOfNextMonth(input);
  const auto day = calendar::GregorianFromText(input);
  fuzz::Require(!day || calendar::GregorianFromText(calendar::GregorianText(*day)) == day,
                "a server's date reads back");
  return 0;
}
