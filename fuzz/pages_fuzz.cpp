// Pages of reports: whatever the HTML says and however it is cut, it is refused with words or laid
// out, and each page can be made again.

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "Fuzz.h"
#include "report/Pages.h"
#include "report/ReportError.h"

namespace {

constexpr int kMostPages = 40;

class Typewriter : public report::Letters {
 public:
  double Width(std::string_view text, const controls::SheetFont& font) const override {
    return static_cast<double>(text.size()) * font.points / 2;
  }
  double LineHeight(const controls::SheetFont& font) const override { return font.points * 1.25; }
};

class Pieces : public report::Markup {
 public:
  Pieces(std::string_view text, std::size_t size) : text_(text), size_(size) {}
  bool Next(std::string& text, int& line) override {
    if (at_ == text_.size()) return false;
    line = 1;
    text += text_.substr(at_, size_);
    at_ = std::min(at_ + size_, text_.size());
    return true;
  }
  report::MarkupPlace Where() const override { return {at_, {}}; }
  void GoTo(const report::MarkupPlace& place) override { at_ = place.node; }

 private:
  std::string_view text_;
  std::size_t size_;
  std::size_t at_ = 0;
};

/// From the last page; nothing when the report is refused.
std::optional<std::vector<controls::Sheet>> Sheets(std::string_view html, std::size_t size) {
  static const Typewriter letters;
  report::FilledReport filled;
  filled.name = "t.html";
  filled.body = std::make_unique<Pieces>(html, size);
  report::Pages pages(std::move(filled), letters);
  std::vector<controls::Sheet> sheets;
  try {
    while (pages.Count() < kMostPages && pages.LayOutMore()) {
    }
    for (int page = pages.Count(); page-- > 0;) sheets.push_back(pages.At(page));
  } catch (const report::ReportError& error) {
    fuzz::Require(!error.Words().empty() && !error.Technical().empty(), "a refusal says why");
    return {};
  }
  return sheets;
}

bool Same(const controls::Sheet& a, const controls::Sheet& b) {
  const auto sameFill = [](const auto& x, const auto& y) {
    return x.box == y.box && x.colour == y.colour;
  };
  const auto sameText = [](const auto& x, const auto& y) {
    return x.text == y.text && x.box == y.box && x.font == y.font && x.colour == y.colour;
  };
  return std::equal(a.fills.begin(), a.fills.end(), b.fills.begin(), b.fills.end(), sameFill) &&
         std::equal(a.texts.begin(), a.texts.end(), b.texts.begin(), b.texts.end(), sameText);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view html = fuzz::Text(data, size);
  const auto whole = Sheets(html, html.size() + 1);
  const auto cut = Sheets(html, 3);
  fuzz::Require(whole.has_value() == cut.has_value(), "where it is cut does not matter", html);
  if (!whole) return 0;
  fuzz::Require(std::equal(whole->begin(), whole->end(), cut->begin(), cut->end(), Same),
                "pages made again from elsewhere are the same", html);
  return 0;
}
