#include "screens/ErrorTexts.h"

#include <string_view>

namespace screens {

namespace {

constexpr const char* kTitle = "خطا";
constexpr const char* kStopped = "انصراف";

std::string WhatNext(AfterError after) {
  return after == AfterError::kGoesOn ? "\nبرنامه ادامه مي‌يابد."
                                      : "\nبرنامه بسته مي‌شود.";
}

/// Whether the bytes at `at` begin a letter of the Arabic script, or one of its presentation forms.
bool IsArabicScript(std::string_view utf8, std::size_t at) {
  const auto byte = [&](std::size_t i) {
    return i < utf8.size() ? static_cast<unsigned char>(utf8[i]) : 0U;
  };
  if (byte(at) >= 0xD8 && byte(at) <= 0xDD) return true;                    // U+0600 to U+077F
  return byte(at) == 0xEF && byte(at + 1) >= 0xAD && byte(at + 1) <= 0xBB;  // U+FB40 to U+FEFF
}

/// Where the Persian sentences at the beginning end; 0 when there are none. What is set apart
/// behind them (platform/ServerErrors.h) is the server's, whatever letters it holds.
std::size_t PersianEnd(std::string_view description) {
  description = description.substr(0, description.find("\n\u202A"));
  std::size_t end = 0;
  for (std::size_t at = 0; at < description.size(); ++at) {
    if (IsArabicScript(description, at)) end = at + (description[at] == '\xEF' ? 3 : 2);
  }
  if (end > 0 && end < description.size() && description[end] == '.') ++end;
  return end;
}

}  // namespace

ErrorTexts TextsOf(const platform::RuntimeError& error, AfterError after) {
  const std::string number = std::to_string(error.Number());
  const std::string description = error.Description();
  const std::size_t persian = PersianEnd(description);
  ErrorTexts texts;
  texts.asked = error.Number() == platform::kUserInterrupt && persian > 0;
  texts.title = texts.asked ? kStopped : kTitle;
  // The mark keeps a minus sign before its digits.
  if (!texts.asked) {
    texts.sentence = "خطاي شماره \u200E" + number + " هنگام اجرا رخ داد.";
    if (persian > 0) texts.sentence += "\n";
  }
  texts.sentence += description.substr(0, persian) + WhatNext(after);
  texts.technical = "Run-time error '" + number + "'";
  const std::size_t rest = description.find_first_not_of(" \t\r\n", persian);
  if (rest != std::string::npos) texts.technical += ": " + description.substr(rest);
  if (!error.Source().empty()) texts.technical += " (" + error.Source() + ")";
  return texts;
}

ErrorTexts TextsOf(const std::exception& error, AfterError after) {
  return {
      .title = kTitle,
      .sentence =
          std::string("خطايي پيش‌بيني‌نشده هنگام اجرا رخ داد.") +
          WhatNext(after),
      .technical = std::string("Unexpected error: ") + error.what()};
}

}  // namespace screens
