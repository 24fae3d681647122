#include "structure/IncludeRules.h"

#include <algorithm>
#include <regex>
#include <string_view>

namespace structure {
namespace {

// Left out on purpose: whatever reads the clock, files, locale or environment by itself (ctime,
// filesystem, fstream, iostream, locale, regex, cstdlib), and threads.
constexpr std::string_view kStandardHeaders =
    " algorithm array bit bitset cassert cctype charconv chrono climits cmath "
    "compare concepts cstddef cstdint cstring deque exception functional "
    "initializer_list iterator limits list map memory memory_resource new "
    "numeric optional queue ranges ratio set span stack stdexcept string "
    "string_view system_error tuple type_traits typeinfo unordered_map "
    "unordered_set utility variant vector ";

struct Include {
  std::string written;
  std::string path;  // in the tree; empty when it leads to none
};

/// The layer's name covers another: the same, or "kind/*" for "kind/any".
bool Covers(std::string_view pattern, std::string_view layer) {
  if (pattern == layer) return true;
  return pattern.ends_with("/*") && layer.starts_with(pattern.substr(0, pattern.size() - 1));
}

/// "src/adapters/qt/Window.h" belongs to adapters/qt, "src/host/modMain.h" to host.
std::string LayerOf(const std::string& path) {
  static const std::regex kLayer("(?:src/)?((?:adapters/|apps/)?[^/]+)/.*");
  return std::regex_replace(path, kLayer, "$1");
}

/// Quoted includes are written from src/, from the root, or beside the file.
std::vector<Include> ReadIncludes(const SourceTree& tree, const std::string& file) {
  static const std::regex kInclude(R"~((?:^|\n)[ \t]*#[ \t]*include[ \t]*["<]([^">]+)[">])~");
  const std::string& text = tree.at(file);
  std::vector<Include> includes;
  for (std::sregex_iterator at(text.begin(), text.end(), kInclude), end; at != end; ++at) {
    Include include{(*at)[1], {}};
    for (const std::string& folder :
         {file.substr(0, file.rfind('/') + 1), std::string(), std::string("src/")}) {
      if (tree.contains(folder + include.written)) include.path = folder + include.written;
    }
    includes.push_back(include);
  }
  return includes;
}

/// What is wrong with one include; empty when nothing is.
std::string FaultOf(const std::string& layer, const Include& include) {
  const auto rule = std::ranges::find_if(
      ProjectRules(), [&](const LayerRule& each) { return Covers(each.layer, layer); });
  if (rule == ProjectRules().end()) return "no rule for the folder " + layer;
  if (include.path.empty()) {
    const bool known = rule->anyLibrary ||
                       kStandardHeaders.find(" " + include.written + " ") != std::string_view::npos;
    return known ? "" : "neither in the project nor one of the standard headers for " + layer;
  }
  const std::string included = LayerOf(include.path);
  const bool allowed =
      included == layer || std::ranges::any_of(rule->mayInclude, [&](const std::string& pattern) {
        return Covers(pattern, included);
      });
  return allowed ? "" : layer + " may not include " + included;
}

}  // namespace

std::vector<std::string> FindFaults(const SourceTree& tree) {
  std::vector<std::string> faults;
  std::map<std::string, std::set<std::string>> below;
  for (const auto& [file, text] : tree) {
    below[file];
    for (const Include& include : ReadIncludes(tree, file)) {
      const std::string fault = FaultOf(LayerOf(file), include);
      if (!fault.empty()) faults.push_back(file + " includes " + include.written + ": " + fault);
      if (!include.path.empty()) below[file].insert(include.path);
    }
  }
  // Files that include only what was taken away are taken away too; rings stay.
  const auto stands = [&](const std::string& file) { return below.contains(file); };
  while (std::erase_if(below, [&](const auto& file) {
           return std::ranges::none_of(file.second, stands);
         }) > 0) {
  }
  if (!below.empty()) faults.push_back("a ring of includes below " + below.begin()->first);
  return faults;
}

}  // namespace structure
