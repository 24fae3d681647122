#pragma once

#include "adapters/windows/Paint.h"
#include "screens/Surface.h"

namespace adapters::windows {

inline RECT ToRECT(const screens::Rect& rect) {
  return {rect.left, rect.top, rect.right, rect.bottom};
}
inline screens::Rect FromRECT(const RECT& rect) {
  return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
          static_cast<int>(rect.bottom)};
}

/// A canvas as panes see it.
class WinSurface : public screens::Surface {
 public:
  WinSurface(const Canvas& canvas, const Theme& look) : canvas_(canvas), look_(look) {}

  void Fill(const screens::Rect& area, controls::Colour colour) override;
  void Text(std::string_view text, const screens::Rect& box,
            const screens::TextStyle& style) override;
  void RoundBox(const screens::Rect& area, int radius, controls::Colour ground,
                controls::Colour line, int lineWidth) override {
    canvas_.RoundBox(ToRECT(area), radius, ground, line, lineWidth);
  }
  void Stroke(std::initializer_list<screens::Dot> points, double width,
              controls::Colour colour) override;
  void PushClip(const screens::Rect& area) override;
  void PopClip() override;

 private:
  const Canvas& canvas_;
  const Theme& look_;
};

}  // namespace adapters::windows
