#include "apps/tour/Tour.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <utility>

namespace tour {

bool Tour::Next() {
  // Whatever else lets the timer through, such as long work, is still the step under way.
  if (depth_ >= 0 && hands_.Depth() <= depth_) return true;
  if (next_ == script_.Steps().size()) {
    std::printf("The tour is over: %d pictures in %s.\n", player_.Pictures(), folder_.c_str());
    return false;
  }
  const Script::Step& step = script_.Steps()[next_++];
  std::printf("%2zu. %s\n", next_, step.what.c_str());
  std::fflush(stdout);
  const int outer = std::exchange(depth_, hands_.Depth());
  try {
    step.act();
  } catch (const std::exception& error) {
    Fail(error.what());
  }
  depth_ = outer;
  return true;
}

void Tour::Fail(const char* what) {
  std::fprintf(stderr, "The tour stopped: %s\n", what);
  try {
    player_.Picture("stopped-here", 1);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
  // Loops of modal windows are nested; the program ends without unwinding their events.
  std::fflush(nullptr);
  std::_Exit(EXIT_FAILURE);
}

}  // namespace tour
