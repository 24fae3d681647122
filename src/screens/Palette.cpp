#include "screens/Palette.h"

#include <utility>

namespace screens::palette {

using controls::Colour;
using controls::Rgb;

namespace {

constexpr std::pair<Colour, Colour> kDark[] = {
    {kFormGround, Rgb(43, 38, 34)},   {kButton, Rgb(66, 57, 50)},
    {kFrame, Rgb(51, 45, 40)},        {kGridRow, Rgb(38, 34, 30)},
    {kGridBand, Rgb(52, 45, 36)},     {kMark, Rgb(86, 74, 0)},
    {kHoliday, Rgb(255, 170, 154)},   {kText, Rgb(240, 232, 222)},
    {kMutedText, Rgb(190, 176, 162)}, {kBorder, Rgb(158, 138, 118)},
    {kLine, Rgb(88, 77, 67)},         {kFaintLine, Rgb(62, 54, 47)},
    {kField, Rgb(30, 27, 24)},        {kAccent, Rgb(226, 150, 88)},
    {kOnAccent, Rgb(30, 20, 12)},     {kDeepAccent, Rgb(240, 180, 130)},
    {kAccentGround, Rgb(88, 58, 34)}, {kRefused, Rgb(255, 142, 124)},
    {kNoteGround, Rgb(74, 54, 24)},
};

Colour Mixed(Colour ground, Colour with) {
  Colour mixed = 0;
  for (const unsigned shift : {0U, 8U, 16U}) {
    mixed |= ((ground >> shift & 0xFFU) * 7 + (with >> shift & 0xFFU) * 3) / 10 << shift;
  }
  return mixed;
}

Colour DarkAccent() {
  return InScheme(kAccent, Scheme::kDark);
}

}  // namespace

Colour InScheme(Colour colour, Scheme scheme) {
  if (scheme == Scheme::kLight) return colour;
  for (const auto& [light, dark] : kDark) {
    if (light == colour) return dark;
  }
  for (const auto& [light, dark] : kDark) {
    if (Tinted(light) == colour) return Mixed(dark, DarkAccent());
  }
  return colour;
}

Colour Tinted(Colour ground) {
  return Mixed(ground, kAccent);
}

}  // namespace screens::palette
