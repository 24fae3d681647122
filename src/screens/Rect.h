#pragma once

#include <algorithm>

namespace screens {

// Places on a pane: device pixels from its left and top edge, on whichever side its text begins.

struct Point {
  int x = 0;
  int y = 0;
};

/// A place between pixels.
struct Dot {
  double x = 0;
  double y = 0;
};

struct Size {
  int width = 0;
  int height = 0;
};

/// The right and bottom edges are the first pixels outside.
struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool Empty() const { return right <= left || bottom <= top; }
  Point Middle() const { return {(left + right) / 2, (top + bottom) / 2}; }
  bool Contains(Point at) const {
    return left <= at.x && at.x < right && top <= at.y && at.y < bottom;
  }
  /// What both cover; all edges 0 where they do not touch.
  Rect Common(const Rect& other) const {
    const Rect both{std::max(left, other.left), std::max(top, other.top),
                    std::min(right, other.right), std::min(bottom, other.bottom)};
    return both.Empty() ? Rect{} : both;
  }
  friend bool operator==(const Rect&, const Rect&) = default;
};

/// Dots of a sign in the middle of a place, in units from there.
inline auto Around(const Rect& place, double unit) {
  const Dot middle{(place.left + place.right) / 2.0, (place.top + place.bottom) / 2.0};
  return [middle, unit](double x, double y) -> Dot {
    return {middle.x + x * unit, middle.y + y * unit};
  };
}

}  // namespace screens
