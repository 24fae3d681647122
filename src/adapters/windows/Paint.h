#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "adapters/windows/Theme.h"

namespace adapters::windows {

/// Puts an object of GDI into a device context and the one before back.
class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
  ~Selected() { SelectObject(dc_, before_); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC dc_;
  HGDIOBJ before_;
};

/// A device context for measuring, with `font` in it.
class Measuring {
 public:
  explicit Measuring(HFONT font) : dc_(GetDC(nullptr)), before_(SelectObject(dc_, font)) {}
  ~Measuring() {
    SelectObject(dc_, before_);
    ReleaseDC(nullptr, dc_);
  }
  Measuring(const Measuring&) = delete;
  Measuring& operator=(const Measuring&) = delete;
  HDC Dc() const { return dc_; }

 private:
  HDC dc_;
  HGDIOBJ before_;
};

enum class Across { kRight, kCentre, kLeft };

/// How a line of text is put into its place. One too long for it ends in "...".
struct TextLook {
  HFONT font = nullptr;
  controls::Colour colour = theme::kText;
  Across across = Across::kRight;
  bool leftToRight = false;  // reading order of the whole text
};

/// What everything is drawn with, on any device context. Colours are 0x00BBGGRR, places pixels;
/// a right or bottom edge is the first pixel outside.
class Canvas {
 public:
  explicit Canvas(HDC dc) : dc_(dc) {}
  HDC Dc() const { return dc_; }

  void Fill(const RECT& area, controls::Colour colour) const;
  /// One pixel wide, along x or y; the end is left out.
  void Line(int fromX, int fromY, int toX, int toY, controls::Colour colour) const;
  void Frame(const RECT& area, controls::Colour colour, int width = 1) const;
  /// A box with rounded, smooth corners; what is outside of them stays as it was.
  void RoundBox(const RECT& area, int radius, controls::Colour fill, controls::Colour line,
                int lineWidth = 1) const;
  /// A smooth stroke through points (in pixels, from the corners of pixels).
  struct Point {
    double x;
    double y;
  };
  void Stroke(const std::vector<Point>& points, double width, controls::Colour colour) const;
  void Text(std::wstring_view text, const RECT& area, const TextLook& look) const;
  /// Keeps everything that follows within `area`, until this canvas' user calls Unclip.
  void Clip(const RECT& area) const {
    IntersectClipRect(dc_, area.left, area.top, area.right, area.bottom);
  }
  void Unclip() const { SelectClipRgn(dc_, nullptr); }

 private:
  void Blend(int x, int y, controls::Colour colour, double share) const;
  HDC dc_;
};

/// Width of one line of text with the font that is in `dc`.
int TextWidth(HDC dc, std::wstring_view text);
/// The text, shortened to end in "..." if it is too wide.
std::wstring Shortened(HDC dc, std::wstring_view text, int width);

/// A canvas in memory: what is drawn on it appears in `area` of the target at once when this ends.
/// Coordinates are the target's; the ground is undefined at first.
class Buffer : public Canvas {
 public:
  Buffer(HDC target, const RECT& area);
  ~Buffer();
  Buffer(const Buffer&) = delete;
  Buffer& operator=(const Buffer&) = delete;

 private:
  HDC target_;
  RECT area_;
  GdiObject<HBITMAP> bitmap_;
  HGDIOBJ before_;
};

/// BeginPaint to EndPaint.
class Painting {
 public:
  explicit Painting(HWND window) : window_(window) { BeginPaint(window, &paint_); }
  ~Painting() { EndPaint(window_, &paint_); }
  Painting(const Painting&) = delete;
  Painting& operator=(const Painting&) = delete;

 protected:
  HWND window_;
  PAINTSTRUCT paint_{};
};

/// WM_PAINT through a buffer.
class PaintSession : private Painting, public Buffer {
 public:
  explicit PaintSession(HWND window) : Painting(window), Buffer(paint_.hdc, paint_.rcPaint) {
    GetClientRect(window, &area_);
  }
  /// The window's whole client area.
  const RECT& Area() const { return area_; }
  /// The part of it that needs painting; nothing else appears.
  const RECT& Dirty() const { return paint_.rcPaint; }

 private:
  RECT area_{};
};

/// WM_NCPAINT through a buffer: the part of a window around its client area, with places from the
/// window's corner. Only what is outside of the client area appears.
class FramePainting {
 public:
  explicit FramePainting(HWND window);
  ~FramePainting() { ReleaseDC(window_, dc_); }
  FramePainting(const FramePainting&) = delete;
  FramePainting& operator=(const FramePainting&) = delete;
  HDC Dc() const { return dc_; }
  const RECT& Area() const { return area_; }

 private:
  HWND window_;
  HDC dc_;
  RECT area_{};
};

}  // namespace adapters::windows
