#pragma once

#include <windows.h>

#include "adapters/windows/Rects.h"
#include "adapters/windows/Theme.h"
#include "screens/Surface.h"

namespace adapters::windows {

/// A device context as panes see it. (A controls::Colour is a COLORREF.)
class WinSurface : public screens::Surface {
 public:
  WinSurface(HDC dc, const Theme& look) : Surface(look.Scheme()), dc_(dc), look_(look) {}

  void Fill(const screens::Rect& area, controls::Colour colour) override;
  void Text(std::string_view text, const screens::Rect& box,
            const screens::TextStyle& style) override;
  void RoundBox(const screens::Rect& area, int radius, controls::Colour ground,
                controls::Colour line, int lineWidth) override;
  void Stroke(std::initializer_list<screens::Dot> points, double width,
              controls::Colour colour) override;
  void PushClip(const screens::Rect& area) override;
  void PopClip() override { RestoreDC(dc_, -1); }

 protected:
  HDC dc_;

 private:
  void Blend(int x, int y, controls::Colour colour, double share) const;
  const Theme& look_;
};

/// WM_PAINT: what is painted on memory appears at once when this ends. The ground is undefined at
/// first.
class PaintSession : public WinSurface {
 public:
  PaintSession(HWND window, const Theme& look);
  ~PaintSession() override;
  PaintSession(const PaintSession&) = delete;
  PaintSession& operator=(const PaintSession&) = delete;
  /// The part of the window that needs painting; nothing else appears.
  screens::Rect Dirty() const { return FromRECT(paint_.rcPaint); }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
  GdiObject<HBITMAP> bitmap_;
};

/// Of one line of text, in pixels.
int TextWidth(HFONT font, std::string_view text);

}  // namespace adapters::windows
