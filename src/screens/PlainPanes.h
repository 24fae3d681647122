#pragma once

#include <string>
#include <vector>

#include "screens/ControlPane.h"

namespace screens {

/// A label in each of its looks; one that is high enough has several lines.
class LabelPane : public PaneOfKind<controls::Label> {
 public:
  LabelPane(controls::Label& label, PaneHost& host) : PaneOfKind(label, host) {}
  void Paint(Surface& surface, const Rect& dirty) const override;
  Accessible Describe() const override;

 private:
  void PaintSign(Surface& surface, controls::Colour ground) const;
  void PaintCentred(Surface& surface, Rect area, const TextStyle& style) const;
};

/// The line around a frame, which its caption interrupts.
class FramePane : public PaneOfKind<controls::Frame> {
 public:
  FramePane(controls::Frame& frame, PaneHost& host) : PaneOfKind(frame, host) {}
  void Paint(Surface& surface, const Rect& dirty) const override;
  Accessible Describe() const override;
};

/// A bar that fills from the right, as one reads; it wanders while nobody can tell how far the work
/// has come.
class ProgressPane : public PaneOfKind<controls::ProgressBar> {
 public:
  ProgressPane(controls::ProgressBar& bar, PaneHost& host) : PaneOfKind(bar, host) {}
  void Changed(const controls::Change& change) override;
  void Paint(Surface& surface, const Rect& dirty) const override;
  Accessible Describe() const override;

 private:
  int step_ = 0;  // of the wandering
};

}  // namespace screens
