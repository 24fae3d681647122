#pragma once

#include <string>
#include <unordered_map>

#include "adapters/windows/Theme.h"
#include "report/Letters.h"

namespace adapters::windows {

/// Letters of reports, measured once, and so large that no rounding to pixels counts.
class PageLetters : public report::Letters {
 public:
  double Width(std::string_view text, const controls::SheetFont& font) const override;
  double LineHeight(const controls::SheetFont& font) const override;

 private:
  HFONT Font(bool bold) const { return (bold ? bold_ : normal_).get(); }

  GdiObject<HFONT> normal_ = TextFont(kEm, screens::Weight::kNormal);
  GdiObject<HFONT> bold_ = TextFont(kEm, screens::Weight::kBold);
  mutable std::unordered_map<std::string, int> widths_;  // at kEm, by text and weight
  mutable std::string key_;
  static constexpr int kEm = 256;
};

}  // namespace adapters::windows
