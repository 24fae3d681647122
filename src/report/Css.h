#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/Style.h"

namespace report {

/// A text that knows from which line of the template each of its parts is.
class LinedText {
 public:
  void Add(std::string_view text, int line) {
    marks_.push_back({text_.size(), line});
    text_ += text;
  }
  void Clear() {
    text_.clear();
    marks_.clear();
  }
  const std::string& Text() const { return text_; }
  int LineAt(std::size_t at) const;

 private:
  struct Mark {
    std::size_t at;
    int line;
  };
  std::string text_;
  std::vector<Mark> marks_;
};

struct Property;

/// "name: value", known to be right in itself.
struct Declaration {
  const Property* property;
  std::string value;
  int line;
};

/// An element's name (kRoot: any) with classes.
struct SimpleSelector {
  Element element = Element::kRoot;
  std::vector<std::string> classes;
};

struct Rule {
  std::vector<SimpleSelector> path;  // each stands somewhere in the one before it
  std::vector<Declaration> declarations;
  int weight = 0;  // of more special ones larger
};

/// Both throw ReportError 321 with the line for what is not understood. `name` is the template's.
std::vector<Rule> ReadStyleSheet(const LinedText& text, const std::string& name);
std::vector<Declaration> ReadDeclarations(const LinedText& text, const std::string& name);

/// Throws ReportError 321 when the element does not take the property.
void Apply(const Declaration& declaration, Element element, const Style& parent, Style& style,
           const std::string& name);

/// Each is false for what is none. A number is of digits with at most one point.
bool ReadNumber(std::string_view text, double& number);
bool ReadColour(std::string_view text, controls::Colour& colour);
/// Of points, pixels or, where that makes sense, percent; without unit pixels where `plain` is set.
bool ReadExtent(std::string_view text, bool percent, bool plain, Extent& extent);

}  // namespace report
