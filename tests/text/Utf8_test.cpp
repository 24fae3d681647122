#include "text/Utf8.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

namespace {

TEST(Utf8, Text_IsTakenCharacterByCharacterAndWhatIsNoneByteByByte) {
  const std::pair<std::string, std::u32string> cases[] = {
      {"aé\u200Cي€😀\U0010FFFF", U"aé\u200Cي€😀\U0010FFFF"},
      {std::string("n\0m", 3), std::u32string(U"n\0m", 3)},
      {"\x7F\u0080\u07FF\u0800\uFFFF\U00010000", U"\x7F\u0080\u07FF\u0800\uFFFF\U00010000"},
      {"بازارياب ۱۲ x", U"بازارياب ۱۲ x"},
      {"\xD9", U"\uFFFD"},                        // cut
      {"\xF0\x9F\x98z", U"\uFFFD\uFFFD\uFFFDz"},  // cut by another
      {"\xC0\x80\x80", U"\uFFFD\uFFFD\uFFFD"},    // longer than need be; a stray byte
      {"\xE0\x9F\xBF", U"\uFFFD\uFFFD\uFFFD"},
      {"\xED\xA0\x80", U"\uFFFD\uFFFD\uFFFD"},            // a surrogate
      {"\xF4\x90\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond the last
      {"\xF5\x80\x80\x80گ", U"\uFFFD\uFFFD\uFFFD\uFFFDگ"},
  };
  for (const auto& [given, expected] : cases) {
    std::u32string taken;
    for (std::size_t at = 0; at < given.size();) taken += text::TakeCharacter(given, at);
    EXPECT_EQ(taken, expected) << given;
    std::u16string units(given.size(), u'\0');
    units.resize(static_cast<std::size_t>(text::PutUtf16(given, units.data()) - units.data()));
    EXPECT_EQ(units, std::filesystem::path(expected).u16string()) << given;
    if (taken.find(text::kReplacement) != taken.npos) continue;
    std::string put(4 * taken.size(), '\0');
    char* end = put.data();
    for (const char32_t character : taken) end = text::PutUtf8(end, character);
    EXPECT_EQ(std::string(put.data(), end), given);
  }
}

}  // namespace
