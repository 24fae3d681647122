#include "screens/WindowPlace.h"

#include <gtest/gtest.h>

namespace {

TEST(WindowPlace, Remembered_ComesBackOntoTheDeskOrNotAtAll) {
  // The second monitor stands to the left of the first, which has a bar at the bottom.
  const std::vector<screens::Rect> desk{{0, 0, 1280, 700}, {-1024, 0, 0, 768}};
  struct Case {
    const char* kept;
    const char* taken;  // "" for none
  };
  for (const Case& each :
       std::vector<Case>{{"100 50 800 600", "100 50 800 600"},
                         {"-900 50 800 600 maximised", "-900 50 800 600 maximised"},
                         {"1200 650 800 600", "480 100 800 600"},
                         {"-100 -40 800 600", "0 0 800 600"},
                         {"-10 10 4000 3000", "0 0 1280 700"},
                         {"1280 0 800 600", ""},
                         {"0 -600 800 600", ""},
                         {"100 50 0 600", ""},
                         {"100 50 99999999999 600", ""},
                         {"2000000 50 800 600", ""},
                         {"100 50 800", ""},
                         {"", ""}}) {
    const auto place = screens::PlaceOnDesk(each.kept, desk);
    EXPECT_EQ(place ? screens::PlaceText(*place) : "", each.taken) << each.kept;
  }
  EXPECT_FALSE(screens::PlaceOnDesk("100 50 800 600", {}));
  EXPECT_EQ(screens::PlaceOver({100, 100, 500, 300}, {200, 100}, desk[0]),
            (screens::Rect{200, 150, 400, 250}));
  EXPECT_EQ(screens::PlaceOver({1200, 600, 1280, 700}, {2000, 200}, desk[0]),
            (screens::Rect{0, 500, 1280, 700}));
}

}  // namespace
