#include "demo/SqlScript.h"

#include <algorithm>
#include <cstddef>

#include "text/Text.h"

namespace demo {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnds = "\r\n";

bool IsGo(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  line = text::Trim(line);
  return line == "go" || line == "GO" || line == "Go" || line == "gO";
}

/// Blanks stay: a statement is sent as it was written.
std::string_view WithoutLineEndsAround(std::string_view part) {
  part.remove_prefix(std::min(part.find_first_not_of(kLineEnds), part.size()));
  return part.substr(0, part.find_last_not_of(kLineEnds) + 1);
}

}  // namespace

std::vector<std::string_view> Batches(std::string_view script) {
  if (script.starts_with(kByteOrderMark)) script.remove_prefix(kByteOrderMark.size());
  std::vector<std::string_view> batches;
  std::size_t begin = 0;
  for (std::size_t line = 0; line <= script.size();) {
    const std::size_t end = std::min(script.find('\n', line), script.size());
    const bool last = end == script.size();
    const bool go = IsGo(script.substr(line, end - line));
    if (go || last) {
      const std::string_view part = script.substr(begin, (go ? line : end) - begin);
      if (part.find_first_not_of(" \t\r\n") != std::string_view::npos) {
        batches.push_back(WithoutLineEndsAround(part));
      }
      begin = std::min(end + 1, script.size());
    }
    line = end + 1;
  }
  return batches;
}

}  // namespace demo
