#include "report/Css.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "report/ReportError.h"
#include "text/Text.h"

namespace report {

/// Gives false for a value that it does not know.
using SetProperty = bool (*)(Style& style, const Style& parent, std::string_view value);

struct Property {
  std::string_view name;
  unsigned group;  // of Takes
  SetProperty set;
};

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr double kPointsOfPixel = 0.75;
constexpr double kLargestLetters = 200;
constexpr double kLongest = 2000;

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

std::vector<std::string_view> Words(std::string_view text) {
  std::vector<std::string_view> words;
  for (text = WithoutBlanks(text); !text.empty(); text = WithoutBlanks(text)) {
    words.push_back(text.substr(0, text.find_first_of(kBlanks)));
    text.remove_prefix(words.back().size());
  }
  return words;
}

/// Digits with at most one point; what follows is left in `text`.
bool TakeNumber(std::string_view& text, double& number) {
  const std::size_t end = std::min(text.find_first_not_of("0123456789."), text.size());
  const std::string_view digits = text.substr(0, end);
  if (digits.empty() || digits == "." || std::count(digits.begin(), digits.end(), '.') > 1 ||
      digits.size() > 12) {
    return false;
  }
  number = 0;
  double place = 0;
  for (const char c : digits) {
    if (c == '.') {
      place = 1;
    } else {
      number = number * 10 + (c - '0');
      place *= 10;
    }
  }
  if (place > 0) number /= place;
  text.remove_prefix(end);
  return true;
}

bool ReadLength(std::string_view text, double& points) {
  Extent extent;
  if (!ReadExtent(text, false, false, extent)) return false;
  points = extent.value;
  return true;
}

template <typename Value, std::size_t kCount>
bool Choose(const std::pair<std::string_view, Value> (&choices)[kCount], std::string_view text,
            Value& chosen) {
  for (const auto& [name, value] : choices) {
    if (name != text) continue;
    chosen = value;
    return true;
  }
  return false;
}

bool SetColour(Style& style, const Style&, std::string_view value) {
  return ReadColour(value, style.colour);
}

bool SetGround(Style& style, const Style&, std::string_view value) {
  controls::Colour colour = 0;
  const bool none = value == "transparent" || value == "none";
  if (!none && !ReadColour(value, colour)) return false;
  style.ground = none ? std::nullopt : std::optional(colour);
  return true;
}

bool SetWeight(Style& style, const Style&, std::string_view value) {
  constexpr std::pair<std::string_view, bool> kWeights[] = {
      {"normal", false}, {"bold", true}, {"400", false}, {"600", true}, {"700", true}};
  return Choose(kWeights, value, style.font.bold);
}

bool SetSize(Style& style, const Style& parent, std::string_view value) {
  double points = 0;
  std::string_view unit = value;
  if (!TakeNumber(unit, points)) return false;
  if (unit == "%") {
    points *= parent.font.points / 100;
  } else if (unit == "em") {
    points *= parent.font.points;
  } else if (!ReadLength(value, points)) {
    return false;
  }
  if (points < 1 || points > kLargestLetters) return false;
  style.font.points = points;
  return true;
}

bool SetAlign(Style& style, const Style&, std::string_view value) {
  constexpr std::pair<std::string_view, Align> kAligns[] = {{"left", Align::kLeft},
                                                            {"right", Align::kRight},
                                                            {"center", Align::kCentre},
                                                            {"start", Align::kStart},
                                                            {"end", Align::kEnd}};
  return Choose(kAligns, value, style.align);
}

bool SetVertical(Style& style, const Style&, std::string_view value) {
  constexpr std::pair<std::string_view, Vertical> kVerticals[] = {
      {"top", Vertical::kTop}, {"middle", Vertical::kMiddle}, {"bottom", Vertical::kBottom}};
  return Choose(kVerticals, value, style.vertical);
}

bool SetWhiteSpace(Style& style, const Style&, std::string_view value) {
  constexpr std::pair<std::string_view, bool> kWraps[] = {{"normal", true}, {"nowrap", false}};
  return Choose(kWraps, value, style.wraps);
}

/// A width, "solid" and a colour in any order; or "none" or 0.
bool ReadLine(std::string_view value, Line& line) {
  constexpr double kMedium = 3 * kPointsOfPixel;
  line = {kMedium, std::nullopt};
  bool solid = false;
  for (const std::string_view word : Words(value)) {
    controls::Colour colour = 0;
    if (word == "solid") {
      solid = true;
    } else if (word == "none") {
      line.width = 0;
    } else if (ReadColour(word, colour)) {
      line.colour = colour;
    } else if (!ReadLength(word, line.width)) {
      return false;
    }
  }
  return solid || line.width == 0;
}

bool SetBorders(Style& style, const Style&, std::string_view value) {
  Line line;
  if (!ReadLine(value, line)) return false;
  style.borders.fill(line);
  return true;
}

template <Edge kEdge>
bool SetBorder(Style& style, const Style&, std::string_view value) {
  return ReadLine(value, style.borders[kEdge]);
}

/// One to four lengths: top, right, bottom, left; what is missing is as on the other side.
bool SetPaddings(Style& style, const Style&, std::string_view value) {
  const auto words = Words(value);
  if (words.empty() || words.size() > style.padding.size()) return false;
  for (std::size_t edge = 0; edge < style.padding.size(); ++edge) {
    const std::size_t from = edge < words.size() ? edge : edge == 3 && words.size() > 1 ? 1 : 0;
    if (!ReadLength(words[from], style.padding[edge])) return false;
  }
  return true;
}

template <Edge kEdge>
bool SetPadding(Style& style, const Style&, std::string_view value) {
  return ReadLength(value, style.padding[kEdge]);
}

template <double Style::*kLength>
bool SetLength(Style& style, const Style&, std::string_view value) {
  return ReadLength(value, style.*kLength);
}

bool SetWidth(Style& style, const Style&, std::string_view value) {
  Extent width;
  if (!ReadExtent(value, true, false, width)) return false;
  style.width = width;
  return true;
}

template <bool Style::*kBreak>
bool SetBreak(Style& style, const Style&, std::string_view value) {
  constexpr std::pair<std::string_view, bool> kBreaks[] = {
      {"always", true}, {"page", true}, {"auto", false}};
  return Choose(kBreaks, value, style.*kBreak);
}

bool SetCollapse(Style& style, const Style&, std::string_view value) {
  style.cellSpacing = 0;
  return value == "collapse";
}

constexpr Property kProperties[] = {
    {"color", kLetters, SetColour},
    {"font-weight", kLetters, SetWeight},
    {"font-size", kLetters, SetSize},
    {"white-space", kLetters, SetWhiteSpace},
    {"text-align", kAlign, SetAlign},
    {"background-color", kGround, SetGround},
    {"background", kGround, SetGround},
    {"border", kBorder, SetBorders},
    {"border-top", kBorder, SetBorder<kTopEdge>},
    {"border-right", kBorder, SetBorder<kRightEdge>},
    {"border-bottom", kBorder, SetBorder<kBottomEdge>},
    {"border-left", kBorder, SetBorder<kLeftEdge>},
    {"border-collapse", kCollapse, SetCollapse},
    {"padding", kPadding, SetPaddings},
    {"padding-top", kPadding, SetPadding<kTopEdge>},
    {"padding-right", kPadding, SetPadding<kRightEdge>},
    {"padding-bottom", kPadding, SetPadding<kBottomEdge>},
    {"padding-left", kPadding, SetPadding<kLeftEdge>},
    {"margin-top", kMargins, SetLength<&Style::marginTop>},
    {"margin-bottom", kMargins, SetLength<&Style::marginBottom>},
    {"width", kWidth, SetWidth},
    {"height", kHeight, SetLength<&Style::height>},
    {"vertical-align", kVertical, SetVertical},
    {"page-break-before", kBreaks, SetBreak<&Style::breakBefore>},
    {"page-break-after", kBreaks, SetBreak<&Style::breakAfter>},
    {"break-before", kBreaks, SetBreak<&Style::breakBefore>},
    {"break-after", kBreaks, SetBreak<&Style::breakAfter>},
};

/// Comments become blanks, so that everything else stays in its place.
std::string WithoutComments(const LinedText& text, const std::string& name) {
  std::string plain = text.Text();
  for (std::size_t begin = plain.find("/*"); begin != std::string::npos;
       begin = plain.find("/*", begin)) {
    const std::size_t end = plain.find("*/", begin + 2);
    if (end == std::string::npos) {
      RefuseTemplate(name, text.LineAt(begin), "يادداشتي در شيوه نامه بسته نشده است.",
                     "a comment of the style sheet is not closed");
    }
    std::fill(plain.begin() + static_cast<std::ptrdiff_t>(begin),
              plain.begin() + static_cast<std::ptrdiff_t>(end + 2), ' ');
  }
  return plain;
}

/// Reads the declarations of plain[begin, end).
std::vector<Declaration> DeclarationsIn(const LinedText& text, std::string_view plain,
                                        std::size_t begin, std::size_t end,
                                        const std::string& name) {
  std::vector<Declaration> declarations;
  for (std::size_t at = begin; at < end;) {
    const std::size_t stop = std::min(plain.find(';', at), end);
    const std::string_view both = WithoutBlanks(plain.substr(at, stop - at));
    const int line = text.LineAt(std::min(plain.find_first_not_of(kBlanks, at), stop));
    at = stop + 1;
    if (both.empty()) continue;
    const std::size_t colon = both.find(':');
    const std::string key = text::Small(WithoutBlanks(both.substr(0, colon)));
    const auto* const property =
        std::find_if(std::begin(kProperties), std::end(kProperties),
                     [&key](const Property& each) { return each.name == key; });
    if (colon == std::string_view::npos || property == std::end(kProperties)) {
      RefuseTemplate(name, line, "«" + key + "» در شيوه ها شناخته نيست.",
                     "unknown CSS property: " + key);
    }
    Declaration declaration{property, text::Small(WithoutBlanks(both.substr(colon + 1))), line};
    Style style;
    if (!property->set(style, Style(), declaration.value)) {
      RefuseTemplate(name, line,
                     "مقدار «" + declaration.value + "» براي «" + key + "» شناخته نيست.",
                     "unknown value of CSS " + key + ": " + declaration.value);
    }
    declarations.push_back(std::move(declaration));
  }
  return declarations;
}

bool ReadSimple(std::string_view word, SimpleSelector& simple) {
  const auto isName = [](std::string_view part) {
    return !part.empty() && std::none_of(part.begin(), part.end(), [](char c) {
      return c > ' ' && c < '\x7F' &&
             std::string_view("!\"#$%&'()*+,/:;<=>?@[\\]^`{|}~").find(c) != std::string_view::npos;
    });
  };
  std::size_t dot = std::min(word.find('.'), word.size());
  if (dot > 0) {
    const ElementKind* const kind = FindElement(text::Small(word.substr(0, dot)));
    if (kind == nullptr) return false;
    simple.element = kind->element;
  }
  while (dot < word.size()) {
    const std::size_t end = std::min(word.find('.', dot + 1), word.size());
    simple.classes.emplace_back(word.substr(dot + 1, end - dot - 1));
    if (!isName(simple.classes.back())) return false;
    dot = end;
  }
  return true;
}

}  // namespace

int LinedText::LineAt(std::size_t at) const {
  auto mark =
      std::find_if(marks_.begin(), marks_.end(), [at](const Mark& each) { return each.at > at; });
  if (mark == marks_.begin()) return 0;
  --mark;
  const auto begin = text_.begin();
  return mark->line + static_cast<int>(std::count(begin + static_cast<std::ptrdiff_t>(mark->at),
                                                  begin + static_cast<std::ptrdiff_t>(at), '\n'));
}

std::vector<Rule> ReadStyleSheet(const LinedText& text, const std::string& name) {
  const std::string plain = WithoutComments(text, name);
  const std::string_view all = plain;
  std::vector<Rule> rules;
  for (std::size_t at = all.find_first_not_of(kBlanks); at != std::string_view::npos;) {
    const int line = text.LineAt(at);
    const std::size_t open = all.find_first_of("{}", at);
    const std::size_t close = std::min(all.find_first_of("{}", open + 1), all.size());
    if (open == std::string_view::npos || all[open] != '{' || close == all.size() ||
        all[close] != '}') {
      RefuseTemplate(name, line, "در شيوه نامه، آكولادها جفت نيستند.",
                     "braces of the style sheet do not match");
    }
    const auto declarations = DeclarationsIn(text, all, open + 1, close, name);
    for (std::size_t from = at; from <= open;) {
      const std::size_t end = std::min(all.find(',', from), open);
      const std::string_view selector = WithoutBlanks(all.substr(from, end - from));
      Rule rule{{}, declarations, 0};
      bool fine = !selector.empty();
      for (const std::string_view word : Words(selector)) {
        SimpleSelector& simple = rule.path.emplace_back();
        fine = fine && ReadSimple(word, simple);
        rule.weight += 100 * static_cast<int>(simple.classes.size());
        rule.weight += simple.element == Element::kRoot ? 0 : 1;
      }
      if (!fine) {
        RefuseTemplate(name, line, "گزينشگر «" + std::string(selector) + "» شناخته نيست.",
                       "unknown CSS selector: " + std::string(selector));
      }
      rules.push_back(std::move(rule));
      from = end + 1;
    }
    at = all.find_first_not_of(kBlanks, close + 1);
  }
  return rules;
}

std::vector<Declaration> ReadDeclarations(const LinedText& text, const std::string& name) {
  const std::string plain = WithoutComments(text, name);
  return DeclarationsIn(text, plain, 0, plain.size(), name);
}

void Apply(const Declaration& declaration, Element element, const Style& parent, Style& style,
           const std::string& name) {
  const Property& property = *declaration.property;
  const std::string words = std::string(property.name) + ": " + declaration.value;
  if ((KindOf(element).takes & property.group) == 0) {
    const std::string shown = "<" + std::string(KindOf(element).name) + ">";
    RefuseTemplate(name, declaration.line,
                   "«" + std::string(property.name) + "» براي " + shown + " به كار نمي رود.",
                   shown + " does not take CSS " + std::string(property.name));
  }
  // A size may be right in itself, and out of bounds in what it is a share of.
  if (!property.set(style, parent, declaration.value)) {
    RefuseTemplate(name, declaration.line, "مقدار «" + words + "» اينجا به كار نمي رود.",
                   "value out of bounds here: " + words);
  }
}

bool ReadNumber(std::string_view text, double& number) {
  return TakeNumber(text, number) && text.empty();
}

bool ReadColour(std::string_view text, controls::Colour& colour) {
  constexpr std::pair<std::string_view, controls::Colour> kNames[] = {
      {"black", 0},        {"white", 0xFFFFFF},  {"red", 0x0000FF},    {"lime", 0x00FF00},
      {"blue", 0xFF0000},  {"yellow", 0x00FFFF}, {"aqua", 0xFFFF00},   {"fuchsia", 0xFF00FF},
      {"gray", 0x808080},  {"grey", 0x808080},   {"silver", 0xC0C0C0}, {"maroon", 0x000080},
      {"green", 0x008000}, {"navy", 0x800000},   {"olive", 0x008080},  {"purple", 0x800080},
      {"teal", 0x808000},  {"orange", 0x00A5FF}};
  if (Choose(kNames, text, colour)) return true;
  if (!text.starts_with('#') || (text.size() != 4 && text.size() != 7)) return false;
  text.remove_prefix(1);
  const std::size_t digits = text.size() / 3;
  colour = 0;
  for (unsigned part = 0; part < 3; ++part) {
    const std::string_view piece = text.substr(part * digits, digits);
    unsigned value = 0;
    const auto read = std::from_chars(piece.data(), piece.data() + digits, value, 16);
    if (read.ec != std::errc() || read.ptr != piece.data() + digits) return false;
    colour |= (digits == 1 ? value * 17 : value) << 8 * part;
  }
  return true;
}

bool ReadExtent(std::string_view text, bool percent, bool plain, Extent& extent) {
  extent = {};
  if (!TakeNumber(text, extent.value)) return false;
  if (text == "px" || (text.empty() && plain)) {
    extent.value *= kPointsOfPixel;
  } else if (text == "%") {
    extent.percent = true;
    return percent && extent.value <= 100;
  } else if (text != "pt" && extent.value > 0) {
    return false;
  }
  return extent.value <= kLongest && (text == "pt" || text == "px" || text.empty());
}

}  // namespace report
