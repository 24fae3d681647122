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

/// Which other layers the files of a layer may include. A layer is a folder of src, of
/// src/adapters, of apps, or of the root; a name that ends in "/*" stands for every folder of that
/// kind without a rule of its own. Only some may include headers of the system and of libraries.
struct Rule {
  std::string layer;
  std::string mayInclude;
  bool anyLibrary = false;
};

// Adapters see the module's plain side, never each other, but for server: what the ways to a server
// share.
const std::string kPlain = "text calendar platform controls host ";
const std::string kForms = kPlain + "tools batch search editor ";

/// The project's rules, from the bottom up: the one place where its include directions are written
/// down.
const std::vector<Rule> kRules{
    {"text", ""},
    {"calendar", "text"},
    {"platform", "text"},
    {"controls", "text calendar platform"},
    {"report", "text calendar platform controls"},
    {"screens", "text calendar platform controls report"},
    {"host", "text calendar platform controls"},
    {"tools", kPlain},
    {"batch", kPlain + "tools"},
    {"search", kPlain + "tools"},
    {"editor", kPlain + "tools batch search"},
    {"module", kForms},
    {"adapters/server", "text platform", true},
    {"adapters/qt", kPlain + "screens report", true},
    {"adapters/windows", kPlain + "screens report adapters/server", true},
    {"adapters/odbc", kPlain + "adapters/server", true},
    {"adapters/*", kPlain, true},
    // Makes its database through an adapter, and is told nothing of the module.
    {"demo", "text calendar platform adapters/*", true},
    // A user's day, told without a screen.
    {"apps/tour", "text screens", true},
    // How a host comes to a connection.
    {"apps/connection", "platform host adapters/*", true},
    {"apps/options", "text", true},
    // What every program says of itself.
    {"apps/version", "", true},
    {"apps/about", "text controls screens apps/version", true},
    // Composition roots: the only ones that see both the module and the adapters.
    {"apps/activex", kPlain + "screens report module adapters/* apps/connection", true},
    // The trial container takes the control's databases, nothing else of it.
    {"apps/*",
     kForms +
         "screens report module adapters/* demo apps/about apps/connection apps/options apps/tour "
         "apps/version apps/activex",
     true},
};

// Left out on purpose: whatever reads the clock, files, locale or environment by itself (ctime,
// filesystem, fstream, iostream, locale, regex, cstdlib), and threads.
const Names kStandardHeaders = Words(
    "algorithm array bit bitset cassert cctype charconv chrono climits cmath compare concepts "
    "cstddef cstdint cstring deque exception functional initializer_list iterator limits list map "
    "memory memory_resource new numeric optional queue ranges ratio set span stack stdexcept "
    "string string_view system_error tuple type_traits typeinfo unordered_map unordered_set "
    "utility variant vector");

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
  for (const Rule& rule : kRules) {
    EXPECT_THAT(below, testing::IsSupersetOf(Words(rule.mayInclude))) << rule.layer;
    below.insert(rule.layer);
  }
}

TEST(IncludeDirection, Project_keepsToTheRulesAndHasNoRing) {
  const std::map<std::string, Names> project = ReadProject();
  ASSERT_TRUE(project.contains("src/host/modMain.h"));
  std::map<std::string, Names> left;  // what each file includes of the project
  for (const auto& [file, includes] : project) {
    const std::string layer = LayerOf(file);
    const auto rule =
        std::ranges::find_if(kRules, [&](const Rule& each) { return Covers(each.layer, layer); });
    ASSERT_NE(rule, kRules.end()) << "no rule for the folder " << layer;
    left[file];
    for (const std::string& written : includes) {
      // Written from src/, from the root, or beside the file.
      std::string path;
      for (const std::string& from :
           {file.substr(0, file.rfind('/') + 1), std::string(), std::string("src/")}) {
        if (project.contains(from + written)) path = from + written;
      }
      if (path.empty()) {
        EXPECT_TRUE(rule->anyLibrary || kStandardHeaders.contains(written))
            << file << " includes " << written;
        continue;
      }
      left[file].insert(path);
      const std::string included = LayerOf(path);
      EXPECT_TRUE(included == layer ||
                  std::ranges::any_of(Words(rule->mayInclude),
                                      [&](auto& each) { return Covers(each, included); }))
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
