#pragma once

#include <cstddef>
#include <string>

#include "apps/tour/Script.h"

namespace tour {

/// Plays a planner's day from a host's timer: prints each step and saves numbered pictures.
class Tour {
 public:
  /// `folder` exists.
  Tour(Hands& hands, const std::string& folder)
      : hands_(hands), folder_(folder), player_(hands, folder), script_(PlannersDay(player_)) {}

  /// Plays a step and returns whether there are more. To be called from a timer that goes on in
  /// the loops of modal windows, where it plays the next step while the one that opened the window
  /// waits. A step that fails ends the program.
  bool Next();

 private:
  void Fail(const char* what);

  Hands& hands_;
  std::string folder_;
  Player player_;
  Script script_;
  std::size_t next_ = 0;
  int depth_ = -1;  // at which the step under way began; -1 while there is none
};

}  // namespace tour
