#include "adapters/windows/Theme.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace adapters::windows {

namespace {

double ScreenDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

/// The user's size of texts, of which the accessible one is a part, beside the usual one.
double TextFactor() {
  constexpr double kUsualPoints = 9;
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) return 1;
  // Pixels were rounded: to half a point it is what the user chose.
  const double points = std::abs(metrics.lfMessageFont.lfHeight) * 72.0 / ScreenDpi();
  return std::max(1.0, std::round(points * 2) / 2 / kUsualPoints);
}

screens::palette::Scheme WantedScheme() {
  DWORD light = 1;
  DWORD size = sizeof light;
  RegGetValueW(HKEY_CURRENT_USER,
               L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
               L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size);
  return light == 0 ? screens::palette::Scheme::kDark : screens::palette::Scheme::kLight;
}

}  // namespace

GdiObject<HFONT> TextFont(int pixels, screens::Weight weight) {
  const int strokes = weight == screens::Weight::kBold ? FW_BOLD : FW_NORMAL;
  return GdiObject<HFONT>(CreateFontW(-pixels, 0, 0, 0, strokes, FALSE, FALSE, FALSE,
                                      DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                      CLEARTYPE_QUALITY, VARIABLE_PITCH | FF_SWISS, L"Tahoma"));
}

screens::Scale ScaleFor(double dpi) {
  return screens::Scale(dpi * TextFactor());
}

Theme::Theme() : Theme(ScaleFor(ScreenDpi())) {}

Theme::Theme(screens::Scale scale)
    : scale_(scale),
      // At 9 points Tahoma draws joined Persian that fits the forms' rows of 285 twips.
      font_(TextFont(scale.Design(12), screens::Weight::kNormal)),
      bold_(TextFont(scale.Design(12), screens::Weight::kBold)),
      scheme_(WantedScheme()) {
  TEXTMETRICW metrics{};
  GetTextMetricsW(MeasuringDc(font_.get()).Get(), &metrics);
  lineHeight_ = metrics.tmHeight;
}

HFONT Theme::FontOf(int pixels, screens::Weight weight) const {
  constexpr std::size_t kMost = 16;
  if (sized_.size() >= kMost) sized_.clear();
  GdiObject<HFONT>& font = sized_[weight == screens::Weight::kBold ? -pixels : pixels];
  if (!font) font = TextFont(pixels, weight);
  return font.get();
}

}  // namespace adapters::windows
