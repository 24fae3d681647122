#pragma once

#include <windows.h>

#include <utility>

#include "screens/Scale.h"
#include "screens/Surface.h"

namespace adapters::windows {

/// An object of GDI (font, bitmap), deleted with this.
template <typename Handle>
class GdiObject {
 public:
  GdiObject() = default;
  explicit GdiObject(Handle handle) : handle_(handle) {}
  GdiObject(GdiObject&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  GdiObject& operator=(GdiObject&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~GdiObject() {
    if (handle_ != nullptr) DeleteObject(handle_);
  }
  Handle Get() const { return handle_; }

 private:
  Handle handle_ = nullptr;
};

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

/// The suite's warm look at one scale: the fonts that the windows share. Outlives them.
class Theme {
 public:
  /// At the resolution of the screen as this process sees it: 96 where Windows scales it.
  Theme();
  explicit Theme(screens::Scale scale);
  const screens::Scale& GetScale() const { return scale_; }
  /// Tahoma, 9 points at this scale.
  HFONT Font(screens::Weight weight = screens::Weight::kNormal) const {
    return (weight == screens::Weight::kBold ? bold_ : font_).Get();
  }
  /// Height of a line of Font() in pixels.
  int LineHeight() const { return lineHeight_; }

 private:
  screens::Scale scale_;
  GdiObject<HFONT> font_;
  GdiObject<HFONT> bold_;
  int lineHeight_ = 0;
};

}  // namespace adapters::windows
