#include "structure/IncludeRules.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <regex>
#include <sstream>
#include <utility>

namespace structure {
namespace {

/// The rule's or allowed entry's name covers the layer: the same, or "kind/*" for "kind/any".
bool Covers(std::string_view pattern, std::string_view layer) {
  if (pattern == layer) return true;
  return pattern.ends_with("/*") && layer.starts_with(pattern.substr(0, pattern.size() - 1));
}

const LayerRule* RuleOf(const Rules& rules, std::string_view layer) {
  // Exact names stand before the pattern that would cover them too.
  const auto found = std::ranges::find_if(
      rules.layers, [&](const LayerRule& rule) { return Covers(rule.layer, layer); });
  return found == rules.layers.end() ? nullptr : &*found;
}

/// The file that a quoted include leads to: written from src/, from the root, or beside the file.
std::optional<std::string> Resolve(const SourceTree& tree, const std::string& file,
                                   const std::string& target) {
  const std::string beside = file.substr(0, file.rfind('/') + 1) + target;
  for (const std::string& path : {"src/" + target, target, beside}) {
    if (tree.contains(path)) return path;
  }
  return {};
}

/// What is wrong with one include, or nothing.
std::optional<std::string> FaultOf(const SourceTree& tree, const Rules& rules,
                                   const std::string& file, const Include& include) {
  const std::string layer = LayerOf(file);
  const LayerRule* rule = RuleOf(rules, layer);
  if (rule == nullptr) return "no rule for the folder " + layer;
  const auto path =
      include.quoted ? Resolve(tree, file, include.target) : std::optional<std::string>{};
  if (!path) {
    if (rule->outside == LayerRule::Outside::kAny) return {};
    if (include.quoted) return "no such file in the project";
    if (rules.standardHeaders.contains(include.target)) return {};
    return "not one of the standard headers for " + layer;
  }
  const std::string included = LayerOf(*path);
  const bool allowed =
      included == layer || std::ranges::any_of(rule->mayInclude, [&](const std::string& pattern) {
        return Covers(pattern, included);
      });
  if (allowed) return {};
  return layer + " may not include " + included;
}

/// Walks the includes between headers depth first and reports each ring once.
class RingFinder {
 public:
  explicit RingFinder(const SourceTree& tree) : tree_(tree) {}

  std::vector<std::string> Find() {
    for (const auto& [path, text] : tree_) Walk(path);
    return std::move(faults_);
  }

 private:
  void Walk(const std::string& path) {
    if (done_.contains(path)) return;
    const auto open = std::ranges::find(trail_, path);
    if (open != trail_.end()) {
      std::string ring = "ring of includes: ";
      for (auto it = open; it != trail_.end(); ++it) ring += *it + " -> ";
      faults_.push_back(ring + path);
      return;
    }
    trail_.push_back(path);
    for (const Include& include : ReadIncludes(tree_.at(path))) {
      if (!include.quoted) continue;
      if (const auto next = Resolve(tree_, path, include.target)) Walk(*next);
    }
    trail_.pop_back();
    done_.insert(path);
  }

  const SourceTree& tree_;
  std::vector<std::string> trail_;
  std::set<std::string> done_;
  std::vector<std::string> faults_;
};

}  // namespace

std::vector<Include> ReadIncludes(const std::string& source) {
  static const std::regex kInclude(R"~(^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>).*)~");
  std::vector<Include> includes;
  std::istringstream lines(source);
  for (std::string line; std::getline(lines, line);) {
    std::smatch found;
    if (line.find('#') == std::string::npos || !std::regex_match(line, found, kInclude)) continue;
    includes.push_back({found[1].matched ? found[1] : found[2], found[1].matched});
  }
  return includes;
}

std::string LayerOf(const std::string& path) {
  static const std::regex kLayer("(?:src/)?((?:adapters/|apps/)?[^/]+)/.*");
  std::smatch found;
  return std::regex_match(path, found, kLayer) ? found[1].str() : path;
}

std::vector<std::string> FindFaults(const SourceTree& tree, const Rules& rules) {
  std::vector<std::string> faults;
  std::set<const Exception*> used;
  for (const auto& entry : tree) {
    const std::string& file = entry.first;
    for (const Include& include : ReadIncludes(entry.second)) {
      const auto fault = FaultOf(tree, rules, file, include);
      if (!fault) continue;
      const auto exception = std::ranges::find_if(rules.exceptions, [&](const Exception& allowed) {
        return allowed.file == file && allowed.include == include.target;
      });
      if (exception == rules.exceptions.end()) {
        faults.push_back(file + " includes " + include.target + ": " + *fault);
      } else {
        used.insert(&*exception);
      }
    }
  }
  for (const Exception& exception : rules.exceptions) {
    if (used.contains(&exception)) continue;
    faults.push_back("stale exception: " + exception.file + " includes " + exception.include);
  }
  std::ranges::move(RingFinder(tree).Find(), std::back_inserter(faults));
  return faults;
}

}  // namespace structure
