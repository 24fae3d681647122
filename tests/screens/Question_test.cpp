#include "screens/Question.h"

#include <gtest/gtest.h>

namespace screens {
namespace {

TEST(Question, Messages_AreShownByTheirTitlesWithPathsSetApart) {
  EXPECT_EQ(SignOf(KindOfMessage("خطا در ثبت")), "!");
  EXPECT_EQ(SignOf(KindOfMessage("اشکال در انتقال به اکسل")), "!");
  EXPECT_EQ(SignOf(KindOfMessage("اشکال")), "i");
  const struct {
    const char* message;
    const char* shown;
  } kCases[] = {
      {"فايل «/tmp/فروش.txt» و «نارمك» هست.", "فايل «\u202A/tmp/فروش.txt\u202C» و «نارمك» هست."},
      {"جدول «\u202AtblX\u202C»", "جدول «\u202AtblX\u202C»"},
      {"«a", "«a"}};
  for (const auto& each : kCases) EXPECT_EQ(ShownMessage(each.message), each.shown);
}

}  // namespace
}  // namespace screens
