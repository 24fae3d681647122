#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace structure {

/// Source files by path from the project's root, with '/' between folders, and their texts.
using SourceTree = std::map<std::string, std::string>;

/// Which other layers the files of a layer may include. A layer is a folder of src, of
/// src/adapters, of apps, or of the root; a name that ends in "/*" stands for every folder of that
/// kind without a rule of its own.
struct LayerRule {
  std::string layer;
  std::set<std::string> mayInclude;
  /// Whether any system or library header is allowed, or only the standard ones of the rules.
  bool anyLibrary = false;
};

/// The project's own rules, from the bottom up: the one place where its include directions are
/// written down.
const std::vector<LayerRule>& ProjectRules();

/// One line a fault, empty when there is none: an edge that no rule allows, a header from outside
/// in a layer that may have none, an include that leads to no file, a folder without a rule, and
/// headers that include each other in a ring.
std::vector<std::string> FindFaults(const SourceTree& tree);

}  // namespace structure
