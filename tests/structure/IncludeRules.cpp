#include "structure/IncludeRules.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <utility>

namespace structure {
namespace {

constexpr std::string_view kBlank = " \t";

std::string_view SkipBlanks(std::string_view text) {
  const auto start = text.find_first_not_of(kBlank);
  return start == std::string_view::npos ? std::string_view{} : text.substr(start);
}

bool TakePrefix(std::string_view& text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return false;
  text = SkipBlanks(text.substr(prefix.size()));
  return true;
}

std::optional<Include> ReadIncludeLine(std::string_view line) {
  line = SkipBlanks(line);
  if (!TakePrefix(line, "#") || !TakePrefix(line, "include") || line.empty()) return {};
  const bool quoted = line.front() == '"';
  if (!quoted && line.front() != '<') return {};
  const auto end = line.find(quoted ? '"' : '>', 1);
  if (end == std::string_view::npos) return {};
  return Include{std::string(line.substr(1, end - 1)), quoted};
}

std::string FirstFolders(std::string_view path, int count) {
  std::size_t end = 0;
  for (int i = 0; i < count; ++i) {
    const auto slash = path.find('/', end + (i > 0 ? 1 : 0));
    if (slash == std::string_view::npos) break;
    end = slash;
  }
  return std::string(path.substr(0, end));
}

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

std::vector<Include> ReadIncludes(std::string_view source) {
  std::vector<Include> includes;
  while (!source.empty()) {
    const auto end = std::min(source.find('\n'), source.size());
    if (auto include = ReadIncludeLine(source.substr(0, end))) {
      includes.push_back(std::move(*include));
    }
    source.remove_prefix(std::min(end + 1, source.size()));
  }
  return includes;
}

std::string LayerOf(std::string_view path) {
  if (path.starts_with("src/")) {
    path.remove_prefix(4);
    return FirstFolders(path, path.starts_with("adapters/") ? 2 : 1);
  }
  return FirstFolders(path, path.starts_with("apps/") ? 2 : 1);
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
