#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/tour/Player.h"

namespace tour {

/// What is played, step by step. What opens a modal window ends its step: the next one is played
/// while that window is up.
class Script {
 public:
  struct Step {
    std::string what;
    std::function<void()> act;
  };
  void Add(std::string what, std::function<void()> act) {
    steps_.push_back({std::move(what), std::move(act)});
  }
  const std::vector<Step>& Steps() const { return steps_; }

 private:
  std::vector<Step> steps_;
};

/// A planner's day: a new program, a batch of visits, search and export, final and back, print,
/// document, deletion. The editor is open and empty on an untouched sample office.
Script PlannersDay(Player& player);

}  // namespace tour
