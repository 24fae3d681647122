#include "screens/PixelPlace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "controls/Controls.h"
#include "support/LoneContainer.h"

// Edges are rounded on the form, so that what touches there touches in pixels.
TEST(PixelPlace, InAFrame_RoundsOnTheForm) {
  support::LoneContainer form;
  controls::Frame frame(form, "frame", "");
  controls::TextBox inner(frame, "inner");
  const auto edges = [&] {
    const auto place = screens::PlaceInContainer(
        inner, [](controls::Twips twips) { return static_cast<int>(std::lround(twips / 10)); });
    return std::vector<int>{place.left, place.top, place.right, place.bottom};
  };
  inner.Move(3, 6, 20, 20);
  EXPECT_THAT(edges(), testing::ElementsAre(0, 1, 2, 3));
  frame.Move(13, 17, 100, 100);
  EXPECT_THAT(edges(), testing::ElementsAre(1, 0, 3, 2));
}
