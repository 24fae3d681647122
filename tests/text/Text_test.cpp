#include "text/Text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "text/CellText.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(LeadingNumber, Text_IsReadUntilWhatFitsNoMore) {
  const std::string manyDigits(400, '9');
  // What gives a number: no digits in front; what ends a number; blanks, skipped wherever they
  // stand; exponents, which count only with digits; radix numbers, negative when they fill their
  // width; what is beyond a double.
  const std::pair<double, std::vector<std::string>> cases[] = {
      {0, {"",      " ",
           "abc",   "-",
           ".",     "-.",
           "+-1",   "e5",
           ".e5",   "inf",
           "nan",   "۱۲",
           ",5",    "(5)",
           "0x10",  "\x06H10",
           "&H",    "&5",
           "-&H10", "123e-400",
           "0e400", "0." + std::string(400, '0') + "1"}},
      {12, {"12۳"}},
      {1, {"1,234", "1\r2", "1e", "1e+", "1ee3", "1f3", "&o18", manyDigits + "e-400"}},
      {1.5, {"1.5.2", "1 . 5"}},
      {5, {"005.", ".5e1"}},
      {-0.5, {"-.5"}},
      {3, {"+3", "3-2"}},
      {123, {"\t1\n2 3"}},
      {-5, {"- 5"}},
      {0.01, {"1 e - 2"}},
      {31, {"& H 1 F"}},
      {1000, {"1E3", "1d3", "1.D+3", "1e3.5"}},
      {255, {"&hfF"}},
      {15, {"&HFG"}},
      {32767, {"&H7FFF"}},
      {-32768, {"&H8000"}},
      {-1, {"&HFFFF", "&HFFFFFFFF", "&O177777"}},
      {65536, {"&H10000"}},
      {1615198, {" 1 6 1 5 198th Street"}},
      {-2147483648.0, {"&H80000000"}},
      {4294967296.0, {"&H100000000"}},
      {kInfinity,
       {manyDigits, "&H" + std::string(400, 'F'), "1e99999999999999999999",
        "0.001e99999999999999999999"}},
      {-kInfinity, {"-" + manyDigits, "-1e400"}}};
  for (const auto& [number, texts] : cases) {
    for (const std::string& text : texts) EXPECT_EQ(text::LeadingNumber(text), number) << text;
  }
}

TEST(DecimalText, Numbers_AreWrittenAsStatementsCarryThem) {
  const std::pair<double, std::string_view> cases[] = {{-0.0, "0"},
                                                       {-1, "-1"},
                                                       {14020509, "14020509"},
                                                       {999999999999999, "999999999999999"},
                                                       {1e15, "1E+15"},
                                                       {0.1 + 0.2, "0.3"},
                                                       {-2.5, "-2.5"},
                                                       {1.0 / 3, "0.333333333333333"},
                                                       {0.0001, "0.0001"},
                                                       {0.00001, "1E-05"},
                                                       {-kInfinity, "-INF"},
                                                       {std::nan(""), "NAN"}};
  for (const auto& [value, expected] : cases) EXPECT_EQ(text::DecimalText(value), expected);
}

TEST(CellText, DaysTimesBytesAndReals_AreWrittenAsEveryEngineGivesThem) {
  std::string cell;
  text::AppendDay(cell, 622, 3, 21);
  text::AppendTimeOfDay(cell, 0, 0, 0);
  EXPECT_EQ(cell, "0622-03-21");
  text::AppendTimeOfDay(cell, 0, 5, 59);
  EXPECT_EQ(cell, "0622-03-21 00:05:59");
  cell = "0x";
  text::AppendHex(cell, std::as_bytes(std::span("\x0A\xF7", 2)));
  EXPECT_EQ(cell, "0x0AF7");
  EXPECT_EQ(text::RealText(0.1F), "0.1");
}

TEST(TrimAndReplace, Text_LosesBlanksAtItsEndsAndIsReplacedOnceFromTheLeft) {
  EXPECT_EQ(text::Trim("  a b  "), "a b");
  EXPECT_EQ(text::Trim("   "), "");
  EXPECT_EQ(text::Trim("\ta\n"), "\ta\n");
  EXPECT_EQ(text::Replace("it's 'so'", "'", "''"), "it''s ''so''");
  EXPECT_EQ(text::Replace("aaa", "aa", "b"), "ba");
}

TEST(Mid, Text_IsCountedInCharactersAndStaysInsideBrokenUtf8) {
  EXPECT_EQ(text::Mid("فروردين", 1, 3), "فرو");
  EXPECT_EQ(text::Mid("فروردين", 6, 20), "ين");
  EXPECT_EQ(text::Mid("abc", 2, 0), "");
  EXPECT_EQ(text::Length("a😀b"), 3U);
  EXPECT_EQ(text::Mid("\xD9", 1, 5), "\xD9");
  EXPECT_EQ(text::Length("\x80\x80"), 2U);
  EXPECT_EQ(text::Mid("\x80\x80", 3, 1), "");
}

}  // namespace
