#include "screens/Palette.h"

#include <gtest/gtest.h>

#include <set>

namespace screens {
namespace {

// Roles are told apart by their light colour, tinted or not.
TEST(Palette, Dark_EachColourHasItsOwn) {
  std::set<controls::Colour> light;
  std::set<controls::Colour> dark;
  for (const controls::Colour colour :
       {palette::kFormGround, palette::kButton, palette::kFrame, palette::kGridRow,
        palette::kGridBand, palette::kMark, palette::kText, palette::kField}) {
    for (const controls::Colour shade : {colour, palette::Tinted(colour)}) {
      EXPECT_TRUE(light.insert(shade).second) << shade;
      const controls::Colour shown = palette::InScheme(shade, palette::Scheme::kDark);
      EXPECT_NE(shown, shade);
      EXPECT_TRUE(dark.insert(shown).second) << shade;
      EXPECT_EQ(palette::InScheme(shade, palette::Scheme::kLight), shade);
    }
  }
}

}  // namespace
}  // namespace screens
