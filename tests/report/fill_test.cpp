#include "report/Fill.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>
#include <map>
#include <stdexcept>

#include "calendar/SolarHijriDate.h"
#include "report/ReportError.h"
#include "support/Approved.h"

namespace report {
namespace {

using testing::HasSubstr;

/// The rows written for each statement; anything else is the database's error.
struct Answers {
  using Table = std::vector<std::vector<std::string>>;  // columns first; "~" is NULL
  std::map<std::string, Table> tables;
  int statements = 0;
  std::size_t rowsRead = 0;
  std::size_t failAtRow = std::numeric_limits<std::size_t>::max();  // once
  platform::RuntimeError failure{18, "به خواست شما متوقف شد."};
};

/// Gives the answers' rows as they are wanted.
class Rows : public platform::Connection {
 public:
  explicit Rows(Answers& answers) : answers_(answers) {}

  platform::RowSet Execute(std::string_view) override { throw std::logic_error("read whole"); }
  std::unique_ptr<platform::RowReader> Open(std::string_view statement) override {
    ++answers_.statements;
    const auto table = answers_.tables.find(std::string(statement));
    if (table == answers_.tables.end()) {
      throw platform::RuntimeError(208, "Invalid object name 'x'.");
    }
    return std::make_unique<Reader>(answers_, table->second);
  }
  std::int32_t CallProcedure(std::string_view, std::span<const platform::Parameter>) override {
    return 0;
  }

 private:
  struct Reader : platform::RowReader {
    Reader(Answers& all, const Answers::Table& table) : answers(all), rest(table) {}
    const std::vector<std::string>& Columns() const override { return rest.front(); }
    bool Read(platform::RowSet& rows, std::size_t most) override {
      if (!rows.ReturnsRows()) rows = platform::RowSet(Columns());
      if (given >= answers.failAtRow) {
        answers.failAtRow = std::numeric_limits<std::size_t>::max();
        throw platform::RuntimeError(answers.failure);
      }
      for (; most > 0 && given + 1 < rest.size(); --most, ++answers.rowsRead) {
        for (const std::string& cell : rest[++given]) {
          cell == "~" ? rows.AppendNull() : rows.Append(cell);
        }
      }
      return most == 0;
    }

    Answers& answers;
    Answers::Table rest;
    std::size_t given = 0;
  };
  Answers& answers_;
};

/// All that comes from where the text stands.
std::string Rest(Markup& body) {
  std::string text;
  int line = 0;
  while (body.Next(text, line)) {
  }
  return text;
}

const std::chrono::sys_days kToday =
    calendar::SolarHijriDate::FromYearMonthDay(1404, 2, 15)->Days();

class ReportFillTest : public testing::Test {
 protected:
  ReportFillTest() {
    rows.tables["select p 7"] = {{"ID", "Notes", "FarsiCreateDate"}, {"7", "~", "1404/02/13"}};
    rows.tables["select v\n7"] = {{"Promoter", "FarsiVisitDate", "Name"},
                                  {"رضا", "1404/02/15", "a"},
                                  {"رضا", "1404/02/15", "b"},
                                  {"رضا", "1404/02/16", "c"},
                                  {"مريم", "1404/02/16", "d"}};
    rows.tables["select none 7"] = {{"ID"}};
    rows.tables["update 7"] = rows.tables["select write 7"] = {{}};
  }

  static ReportTemplate Load(const std::string& body, const std::string& head = {}) {
    return ReportTemplate::Load(
        "<!--report\ntitle: T\nquery p: select p {fmlID}\nquery v:\n  select v\n  {fmlID}\n" +
            head + "\n-->" + body,
        "t.html");
  }
  FilledReport Filled(const std::string& body, const std::string& head = {}) {
    return Fill(Load(body, head), std::make_unique<Rows>(rows), "fmlID = 7", kToday);
  }
  std::string Html(const std::string& body, const std::string& head = {}) {
    return Rest(*Filled(body, head).body);
  }
  /// Number and description of what loading or filling throws.
  std::string ErrorOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const ReportError& error) {
      EXPECT_EQ(error.Description(), error.Words() + "\n" + error.Technical());
      return std::to_string(error.Number()) + " " + error.Technical();
    }
    return "no error";
  }
  std::string FillError(const std::string& body, const std::string& head = {}) {
    return ErrorOf([&] { Html(body, head); });
  }

  std::string OutcomeOf(std::string text) {
    if (!text.starts_with("<!--")) {
      text = "<!--report\ntitle: T\nquery p: select p {fmlID}\n" + text;
    }
    std::string outcome;
    const std::string error = ErrorOf([&] {
      const FilledReport filled = Fill(ReportTemplate::Load(text, "t.html"),
                                       std::make_unique<Rows>(rows), "fmlID = 7", kToday);
      outcome = filled.header.empty() ? "" : "header: " + filled.header + "\n";
      if (filled.orientation == Orientation::kLandscape) outcome += "landscape\n";
      outcome += Rest(*filled.body);
    });
    return error == "no error" ? outcome : "error " + error + "\n";
  }

  Answers rows;
};

TEST_F(ReportFillTest, Formula_OnlyNameIsWholeNumber_Read) {
  EXPECT_EQ(ParseFormula("  fmlID   =  17 ").field, "fmlID");
  EXPECT_EQ(ParseFormula("fmlID=-17").value, -17);
  for (const char* bad : {"", "fmlID =", "= 17", "fmlID = 17 or 1=1", "fmlID = 1.5", "fmlID = '17'",
                          "fmlID = 99999999999999999999"}) {
    EXPECT_THAT(ErrorOf([&] { ParseFormula(bad); }), HasSubstr("5 a selection formula")) << bad;
  }
}

// The head that all have is left out; a template that begins with "<!--" is whole.
TEST_F(ReportFillTest, Templates_AreFilledOrRefusedAsApproved) {
  Answers::Table table{{"Promoter", "FarsiVisitDate", "Name"}};
  for (const auto& [name, dates] : std::map<std::string, std::vector<std::string>>{
           {"no date", {"1404/02/15", "1404/13/01"}},
           {"null", {"~"}},
           {"yesterday", {"1404/02/15", "1404/02/14"}},
           {"same month", {"1404/02/15", "1404/02/01"}},
           {"last days", {"1404/02/31", "1404/02/30"}},
           {"spring", {"1403/12/01", "1403/12/30", "1404/01/01", "1404/01/01"}}}) {
    table.resize(1);
    for (const std::string& date : dates) {
      table.push_back({"رضا", date, std::string(1, static_cast<char>('a' + table.size() - 1))});
    }
    rows.tables["select " + name + " 7"] = table;
  }
  rows.tables["select spring 7"].push_back({"مريم", "1404/01/31", "e"});
  rows.tables["select odd 7"] = {{"Notes"}, {"<b>\"a\" & 'b'{{ID}}"}};
  support::ExpectOutcomes("tests/report/templates.txt",
                          [this](const std::string& text) { return OutcomeOf(text); });
}

TEST_F(ReportFillTest, Queries_ThatFail_TellFileQueryAndTheDatabasesWords) {
  EXPECT_EQ(FillError("", "query bad: select x {fmlID}"),
            "208 t.html:7: query bad: Invalid object name 'x'.");
  EXPECT_THAT(FillError("", "query bad: select write {fmlID}"), HasSubstr("321 t.html:7: query"));
  rows.statements = 0;
  EXPECT_THAT(FillError("", "query bad: update {fmlID}"),
              HasSubstr("321 t.html:7: query bad is no"));
  EXPECT_EQ(rows.statements, 2) << "only the head's own: a report must not write";
  rows.statements = 0;
  EXPECT_THAT(FillError("", "query bad: select x {fmlNo}"), HasSubstr("wants {fmlNo}"));
  EXPECT_EQ(rows.statements, 0);
}

TEST_F(ReportFillTest, Rows_AreReadWhenTheTextComesToThem) {
  Answers::Table& visits = rows.tables["select v\n7"];
  visits.resize(1);
  for (int row = 0; row < 5000; ++row) {
    visits.push_back({std::to_string(row / 2000), "1404/02/15", std::to_string(row)});
  }
  const std::string text = "{{#promoters}}{{Promoter}}:{{#v}}{{Name}} {{/v}}{{/promoters}}";
  const std::string head = "group v: promoters by Promoter";
  std::string piece;
  int line = 0;
  const FilledReport filled = Filled(text, head);
  EXPECT_EQ(rows.rowsRead, 0U);
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(filled.body->Next(piece, line));
  EXPECT_EQ(piece, "0:0");
  EXPECT_EQ(line, 8);
  EXPECT_LT(rows.rowsRead, 1000U);
  Rest(*filled.body);
  EXPECT_EQ(rows.rowsRead, 5000U);

  // What is told of a group before its rows needs all of them, and not those behind it.
  rows.rowsRead = 0;
  piece.clear();
  const FilledReport counted = Filled("{{#promoters}}{{RowCount}} {{/promoters}}", head);
  ASSERT_TRUE(counted.body->Next(piece, line));
  EXPECT_EQ(piece, "2000");
  EXPECT_LT(rows.rowsRead, 3000U);

  // A failure in the middle names where, and the same step can be tried again.
  rows.failAtRow = 512;
  const FilledReport failing = Filled(text, head);
  std::string begun;
  const auto all = [&] {
    while (failing.body->Next(begun, line)) {
    }
  };
  EXPECT_EQ(ErrorOf(all), "18 t.html:4: query v: error 18");
  rows.failAtRow = 1024;
  rows.failure = platform::RuntimeError(9, "زمان تمام شد.\nTimeout");
  try {
    all();
    ADD_FAILURE();
  } catch (const ReportError& error) {
    EXPECT_EQ(error.Words(), "پرسش «v» قالب گزارش «t.html» اجرا نشد. سطر 4: زمان تمام شد.");
    EXPECT_EQ(error.Technical(), "t.html:4: query v: Timeout");
  }
  all();
  EXPECT_EQ(begun, Html(text, head));
}

constexpr const char* kByCalendar =
    "group v: promoters by Promoter; months by month FarsiVisitDate; weeks by week FarsiVisitDate; "
    "days by day FarsiVisitDate";

TEST_F(ReportFillTest, Places_AllGiveTheSameRestWheneverTheyAreTakenUp) {
  Answers::Table table{{"Promoter", "FarsiVisitDate", "Name"}};
  auto day = *calendar::SolarHijriDate::FromYearMonthDay(1403, 11, 28);
  for (int row = 0; row < 700; ++row) {
    if (row % 7 == 0) day = day.PlusDays(row % 3);
    if (row == 350) day = *calendar::SolarHijriDate::FromYearMonthDay(1404, 5, 1);
    table.push_back({row < 350 ? "رضا" : "مريم", day.Text(), std::to_string(row)});
  }
  rows.tables["select v\n7"] = table;
  const FilledReport filled = Filled(
      "{{#p}}{{ID}}{{^Notes}}-{{/Notes}}{{/p}}{{#promoters}}{{Promoter}}{{RowCount}}{{#months}}"
      "{{MonthName}}{{#weeks}}<tr>{{#days}}{{Day}}{{#v}}{{#First}}({{/First}}{{Name}}{{#p}}{{ID}}"
      "{{/p}}{{/v}}{{^v}}.{{/v}}{{RowCount}}{{/days}}{{/weeks}}{{/months}}{{/promoters}}end",
      kByCalendar);
  std::vector<MarkupPlace> places;
  std::vector<std::size_t> lengths;
  std::string whole;
  int line = 0;
  do {
    places.push_back(filled.body->Where());
    lengths.push_back(whole.size());
  } while (filled.body->Next(whole, line));
  ASSERT_GT(places.size(), 1500U);
  EXPECT_THAT(whole, testing::EndsWith("end"));
  EXPECT_EQ(rows.rowsRead, 701U);
  // From the last to the first, and across.
  for (std::size_t i = places.size(); i-- > 0; i -= std::min<std::size_t>(i, 12)) {
    for (const std::size_t at : {i, i * 7919 % places.size()}) {
      filled.body->GoTo(places[at]);
      ASSERT_TRUE(Rest(*filled.body) == whole.substr(lengths[at])) << at;
    }
  }
  EXPECT_EQ(rows.rowsRead, 701U) << "read once";
}

}  // namespace
}  // namespace report
