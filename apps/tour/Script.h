#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/tour/Player.h"

namespace tour {

/// What is played, step by step: a step may open a modal form, in whose loop the next one plays, so
/// a screen calls PlayNext from a timer that it starts anew beforehand.
class Script {
 public:
  void Add(std::string what, std::function<void()> act) {
    steps_.push_back({std::move(what), std::move(act)});
  }
  bool Ended() const { return next_ == steps_.size(); }
  /// Prints the step's number and what it does, then plays it; throws what it throws.
  void PlayNext();

 private:
  struct Step {
    std::string what;
    std::function<void()> act;
  };
  std::vector<Step> steps_;
  std::size_t next_ = 0;
};

/// Throws Failure "expected ..." unless it holds.
void Expect(bool holds, const std::string& what);

/// A planner's day: a new program, a batch of visits, search and export, final and back, print,
/// document, deletion. The editor is open and empty on an untouched sample office.
Script PlannersDay(Player& player);

}  // namespace tour
