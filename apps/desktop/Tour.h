#pragma once

#include <QDir>
#include <QTimer>

#include "Hands.h"
#include "apps/tour/Tour.h"

namespace desktop {

/// Plays a planner's day from the event loop, and leaves it at the end.
class Tour {
 public:
  /// Throws tour::Failure when the folder cannot be made.
  Tour(tour::Play play, Hands::Open open, const QDir& folder);

  /// The steps begin as soon as an event loop runs.
  void Start() { timer_.start(); }
  /// Every step was played and none failed.
  bool Ended() const { return ended_; }

 private:
  void Next();

  Hands hands_;
  tour::Tour tour_;
  QTimer timer_;
  int waited_ = 0;
  bool ended_ = false;
};

}  // namespace desktop
