#pragma once

#include <windows.h>

#include "Hands.h"
#include "apps/tour/Tour.h"

namespace activexhost {

/// Plays a planner's day from the message loop, and ends it after the last step.
class Tour {
 public:
  /// `folder` UTF-8, as Windows writes it, existing.
  Tour(tour::Play play, Hands::Open open, const std::string& folder);
  ~Tour();
  Tour(const Tour&) = delete;
  Tour& operator=(const Tour&) = delete;

  void Start();
  bool Ended() const { return ended_; }

 private:
  static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR id, DWORD time);
  void Next();

  Hands hands_;
  tour::Tour tour_;
  UINT_PTR timer_ = 0;
  bool ended_ = false;
};

}  // namespace activexhost
