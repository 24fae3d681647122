#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
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
  EXPECT_THAT(FindFaults(tree, ProjectRules()), IsEmpty());
}

TEST(IncludeDirection, ProjectRules_pointOnlyDown) {
  std::vector<std::string> below;
  for (const LayerRule& rule : ProjectRules().layers) {
    for (const std::string& layer : rule.mayInclude) {
      EXPECT_THAT(below, testing::Contains(layer)) << rule.layer;
    }
    below.push_back(rule.layer);
  }
}

/// A project of one file that includes `line`, beside one header in every kind of folder.
std::vector<std::string> FaultsOfLine(const std::string& file, const std::string& line) {
  SourceTree tree{{"src/text/T.h", ""},          {"src/calendar/C.h", ""},
                  {"src/platform/P.h", ""},      {"src/controls/K.h", ""},
                  {"src/host/H.h", ""},          {"src/tools/L.h", ""},
                  {"src/batch/B.h", ""},         {"src/search/S.h", ""},
                  {"src/editor/E.h", ""},        {"src/module/M.h", ""},
                  {"src/adapters/qt/Q.h", ""},   {"src/adapters/sqlite/D.h", ""},
                  {"src/adapters/odbc/O.h", ""}, {"src/adapters/report/R.h", ""},
                  {"demo/Office.h", ""},         {"apps/desktop/Tour.h", ""}};
  tree[file] = line + "\n";
  return FindFaults(tree, ProjectRules());
}

TEST(IncludeDirection, AllowedInclude_isNoFault) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"src/calendar/x.cpp", "#include \"text/T.h\""},
      {"src/host/x.h", "#include \"host/H.h\""},
      {"src/host/x.h", "#include <string_view>"},
      {"src/editor/x.cpp", "#include \"batch/B.h\""},
      {"src/module/x.cpp", "#include \"editor/E.h\""},
      {"src/adapters/qt/x.cpp", "#include \"adapters/report/R.h\""},
      {"src/adapters/qt/x.cpp", "#include <QWidget>"},
      {"src/adapters/com/x.cpp", "#include \"host/H.h\""},
      {"demo/x.cpp", "#include \"adapters/sqlite/D.h\""},
      {"apps/desktop/x.cpp", "#include \"adapters/qt/Q.h\""},
      {"apps/desktop/x.cpp", "#include \"Tour.h\""},
      {"apps/desktop/x.cpp", "#include \"demo/Office.h\""},
      {"src/host/x.h", "// #include \"editor/E.h\""},
  };
  for (const auto& [file, line] : cases) {
    EXPECT_THAT(FaultsOfLine(file, line), IsEmpty()) << file << ": " << line;
  }
}

TEST(IncludeDirection, ForbiddenInclude_isNamed) {
  struct Case {
    std::string file;
    std::string line;
    std::string fault;
  };
  const std::vector<Case> cases{
      {"src/text/x.h", "#include \"calendar/C.h\"", "text may not include calendar"},
      {"src/platform/x.h", "#include \"text/T.h\"", "platform may not include text"},
      {"src/controls/x.h", "#include \"host/H.h\"", "controls may not include host"},
      {"src/host/x.h", "  #  include\t\"editor/E.h\"  // why", "host may not include editor"},
      {"src/batch/x.h", "#include \"search/S.h\"", "batch may not include search"},
      {"src/editor/x.cpp", "#include \"adapters/qt/Q.h\"", "editor may not include adapters/qt"},
      {"src/editor/x.cpp", "#include \"Q.h\"", "no such file"},
      {"src/adapters/qt/x.cpp", "#include \"adapters/sqlite/D.h\"",
       "adapters/qt may not include adapters/sqlite"},
      {"src/adapters/odbc/x.cpp", "#include \"adapters/report/R.h\"",
       "adapters/odbc may not include adapters/report"},
      {"src/adapters/qt/x.cpp", "#include \"editor/E.h\"", "adapters/qt may not include editor"},
      {"src/host/x.cpp", "#include <QString>", "not one of the standard headers"},
      {"src/host/x.cpp", "#include <unistd.h>", "not one of the standard headers"},
      {"src/host/x.cpp", "#include <fstream>", "not one of the standard headers"},
      {"demo/x.cpp", "#include \"module/M.h\"", "demo may not include module"},
      {"src/reports/x.h", "#include <string>", "no rule for the folder reports"},
  };
  for (const Case& c : cases) {
    EXPECT_THAT(FaultsOfLine(c.file, c.line), ElementsAre(HasSubstr(c.fault)))
        << c.file << ": " << c.line;
  }
}

TEST(IncludeDirection, Exception_allowsOneIncludeUntilNoFileNeedsIt) {
  Rules rules = ProjectRules();
  rules.exceptions = {{"src/text/x.h", "host/H.h"}};
  const SourceTree needed{
      {"src/host/H.h", ""}, {"src/text/x.h", "#include \"host/H.h\"\n"}, {"src/text/y.h", ""}};
  EXPECT_THAT(FindFaults(needed, rules), IsEmpty());

  const SourceTree elsewhere{
      {"src/host/H.h", ""}, {"src/text/x.h", ""}, {"src/text/y.h", "#include \"host/H.h\"\n"}};
  EXPECT_THAT(FindFaults(elsewhere, rules),
              ElementsAre(HasSubstr("src/text/y.h"), HasSubstr("stale exception: src/text/x.h")));
}

TEST(IncludeDirection, RingOfHeaders_isReportedOnce) {
  const SourceTree tree{{"src/host/a.h", "#include \"host/b.h\"\n"},
                        {"src/host/b.h", "#include <vector>\n#include \"host/c.h\""},
                        {"src/host/c.h", "#include \"host/a.h\"\n"},
                        {"src/host/d.h", "#include \"host/a.h\"\n#include \"host/b.h\"\n"}};
  EXPECT_THAT(FindFaults(tree, ProjectRules()),
              ElementsAre("ring of includes: src/host/a.h -> src/host/b.h -> src/host/c.h -> "
                          "src/host/a.h"));
}

}  // namespace
}  // namespace structure
