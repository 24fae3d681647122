#include "host/Recordset.h"

#include <gtest/gtest.h>

#include <functional>

#include "platform/ResumeNext.h"
#include "support/ScriptedDatabase.h"

namespace {

using host::Recordset;
using platform::ResumeNext;
using support::Exact;
using support::RowSetOf;

class RecordsetTest : public testing::Test {
 protected:
  support::Events events;
  support::ScriptedDatabase database{events};
  support::RecordingConnection connection{database, ""};
  Recordset rows{connection};
};

TEST_F(RecordsetTest, Open_query_walksItsRowsAndReadsFieldsByName) {
  database.When(Exact("Select two"))
      .Gives(RowSetOf({"ID", "Name"}, {{"1", "a"}, {"2", std::nullopt}}));
  rows.Open("Select two");
  EXPECT_EQ(rows.Source(), "Select two");
  EXPECT_EQ(rows.RecordCount(), 2U);
  EXPECT_EQ(rows.Text("name"), "a");
  EXPECT_FALSE(rows.IsNull("Name"));
  rows.MoveNext();
  EXPECT_EQ(rows.Text("Name"), "");
  EXPECT_TRUE(rows.IsNull("Name"));
  rows.MoveNext();
  EXPECT_TRUE(rows.Eof());
  EXPECT_EQ(ResumeNext([&] { (void)rows.Text("ID"); }), 3021);
  EXPECT_EQ(ResumeNext([&] { (void)rows.IsNull("ID"); }), 3021);
  EXPECT_EQ(ResumeNext([&] { rows.MoveNext(); }), 3021);
  rows.MoveFirst();
  EXPECT_EQ(rows.Text("ID"), "1");
  rows.MoveNext();
  rows.Close();
  rows.Open();
  EXPECT_EQ(rows.Text("ID"), "1");
  EXPECT_EQ(rows.TakeRows().RowCount(), 2U);
  EXPECT_EQ(rows.GetState(), Recordset::State::kClosed);
}

TEST_F(RecordsetTest, Open_withoutRowsOrRefused_staysClosedAndCanRunTheNext) {
  database.When(Exact("Select bad")).Fails({208, "Invalid object name"});
  rows.Open("delete tblA where ID=1");
  EXPECT_EQ(rows.GetState(), Recordset::State::kClosed);
  EXPECT_EQ(ResumeNext([&] { rows.Open("Select bad"); }), 208);
  EXPECT_EQ(rows.GetState(), Recordset::State::kClosed);
  rows.Open("Select none");
  EXPECT_EQ(rows.GetState(), Recordset::State::kOpen);
  EXPECT_TRUE(rows.Eof());
}

TEST_F(RecordsetTest, Misuse_throwsItsNumberAndChangesNothing) {
  const struct {
    const char* what;
    bool open;
    std::int32_t number;
    std::function<void(Recordset&)> use;
  } cases[] = {
      {"Open", true, 3705, [](Recordset& r) { r.Open(); }},
      {"Open(source)", true, 3705, [](Recordset& r) { r.Open("Select other"); }},
      {"SetSource", true, 3705, [](Recordset& r) { r.SetSource("Select other"); }},
      {"no such field", true, 3265, [](Recordset& r) { (void)r.Text("Nmae"); }},
      {"Close", false, 3704, [](Recordset& r) { r.Close(); }},
      {"RecordCount", false, 3704, [](Recordset& r) { (void)r.RecordCount(); }},
      {"Eof", false, 3704, [](Recordset& r) { (void)r.Eof(); }},
      {"MoveFirst", false, 3704, [](Recordset& r) { r.MoveFirst(); }},
      {"MoveNext", false, 3704, [](Recordset& r) { r.MoveNext(); }},
      {"Text", false, 3704, [](Recordset& r) { (void)r.Text("ID"); }},
      {"IsNull", false, 3704, [](Recordset& r) { (void)r.IsNull("ID"); }},
      {"TakeRows", false, 3704, [](Recordset& r) { (void)r.TakeRows(); }},
  };
  database.When(Exact("Select one")).Gives(RowSetOf({"ID"}, {{"1"}}));
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    rows.CloseIfOpen();
    if (c.open) rows.Open("Select one");
    EXPECT_EQ(ResumeNext([&] { c.use(rows); }), c.number);
    EXPECT_EQ(rows.GetState() == Recordset::State::kOpen, c.open);
    if (c.open) {
      EXPECT_EQ(rows.Text("ID"), "1");
    }
  }
  EXPECT_TRUE(database.Statements("other").empty());
}

}  // namespace
