#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <type_traits>

#include "screens/Palette.h"
#include "screens/Scale.h"
#include "screens/Surface.h"

namespace adapters::windows {

struct GdiDeleter {
  void operator()(void* object) const { DeleteObject(object); }
};
/// An object of GDI (HFONT, HBITMAP), deleted with this.
template <typename Handle>
using GdiObject = std::unique_ptr<std::remove_pointer_t<Handle>, GdiDeleter>;

/// Tahoma, of so many pixels to the em.
GdiObject<HFONT> TextFont(int pixels, screens::Weight weight);

/// A device context to measure texts in a font.
class MeasuringDc {
 public:
  explicit MeasuringDc(HFONT font) { SelectObject(dc_, font); }
  ~MeasuringDc() { DeleteDC(dc_); }
  MeasuringDc(const MeasuringDc&) = delete;
  MeasuringDc& operator=(const MeasuringDc&) = delete;
  HDC Get() const { return dc_; }

 private:
  HDC dc_ = CreateCompatibleDC(nullptr);
};

/// The scale of forms at this resolution: larger where the user has the system's texts larger than
/// they come.
screens::Scale ScaleFor(double dpi);

/// The suite's warm look at one scale, light or dark as the user has the windows of programs: the
/// fonts and colours that the windows share. Outlives them.
class Theme {
 public:
  /// At the resolution of the screen as this process sees it: 96 where Windows scales it.
  Theme();
  explicit Theme(screens::Scale scale);
  const screens::Scale& GetScale() const { return scale_; }
  /// Tahoma, 9 points at this scale.
  HFONT Font(screens::Weight weight = screens::Weight::kNormal) const {
    return (weight == screens::Weight::kBold ? bold_ : font_).get();
  }
  /// The same in another size, in pixels. Good until the next one is asked for.
  HFONT FontOf(int pixels, screens::Weight weight) const;
  screens::palette::Scheme Scheme() const { return scheme_; }
  bool Dark() const { return scheme_ == screens::palette::Scheme::kDark; }
  /// What stands for a colour of the palette.
  controls::Colour Shown(controls::Colour colour) const {
    return screens::palette::InScheme(colour, scheme_);
  }
  /// Height of a line of Font() in pixels.
  int LineHeight() const { return lineHeight_; }

 private:
  screens::Scale scale_;
  GdiObject<HFONT> font_;
  GdiObject<HFONT> bold_;
  mutable std::map<int, GdiObject<HFONT>> sized_;  // by pixels, those of bold ones negative
  int lineHeight_ = 0;
  screens::palette::Scheme scheme_;
};

}  // namespace adapters::windows
