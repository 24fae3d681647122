#pragma once

#include <vector>

#include "controls/Control.h"

namespace tools {

/// How a form's controls follow its size: each takes a share of every change of width and height.
class ResizeRules {
 public:
  struct Shares {
    double width = 0;   // of the form's change of width, added to the control's width
    double left = 0;    // of the form's change of width, added to its left
    double height = 0;  // of the form's change of height, added to its height
    double top = 0;     // of the form's change of height, added to its top
  };

  /// `lowestWidth` and `lowestHeight`, twips: while the form is smaller in either, nothing moves.
  ResizeRules(controls::Twips lowestWidth, controls::Twips lowestHeight)
      : lowestWidth_(lowestWidth), lowestHeight_(lowestHeight) {}

  void Add(controls::Control& control, Shares shares) { rules_.push_back({&control, shares}); }
  /// The size for which the controls are placed now.
  void Start(controls::Twips width, controls::Twips height);
  /// Shifts every control by its share of the change since the last size that was applied.
  void Apply(controls::Twips width, controls::Twips height);

 private:
  struct Rule {
    controls::Control* control;
    Shares shares;
  };
  controls::Twips lowestWidth_;
  controls::Twips lowestHeight_;
  controls::Twips width_ = 0;
  controls::Twips height_ = 0;
  std::vector<Rule> rules_;
};

}  // namespace tools
