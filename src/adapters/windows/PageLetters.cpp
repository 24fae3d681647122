#include "adapters/windows/PageLetters.h"

#include "adapters/windows/WinSurface.h"

namespace adapters::windows {

namespace {

constexpr std::size_t kMostTexts = 20'000;

}  // namespace

double PageLetters::Width(std::string_view text, const controls::SheetFont& font) const {
  key_.assign(1, font.bold ? 'b' : 'n').append(text);
  auto found = widths_.find(key_);
  if (found == widths_.end()) {
    if (widths_.size() >= kMostTexts) widths_.clear();
    found = widths_.emplace(key_, TextWidth(Font(font.bold), text)).first;
  }
  return found->second * font.points / kEm;
}

double PageLetters::LineHeight(const controls::SheetFont& font) const {
  TEXTMETRICW metrics{};
  GetTextMetricsW(MeasuringDc(Font(font.bold)).Get(), &metrics);
  return (metrics.tmHeight + metrics.tmExternalLeading) * font.points / kEm;
}

}  // namespace adapters::windows
