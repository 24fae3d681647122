#pragma once

#include <windows.h>

#include <utility>

#include "adapters/windows/Scale.h"
#include "controls/Control.h"

namespace adapters::windows {

namespace theme {
// Colours that the forms do not name; a Colour is a COLORREF.
inline constexpr controls::Colour kText = controls::Rgb(54, 44, 36);
inline constexpr controls::Colour kMutedText = controls::Rgb(124, 108, 94);
inline constexpr controls::Colour kLine = controls::Rgb(203, 184, 166);
inline constexpr controls::Colour kFaintLine = controls::Rgb(232, 219, 204);
inline constexpr controls::Colour kField = controls::Rgb(255, 253, 250);
inline constexpr controls::Colour kAccent = controls::Rgb(166, 104, 58);
inline constexpr controls::Colour kDeepAccent = controls::Rgb(128, 80, 45);
inline constexpr controls::Colour kAccentGround = controls::Rgb(244, 214, 182);
inline constexpr controls::Colour kRefused = controls::Rgb(184, 56, 44);
inline constexpr controls::Colour kNoteGround = controls::Rgb(255, 243, 196);
inline constexpr controls::Colour kWhite = controls::Rgb(255, 255, 255);
}  // namespace theme

/// An object of GDI (font, pen, brush, bitmap, region), deleted with this.
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

/// The suite's warm look at one scale: the fonts that the windows share. Outlives them.
class Theme {
 public:
  explicit Theme(Scale scale = Scale());
  const Scale& GetScale() const { return scale_; }
  /// Tahoma, 9 points.
  HFONT Font() const { return font_.Get(); }
  HFONT BoldFont() const { return bold_.Get(); }
  /// For the badges of messages.
  HFONT LargeFont() const { return large_.Get(); }
  /// Height of a line of Font() in pixels.
  int LineHeight() const { return lineHeight_; }

 private:
  Scale scale_;
  GdiObject<HFONT> font_;
  GdiObject<HFONT> bold_;
  GdiObject<HFONT> large_;
  int lineHeight_ = 0;
};

}  // namespace adapters::windows
