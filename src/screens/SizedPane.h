#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "screens/Pane.h"

namespace screens {

/// What all panes have in common: the host, the size, and how lengths and texts are measured.
class SizedPane : public Pane {
 public:
  void Resized(Size size) override;

 protected:
  explicit SizedPane(PaneHost& host) : host_(host) {}

  PaneHost& Host() const { return host_; }
  Rect Area() const { return {0, 0, size_.width, size_.height}; }
  int Design(double pixels) const { return host_.GetScale().Design(pixels); }
  void RepaintAll() { host_.Repaint(Area()); }

  int TextWidth(std::string_view text, Weight weight = Weight::kNormal) const {
    return host_.TextWidth(text, weight);
  }
  std::vector<std::string> Wrapped(std::string_view text, int width,
                                   Weight weight = Weight::kNormal) const;
  /// One below the other from the top of `room` on.
  void PaintLines(Surface& surface, const std::vector<std::string>& lines, const Rect& room,
                  const TextStyle& style) const;

  /// Fine wheels turn by parts of a step: the whole steps that those so far add up to.
  int WholeSteps(double turned);

 private:
  PaneHost& host_;
  Size size_;
  double wheelRest_ = 0;
};

}  // namespace screens
