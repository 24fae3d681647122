#include "adapters/windows/Paint.h"

#include <algorithm>
#include <cmath>

namespace adapters::windows {

using controls::Colour;

namespace {

/// The channel at `shift` of two colours mixed.
unsigned Mixed(Colour under, Colour over, double share, unsigned shift) {
  const double a = under >> shift & 0xFFU;
  const double b = over >> shift & 0xFFU;
  return static_cast<unsigned>(std::lround(a + (b - a) * share)) << shift;
}

double DistanceToSegment(double x, double y, Canvas::Point a, Canvas::Point b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double length = dx * dx + dy * dy;
  const double along =
      length > 0 ? std::clamp(((x - a.x) * dx + (y - a.y) * dy) / length, 0.0, 1.0) : 0.0;
  return std::hypot(x - a.x - along * dx, y - a.y - along * dy);
}

/// A bitmap of rows from top to bottom that both GDI and Canvas::Blend are quick with.
HBITMAP MakeBitmap(HDC dc, int width, int height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = std::max(width, 1);
  info.bmiHeader.biHeight = -std::max(height, 1);
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  return CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
}

}  // namespace

void Canvas::Fill(const RECT& area, Colour colour) const {
  SetDCBrushColor(dc_, colour);
  FillRect(dc_, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void Canvas::Line(int fromX, int fromY, int toX, int toY, Colour colour) const {
  Fill({fromX, fromY, std::max(toX, fromX + 1), std::max(toY, fromY + 1)}, colour);
}

void Canvas::Frame(const RECT& area, Colour colour, int width) const {
  Fill({area.left, area.top, area.right, area.top + width}, colour);
  Fill({area.left, area.bottom - width, area.right, area.bottom}, colour);
  Fill({area.left, area.top, area.left + width, area.bottom}, colour);
  Fill({area.right - width, area.top, area.right, area.bottom}, colour);
}

void Canvas::Blend(int x, int y, Colour colour, double share) const {
  if (share <= 0) return;
  const Colour under = GetPixel(dc_, x, y);
  if (under == CLR_INVALID) return;
  share = std::min(share, 1.0);
  SetPixelV(dc_, x, y,
            Mixed(under, colour, share, 0) | Mixed(under, colour, share, 8) |
                Mixed(under, colour, share, 16));
}

void Canvas::RoundBox(const RECT& area, int radius, Colour fill, Colour line, int lineWidth) const {
  radius = std::min({radius, static_cast<int>(area.right - area.left) / 2,
                     static_cast<int>(area.bottom - area.top) / 2});
  const auto corner = [&](int x, int y, double fromCentre) {
    Blend(x, y, line, radius - fromCentre + 0.5);
    Blend(x, y, fill, radius - lineWidth - fromCentre + 0.5);
  };
  for (int dy = 0; dy < radius; ++dy) {
    for (int dx = 0; dx < radius; ++dx) {
      const double fromCentre = std::hypot(radius - dx - 0.5, radius - dy - 0.5);
      corner(area.left + dx, area.top + dy, fromCentre);
      corner(area.right - 1 - dx, area.top + dy, fromCentre);
      corner(area.left + dx, area.bottom - 1 - dy, fromCentre);
      corner(area.right - 1 - dx, area.bottom - 1 - dy, fromCentre);
    }
  }
  Fill({area.left + radius, area.top, area.right - radius, area.top + lineWidth}, line);
  Fill({area.left + radius, area.bottom - lineWidth, area.right - radius, area.bottom}, line);
  Fill({area.left, area.top + radius, area.left + lineWidth, area.bottom - radius}, line);
  Fill({area.right - lineWidth, area.top + radius, area.right, area.bottom - radius}, line);
  Fill({area.left + radius, area.top + lineWidth, area.right - radius, area.bottom - lineWidth},
       fill);
  Fill({area.left + lineWidth, area.top + radius, area.left + radius, area.bottom - radius}, fill);
  Fill({area.right - radius, area.top + radius, area.right - lineWidth, area.bottom - radius},
       fill);
}

void Canvas::Stroke(const std::vector<Point>& points, double width, Colour colour) const {
  if (points.empty()) return;
  const auto [left, right] = std::minmax_element(
      points.begin(), points.end(), [](const Point& a, const Point& b) { return a.x < b.x; });
  const auto [top, bottom] = std::minmax_element(
      points.begin(), points.end(), [](const Point& a, const Point& b) { return a.y < b.y; });
  for (int y = static_cast<int>(top->y - width) - 1; y <= bottom->y + width + 1; ++y) {
    for (int x = static_cast<int>(left->x - width) - 1; x <= right->x + width + 1; ++x) {
      double nearest = width + 1;
      for (std::size_t i = 1; i < points.size(); ++i) {
        nearest = std::min(nearest, DistanceToSegment(x + 0.5, y + 0.5, points[i - 1], points[i]));
      }
      Blend(x, y, colour, width / 2 - nearest + 0.5);
    }
  }
}

Buffer::Buffer(HDC target, const RECT& area)
    : Canvas(CreateCompatibleDC(target)),
      target_(target),
      area_(area),
      bitmap_(MakeBitmap(target, area.right - area.left, area.bottom - area.top)),
      before_(SelectObject(Dc(), bitmap_.Get())) {
  SetViewportOrgEx(Dc(), -area.left, -area.top, nullptr);
}

Buffer::~Buffer() {
  Unclip();
  BitBlt(target_, area_.left, area_.top, area_.right - area_.left, area_.bottom - area_.top, Dc(),
         area_.left, area_.top, SRCCOPY);
  SelectObject(Dc(), before_);
  DeleteDC(Dc());
}

FramePainting::FramePainting(HWND window) : window_(window), dc_(GetWindowDC(window)) {
  RECT whole{};
  GetWindowRect(window, &whole);
  area_ = {0, 0, whole.right - whole.left, whole.bottom - whole.top};
  RECT inside{};
  GetClientRect(window, &inside);
  POINT corner{0, 0};
  ClientToScreen(window, &corner);
  OffsetRect(&inside, corner.x - whole.left, corner.y - whole.top);
  ExcludeClipRect(dc_, inside.left, inside.top, inside.right, inside.bottom);
}

}  // namespace adapters::windows
