#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "support/TestFolder.h"

namespace {

using Names = std::set<std::string>;

Names Words(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

/// A line of layers.txt.
struct Rule {
  std::string layer;
  Names mayInclude;
  bool anyLibrary = false;
};

std::vector<Rule> ReadRules() {
  std::vector<Rule> rules;
  std::istringstream lines(support::Content("tests/structure/layers.txt"));
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("#")) continue;
    if (const std::size_t colon = line.find(':'); colon != line.npos) {
      const bool anyLibrary = line.starts_with("+");
      rules.push_back({line.substr(anyLibrary, colon - anyLibrary), {}, anyLibrary});
      line.erase(0, colon + 1);
    }
    for (const std::string& name : Words(line)) {
      const auto group = std::ranges::find(rules, name, &Rule::layer);
      Names& names = rules.back().mayInclude;
      if (name == "plain" || name == "forms") {
        names.insert(group->mayInclude.begin(), group->mayInclude.end());
      } else {
        names.insert(name);
      }
    }
  }
  return rules;
}

bool Covers(const std::string& pattern, const std::string& layer) {
  return pattern == layer ||
         (pattern.ends_with("/*") && layer.starts_with(pattern.substr(0, pattern.size() - 1)));
}

/// "src/adapters/qt/Window.h" belongs to adapters/qt, "src/host/modMain.h" to host.
std::string LayerOf(const std::string& path) {
  static const std::regex kLayer("(?:src/)?((?:adapters/|apps/)?[^/]+)/.*");
  return std::regex_replace(path, kLayer, "$1");
}

/// Source files by path, and what each includes, as it is written.
std::map<std::string, Names> ReadProject() {
  static const std::regex kInclude(R"~((?:^|\n)[ \t]*#[ \t]*include[ \t]*["<]([^">]+)[">])~");
  std::map<std::string, Names> project;
  for (const char* folder : {"src", "apps", "demo"}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
      const auto extension = entry.path().extension();
      if (extension != ".h" && extension != ".cpp") continue;
      const std::string text = support::Content(entry.path().string());
      Names& includes = project[entry.path().generic_string()];
      for (std::sregex_iterator at(text.begin(), text.end(), kInclude), end; at != end; ++at) {
        includes.insert((*at)[1]);
      }
    }
  }
  return project;
}

TEST(IncludeDirection, Rules_pointOnlyDown) {
  Names below;
  for (const Rule& rule : ReadRules()) {
    if (rule.layer == "standard") continue;
    EXPECT_THAT(below, testing::IsSupersetOf(rule.mayInclude)) << rule.layer;
    below.insert(rule.layer);
  }
}

TEST(IncludeDirection, Project_keepsToTheRulesAndHasNoRing) {
  const std::map<std::string, Names> project = ReadProject();
  ASSERT_TRUE(project.contains("src/host/modMain.h"));
  const std::vector<Rule> rules = ReadRules();
  const Names standard = std::ranges::find(rules, "standard", &Rule::layer)->mayInclude;
  std::map<std::string, Names> left;  // what each file includes of the project
  for (const auto& [file, includes] : project) {
    const std::string layer = LayerOf(file);
    const auto rule =
        std::ranges::find_if(rules, [&](const Rule& each) { return Covers(each.layer, layer); });
    ASSERT_NE(rule, rules.end()) << "no rule for the folder " << layer;
    left[file];
    for (const std::string& written : includes) {
      // Written from src/, from the root, or beside the file.
      std::string path;
      for (const std::string& from :
           {file.substr(0, file.rfind('/') + 1), std::string(), std::string("src/")}) {
        if (project.contains(from + written)) path = from + written;
      }
      if (path.empty()) {
        EXPECT_TRUE(rule->anyLibrary || standard.contains(written))
            << file << " includes " << written;
        continue;
      }
      left[file].insert(path);
      const std::string included = LayerOf(path);
      EXPECT_TRUE(
          included == layer ||
          std::ranges::any_of(rule->mayInclude, [&](auto& each) { return Covers(each, included); }))
          << file << " includes " << written;
    }
  }
  // Files that include only what was taken away are taken away too; rings stay.
  const auto stands = [&](const std::string& file) { return left.contains(file); };
  while (std::erase_if(left, [&](const auto& each) {
           return std::ranges::none_of(each.second, stands);
         }) > 0) {
  }
  EXPECT_TRUE(left.empty()) << "a ring of includes below " << left.begin()->first;
}

}  // namespace
