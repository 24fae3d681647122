#include "text/Fold.h"

#include <gtest/gtest.h>

namespace {

TEST(LatinDigits, PersianAndArabicDigits_BecomeLatinAndNothingElseChanges) {
  EXPECT_EQ(text::LatinDigits("٠١٢٣٤٥٦٧٨٩۰۱۲۳۴۵۶۷۸۹"), "01234567890123456789");
  EXPECT_EQ(text::LatinDigits("كد ۵ي\xD9\x8E A\xDB"), "كد 5ي\xD9\x8E A\xDB");
}

// Texts that are the same to a person who looks something up, each a group.
TEST(FoldForLookup, SameToAPerson_FoldsToTheSameText) {
  const std::vector<std::vector<std::string_view>> groups = {
      {"علی کریمی", "علي كريمي", "عل\u0649 کريم\u0649", "  علی   کریمی ", "علی\u00A0کریمی"},
      {"آذر", "اذر", "أذر", "إذر", "\u0671ذر", "ا\u0653ذر"},
      {"فاطمه", "فاطمة"},
      {"مسئول", "مسيول", "مسی\u0654ول"},
      {"مؤمن", "مومن", "مو\u0654من"},
      {"خانهٔ", "خان\u06C0", "خانه"},
      {"میرود", "می\u200Cرود", "ميـــرود", "\u200Fميرود\u200E", "مِيرَوَد", "\uFEFFميرود"},
      {"Abc 12", "ABC ۱۲", "abc\t١٢", "abc\n12"},
  };
  for (const auto& group : groups) {
    for (const std::string_view member : group) {
      EXPECT_EQ(text::FoldForLookup(member), text::FoldForLookup(group.front())) << member;
    }
  }
}

TEST(FoldForLookup, DifferentTexts_StayDifferent) {
  EXPECT_NE(text::FoldForLookup("پارس"), text::FoldForLookup("بارس"));
  EXPECT_NE(text::FoldForLookup("گل"), text::FoldForLookup("کل"));
  EXPECT_NE(text::FoldForLookup("علی رضا"), text::FoldForLookup("علیرضا"));
  EXPECT_EQ(text::FoldForLookup(" \u200C ـ "), "");
  EXPECT_EQ(text::FoldForLookup("😀É"), "😀É");
}

TEST(FoldForLookup, BrokenUtf8_PassesThrough) {
  for (const std::string_view broken :
       {"\xD9", "a\xE2\x80", "\xD9\xD9\x85", "\xF0\x9F\x98", "\x80"}) {
    EXPECT_EQ(text::FoldForLookup(broken), broken);
  }
}

}  // namespace
