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

TEST_F(RecordsetTest, Run_query_walksItsRowsAndReadsFieldsByName) {
  database.When(Exact("Select two"))
      .Gives(RowSetOf({"ID", "Name"}, {{"1", "a"}, {"2", std::nullopt}}));
  for (int again = 0; again < 2; ++again) {
    rows.Run("Select two");
    EXPECT_EQ(rows.RecordCount(), 2U);
    EXPECT_EQ(rows.Text("name"), "a");
    EXPECT_EQ(ResumeNext([&] { (void)rows.Text("Nmae"); }), 3265);
    rows.MoveNext();
    EXPECT_EQ(rows.Text("Name"), "");
  }
  rows.MoveNext();
  EXPECT_TRUE(rows.Eof());
  EXPECT_EQ(ResumeNext([&] { (void)rows.Text("ID"); }), 3021);
  EXPECT_EQ(ResumeNext([&] { rows.MoveNext(); }), 3021);
  EXPECT_EQ(rows.TakeRows().RowCount(), 2U);
}

TEST_F(RecordsetTest, Closed_takenFailedOrWithoutRows_answersNothing) {
  database.When(Exact("fails")).Fails(platform::RuntimeError(8, "no"));
  const std::function<void()> uses[] = {
      [&] { rows.Close(); },    [&] { (void)rows.RecordCount(); }, [&] { (void)rows.Eof(); },
      [&] { rows.MoveNext(); }, [&] { (void)rows.Text("ID"); },    [&] { (void)rows.TakeRows(); }};
  const std::function<void()> closings[] = {
      [] {}, [&] { rows.TakeRows(); }, [&] { rows.Run("Delete one"); }, [&] { rows.Run("fails"); }};
  for (const auto& close : closings) {
    ResumeNext(close);
    for (const auto& use : uses) EXPECT_EQ(ResumeNext(use), 3704) << &use - uses;
    rows.Run("Select one");
  }
}

}  // namespace
