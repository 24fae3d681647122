#pragma once

#include <algorithm>
#include <string_view>

#include "report/Letters.h"

namespace report {

/// Each character is half as wide as it is high; lines stand ten points apart for letters of 8.5.
class Typewriter : public Letters {
 public:
  double Width(std::string_view text, const controls::SheetFont& font) const override {
    const auto letters = std::count_if(text.begin(), text.end(), [](char c) {
      return (static_cast<unsigned>(c) & 0xC0U) != 0x80;
    });
    return static_cast<double>(letters) * font.points / 2;
  }
  double LineHeight(const controls::SheetFont& font) const override { return font.points + 1.5; }
};

}  // namespace report
