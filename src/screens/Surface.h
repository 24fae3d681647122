#pragma once

#include <initializer_list>
#include <string_view>
#include <utility>

#include "controls/Control.h"
#include "screens/Palette.h"
#include "screens/Rect.h"

namespace screens {

enum class Side { kRight, kCentre, kLeft };
enum class Direction { kRightToLeft, kLeftToRight };
enum class Weight { kNormal, kBold };

/// How a text stands in its box, always in the middle between top and bottom.
struct TextStyle {
  controls::Colour colour = 0;
  Side side = Side::kRight;
  /// In which direction the whole text is read; letters of the other script run their own way.
  Direction direction = Direction::kRightToLeft;
  Weight weight = Weight::kNormal;
  /// Of the letters, in device pixels to the em; 0 is the font of the screens. A text of a size is
  /// never shortened: what is wider than its box goes on beyond it, on the side away from `side`.
  double size = 0;
};

/// What panes are painted on; a toolkit brings one. Lengths are device pixels, colours come from
/// screens/Palette.h, texts are UTF-8 in the font of the screens.
class Surface {
 public:
  explicit Surface(palette::Scheme scheme = palette::Scheme::kLight) : scheme_(scheme) {}
  virtual ~Surface() = default;

  virtual void Fill(const Rect& area, controls::Colour colour) = 0;
  /// One line of text; what does not fit its box ends in "…" unless its style gives it a size.
  virtual void Text(std::string_view text, const Rect& box, const TextStyle& style) = 0;
  /// A smooth line through points with round ends: signs are made of it.
  virtual void Stroke(std::initializer_list<Dot> points, double width, controls::Colour colour) = 0;
  /// A box with smooth round corners, its line along the inside of the edges; what lies outside of
  /// the corners stays as it was. A radius of half its height makes a disc.
  virtual void RoundBox(const Rect& area, int radius, controls::Colour ground,
                        controls::Colour line, int lineWidth = 1) = 0;
  /// What follows stays within `area` too, until the PopClip that belongs to it. Use Clipped.
  virtual void PushClip(const Rect& area) = 0;
  virtual void PopClip() = 0;

  /// A frame of this thickness along the inside of the edges.
  void Frame(const Rect& area, controls::Colour colour, int thickness = 1) {
    Fill({area.left, area.top, area.right, area.top + thickness}, colour);
    Fill({area.left, area.bottom - thickness, area.right, area.bottom}, colour);
    Fill({area.left, area.top + thickness, area.left + thickness, area.bottom - thickness}, colour);
    Fill({area.right - thickness, area.top + thickness, area.right, area.bottom - thickness},
         colour);
  }

 protected:
  /// What a colour is on this surface.
  controls::Colour Shown(controls::Colour colour) const {
    return palette::InScheme(colour, scheme_);
  }

 private:
  friend class OnPaper;
  palette::Scheme scheme_;
};

/// While it lives colours are what they are on paper, also on a dark screen.
class OnPaper {
 public:
  explicit OnPaper(Surface& surface)
      : surface_(surface), before_(std::exchange(surface.scheme_, palette::Scheme::kLight)) {}
  ~OnPaper() { surface_.scheme_ = before_; }
  OnPaper(const OnPaper&) = delete;
  OnPaper& operator=(const OnPaper&) = delete;

 private:
  Surface& surface_;
  palette::Scheme before_;
};

/// Keeps the painting within an area while it lives.
class Clipped {
 public:
  Clipped(Surface& surface, const Rect& area) : surface_(surface) { surface_.PushClip(area); }
  ~Clipped() { surface_.PopClip(); }
  Clipped(const Clipped&) = delete;
  Clipped& operator=(const Clipped&) = delete;

 private:
  Surface& surface_;
};

}  // namespace screens
