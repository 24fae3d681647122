#include <gmock/gmock.h>

#include <limits>
#include <sstream>

#include "adapters/windows/AdoConnection.h"
#include "adapters/windows/StandInAdo.h"
#include "support/FakeProgress.h"
#include "support/Session.h"

namespace adapters::windows {
namespace {

using testing::ElementsAre;

Variant Of(const std::function<void(VARIANT&)>& fill) {
  Variant value;
  fill(*value.Out());
  return value;
}

TEST(AdoConnection, CellsOfEveryType_AreTextsWithoutALocale) {
  StandInAdo ado;
  AdoConnection connection("Provider=SQLOLEDB");
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

/// Statements to a server, as tests/adapters/windows/sessions/ado.txt tells them; what reaches the
/// provider is heard.
class AdoTest : public testing::Test, protected support::Session {
 protected:
  AdoTest() {
    On("execute", [this](const std::string& statement) { Execute(connection, statement); });
    On("wait", [this](const std::string& statement) { Execute(waiting, statement); });
    On("call", [this] { Call(connection); });
    On("wait-call", [this] { Call(waiting); });
    On("answer", [this](const std::string& text) { AddAnswer(text); });
    On("many", [this](const std::string& statement) {
      StandInAdo::Result& many = ado.answers[statement].emplace_back();
      many.columns = {"ID"};
      for (int id = 0; id < 2500; ++id) many.rows.push_back({id});
    });
    On("counts", [this](const std::string& rows) { ado.affected["insert"] = std::stoi(rows); });
    // A failure of one arrival each, of one error or more; of none where nothing stands behind it.
    On("fails", [this](const std::string& with) {
      ado.failures.emplace_back();
      if (!with.empty()) AddError(with);
    });
    On("and", [this](const std::string& error) { AddError(error); });
    On("returns", [this](const std::string& number) { ado.returned = std::stoi(number); });
    On("slow", [this](const std::string& asked) { ado.slow = std::stoi(asked); });
    On("deaf", [this] { ado.heedsCancel = false; });
    On("patience", [this](const std::string& calls) { progress.stopAtCall = std::stoul(calls); });
  }

  void Hear(const std::string& what) override {
    for (const std::string& each : std::exchange(ado.log, {})) support::Session::Hear(each);
    const bool asked = std::exchange(progress.advanced, {}).size() > 40;
    if (asked && progress.stopAtCall == 0) support::Session::Hear("was waited for");
    support::Session::Hear(what);
  }
  Shown Now() override { return {}; }

  StandInAdo ado;
  support::FakeProgress progress;
  // The limit of a statement is ours: no provider sees it.
  static constexpr const char* kString =
      "Provider=SQLOLEDB;Data Source=srv;User ID=u;Password=\"s;cr\"\"et\"";
  AdoConnection connection{"Statement Timeout=600;" + std::string(kString)};
  AdoConnection waiting{kString, server::Outages().Of({}), &progress};

 private:
  void Execute(AdoConnection& by, const std::string& statement) {
    const platform::RowSet rows = by.Execute(statement);
    if (rows.ReturnsRows()) {
      const std::size_t count = rows.RowCount();
      const std::string last =
          count == 0 ? "" : ", the last " + std::string(rows.Text(count - 1, 0));
      return Hear("rows: " + std::to_string(count) + last);
    }
    const auto affected = rows.AffectedRows();
    Hear("no rows; changed: " + (affected ? std::to_string(*affected) : "unknown"));
  }
  void Call(AdoConnection& by) {
    const platform::Parameter parameters[] = {
        {"@UserID", 7},
        {"@Text", "گ"},
        {"@Empty", ""},
        {"@Day", std::chrono::sys_days(std::chrono::year(2025) / 11 / 22)}};
    Hear("returned " + std::to_string(by.CallProcedure("dbo.sp", parameters)));
  }
  /// "STATEMENT", and then ":" and what each of its results holds: "-" for none, or "ID" or "ID 1".
  void AddAnswer(const std::string& text) {
    std::vector<StandInAdo::Result>& results = ado.answers[text.substr(0, text.find(':'))];
    std::istringstream in(text.substr(text.find(':') + 1));
    for (std::string result; std::getline(in, result, ';');) {
      StandInAdo::Result& made = results.emplace_back();
      if (result == "-") continue;
      made.columns = {"ID"};
      if (result.size() > 2) made.rows = {{std::stoi(result.substr(2))}};
    }
  }
  /// SQLSTATE, the server's number, words; no SQLSTATE is "-".
  void AddError(const std::string& text) {
    StandInAdo::Error error;
    std::istringstream in(text);
    in >> error.state >> error.native;
    std::getline(in >> std::ws, error.text);
    if (error.state == "-") error.state.clear();
    ado.failures.back().push_back(error);
  }
};

TEST_F(AdoTest, Sessions_AsTheApprovedOnes) {
  Replay(PROMOTER_ADO_SESSION);
}

}  // namespace
}  // namespace adapters::windows
