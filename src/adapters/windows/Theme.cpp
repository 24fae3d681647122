#include "adapters/windows/Theme.h"

namespace adapters::windows {

namespace {

GdiObject<HFONT> MakeFont(int pixels, int weight) {
  return GdiObject<HFONT>(CreateFontW(-pixels, 0, 0, 0, weight, FALSE, FALSE, FALSE,
                                      DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                      CLEARTYPE_QUALITY, VARIABLE_PITCH | FF_SWISS, L"Tahoma"));
}

}  // namespace

Theme::Theme(Scale scale)
    : scale_(scale),
      // At 9 points Tahoma draws joined Persian that fits the forms' rows of 285 twips.
      font_(MakeFont(scale.Design(12), FW_NORMAL)),
      bold_(MakeFont(scale.Design(12), FW_BOLD)),
      large_(MakeFont(scale.Design(24), FW_BOLD)) {
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ before = SelectObject(screen, font_.Get());
  TEXTMETRICW metrics{};
  GetTextMetricsW(screen, &metrics);
  lineHeight_ = metrics.tmHeight;
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
}

}  // namespace adapters::windows
