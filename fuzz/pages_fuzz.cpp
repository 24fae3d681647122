// Pages of reports: whatever the HTML says and however it is cut, it is refused with words or laid
// out, and each page can be made again.

#include <memory>
#include <optional>
#include <string>

#include "Fuzz.h"
#include "report/Pages.h"
#include "report/Pieces.h"
#include "report/ReportError.h"
#include "report/Typewriter.h"

namespace {

constexpr int kMostPages = 40;

/// From the last page; nothing when the report is refused.
std::optional<std::string> Sheets(std::string_view html, std::size_t size) {
  static const report::Typewriter letters;
  report::FilledReport filled;
  filled.name = "t.html";
  filled.body = std::make_unique<report::Pieces>(std::string(html), 0, size);
  report::Pages pages(std::move(filled), letters);
  std::string sheets;
  try {
    while (pages.Count() < kMostPages && pages.LayOutMore()) {
    }
    for (int page = pages.Count(); page-- > 0;) sheets += report::Dump(pages.At(page));
  } catch (const report::ReportError& error) {
    fuzz::Require(!error.Words().empty() && !error.Technical().empty(), "a refusal says why");
    return {};
  }
  return sheets;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view html = fuzz::Text(data, size);
  const auto whole = Sheets(html, html.size() + 1);
  const auto cut = Sheets(html, 3);
  fuzz::Require(whole.has_value() == cut.has_value(), "where it is cut does not matter", html);
  fuzz::Require(whole == cut, "pages made again from elsewhere are the same", html);
  return 0;
}
