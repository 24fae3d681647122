#include "controls/DateBox.h"

#include <stdexcept>

#include "controls/Controls.h"
#include "platform/RuntimeError.h"
#include "text/Text.h"

namespace controls {

namespace {

using calendar::SolarHijriDate;

std::string NoDate(std::string_view text) {
  return "تاريخ ”" + std::string(text) + "“ درست نيست.";
}

[[noreturn]] void RefuseValue(const std::string& why = {}) {
  throw platform::RuntimeError(platform::kInvalidPropertyValue, why + "Invalid property value");
}

}  // namespace

DateBox::DateBox(Container& parent, std::string name) : Control(parent, std::move(name)) {}

void DateBox::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

void DateBox::Assign(std::optional<SolarHijriDate> date) {
  if (date_ == date) return;
  date_ = date;
  Notify(Aspect::kText);
  if (onChange) onChange();
}

void DateBox::Clear() {
  Assign(std::nullopt);
}

void DateBox::SetText(std::string_view yyyymmdd) {
  if (yyyymmdd.empty()) return Clear();
  const auto date = SolarHijriDate::FromText(yyyymmdd);
  if (!date) RefuseValue(NoDate(yyyymmdd) + " ");
  Assign(date);
}

std::optional<std::chrono::sys_days> DateBox::Value() const {
  if (!date_) return std::nullopt;
  return date_->Days();
}

void DateBox::SetValue(std::chrono::sys_days gregorian) {
  std::optional<SolarHijriDate> date;
  try {
    date = SolarHijriDate::FromDays(gregorian);
  } catch (const std::out_of_range&) {
    RefuseValue();
  }
  Assign(date);
}

void DateBox::StepDays(int days) {
  if (date_) SetValue(date_->Days() + std::chrono::days(days));
}

std::string_view DateBox::WeekdayName() const {
  return date_ ? date_->WeekdayName() : std::string_view();
}

std::string DateBox::EnterTyped(std::string_view typed, Typing how) {
  if (!Enabled()) return {};
  const std::string_view trimmed = text::Trim(typed);
  const auto date = SolarHijriDate::FromTyped(trimmed);
  if (!date && !trimmed.empty()) {
    return NoDate(trimmed) + " تاريخ را به صورت سال/ماه/روز بنويسيد، مانند 1404/02/15.";
  }
  if (how == Typing::kLeft || date != date_) {
    Assign(date);
  } else if (onChange) {
    onChange();
  }
  return {};
}

void DateBox::PressKey(Key key, std::chrono::sys_days today) {
  if (!Enabled()) return;
  if (!date_) return SetValue(today);
  std::optional<SolarHijriDate> next;
  try {
    switch (key) {
      case Key::kUp:
        next = date_->PlusDays(1);
        break;
      case Key::kDown:
        next = date_->PlusDays(-1);
        break;
      case Key::kPageUp:
        next = date_->PlusMonths(1);
        break;
      case Key::kPageDown:
        next = date_->PlusMonths(-1);
        break;
    }
  } catch (const std::out_of_range&) {
    return;  // the end of the calendar
  }
  Assign(next);
}

}  // namespace controls
