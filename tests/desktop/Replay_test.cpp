#include "desktop/Replay.h"

#include <gtest/gtest.h>

#include <sstream>

#include "demo/SqlScript.h"
#include "support/ScriptedDatabase.h"

namespace {

using support::Exact;
using support::RowSetOf;

TEST(Batches, Scripts_AreCutAtGoAloneAndElseLeftAsTheyAre) {
  using List = std::vector<std::string_view>;
  EXPECT_EQ(demo::Batches(""), List());
  EXPECT_EQ(demo::Batches("select 1"), List({"select 1"}));
  EXPECT_EQ(demo::Batches("\xEF\xBB\xBF select 'go' \r\n GO \r\n\r\ngo\n\ngo on\ngo\n"),
            List({" select 'go' ", "go on"}));
  EXPECT_EQ(demo::Batches("a\n\nb\ngo\n  \ngo\nc\n"), List({"a\n\nb", "c"}));
}

class Replay : public testing::Test {
 protected:
  bool Run(const std::string& script) {
    out_.str({});
    return desktop::Replay(script, connection_, out_);
  }
  std::string DigestOf(const std::vector<std::vector<support::Cell>>& rows) {
    database_.When(Exact("rows")).Gives(RowSetOf({"a", "b"}, rows));
    EXPECT_TRUE(Run("rows"));
    return out_.str().substr(22, 16);
  }

  support::Events events_;
  support::ScriptedDatabase database_{events_};
  support::RecordingConnection connection_{database_, "replayed"};
  std::ostringstream out_;
};

TEST_F(Replay, Statements_OneFails_AreAllSentAndTold) {
  database_.When(Exact("select x")).Gives(RowSetOf({"a"}, {{"1"}, {"2"}}));
  database_.When(Exact("select y")).Fails({208, "Invalid object name 'y'.\n(42S02)"});
  EXPECT_FALSE(Run("select y\ngo\nselect x\ngo\nDelete z\ngo\n"));
  EXPECT_EQ(database_.Statements(), (std::vector<std::string>{"select y", "select x", "Delete z"}));
  std::string told = out_.str();
  told.replace(told.find(" rows  ") + 7, 16, "(digest)");
  EXPECT_EQ(told,
            "    1  error 208: Invalid object name 'y'. (42S02)\n"
            "    2         2 rows  (digest)\n"
            "    3      done\n"
            "3 statements, 2 ran, 1 failed, 2 rows\n");
}

TEST_F(Replay, Digest_DependsOnRowsAndHowOftenButNotOnTheirOrder) {
  const std::string digest = DigestOf({{"1", "x"}, {"2", "\u064A"}});
  EXPECT_EQ(DigestOf({{"2", "\u064A"}, {"1", "x"}}), digest);
  std::set<std::string> all{digest};
  for (const auto& other : std::vector<std::vector<std::vector<support::Cell>>>{
           {},
           {{"1", "x"}},
           {{"1", "x"}, {"2", "\u06CC"}},
           {{"1", "\u064A"}, {"2", "x"}},
           {{"1x", ""}, {"2", "\u064A"}},
           {{"1x", std::nullopt}, {"2", "\u064A"}},
           {{"1", "x"}, {"1", "x"}},
           {{"1", "x"}, {"1", "x"}, {"2", "\u064A"}}}) {
    EXPECT_TRUE(all.insert(DigestOf(other)).second) << out_.str();
  }
}

}  // namespace
