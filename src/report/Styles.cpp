#include "report/Styles.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "report/ReportError.h"
#include "text/Text.h"

namespace report {

namespace {

constexpr int kMostColumns = 100;
constexpr double kSmallLetters = 0.85;
constexpr double kParagraphGap = 0.5;  // of the letters' size
constexpr controls::Colour kBorderColour = 0x808080;

bool IsTableRow(Element element) {
  return element == Element::kTr || IsRowGroup(element);
}

/// What an element is without a word of the template.
void SetDefaults(Element element, Style& style) {
  constexpr double kHeadings[] = {1.6, 1.35, 1.15};
  if (IsHeading(element)) {
    style.font.points *=
        kHeadings[static_cast<std::size_t>(element) - static_cast<std::size_t>(Element::kH1)];
  }
  if (IsHeading(element) || element == Element::kP || element == Element::kHr) {
    style.marginTop = style.marginBottom = style.font.points * kParagraphGap;
  }
  if (IsHeading(element) || element == Element::kB || element == Element::kStrong ||
      element == Element::kTh) {
    style.font.bold = true;
  }
  if (element == Element::kSmall) style.font.points *= kSmallLetters;
  if (element == Element::kTable) {
    const Style plain;
    style.cellPadding = plain.cellPadding;
    style.cellSpacing = plain.cellSpacing;
    style.cellBorder = plain.cellBorder;
    style.vertical = plain.vertical;
  }
  if (element == Element::kTh) style.align = Align::kCentre;
  if (IsCell(element)) {
    style.padding.fill(style.cellPadding);
    style.borders.fill({style.cellBorder, kBorderColour});
  }
}

bool ReadPixels(std::string_view text, double& points) {
  Extent extent;
  if (!ReadExtent(text, false, true, extent)) return false;
  points = extent.value;
  return true;
}

}  // namespace

Styles::Styles(const std::string& templateName) : name_(templateName), tags_(templateName) {
  nodes_.push_back({kRootId, Element::kRoot, {}, {}});
}

Styles::Id Styles::Of(Id parent, std::string_view tag, int line) {
  const bool mayBeMeter = tag.starts_with('m') || tag.starts_with('M');
  if (mayBeMeter && HtmlTokens::TagName(tag) == KindOf(Element::kMeter).name) {
    // Its length is no matter of style, and seldom the same.
    plainTag_ = KindOf(Element::kMeter).name;
    for (const HtmlAttribute& attribute : Attributes(tag, line)) {
      if (attribute.name == "value" || attribute.name == "max") continue;
      const std::string value = text::Replace(attribute.value, "&", "&amp;");
      plainTag_ += " " + attribute.name + "=\"" + text::Replace(value, "\"", "&quot;") + "\"";
    }
    tag = plainTag_;
  }
  key_.assign(tag);
  key_.push_back('\0');
  key_.append(std::to_string(parent)).append(" ").append(std::to_string(sheetEnds_.size()));
  const auto found = known_.find(key_);
  if (found != known_.end()) return found->second;
  std::string key = key_;
  const Id id = Make(parent, tag, line);
  known_.emplace(std::move(key), id);
  return id;
}

Styles::Id Styles::Make(Id parent, std::string_view tag, int line) {
  const std::string name = HtmlTokens::TagName(tag);
  const ElementKind* const kind = FindElement(name);
  if (kind == nullptr) {
    RefuseTemplate(name_, line, "قالب گزارش نشانه «<" + name + ">» ندارد.",
                   "unknown element: <" + name + ">");
  }
  const Node& outer = nodes_[parent];
  Node node{parent, kind->element, {}, outer.style.HandedDown()};
  const bool sharesGround = (IsInline(node.element) && IsInline(outer.element)) ||
                            (IsTableRow(node.element) && !IsCell(outer.element));
  if (sharesGround) node.style.ground = outer.style.ground;
  SetDefaults(node.element, node.style);
  std::string own;
  if (node.element != Element::kMeta) {
    for (const HtmlAttribute& attribute : Attributes(tag, line)) {
      if (attribute.name == "style") own = attribute.value;
      TakeAttribute(node, attribute, line);
    }
  }
  if (KindOf(node.element).takes != 0) ApplyRules(node);
  LinedText text;
  text.Add(own, line);
  for (const Declaration& declaration : ReadDeclarations(text, name_)) {
    Apply(declaration, node.element, outer.style, node.style, name_);
  }
  nodes_.push_back(std::move(node));
  return static_cast<Id>(nodes_.size() - 1);
}

void Styles::TakeAttribute(Node& node, const HtmlAttribute& attribute, int line) {
  if (attribute.name == "id" || attribute.name == "lang" || attribute.name == "title" ||
      attribute.name == "style") {
    return;
  }
  if (SetAttribute(node, attribute)) return;
  const std::string shown = attribute.name + "=\"" + attribute.value + "\"";
  const std::string element = "<" + std::string(KindOf(node.element).name) + ">";
  RefuseTemplate(name_, line, "نشانه «" + element + "» صفت «" + shown + "» را نمي پذيرد.",
                 element + " does not take " + shown);
}

bool Styles::SetAttribute(Node& node, const HtmlAttribute& attribute) const {
  const auto& [name, value] = attribute;
  const bool isTable = node.element == Element::kTable;
  const unsigned takes = KindOf(node.element).takes;
  Style& style = node.style;
  if (name == "class") {
    for (std::size_t at = value.find_first_not_of(" \t\r\n"); at < value.size();) {
      const std::size_t end = std::min(value.find_first_of(" \t\r\n", at), value.size());
      node.classes.push_back(value.substr(at, end - at));
      at = value.find_first_not_of(" \t\r\n", end);
    }
    return true;
  }
  if (name == "dir") {
    style.rightToLeft = value == "rtl";
    return style.rightToLeft || value == "ltr";
  }
  if (name == "align") {
    constexpr std::pair<std::string_view, Align> kAligns[] = {
        {"left", Align::kLeft}, {"right", Align::kRight}, {"center", Align::kCentre}};
    const auto* const found =
        std::find_if(std::begin(kAligns), std::end(kAligns),
                     [&v = value](const auto& each) { return each.first == v; });
    if (found == std::end(kAligns) || (takes & kAlign) == 0) return false;
    (isTable ? style.place : style.align) = found->second;
    return true;
  }
  if (name == "valign") {
    constexpr std::pair<std::string_view, Vertical> kVerticals[] = {
        {"top", Vertical::kTop}, {"middle", Vertical::kMiddle}, {"bottom", Vertical::kBottom}};
    const auto* const found =
        std::find_if(std::begin(kVerticals), std::end(kVerticals),
                     [&v = value](const auto& each) { return each.first == v; });
    if (found == std::end(kVerticals) || (takes & kVertical) == 0) return false;
    style.vertical = found->second;
    return true;
  }
  if (name == "bgcolor") {
    controls::Colour colour = 0;
    if (!ReadColour(value, colour) || (takes & kGround) == 0) return false;
    style.ground = colour;
    return true;
  }
  if (name == "width") {
    Extent width;
    if (!ReadExtent(value, true, true, width) || (takes & kWidth) == 0) return false;
    style.width = width;
    return true;
  }
  if (isTable && name == "cellpadding") return ReadPixels(value, style.cellPadding);
  if (isTable && name == "cellspacing") return ReadPixels(value, style.cellSpacing);
  if (isTable && name == "border") {
    if (!ReadPixels(value, style.cellBorder)) return false;
    style.borders.fill({style.cellBorder, kBorderColour});
    return true;
  }
  if (IsCell(node.element) && name == "colspan") {
    const char* const end = value.data() + value.size();
    const auto read = std::from_chars(value.data(), end, style.columns);
    return read.ec == std::errc() && read.ptr == end && style.columns >= 1 &&
           style.columns <= kMostColumns;
  }
  return false;
}

/// Data may have put numbers there in the report's digits.
std::vector<HtmlAttribute> Styles::Attributes(std::string_view tag, int line) {
  std::vector<HtmlAttribute> attributes = tags_.Attributes(tag, line);
  for (HtmlAttribute& attribute : attributes) {
    std::string& value = attribute.value;
    for (std::size_t at = 0; at + 1 < value.size(); ++at) {
      const auto digit = static_cast<unsigned char>(value[at + 1]);  // U+06F0 to U+06F9
      if (value[at] != '\xDB' || digit < 0xB0 || digit > 0xB9) continue;
      value.replace(at, 2, 1, static_cast<char>(digit - 0x80));
    }
  }
  return attributes;
}

double Styles::MeterShare(std::string_view tag, int line) {
  double value = 0;
  double most = 1;
  for (const HtmlAttribute& attribute : Attributes(tag, line)) {
    if (attribute.name != "value" && attribute.name != "max") continue;
    double number = 0;
    if (!ReadNumber(attribute.value, number)) {
      RefuseTemplate(name_, line,
                     "مقدار «" + attribute.value + "» براي «" + attribute.name + "» عدد نيست.",
                     "no number in <meter " + attribute.name + ">: " + attribute.value);
    }
    (attribute.name == "value" ? value : most) = number;
  }
  return most > 0 ? std::min(value / most, 1.0) : 0;
}

void Styles::AddSheet(const LinedText& text) {
  std::vector<Rule> rules = ReadStyleSheet(text, name_);
  std::move(rules.begin(), rules.end(), std::back_inserter(rules_));
  sheetEnds_.push_back(rules_.size());
}

void Styles::KeepSheets(std::size_t count) {
  if (count >= sheetEnds_.size()) return;
  sheetEnds_.resize(count);
  rules_.resize(count == 0 ? 0 : sheetEnds_.back());
}

void Styles::ApplyRules(Node& node) const {
  std::vector<const Rule*> matching;
  for (const Rule& rule : rules_) {
    if (Matches(rule, node)) matching.push_back(&rule);
  }
  std::stable_sort(matching.begin(), matching.end(),
                   [](const Rule* a, const Rule* b) { return a->weight < b->weight; });
  for (const Rule* rule : matching) {
    for (const Declaration& declaration : rule->declarations) {
      Apply(declaration, node.element, nodes_[node.parent].style, node.style, name_);
    }
  }
}

bool Styles::Matches(const Rule& rule, const Node& node) const {
  const auto fits = [](const SimpleSelector& simple, const Node& at) {
    return (simple.element == Element::kRoot || simple.element == at.element) &&
           std::all_of(simple.classes.begin(), simple.classes.end(), [&at](const auto& wanted) {
             return std::find(at.classes.begin(), at.classes.end(), wanted) != at.classes.end();
           });
  };
  if (!fits(rule.path.back(), node)) return false;
  // The nearest element that fits is the best, since whatever fits further out is around it too.
  std::size_t left = rule.path.size() - 1;
  for (const Node* at = &node; left > 0 && at->element != Element::kRoot;) {
    at = &nodes_[at->parent];
    if (at->element != Element::kRoot && fits(rule.path[left - 1], *at)) --left;
  }
  return left == 0;
}

}  // namespace report
