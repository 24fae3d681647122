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

TEST_F(RecordsetTest, Misuse_throwsItsNumberAndChangesNothing) {
  using Use = std::function<void()>;
  const auto expect = [](std::int32_t number, const std::vector<Use>& uses) {
    for (const Use& use : uses) EXPECT_EQ(ResumeNext(use), number) << &use - uses.data();
  };
  expect(3704, {[&] { rows.Close(); }, [&] { (void)rows.RecordCount(); }, [&] { (void)rows.Eof(); },
                [&] { rows.MoveFirst(); }, [&] { rows.MoveNext(); }, [&] { (void)rows.Text("ID"); },
                [&] { (void)rows.IsNull("ID"); }, [&] { (void)rows.TakeRows(); }});
  database.When(Exact("Select one")).Gives(RowSetOf({"ID"}, {{"1"}}));
  rows.Open("Select one");
  expect(3705, {[&] { rows.Open(); }, [&] { rows.Open("Select other"); },
                [&] { rows.SetSource("Select other"); }});
  expect(3265, {[&] { (void)rows.Text("Nmae"); }});
  EXPECT_EQ(rows.Text("ID"), "1");
  EXPECT_TRUE(database.Statements("other").empty());
}

}  // namespace
