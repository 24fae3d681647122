#include <gmock/gmock.h>

#include <limits>

#include "adapters/windows/AdoConnection.h"
#include "adapters/windows/StandInAdo.h"
#include "support/FakeProgress.h"

namespace adapters::windows {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr const char* kString =
    "Provider=SQLOLEDB;Data Source=srv;User ID=u;Password=\"s;cr\"\"et\"";
constexpr const char* kLimit = "Statement Timeout=600;";  // ours: no provider sees it

Variant Of(const std::function<void(VARIANT&)>& fill) {
  Variant value;
  fill(*value.Out());
  return value;
}

class AdoTest : public testing::Test {
 protected:
  platform::RuntimeError ErrorOf(const std::string& statement, AdoConnection* by = nullptr) {
    try {
      (by == nullptr ? connection : *by).Execute(statement);
    } catch (const platform::RuntimeError& error) {
      return error;
    }
    ADD_FAILURE() << "no error of " << statement;
    return {0, ""};
  }

  StandInAdo ado;
  AdoConnection connection{std::string(kLimit) + kString};
};

TEST_F(AdoTest, Cells_OfEveryType_AreTextsWithoutALocale) {
  const auto decimal = [](std::uint64_t low, std::uint32_t high, BYTE scale, BYTE sign) {
    return Of([=](VARIANT& v) {
      v.decVal = {};
      v.decVal.Lo64 = low;
      v.decVal.Hi32 = high;
      v.decVal.scale = scale;
      v.decVal.sign = sign;
      v.vt = VT_DECIMAL;
    });
  };
  const auto date = [](DATE days) {
    return Of([=](VARIANT& v) { v.vt = VT_DATE, v.date = days; });
  };
  const auto currency = [](std::int64_t units) {
    return Of([=](VARIANT& v) { v.vt = VT_CY, v.cyVal.int64 = units; });
  };
  const Variant bytes = Of([](VARIANT& v) {
    v.parray = SafeArrayCreateVector(VT_UI1, 0, 2);
    v.vt = VT_ARRAY | VT_UI1;
    LONG at = 1;
    unsigned char byte = 0xA7;
    SafeArrayPutElement(v.parray, &at, &byte);
  });
  constexpr auto kMost = std::numeric_limits<std::uint64_t>::max();
  const std::vector<std::pair<Variant, const char*>> cases = {
      {Of([](VARIANT& v) { v.vt = VT_I2, v.iVal = -7; }), "-7"},
      {std::int32_t{3308}, "3308"},
      {Of([](VARIANT& v) { v.vt = VT_I8, v.llVal = INT64_MIN; }), "-9223372036854775808"},
      {Of([](VARIANT& v) { v.vt = VT_UI1, v.bVal = 255; }), "255"},
      {decimal(1250, 0, 2, 0), "12.5"},
      {decimal(5, 0, 1, DECIMAL_NEG), "-0.5"},
      {decimal(500, 0, 1, 0), "50"},
      {decimal(0, 0, 4, DECIMAL_NEG), "0"},
      {decimal(kMost, 0xFFFFFFFF, 0, 0), "79228162514264337593543950335"},
      {currency(125000), "12.5"},
      {currency(INT64_MIN), "-922337203685477.5808"},
      {Of([](VARIANT& v) { v.vt = VT_R4, v.fltVal = 0.1F; }), "0.1"},
      {2.5, "2.5"},
      {true, "1"},
      {false, "0"},
      {date(45983), "2025-11-22"},
      {date(45983 + 45296.997 / 86400), "2025-11-22 12:34:56"},
      {date(-1.25), "1899-12-29 06:00:00"},
      {"كي‌ گ ی 😀", "كي‌ گ ی 😀"},
      {"", ""},
      {bytes, "0x00A7"},
  };
  StandInAdo::Result result{{"شرح", "b"}, {}};
  for (const auto& [value, text] : cases) result.rows.push_back({value, Variant::Null()});
  ado.answers["q"] = {result};
  const platform::RowSet rows = connection.Execute("q");
  EXPECT_THAT(rows.Columns(), ElementsAre("شرح", "b"));
  ASSERT_EQ(rows.RowCount(), cases.size());
  for (std::size_t i = 0; i < cases.size(); ++i) {
    EXPECT_EQ(rows.Cell(i, 0), cases[i].second);
    EXPECT_EQ(rows.Cell(i, 1), std::nullopt);
  }
}

TEST_F(AdoTest, Statements_ConnectOnceOnFirstUseAndTellRowsFromNone) {
  EXPECT_TRUE(ado.log.empty());
  ado.answers["select"] = {{{"ID"}, {}}};
  ado.answers["both"] = {{}, {{"ID"}, {{1}}}, {{"other"}, {{2}}}};
  EXPECT_FALSE(connection.Execute("update").ReturnsRows());
  ado.affected = {{"insert", 15}, {"nobody counts", -1}};
  EXPECT_EQ(connection.Execute("insert").AffectedRows(), 15);
  EXPECT_EQ(connection.Execute("nobody counts").AffectedRows(), std::nullopt);
  const platform::RowSet none = connection.Execute("select");
  EXPECT_TRUE(none.ReturnsRows() && none.RowCount() == 0);
  EXPECT_EQ(connection.Execute("both").Text(0, 0), "1");
  EXPECT_THAT(ado.log, ElementsAre("ConnectionTimeout=15", "CommandTimeout=600",
                                   std::string("connect ") + kString, "update", "insert",
                                   "nobody counts", "select", "both", "next", "next"));
}

TEST_F(AdoTest, Failure_TellsTheServersNumberAndEveryTextOnce_AndLeavesTheSession) {
  ado.answers["rows, then an error"] = {{{"ID"}, {{1}}}, {}};
  ado.failures = {{},  // of connecting
                  {{"01000", 5701, "Changed database."},
                   {"42S02", 208, "Invalid object 'x'."},
                   {"42000", 8180, "Not prepared."},
                   {"42S02", 208, "Invalid object 'x'."}},
                  {},
                  {{"22012", 0, "Divide by zero."}}};
  const platform::RuntimeError first = ErrorOf("bad");
  EXPECT_EQ(first.Number(), 208);
  EXPECT_THAT(first.Description(),
              testing::EndsWith("ندارد. نام و نسخه پايگاه داده را بررسي كنيد.\n"
                                "\u202AChanged database. (SQLSTATE 01000)\u202C\n"
                                "\u202AInvalid object 'x'. (SQLSTATE 42S02)\u202C\n"
                                "\u202ANot prepared. (SQLSTATE 42000)\u202C"));
  EXPECT_EQ(first.Source(), "Provider");
  EXPECT_EQ(ErrorOf("rows, then an error").Number(), -2147217900);
  ado.failures = {{{StandInAdo::kAdoAlone, 0, "Wrong type."}}};
  EXPECT_THAT(ErrorOf("alone").Description(), testing::EndsWith("\n\u202AWrong type.\u202C"));
  EXPECT_FALSE(connection.Execute("update").ReturnsRows());
  EXPECT_THAT(ado.log, Not(testing::Contains("close")));
}

TEST_F(AdoTest, LostConnection_IsSaidKindlyNotResentAndOpenedByTheNextStatement) {
  for (const StandInAdo::Error& lost : {StandInAdo::Error{"08S01", 11, "General network error."},
                                        {"", 10054, "Reset."},
                                        {"HYT00", 0, "Query timeout expired."}}) {
    connection.Execute("update");
    ado.log.clear();
    ado.failures = {{lost}};
    const std::string words = ErrorOf("insert").Description();
    EXPECT_THAT(words, testing::ContainsRegex("فرم شما باز است .*\n\u202A" + lost.text));
    connection.Execute("select");
    EXPECT_THAT(ado.log, ElementsAre("insert", "close", "ConnectionTimeout=15",
                                     "CommandTimeout=600", StartsWith("connect"), "select"));
  }
}

TEST_F(AdoTest, RefusedLogin_HoldsNoPasswordAndIsTriedAgain) {
  ado.failures = {{{"28000", 18456, "Login failed: s;cr\"et, \"s;cr\"\"et\"."}}};
  const platform::RuntimeError refused = ErrorOf("select");
  EXPECT_EQ(refused.Number(), 18456);
  EXPECT_THAT(refused.Description(), HasSubstr("رمز"));
  EXPECT_THAT(refused.Description(), HasSubstr("\n\u202ALogin failed: ***, ***. ("));
  EXPECT_FALSE(connection.Execute("update").ReturnsRows());
}

TEST_F(AdoTest, Procedure_PassesNamedParametersAndReturnsItsValue) {
  ado.returned = -3;
  const platform::Parameter parameters[] = {
      {"@UserID", 7},
      {"@Text", "گ"},
      {"@Empty", ""},
      {"@Day", std::chrono::sys_days(std::chrono::year(2025) / 11 / 22)}};
  EXPECT_EQ(connection.CallProcedure("dbo.sp", parameters), -3);
  EXPECT_EQ(ado.log.back(),
            "call CommandText=dbo.sp CommandType=4 CommandTimeout=600 NamedParameters=-1; "
            "@RETURN_VALUE 3 4 0; @UserID 3 1 0 7; @Text 202 1 1 گ; @Empty 202 1 1 ; "
            "@Day 135 1 0 11/22/2025; Options=132");
}

/// With somebody who waits.
class AdoWaitingTest : public AdoTest {
 protected:
  AdoWaitingTest() {
    ado.answers["select"] = {{{"ID"}, {}}};
    for (int id = 0; id < 2500; ++id) ado.answers["select"][0].rows.push_back({id});
  }
  /// What the cancelled statement is told with.
  std::string Cancelled(const std::string& statement) {
    ado.log.clear();
    progress.stopAtCall = 3;
    const platform::RuntimeError error = ErrorOf(statement, &waiting);
    progress.stopAtCall = 0;
    EXPECT_EQ(error.Number(), platform::kUserInterrupt);
    return error.Description();
  }

  support::FakeProgress progress;
  AdoConnection waiting{kString, server::Outages().Of({}), &progress};
};

TEST_F(AdoWaitingTest, SlowServer_IsAskedAboutUntilItIsDone) {
  ado.slow = 50;
  EXPECT_EQ(waiting.Execute("select").RowCount(), 2500U);
  EXPECT_GE(progress.advanced.size(), 2 * 48U);
  ado.returned = -3;
  progress.advanced.clear();
  EXPECT_EQ(waiting.CallProcedure("dbo.sp", {}), -3);
  EXPECT_THAT(ado.log.back(), testing::EndsWith("Options=148"));
  EXPECT_GE(progress.advanced.size(), 48U);
  // What a statement ends with without being waited for is in the connection's errors alone.
  ado.failures = {{{"01000", 5701, "Changed database."}, {"42S02", 208, "Invalid object 'x'."}}};
  EXPECT_EQ(ErrorOf("update", &waiting).Number(), 208);
  ado.failures = {{{"01000", 0, "Printed."}}};
  EXPECT_FALSE(waiting.Execute("print").ReturnsRows());
  ado.answers["rows, then an error"] = {{{"ID"}, {{1}}}, {}};
  ado.failures = {{}, {{"22012", 8134, "Divide by zero."}}};
  EXPECT_EQ(ErrorOf("rows, then an error", &waiting).Number(), 8134);
  EXPECT_THAT(ado.log, Not(testing::Contains("close")));
  ado.failures = {{{"08S01", 11, "General network error."}}};
  EXPECT_THAT(ErrorOf("update", &waiting).Description(),
              StartsWith("ارتباط با پايگاه داده قطع شد."));
  ado.failures = {{{"28000", 18456, "Login failed."}}};
  EXPECT_EQ(ErrorOf("update", &waiting).Number(), 18456);
  EXPECT_EQ(waiting.Execute("select").Text(2499, 0), "2499");
}

TEST_F(AdoWaitingTest, Cancelled_EndsAndLeavesTheSession_UnlessTheServerIsDeaf) {
  ado.slow = 1000000;
  EXPECT_THAT(Cancelled("insert"), Not(HasSubstr("تكرار"))) << "it is the login";
  EXPECT_THAT(ado.log, testing::Contains("cancel"));
  EXPECT_THAT(ado.log, Not(testing::Contains("insert")));
  ado.slow = 0;
  waiting.Execute("update");
  ado.slow = 1000000;
  EXPECT_THAT(Cancelled("insert"), HasSubstr("پيش از آنكه آن را تكرار كنيد"));
  EXPECT_THAT(ado.log, ElementsAre("insert", "cancel"));
  EXPECT_THAT(Cancelled("select"), Not(HasSubstr("تكرار")));
  ado.slow = 0;
  EXPECT_THAT(Cancelled("select"), StartsWith("كار پايگاه داده به خواست شما متوقف شد"))
      << "within the rows";
  EXPECT_EQ(waiting.Execute("select").RowCount(), 2500U);
  EXPECT_THAT(ado.log, ElementsAre("select", "cancel", "select"));
  ado.slow = 1000000;
  ado.heedsCancel = false;
  Cancelled("update");
  EXPECT_THAT(ado.log, ElementsAre("update", "cancel")) << "a Close would wait";
  ado.slow = 0;
  waiting.Execute("update");
  EXPECT_THAT(ado.log, testing::Contains(StartsWith("connect")));
}

}  // namespace
}  // namespace adapters::windows
