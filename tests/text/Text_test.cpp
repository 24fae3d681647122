#include "text/Text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(LeadingNumber, Text_IsReadUntilWhatFitsNoMore) {
  const std::string manyDigits(400, '9');
  const std::pair<std::string, double> cases[] = {
      // No number in front.
      {"", 0},
      {" ", 0},
      {"abc", 0},
      {"-", 0},
      {".", 0},
      {"-.", 0},
      {"+-1", 0},
      {"e5", 0},
      {".e5", 0},
      {"inf", 0},
      {"nan", 0},
      {"۱۲", 0},
      {",5", 0},
      {"(5)", 0},
      // A number, and what ends it.
      {"14020509", 14020509},
      {"007", 7},
      {"12۳", 12},
      {"1,234", 1},
      {"1.5.2", 1.5},
      {"5.", 5},
      {"-.5", -0.5},
      {"+3", 3},
      {"3-2", 3},
      {"1402/05/09", 1402},
      {"0x10", 0},
      // Blanks, tabs and line feeds are skipped wherever they stand.
      {" 1 6 1 5 198th Street", 1615198},
      {"\t1\n2 3", 123},
      {"- 5", -5},
      {"1 . 5", 1.5},
      {"1 e - 2", 0.01},
      {"& H 1 F", 31},
      {"1\r2", 1},
      // An exponent counts only with digits.
      {"1E3", 1000},
      {"1d3", 1000},
      {"1D+3", 1000},
      {".5e1", 5},
      {"5.e1", 50},
      {"1e", 1},
      {"1e+", 1},
      {"1ee3", 1},
      {"1e3.5", 1000},
      {"1f3", 1},
      // Radix numbers that fill their width are negative.
      {"&hfF", 255},
      {"&HFG", 15},
      {"&o18", 1},
      {"&H7FFF", 32767},
      {"&H8000", -32768},
      {"&HFFFF", -1},
      {"&H10000", 65536},
      {"&HFFFFFFFF", -1},
      {"&H80000000", -2147483648.0},
      {"&H100000000", 4294967296.0},
      {"&O177777", -1},
      {"&H", 0},
      {"&5", 0},
      {"-&H10", 0},
      // Beyond a double.
      {manyDigits, kInfinity},
      {"-" + manyDigits, -kInfinity},
      {manyDigits + "e-400", 1},
      {"0." + std::string(400, '0') + "1", 0},
      {"&H" + std::string(400, 'F'), kInfinity},
      {"-1e400", -kInfinity},
      {"1e99999999999999999999", kInfinity},
      {"123e-400", 0},
      {"0e400", 0},
      {"0.001e99999999999999999999", kInfinity}};
  for (const auto& [text, number] : cases) EXPECT_EQ(text::LeadingNumber(text), number) << text;
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
  EXPECT_EQ(text::Mid("فروردين", 8, 2), "");
  EXPECT_EQ(text::Mid("abc", 2, 0), "");
  EXPECT_EQ(text::Length("a😀b"), 3U);
  EXPECT_EQ(text::Mid("\xD9", 1, 5), "\xD9");
  EXPECT_EQ(text::Length("\x80\x80"), 1U);
  EXPECT_EQ(text::Mid("\x80\x80", 2, 1), "");
}

}  // namespace
