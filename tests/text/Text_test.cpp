#include "text/Text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct NumberCase {
  std::string_view text;
  double number;
};

void ExpectNumbers(std::initializer_list<NumberCase> cases) {
  for (const NumberCase& c : cases) EXPECT_EQ(text::LeadingNumber(c.text), c.number) << c.text;
}

TEST(LeadingNumber, TextWithoutNumberInFront_IsZero) {
  ExpectNumbers({{"", 0},     {"   ", 0}, {"abc", 0}, {"a1", 0}, {"-", 0},   {"+", 0},   {".", 0},
                 {"-.", 0},   {"--1", 0}, {"+-1", 0}, {"e5", 0}, {".e5", 0}, {"inf", 0}, {"nan", 0},
                 {"True", 0}, {"۱۲", 0},  {"٣", 0},   {",5", 0}, {"$5", 0},  {"(5)", 0}});
}

TEST(LeadingNumber, NumberInFront_IsReadUntilWhatFitsNoMore) {
  ExpectNumbers({{"14020509", 14020509},
                 {"007", 7},
                 {"12abc", 12},
                 {"12۳", 12},
                 {"1,234", 1},
                 {"1.5.2", 1.5},
                 {"1..5", 1},
                 {"5.", 5},
                 {".5", 0.5},
                 {"-.5", -0.5},
                 {"+3", 3},
                 {"-17", -17},
                 {"3-2", 3},
                 {"1402/05/09", 1402},
                 {"1_000", 1},
                 {"0x10", 0}});
}

TEST(LeadingNumber, BlanksTabsAndLineFeeds_AreSkippedWhereverTheyStand) {
  ExpectNumbers({{"  42", 42},
                 {" 1 6 1 5 198th Street", 1615198},
                 {"\t1\n2 3", 123},
                 {"- 5", -5},
                 {"1 . 5", 1.5},
                 {"1 e - 2", 0.01},
                 {"& H 1 F", 31},
                 {"1\r2", 1},
                 {"1\xC2\xA0"
                  "2",
                  1}});
}

TEST(LeadingNumber, Exponent_CountsOnlyWithDigits) {
  ExpectNumbers({{"1e3", 1000},
                 {"1E3", 1000},
                 {"1d3", 1000},
                 {"1D+3", 1000},
                 {"25e-1", 2.5},
                 {".5e1", 5},
                 {"5.e1", 50},
                 {"1e", 1},
                 {"1e+", 1},
                 {"1ex", 1},
                 {"1ee3", 1},
                 {"1e3e3", 1000},
                 {"1e3.5", 1000},
                 {"2e0", 2},
                 {"1f3", 1}});
}

TEST(LeadingNumber, RadixNumbers_FillTheirWidthNegative) {
  ExpectNumbers({{"&H10", 16},
                 {"&hfF", 255},
                 {"&HFG", 15},
                 {"&O17", 15},
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
                 {"&HG", 0},
                 {"&", 0},
                 {"&5", 0},
                 {"-&H10", 0},
                 {"1&H10", 1}});
}

TEST(LeadingNumber, BeyondADouble_IsInfinityOrZero) {
  const std::string manyDigits(400, '9');
  EXPECT_EQ(text::LeadingNumber(manyDigits), kInfinity);
  EXPECT_EQ(text::LeadingNumber("-" + manyDigits), -kInfinity);
  EXPECT_EQ(text::LeadingNumber("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(text::LeadingNumber("&H" + std::string(400, 'F')), kInfinity);
  ExpectNumbers({{"1e400", kInfinity},
                 {"-1e400", -kInfinity},
                 {"1e99999999999999999999", kInfinity},
                 {"1e-400", 0},
                 {"123e-400", 0},
                 {"1e-99999999999999999999", 0},
                 {"0e400", 0},
                 {"0.001e99999999999999999999", kInfinity},
                 {"1.7976931348623157e308", std::numeric_limits<double>::max()}});
  EXPECT_EQ(text::LeadingNumber(manyDigits + "e-400"), 1);
}

TEST(DecimalText, Numbers_AreWrittenAsStatementsCarryThem) {
  const std::pair<double, std::string_view> cases[] = {{0, "0"},
                                                       {-0.0, "0"},
                                                       {17, "17"},
                                                       {-1, "-1"},
                                                       {14020509, "14020509"},
                                                       {2147483647, "2147483647"},
                                                       {100000000000000, "100000000000000"},
                                                       {999999999999999, "999999999999999"},
                                                       {1e15, "1E+15"},
                                                       {0.1, "0.1"},
                                                       {0.1 + 0.2, "0.3"},
                                                       {-2.5, "-2.5"},
                                                       {1234567.891, "1234567.891"},
                                                       {1.0 / 3, "0.333333333333333"},
                                                       {0.0001, "0.0001"},
                                                       {0.00001, "1E-05"},
                                                       {kInfinity, "INF"},
                                                       {-kInfinity, "-INF"},
                                                       {std::nan(""), "NAN"}};
  for (const auto& [value, expected] : cases) EXPECT_EQ(text::DecimalText(value), expected);
}

TEST(Trim, Text_LosesOnlyBlanksAtItsEnds) {
  EXPECT_EQ(text::Trim("  a b  "), "a b");
  EXPECT_EQ(text::Trim("   "), "");
  EXPECT_EQ(text::Trim(""), "");
  EXPECT_EQ(text::Trim("\ta\n"), "\ta\n");
}

TEST(Replace, Occurrences_AreReplacedOnceFromTheLeft) {
  EXPECT_EQ(text::Replace("1402/05/09", "/", ""), "14020509");
  EXPECT_EQ(text::Replace("it's 'so'", "'", "''"), "it''s ''so''");
  EXPECT_EQ(text::Replace("aaa", "aa", "b"), "ba");
  EXPECT_EQ(text::Replace("سلام", "لا", "-"), "س-م");
  EXPECT_EQ(text::Replace("", "x", "y"), "");
}

TEST(Mid, Persian_IsCountedInCharacters) {
  EXPECT_EQ(text::Mid("فروردين", 1, 3), "فرو");
  EXPECT_EQ(text::Mid("فروردين", 6, 2), "ين");
  EXPECT_EQ(text::Mid("فروردين", 6, 20), "ين");
  EXPECT_EQ(text::Mid("فروردين", 8, 2), "");
  EXPECT_EQ(text::Mid("1404/02/15", 6, 2), "02");
  EXPECT_EQ(text::Mid("abc", 2, 0), "");
  EXPECT_EQ(text::Length("فروردين"), 7U);
  EXPECT_EQ(text::Length("a😀b"), 3U);
  EXPECT_EQ(text::Length(""), 0U);
}

TEST(Mid, BrokenUtf8_StaysInsideTheText) {
  const std::string_view cut = "\xD9";
  EXPECT_EQ(text::Mid(cut, 1, 5), cut);
  EXPECT_EQ(text::Length("\x80\x80"), 1U);
  EXPECT_EQ(text::Mid("\x80\x80", 2, 1), "");
}

}  // namespace
