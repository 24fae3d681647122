// Calls on the grid beside the same calls on a plain one.

#include "Fuzz.h"
#include "controls/GridTrial.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Choices choices(data, size);
  gridtrial::Trial trial([&](int most) { return choices.Upto(most); });
  while (!choices.AtEnd()) trial.Step();  // a difference is an exception that nobody catches
  return 0;
}
