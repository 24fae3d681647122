#include <gtest/gtest.h>

#include <random>

#include "controls/GridTrial.h"

namespace {

TEST(FlexGridModel, randomCalls_besidePlainGrid_sameToEveryReaderAndView) {
  for (unsigned seed = 1; seed <= 12; ++seed) {
    std::mt19937 random(seed);
    gridtrial::Trial trial(
        [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); });
    for (int step = 0; step < 3000; ++step) {
      ASSERT_NO_THROW(trial.Step()) << "seed " << seed << ", step " << step;
    }
  }
}

}  // namespace
