#include "screens/WrapText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "text/Utf8.h"

namespace screens {
namespace {

/// Of a screen on which each character is one wide, but joiners and marks of direction nothing.
int Width(std::string_view text) {
  int width = 0;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = text::TakeCharacter(text, at);
    width += c >= 0x200B && c <= 0x202E ? 0 : 1;
  }
  return width;
}

TEST(WrapText, AnyText_BreaksAtLineEndsAndBlanksAndWithinLongWordsAlone) {
  const struct {
    const char* text;
    int width;
    std::vector<std::string> lines;
  } kCases[] = {
      {"", 5, {""}},
      {"برنامه ادامه مي‌يابد.", 12, {"برنامه ادامه", "مي‌يابد."}},
      {"a  b c\r\n\n  d \n", 4, {"a  b", "c", "", "d", ""}},
      {"ab cdefghij k", 4, {"ab", "cdef", "ghij", "k"}},
      {"كتابخانه", 3, {"كتا", "بخا", "نه"}},
      {"مي\u200Cشود", 2, {"مي\u200C", "شو", "د"}},  // a joiner stays with its letter
      {"a b", 0, {"a", "b"}},
      {"ab\xFF\xD8", 1, {"a", "b", "\xFF", "\xD8"}},
      {"«\u202A/a/bcd\u202C» و", 5, {"«\u202A/a/b\u202C", "\u202Acd\u202C» و"}},
      {"\u202Aa b\nc\u202C", 1, {"\u202Aa\u202C", "\u202Ab", "c\u202C"}},
  };
  for (const auto& each : kCases) {
    EXPECT_THAT(WrapText(each.text, each.width, Width), testing::ElementsAreArray(each.lines))
        << each.text;
  }
}

}  // namespace
}  // namespace screens
