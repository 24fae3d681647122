#include "text/PersianOrder.h"

#include <gtest/gtest.h>
#include <unicode/coll.h>
#include <unicode/unistr.h>

#include <compare>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

int Sign(std::weak_ordering order) {
  return std::is_lt(order) ? -1 : std::is_gt(order) ? 1 : 0;
}

int Sign(int order) {
  return (order > 0) - (order < 0);
}

std::string KeyOf(std::string_view s) {
  std::string key = "x";  // stays where it stands
  text::AppendSortKey(s, key);
  return key;
}

// Both ways to compare, which must agree.
int Compare(std::string_view a, std::string_view b) {
  const int order = Sign(text::ComparePersian(a, b));
  EXPECT_EQ(Sign(KeyOf(a).compare(KeyOf(b))), order) << a << " | " << b;
  EXPECT_EQ(Sign(text::ComparePersian(b, a)), -order) << a << " | " << b;
  return order;
}

std::string RandomText(std::mt19937& random, const std::vector<std::string>& characters,
                       std::size_t most) {
  std::string s;
  for (std::size_t left = random() % (most + 1); left > 0; --left) {
    s += characters[random() % characters.size()];
  }
  return s;
}

const std::vector<std::string> kPersianLetters = {
    "آ", "ا", "ب", "پ", "ت", "ث", "ج", "چ", "ح", "خ", "د", "ذ", "ر", "ز", "ژ", "س", "ش",
    "ص", "ض", "ط", "ظ", "ع", "غ", "ف", "ق", "ک", "گ", "ل", "م", "ن", "و", "ه", "ی"};

}  // namespace

TEST(PersianOrder, compare_textsFromFirstToLast_everyPairInThatOrder) {
  const std::vector<std::string> ordered = {
      "", " ", "  ", "\xE2\x80\x8C", "\t", "!", "(", "-", ".", "/", "_", "«", "،", "؟", "0", "1",
      // A digit counts as a character, not as a part of a number.
      "10", "2", "9", "A", "B", "Z", "a", "aB", "ab", "z",
      // Words: the end of a text comes before any character.
      "آب", "آباد", "آبان", "ابر", "احمد", "احمد رضا", "احمدی", "ءب", "أب", "إب", "ئب", "باران",
      "پارس", "ورامین", "همدان", "ةب", "یزد",
      // Without a rank, by code point; the last is no UTF-8.
      "é", "Ж", "\u2000", "\u2070", "€", "漢", "\xF0\x9F\x98\x80", "\xFF"};
  for (std::size_t i = 0; i < ordered.size(); ++i) {
    for (std::size_t j = 0; j < ordered.size(); ++j) {
      EXPECT_EQ(Compare(ordered[i], ordered[j]), Sign(static_cast<int>(i) - static_cast<int>(j)))
          << ordered[i] << " | " << ordered[j];
    }
  }
}

TEST(PersianOrder, compare_kindsOfYehKafAndDigits_equalAndHideNothingBehindThem) {
  EXPECT_EQ(Compare("علی کریم ۱۳۹۲/۰۷", "علي كريم ١٣٩٢/07"), 0);
  EXPECT_LT(Compare("علي ب", "علی پ"), 0);
}

TEST(PersianOrder, sortKey_anyBytesOfAnyLength_orderOfCompare) {
  std::mt19937 random(20130821);
  std::vector<std::string> characters = kPersianLetters;
  for (const char* more :
       {" ", "1", "۱", "ي", "ك", "A", "\xE2\x80\x8C", "é", "漢", "\xF0\x9F\x98\x80", "\x80", "\xC3",
        "\xE2\x80", "\xF4\x90\x80\x80", "\xFF"}) {
    characters.emplace_back(more);
  }
  characters.emplace_back(1, '\0');
  for (int i = 0; i < 20000; ++i) {
    // Beginnings in common let the comparison reach the later characters; the long ones pass the
    // key's buffer.
    const std::string beginning = RandomText(random, characters, i % 10 == 0 ? 300 : 4);
    Compare(beginning + RandomText(random, characters, 3),
            beginning + RandomText(random, characters, 3));
  }
}

TEST(PersianOrder, compare_wordsOfPersianLetters_orderOfIcu) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::Collator> icu(
      icu::Collator::createInstance(icu::Locale("fa", "IR"), status));
  ASSERT_TRUE(U_SUCCESS(status));
  // The first level of ICU's order: it parts the kinds of yeh, kaf and digits on lower ones only.
  icu->setStrength(icu::Collator::PRIMARY);
  std::vector<std::string> characters = kPersianLetters;
  for (const char* more : {"ي", "ك", " ", "/", "0", "7", "۷", "٧", "۹"})
    characters.emplace_back(more);

  std::mt19937 random(13920821);
  for (int i = 0; i < 50000; ++i) {
    const std::string beginning = RandomText(random, characters, 3);
    const std::string a = beginning + RandomText(random, characters, 2);
    const std::string b = beginning + RandomText(random, characters, 2);
    const int expected =
        icu->compare(icu::UnicodeString::fromUTF8(a), icu::UnicodeString::fromUTF8(b), status);
    ASSERT_TRUE(U_SUCCESS(status));
    ASSERT_EQ(Compare(a, b), Sign(expected)) << a << " | " << b;
  }
}
