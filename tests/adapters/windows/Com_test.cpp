#include "adapters/windows/Com.h"

#include <gtest/gtest.h>

namespace adapters::windows {
namespace {

TEST(Variant, Text_OfNumbersAndTexts_NeedsNoLocale) {
  EXPECT_EQ(Variant(2.5).Text(), "2.5");
  EXPECT_EQ(Variant(std::int32_t{-7}).Text(), "-7");
  EXPECT_EQ(Variant("كي‌ي").Text(), "كي‌ي");
  EXPECT_EQ(Variant::Null().Text(), "");
  EXPECT_THROW(Variant("x").Number(), platform::RuntimeError);
}

TEST(Dispatch, Create_OfAnUnknownComponent_IsError429) {
  try {
    Dispatch::Create("comNotice.comNTC");
    FAIL();
  } catch (const platform::RuntimeError& error) {
    EXPECT_EQ(error.Number(), platform::kCannotCreateComponent);
  }
}

}  // namespace
}  // namespace adapters::windows
