#pragma once

#include <windows.h>

#include <initializer_list>
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

/// How a text is put into its place. A line too long for it ends in "...".
struct TextLook {
  HFONT font = nullptr;
  controls::Colour colour = theme::kText;
  Across across = Across::kRight;
  bool wrapped = false;      // on several lines, centred up and down together
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
  void Stroke(std::initializer_list<Point> points, double width, controls::Colour colour) const;
  /// A small downward arrow around `centre`, as in a drop-down box.
  void DropArrow(POINT centre, const Scale& scale, controls::Colour colour) const;
  void Text(std::wstring_view text, const RECT& area, const TextLook& look) const;
  /// Keeps everything that follows within `area`, until this canvas' user calls Unclip.
  void Clip(const RECT& area) const {
    IntersectClipRect(dc_, area.left, area.top, area.right, area.bottom);
  }
  void Unclip() const { SelectClipRgn(dc_, nullptr); }

 private:
  void TextLine(std::wstring_view line, const RECT& area, int top, const TextLook& look) const;
  void Blend(int x, int y, controls::Colour colour, double share) const;
  HDC dc_;
};

/// Width of one line of text with the font that is in `dc`.
int TextWidth(HDC dc, std::wstring_view text);
/// The text's lines at a width: broken at line ends and, where too long, at blanks.
std::vector<std::wstring> WrapText(HDC dc, std::wstring_view text, int width);
/// The text, shortened to end in "..." if it is too wide.
std::wstring Shortened(HDC dc, std::wstring_view text, int width);

/// WM_PAINT: what is drawn on the canvas meanwhile appears at once when this ends. The ground is
/// undefined at first.
class PaintSession : public Canvas {
 public:
  explicit PaintSession(HWND window);
  ~PaintSession();
  PaintSession(const PaintSession&) = delete;
  PaintSession& operator=(const PaintSession&) = delete;
  /// The window's whole client area.
  const RECT& Area() const { return area_; }
  /// The part of it that needs painting.
  const RECT& Dirty() const { return paint_.rcPaint; }

 private:
  struct Surface {
    PAINTSTRUCT paint{};
    RECT area{};
    HDC target = nullptr;
    HDC memory = nullptr;
    HBITMAP bitmap = nullptr;
    HGDIOBJ before = nullptr;
  };
  static Surface Begin(HWND window);
  PaintSession(HWND window, const Surface& surface);

  HWND window_;
  PAINTSTRUCT paint_;
  RECT area_;
  HDC target_;
  GdiObject<HBITMAP> bitmap_;
  HGDIOBJ before_;
};

}  // namespace adapters::windows
