#pragma once

#include <windows.h>

#include <utility>

#include "screens/Palette.h"
#include "screens/Scale.h"

namespace adapters::windows {

namespace theme {
// A Colour is a COLORREF.
using screens::palette::kAccent;
using screens::palette::kAccentGround;
using screens::palette::kBorder;
using screens::palette::kDeepAccent;
using screens::palette::kFaintLine;
using screens::palette::kField;
using screens::palette::kLine;
using screens::palette::kMutedText;
using screens::palette::kNoteGround;
using screens::palette::kOnAccent;
using screens::palette::kRefused;
using screens::palette::kText;
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
  HFONT Font() const { return font_.Get(); }
  HFONT BoldFont() const { return bold_.Get(); }
  /// Height of a line of Font() in pixels.
  int LineHeight() const { return lineHeight_; }

 private:
  screens::Scale scale_;
  GdiObject<HFONT> font_;
  GdiObject<HFONT> bold_;
  int lineHeight_ = 0;
};

}  // namespace adapters::windows
