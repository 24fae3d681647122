#include "report/WholePage.h"

#include <algorithm>
#include <kainjow/mustache.hpp>
#include <string_view>

namespace report {

namespace {

/// Where the element `name` of an HTML text lies: its start tag, and what stands in it.
struct Element {
  std::string_view startTag;
  std::string_view inside;
};

std::size_t FindTag(std::string_view html, std::string_view tag, std::size_t from) {
  const auto same = [](char a, char b) {
    return (a >= 'A' && a <= 'Z' ? static_cast<char>(a + 32) : a) == b;
  };
  for (auto at = html.begin() + static_cast<std::ptrdiff_t>(from);; ++at) {
    at = std::search(at, html.end(), tag.begin(), tag.end(), same);
    if (at == html.end()) return std::string_view::npos;
    const auto end = at + static_cast<std::ptrdiff_t>(tag.size());
    // "<head" is not the beginning of "<header".
    if (end != html.end() && std::string_view(" \t\r\n>/").find(*end) != std::string_view::npos) {
      return static_cast<std::size_t>(at - html.begin());
    }
  }
}

Element FindElement(std::string_view html, const std::string& name) {
  const std::size_t start = FindTag(html, "<" + name, 0);
  if (start == std::string_view::npos) return {};
  const std::size_t inside = std::min(html.find('>', start), html.size() - 1) + 1;
  const std::size_t end = FindTag(html, "</" + name, inside);
  return {html.substr(start, inside - start),
          html.substr(inside, end == std::string_view::npos ? end : end - inside)};
}

// The colours are those of the pages that the desktop paints. What repeats on every page stands in
// boxes that are laid out as a table's head and foot, which no rule of a template for cells meets.
constexpr std::string_view kStyle = R"(
body { margin: 0; font-family: Tahoma, "Segoe UI", "DejaVu Sans", sans-serif; font-size: 10pt; color: #362c24; }
table { font-size: inherit; }
.report-page { display: table; width: 100%; max-width: 210mm; margin: 0 auto; box-sizing: border-box; padding: 12mm; }
.report-lying { max-width: 297mm; }
.report-top, .report-bottom { color: #7c6c5e; }
.report-top { display: table-header-group; break-inside: avoid; }
.report-middle { display: table-row-group; }
.report-bottom { display: table-footer-group; break-inside: avoid; }
.report-line { display: flex; justify-content: space-between; align-items: baseline; gap: 12pt; }
.report-top .report-line { border-bottom: 1.2pt solid #a6683a; margin-bottom: 8pt; padding-bottom: 4pt; }
.report-bottom .report-line { border-top: .6pt solid #cbb8a6; margin-top: 8pt; padding-top: 4pt; }
.report-title { font-size: 1.3em; font-weight: bold; color: #362c24; }
@media print {
  body { font-size: 8.5pt; }
  .report-page { max-width: none; padding: 0; }
  * { -webkit-print-color-adjust: exact; print-color-adjust: exact; }
}
)";

/// Numbers in the margin are counted by the browser.
std::string PageRule(const FilledReport& report) {
  const std::string counting = report.digits == Digits::kPersian ? ", persian)" : ")";
  return std::string("@page { size: A4 ") +
         (report.orientation == Orientation::kLandscape ? "landscape" : "portrait") +
         "; margin: 12mm; @bottom-left { font-family: Tahoma, sans-serif; font-size: 8.5pt; color: "
         "#7c6c5e; content: \"صفحه \" counter(page" +
         counting + " \" از \" counter(pages" + counting + "; } }\n";
}

}  // namespace

std::string WholePage(const FilledReport& report) {
  const auto escaped = [](const std::string& text) {
    return kainjow::mustache::html_escape<std::string>(text);
  };
  const Element head = FindElement(report.html, "head");
  Element body = FindElement(report.html, "body");
  // A template may be the page's content alone.
  if (body.startTag.empty()) body = {"<body>", report.html};
  const bool lies = report.orientation == Orientation::kLandscape;
  std::string page = "<!DOCTYPE html>\n<html dir=\"rtl\" lang=\"fa\">\n<head>\n";
  page += "<meta charset=\"utf-8\">\n<title>" + escaped(report.title) + "</title>\n";
  // First, so that the template's own rules win.
  page.append("<style>").append(kStyle).append(PageRule(report)).append("</style>\n");
  page.append(head.inside).append("\n</head>\n").append(body.startTag);
  page.append("\n<div class=\"report-page").append(lies ? " report-lying" : "").append("\">\n");
  page += "<div class=\"report-top\"><div class=\"report-line\"><span class=\"report-title\">" +
          escaped(report.title) + "</span><span>" + escaped(report.header) +
          "</span></div></div>\n";
  page.append("<div class=\"report-middle\">\n").append(body.inside).append("\n</div>\n");
  page += "<div class=\"report-bottom\"><div class=\"report-line\"><span>تاريخ چاپ: " +
          escaped(report.printDate) + "</span></div></div>\n";
  return page + "</div>\n</body>\n</html>\n";
}

}  // namespace report
