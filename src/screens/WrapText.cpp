#include "screens/WrapText.h"

#include <algorithm>

#include "text/Utf8.h"

namespace screens {

namespace {

using Measure = std::function<int(std::string_view)>;

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kSetApart = "\u202A";
constexpr std::string_view kEndOfSetApart = "\u202C";

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

/// Where the word ends that begins at or behind `from`.
std::size_t WordEnd(std::string_view text, std::size_t from) {
  return std::min(text.size(), text.find_first_of(kBlanks, text.find_first_not_of(kBlanks, from)));
}

/// How many bytes of a text that begins with a word make the next line.
std::size_t LineEnd(std::string_view text, int width, const Measure& measure) {
  std::size_t end = 0;
  while (end < text.size()) {
    const std::size_t more = WordEnd(text, end);
    if (measure(text.substr(0, more)) > width) break;
    end = more;
  }
  if (end > 0 || text.empty()) return end;
  const std::string_view word = text.substr(0, WordEnd(text, 0));
  end = text::LetterEnd(word, 0);
  while (end < word.size()) {
    const std::size_t more = text::LetterEnd(word, end);
    if (measure(word.substr(0, more)) > width) break;
    end = more;
  }
  return end;
}

}  // namespace

std::vector<std::string> WrapText(std::string_view text, int width, const Measure& measure) {
  std::vector<std::string> lines;
  for (bool more = true; more;) {
    const std::size_t lineEnd = text.find('\n');
    more = lineEnd != std::string_view::npos;
    std::string_view rest = WithoutBlanks(text.substr(0, lineEnd));
    text.remove_prefix(more ? lineEnd + 1 : text.size());
    bool apart = false;
    do {
      const std::size_t end = LineEnd(rest, width, measure);
      std::string line(apart ? kSetApart : std::string_view());
      line += WithoutBlanks(rest.substr(0, end));
      rest = WithoutBlanks(rest.substr(end));
      const std::size_t opened = line.rfind(kSetApart);
      apart = opened != std::string::npos && line.find(kEndOfSetApart, opened) == std::string::npos;
      if (apart && !rest.empty()) line += kEndOfSetApart;
      lines.push_back(std::move(line));
    } while (!rest.empty());
  }
  return lines;
}

}  // namespace screens
