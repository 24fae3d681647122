#include "adapters/windows/WinSurface.h"

#include <algorithm>
#include <cmath>

#include "adapters/windows/Wide.h"

namespace adapters::windows {

using controls::Colour;
using screens::Dot;

namespace {

// The Semitic scripts and what comes after them.
constexpr wchar_t kFirstJoinedScript = 0x0590;

/// The channel at `shift` of two colours mixed.
unsigned Mixed(Colour under, Colour over, double share, unsigned shift) {
  const double a = under >> shift & 0xFFU;
  const double b = over >> shift & 0xFFU;
  return static_cast<unsigned>(std::lround(a + (b - a) * share)) << shift;
}

double DistanceToSegment(double x, double y, const Dot& a, const Dot& b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double length = dx * dx + dy * dy;
  const double along =
      length > 0 ? std::clamp(((x - a.x) * dx + (y - a.y) * dy) / length, 0.0, 1.0) : 0.0;
  return std::hypot(x - a.x - along * dx, y - a.y - along * dy);
}

/// A bitmap of rows from top to bottom that both GDI and Blend are quick with.
HBITMAP MakeBitmap(HDC dc, const screens::Rect& area) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = std::max(area.Width(), 1);
  info.bmiHeader.biHeight = -std::max(area.Height(), 1);
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  return CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
}

/// How wide its letters are as they stand alone.
int WidthApart(HDC dc, std::wstring_view text) {
  SIZE size{};
  GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size);
  return size.cx;
}

int Width(HFONT font, std::wstring_view text) {
  const MeasuringDc dc(font);
  const int apart = WidthApart(dc.Get(), text);
  if (std::ranges::none_of(text, [](wchar_t unit) { return unit >= kFirstJoinedScript; })) {
    return apart;
  }
  // Wine measures letters as they stand alone. Where the pen has come to after drawing tells how
  // wide they are joined; should it not have moved, the measure above holds.
  SetTextAlign(dc.Get(), TA_TOP | TA_LEFT | TA_UPDATECP);
  MoveToEx(dc.Get(), 0, 0, nullptr);
  ExtTextOutW(dc.Get(), 0, 0, 0, nullptr, text.data(), static_cast<UINT>(text.size()), nullptr);
  POINT pen{};
  GetCurrentPositionEx(dc.Get(), &pen);
  return pen.x > 0 ? std::min(apart, static_cast<int>(pen.x)) : apart;
}

/// The text, shortened to end in "…" if it is too wide.
std::wstring Shortened(HDC dc, HFONT font, std::wstring_view text, int width) {
  // Letters that stand alone are the wider ones, and the quicker to measure: most texts end here.
  if (WidthApart(dc, text) <= width || Width(font, text) <= width) return std::wstring(text);
  // The longest beginning that fits together with the dots.
  std::size_t fits = 0;
  std::size_t tooLong = text.size();
  std::wstring shown;
  while (fits + 1 < tooLong) {
    const std::size_t middle = (fits + tooLong) / 2;
    shown.assign(text.substr(0, middle)).append(L"…");
    (Width(font, shown) <= width ? fits : tooLong) = middle;
  }
  shown.assign(text.substr(0, fits));
  while (!shown.empty() && shown.back() == L' ') shown.pop_back();
  return shown.append(L"…");
}

}  // namespace

int TextWidth(HFONT font, std::string_view text) {
  return Width(font, Wide(text));
}

void WinSurface::Fill(const screens::Rect& area, Colour colour) {
  const RECT place = ToRECT(area);
  SetDCBrushColor(dc_, Shown(colour));
  FillRect(dc_, &place, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void WinSurface::Text(std::string_view text, const screens::Rect& box,
                      const screens::TextStyle& style) {
  if (text.empty()) return;
  const bool sized = style.size > 0;
  const HFONT font =
      sized ? look_.FontOf(std::max(1, static_cast<int>(std::lround(style.size))), style.weight)
            : look_.Font(style.weight);
  SelectObject(dc_, font);
  SetBkMode(dc_, TRANSPARENT);
  SetTextColor(dc_, Shown(style.colour));
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc_, &metrics);
  const int top = box.top + (box.Height() - static_cast<int>(metrics.tmHeight)) / 2;
  UINT align = TA_RIGHT;
  int x = box.right;
  if (style.side == screens::Side::kCentre) {
    align = TA_CENTER;
    x = box.Middle().x;
  } else if (style.side == screens::Side::kLeft) {
    align = TA_LEFT;
    x = box.left;
  }
  // The device contexts are not mirrored, so right is right; the reading order is told apart.
  const bool leftToRight = style.direction == screens::Direction::kLeftToRight;
  SetTextAlign(dc_, TA_TOP | align | (leftToRight ? 0 : TA_RTLREADING));
  const std::wstring wide = Wide(text);
  const std::wstring shown = sized ? wide : Shortened(dc_, font, wide, box.Width());
  const RECT place = ToRECT(box);
  ExtTextOutW(dc_, x, top, (sized ? 0 : ETO_CLIPPED) | (leftToRight ? 0 : ETO_RTLREADING), &place,
              shown.data(), static_cast<UINT>(shown.size()), nullptr);
  // The theme's fonts of other sizes come and go.
  if (sized) SelectObject(dc_, look_.Font());
}

void WinSurface::Blend(int x, int y, Colour colour, double share) const {
  if (share <= 0) return;
  const Colour under = GetPixel(dc_, x, y);
  if (under == CLR_INVALID) return;
  share = std::min(share, 1.0);
  colour = Shown(colour);
  SetPixelV(dc_, x, y,
            Mixed(under, colour, share, 0) | Mixed(under, colour, share, 8) |
                Mixed(under, colour, share, 16));
}

void WinSurface::RoundBox(const screens::Rect& area, int radius, Colour ground, Colour line,
                          int lineWidth) {
  radius = std::min({radius, area.Width() / 2, area.Height() / 2});
  const auto corner = [&](int x, int y, double fromCentre) {
    Blend(x, y, line, radius - fromCentre + 0.5);
    Blend(x, y, ground, radius - lineWidth - fromCentre + 0.5);
  };
  for (int dy = 0; dy < radius; ++dy) {
    for (int dx = 0; dx < radius; ++dx) {
      const double fromCentre = std::hypot(radius - dx - 0.5, radius - dy - 0.5);
      for (const int x : {area.left + dx, area.right - 1 - dx}) {
        for (const int y : {area.top + dy, area.bottom - 1 - dy}) corner(x, y, fromCentre);
      }
    }
  }
  const auto [left, top, right, bottom] = area;
  Fill({left + radius, top, right - radius, bottom}, ground);
  Fill({left, top + radius, right, bottom - radius}, ground);
  Fill({left + radius, top, right - radius, top + lineWidth}, line);
  Fill({left + radius, bottom - lineWidth, right - radius, bottom}, line);
  Fill({left, top + radius, left + lineWidth, bottom - radius}, line);
  Fill({right - lineWidth, top + radius, right, bottom - radius}, line);
}

void WinSurface::Stroke(std::initializer_list<Dot> points, double width, Colour colour) {
  if (points.size() == 0) return;
  const auto [left, right] = std::ranges::minmax(points, {}, &Dot::x);
  const auto [top, bottom] = std::ranges::minmax(points, {}, &Dot::y);
  for (int y = static_cast<int>(top.y - width) - 1; y <= bottom.y + width + 1; ++y) {
    for (int x = static_cast<int>(left.x - width) - 1; x <= right.x + width + 1; ++x) {
      double nearest = width + 1;
      for (const Dot* to = points.begin() + 1; to < points.end(); ++to) {
        nearest = std::min(nearest, DistanceToSegment(x + 0.5, y + 0.5, to[-1], *to));
      }
      Blend(x, y, colour, width / 2 - nearest + 0.5);
    }
  }
}

void WinSurface::PushClip(const screens::Rect& area) {
  SaveDC(dc_);
  IntersectClipRect(dc_, area.left, area.top, area.right, area.bottom);
}

PaintSession::PaintSession(HWND window, const Theme& look)
    : WinSurface(CreateCompatibleDC(nullptr), look), window_(window) {
  BeginPaint(window, &paint_);
  bitmap_.reset(MakeBitmap(paint_.hdc, Dirty()));
  SelectObject(dc_, bitmap_.get());
  SetViewportOrgEx(dc_, -Dirty().left, -Dirty().top, nullptr);
}

PaintSession::~PaintSession() {
  const screens::Rect dirty = Dirty();
  BitBlt(paint_.hdc, dirty.left, dirty.top, dirty.Width(), dirty.Height(), dc_, dirty.left,
         dirty.top, SRCCOPY);
  DeleteDC(dc_);  // which lets go of the bitmap
  EndPaint(window_, &paint_);
}

}  // namespace adapters::windows
