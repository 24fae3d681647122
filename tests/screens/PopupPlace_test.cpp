#include "screens/PopupPlace.h"

#include <gtest/gtest.h>

namespace screens {
namespace {

TEST(PopupPlace, AtTheEdgesOfTheRoom_StaysInside) {
  const Rect room{0, 0, 1000, 700};
  EXPECT_EQ(PopupPlace({600, 100, 800, 125}, {300, 200}, 2, room), (Rect{500, 127, 800, 327}));
  EXPECT_EQ(PopupPlace({600, 600, 800, 625}, {300, 200}, 2, room), (Rect{500, 398, 800, 598}));
  EXPECT_EQ(PopupPlace({10, 100, 90, 125}, {300, 900}, 2, room), (Rect{0, 0, 300, 900}));
}

}  // namespace
}  // namespace screens
