#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "report/Css.h"
#include "report/HtmlTokens.h"
#include "report/Style.h"

namespace report {

/// How each element of a template looks, by its tag and those around it. What looks alike is worked
/// out once: its id is the same, stays good, and costs no more than looking up the tag.
class Styles {
 public:
  using Id = std::uint32_t;
  static constexpr Id kRootId = 0;

  /// `templateName`, for error texts, outlives this.
  explicit Styles(const std::string& templateName);

  /// Of an element in `parent` whose start tag is `tag`, without the brackets. Throws ReportError
  /// 321 for an element, an attribute or a property that is not known or has no place there.
  Id Of(Id parent, std::string_view tag, int line);
  const Style& operator[](Id id) const { return nodes_[id].style; }
  Element ElementOf(Id id) const { return nodes_[id].element; }
  /// Of a meter's length, from 0 to 1.
  double MeterShare(std::string_view tag, int line);

  /// Adds a style sheet to those before it.
  void AddSheet(const LinedText& text);
  std::size_t SheetCount() const { return sheetEnds_.size(); }
  /// Forgets all sheets but the first `count`.
  void KeepSheets(std::size_t count);

 private:
  struct Node {
    Id parent;
    Element element;
    std::vector<std::string> classes;
    Style style;
  };
  Id Make(Id parent, std::string_view tag, int line);
  std::vector<HtmlAttribute> Attributes(std::string_view tag, int line);
  void TakeAttribute(Node& node, const HtmlAttribute& attribute, int line);
  bool SetAttribute(Node& node, const HtmlAttribute& attribute) const;
  void ApplyRules(Node& node) const;
  bool Matches(const Rule& rule, const Node& node) const;

  const std::string& name_;
  HtmlTokens tags_;
  std::deque<Node> nodes_;
  std::unordered_map<std::string, Id> known_;  // by sheets, parent and tag
  std::string key_;
  std::string plainTag_;
  std::vector<Rule> rules_;
  std::vector<std::size_t> sheetEnds_;  // in rules_
};

}  // namespace report
