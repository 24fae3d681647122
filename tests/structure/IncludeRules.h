#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace structure {

/// Source files by path from the project's root, with '/' between folders, and their texts.
using SourceTree = std::map<std::string, std::string>;

/// Which other layers the files of a layer may include. The name is that of LayerOf; one that ends
/// in "/*" stands for every folder of that kind without a rule of its own.
struct LayerRule {
  std::string layer;
  std::set<std::string> mayInclude;
  /// Whether any system or library header is allowed, or only those of the rules' standard list.
  enum class Outside { kStandardOnly, kAny } outside;
};

/// One include that is allowed against the rules.
struct Exception {
  std::string file;     // path from the project's root
  std::string include;  // as written between the quotes or angle brackets
};

struct Rules {
  /// From the bottom up: a rule names only layers above it in this list.
  std::vector<LayerRule> layers;
  std::set<std::string> standardHeaders;
  std::vector<Exception> exceptions;
};

/// The project's own rules: the one place where its include directions are written down.
const Rules& ProjectRules();

struct Include {
  std::string target;
  bool quoted;
};

/// The #include lines of a source text, in order; those in // comments do not count.
std::vector<Include> ReadIncludes(const std::string& source);

/// "src/adapters/qt/Window.h" belongs to adapters/qt, "src/host/modMain.h" to host,
/// "apps/desktop/main.cpp" to apps/desktop, "demo/Office.h" to demo.
std::string LayerOf(const std::string& path);

/// One line a fault, empty when there is none: an edge that no rule allows, a header from outside
/// in a layer that may have none, an include that leads to no file, a folder without a rule,
/// headers that include each other in a ring, and an exception that no file needs.
std::vector<std::string> FindFaults(const SourceTree& tree, const Rules& rules);

}  // namespace structure
