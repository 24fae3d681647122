#include "calendar/Gregorian.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;

TEST(GregorianFromText, OnlyDateColumnTexts_GiveTheirDay) {
  constexpr sys_days kDay = 2024y / 2 / 29;
  for (const std::string_view text : {"2024-02-29", "2024-02-29 23:59:59", "2024-02-29T10:00"}) {
    EXPECT_EQ(calendar::GregorianFromText(text), kDay) << text;
  }
  for (const std::string_view text : {"", "2025-03-2", "2025/03/21", "2025-02-29", "2025-13-01",
                                      "2025-00-10", "2025-03-211", " 2025-03-21", "x025-03-21"}) {
    EXPECT_FALSE(calendar::GregorianFromText(text)) << text;
  }
}

TEST(GregorianText, Day_IsWrittenWithAllItsDigits) {
  EXPECT_EQ(calendar::GregorianText(2025y / 3 / 1), "2025-03-01");
  EXPECT_EQ(calendar::GregorianLiteral(2025y / 3 / 1), "20250301");
  EXPECT_EQ(calendar::GregorianText(622y / 12 / 31), "0622-12-31");
}

}  // namespace
