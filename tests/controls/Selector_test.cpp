#include "controls/Selector.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/FlexGridHarness.h"

namespace {

using platform::ResumeNext;
using testing::ElementsAre;
using testing::IsEmpty;

// Answers every statement with the same rows and keeps the statements.
class RecordingSource : public controls::LookupSource {
 public:
  platform::RowSet Lookup(const std::string& connectionString,
                          const std::string& statement) override {
    statements.push_back(connectionString + ": " + statement);
    if (fails) throw platform::RuntimeError(208, "Invalid object name.");
    platform::RowSet answer(columns);
    for (const auto& row : rows) {
      for (const std::string& cell : row) answer.Append(cell);
    }
    return answer;
  }
  std::vector<std::string> columns{"ID", "Name"};
  std::vector<std::vector<std::string>> rows;
  std::vector<std::string> statements;
  bool fails = false;
};

class SelectorTest : public testing::Test {
 protected:
  SelectorTest() {
    selector.SetConnectionString("cs");
    selector.SetViews("vwMajor", "vwMinor");
    selector.onChange = [this] { ++changes; };
  }
  std::vector<std::string> Narrowed(std::string_view typed) const {
    std::vector<std::string> names;
    for (const std::size_t row : selector.Narrow(typed)) names.push_back(selector.List()[row].name);
    return names;
  }

  LoneContainer form;
  RecordingSource source;
  controls::Selector selector{form, "selector", source};
  int changes = 0;
};

TEST_F(SelectorTest, Select_RaisesForAnotherIdAndReadsItsNameOnceWhenAsked) {
  for (const int id : {0, 17, 17}) selector.Select(id);
  EXPECT_EQ(changes, 1);
  EXPECT_THAT(source.statements, IsEmpty());
  source.fails = true;
  EXPECT_EQ(ResumeNext([&] { selector.DisplayText(); }), 208);
  source.fails = false;
  source.rows = {{"17", "علي"}};
  for (int twice = 0; twice < 2; ++twice) EXPECT_EQ(selector.DisplayText(), "علي");
  EXPECT_EQ(source.statements.size(), 2U);
  EXPECT_EQ(source.statements.back(), "cs: Select ID, Name from vwMinor where ID=17");
  source.rows.clear();
  selector.Select(18);
  EXPECT_EQ(selector.DisplayText(), "(18)");
  selector.Select(-5);
  EXPECT_EQ(selector.SelectedID(), -1);
  EXPECT_EQ(selector.DisplayText(), "");
  EXPECT_EQ(changes, 3);
}

TEST_F(SelectorTest, Conditions_AreJoinedAndTheSameTextUsedOnce) {
  const char* cases[][3] = {{"", "", ""},
                            {" ID in (1)", "", " where ID in (1)"},
                            {"", "x=1 ", " where x=1"},
                            {" x=1", "x=1", " where x=1"},
                            {"x=1", "y=2", " where x=1 and y=2"}};
  for (const auto& [condition, standing, where] : cases) {
    selector.SetCondition(condition);
    selector.SetStandingCondition(standing);
    selector.LoadList();
    EXPECT_EQ(source.statements.back(), std::string("cs: Select * from vwMajor") + where);
  }
}

TEST_F(SelectorTest, LoadList_OrdersByNameAndGathersTheDetail) {
  source.columns = {"id", "BranchID", "Phone", "name", "Code"};
  source.rows = {{"3", "9", "021", "یاس", "C3"},
                 {"1", "9", "", "پارس", "C1"},
                 {"2", "9", "", "بهار", ""},
                 {"", "9", "", "بي شماره", ""},
                 {"99999999999", "9", "", "شماره بلند", ""}};
  selector.LoadList();
  std::vector<std::string> rows;
  for (const auto& row : selector.List()) {
    rows.push_back(std::to_string(row.id) + " " + row.name + " " + row.detail);
  }
  EXPECT_THAT(rows, ElementsAre("2 بهار ", "1 پارس C1", "3 یاس C3 - 021"));
  source.columns[3] = "Title";
  EXPECT_EQ(ResumeNext([&] { selector.LoadList(); }), 3265);
  EXPECT_THAT(selector.List(), IsEmpty());
}

TEST_F(SelectorTest, Narrow_FoldsBothSidesAndPutsBeginningsFirst) {
  source.columns = {"ID", "Name", "Code"};
  source.rows = {{"1", "اکبري علي", "10"},
                 {"2", "علی كريمی", "۲۰"},
                 {"3", "Tehran ABC", "30"},
                 {"4", "نيا علیزاده", "204"}};
  selector.LoadList();
  EXPECT_THAT(Narrowed(""), ElementsAre("Tehran ABC", "اکبري علي", "علی كريمی", "نيا علیزاده"));
  EXPECT_THAT(Narrowed(" علي "), ElementsAre("علی كريمی", "اکبري علي", "نيا علیزاده"));
  EXPECT_THAT(Narrowed("کریمی علي"), ElementsAre("علی كريمی"));
  EXPECT_THAT(Narrowed("۲۰"), ElementsAre("علی كريمی", "نيا علیزاده"));
  EXPECT_THAT(Narrowed("abc teh"), ElementsAre("Tehran ABC"));
}

TEST_F(SelectorTest, Choose_TakesIdAndNameFromTheListUnlessDisabled) {
  source.rows = {{"5", "الف"}, {"6", "ب"}};
  selector.LoadList();
  selector.Choose(1);
  EXPECT_EQ(selector.DisplayText(), "ب");
  EXPECT_EQ(source.statements.size(), 1U);
  EXPECT_EQ(ResumeNext([&] { selector.Choose(2); }), 381);
  selector.SetEnabled(false);
  selector.Choose(0);
  selector.ChooseNone();
  selector.SetViews("vwOtherMajor", "vwOtherMinor");  // drops the list and the known name
  EXPECT_THAT(selector.List(), IsEmpty());
  selector.DisplayText();
  selector.SetConnectionString("other");  // and so does another database
  selector.DisplayText();
  EXPECT_EQ(source.statements.back(), "other: Select ID, Name from vwOtherMinor where ID=6");
  selector.SetEnabled(true);
  selector.ChooseNone();
  EXPECT_FALSE(selector.HasSelection());
  EXPECT_EQ(changes, 2);
}

}  // namespace
