#include <gmock/gmock.h>

#include <limits>

#include "adapters/windows/AdoConnection.h"
#include "adapters/windows/StandInAdo.h"

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
  platform::RuntimeError ErrorOf(const std::string& statement) {
    try {
      connection.Execute(statement);
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
  const platform::RowSet none = connection.Execute("select");
  EXPECT_TRUE(none.ReturnsRows() && none.RowCount() == 0);
  EXPECT_EQ(connection.Execute("both").Text(0, 0), "1");
  EXPECT_THAT(ado.log, ElementsAre("ConnectionTimeout=15", "CommandTimeout=600",
                                   std::string("connect ") + kString, "update", "select", "both",
                                   "next", "next"));
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

}  // namespace
}  // namespace adapters::windows
