#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "structure/IncludeRules.h"

namespace structure {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Tests run in the project's root.
SourceTree ReadProject() {
  SourceTree tree;
  for (const char* folder : {"src", "apps", "demo"}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
      const auto extension = entry.path().extension();
      if (extension != ".h" && extension != ".cpp") continue;
      std::ostringstream text;
      text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
      tree[entry.path().generic_string()] = text.str();
    }
  }
  return tree;
}

TEST(IncludeDirection, Project_hasNoFault) {
  const SourceTree tree = ReadProject();
  ASSERT_TRUE(tree.contains("src/host/modMain.h"));
  EXPECT_THAT(FindFaults(tree), IsEmpty());
}

TEST(IncludeDirection, ProjectRules_pointOnlyDown) {
  std::vector<std::string> below;
  for (const LayerRule& rule : ProjectRules()) {
    EXPECT_THAT(below, testing::IsSupersetOf(rule.mayInclude)) << rule.layer;
    below.push_back(rule.layer);
  }
}

TEST(IncludeDirection, OneInclude_isAllowedOrNamed) {
  const SourceTree headers{
      {"src/text/T.h", ""},        {"src/calendar/C.h", ""},        {"src/host/H.h", ""},
      {"src/batch/B.h", ""},       {"src/search/S.h", ""},          {"src/editor/E.h", ""},
      {"src/adapters/qt/Q.h", ""}, {"src/adapters/sqlite/D.h", ""}, {"src/adapters/server/S.h", ""},
      {"apps/desktop/Tour.h", ""}};
  const struct {
    std::string file, line, fault;  // no fault where it is empty
  } cases[] = {
      {"src/calendar/x.cpp", "#include \"text/T.h\"", ""},
      {"src/host/x.h", "#include <string_view>", ""},
      {"src/editor/x.cpp", "#include \"batch/B.h\"", ""},
      {"src/adapters/odbc/x.cpp", "#include \"adapters/server/S.h\"", ""},
      {"src/adapters/qt/x.cpp", "#include <QWidget>", ""},
      {"demo/x.cpp", "#include \"adapters/sqlite/D.h\"", ""},
      {"apps/desktop/x.cpp", "#include \"Tour.h\"", ""},
      {"src/host/x.h", "// #include \"editor/E.h\"", ""},
      {"src/text/x.h", "#include \"calendar/C.h\"", "text may not include calendar"},
      {"src/host/x.h", "  #  include\t\"editor/E.h\"  // why", "host may not include editor"},
      {"src/batch/x.h", "#include \"search/S.h\"", "batch may not include search"},
      {"src/editor/x.cpp", "#include \"adapters/qt/Q.h\"", "editor may not include adapters/qt"},
      {"src/editor/x.cpp", "#include \"Q.h\"", "neither in the project"},
      {"src/adapters/qt/x.cpp", "#include \"adapters/sqlite/D.h\"",
       "adapters/qt may not include adapters/sqlite"},
      {"src/adapters/sqlite/x.cpp", "#include \"adapters/server/S.h\"",
       "adapters/sqlite may not include adapters/server"},
      {"src/host/x.cpp", "#include <fstream>", "nor one of the standard headers for host"},
      {"src/reports/x.h", "#include <string>", "no rule for the folder reports"},
  };
  for (const auto& c : cases) {
    SourceTree tree = headers;
    tree[c.file] = c.line + "\n";
    const auto faults = FindFaults(tree);
    EXPECT_EQ(faults.size(), c.fault.empty() ? 0U : 1U) << c.file << ": " << c.line;
    for (const std::string& fault : faults) EXPECT_THAT(fault, HasSubstr(c.fault));
  }
}

TEST(IncludeDirection, RingOfHeaders_isReported) {
  SourceTree tree{{"src/host/a.h", "#include \"host/b.h\"\n"},
                  {"src/host/b.h", "#include <vector>\n#include \"c.h\""},
                  {"src/host/c.h", "#include \"host/a.h\"\n"}};
  EXPECT_THAT(FindFaults(tree), ElementsAre("a ring of includes below src/host/a.h"));
  tree["src/host/c.h"] = "#include <vector>\n";
  EXPECT_THAT(FindFaults(tree), IsEmpty());
}

}  // namespace
}  // namespace structure
