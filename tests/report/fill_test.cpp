#include "report/Fill.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <stdexcept>

#include "calendar/SolarHijriDate.h"
#include "report/ReportError.h"

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

TEST_F(ReportFillTest, Sections_Ungrouped_RepeatForEachRow) {
  EXPECT_EQ(Html("{{#v}}{{RowNumber}}{{Name}} {{/v}}{{^v}}none{{/v}}"), "1a 2b 3c 4d ");
  EXPECT_EQ(Html("{{#e}}{{ID}}{{/e}}{{^e}}none{{/e}}", "query e: select none {fmlID}"), "none");
  EXPECT_EQ(Html("{{#p}}[{{Notes}}]{{#Notes}}has{{/Notes}}{{^Notes}}has not{{/Notes}}{{/p}}"),
            "[]has not");
}

TEST_F(ReportFillTest, Sections_Grouped_NestAndCount) {
  const std::string head = "group v: promoters by Promoter; days by FarsiVisitDate";
  EXPECT_EQ(Html("{{#promoters}}{{^First}};{{/First}}{{RowNumber}}.{{Promoter}}({{RowCount}})"
                 "{{#days}} {{FarsiVisitDateWeekday}}({{RowCount}}):"
                 "{{#v}}{{RowNumber}}{{Name}}{{Promoter}}{{/v}}{{/days}}{{/promoters}}",
                 head),
            "1.رضا(3) دوشنبه(2):1aرضا2bرضا سه شنبه(1):1cرضا;2.مريم(1) سه شنبه(1):1dمريم");
}

TEST_F(ReportFillTest, Values_AreEscapedInHtmlAndPlainInHeads) {
  rows.tables["select p 7"][1][1] = "<b>\"a\" & 'b'{{ID}}";
  const FilledReport filled = Filled("1{{#p}}{{Notes}}{{/p}}",
                                     "header: {{#p}}{{ID}} {{!no}}{{Notes}} {{Today}}{{/p}}\n"
                                     "page: landscape\ndigits: persian");
  EXPECT_EQ(Rest(*filled.body), "1&lt;b&gt;&quot;a&quot; &amp; 'b'{{ID}}");
  EXPECT_EQ(filled.header, "۷ <b>\"a\" & 'b'{{ID}} ۱۴۰۴/۰۲/۱۵");
  EXPECT_EQ(filled.orientation, Orientation::kLandscape);
}

TEST_F(ReportFillTest, Names_NotKnownWhereTheyStand_AreRefusedWithTheLine) {
  const std::array<const char*, 3> kCases[] = {
      {"\n{{#p}}\n{{Name}}{{/p}}", "", "321 t.html:10: no field of this name here: Name"},
      {"{{#p}}{{notes}}{{/p}}", "", "321 t.html:8: no field of this name here: notes"},
      {"{{#w}}{{/w}}", "", "321 t.html:8: no section of this name here: w"},
      {"{{#v}}{{/v}}", "group v: days by Name", "no section of this name here: v"},
      {"{{#days}}{{Promoter}}{{/days}}", "group v: days by Name", "no field of this name here"},
      {"", "group v: days by Day", "query v has no column Day to group by"},
      {"", "header: {{Name}}", "321 t.html:7: no field of this name here: Name"},
  };
  for (const auto& [body, head, error] : kCases) {
    EXPECT_THAT(FillError(body, head), HasSubstr(error)) << body;
  }
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

TEST_F(ReportFillTest, Load_BrokenTemplate_IsRefusedWithTheLine) {
  const std::string head = "<!--report\ntitle: T\nquery p: q {fmlID}\n";
  const std::pair<std::string, const char*> kCases[] = {
      {"", "321 t.html:1: the file does not begin"},
      {"<!--report\nquery p: q {fmlID}\n-->", "t.html:1: the head has no title"},
      {"<!--report\ntitle: T\nquery p: q\n-->", "t.html:3: query p has no {formula field}"},
      {head + "page: square\n-->", "t.html:4: unknown value of page: square"},
      {head + "colour: red\n-->", "t.html:4: unknown entry of the head: colour"},
      {head + "query p: r {fmlID}\n-->", "t.html:4: section named twice: p"},
      {head + "group x: a by B\n-->", "t.html:4: no query of this name before: x"},
      {head + "group p: a of B\n-->", "t.html:4: no \"name by column, column\": a of B"},
      {head + "-->\n{{#p}}", "t.html:5: section is not closed: p"},
      {head + "-->{{#p}}{{#x}}{{/p}}{{/x}}", "section is not open here: p"},
      {head + "-->{{p", "t.html:4: a tag is not closed"},
      {head + "-->{{{p}}}", "no tag of a report"},
      {head + "-->{{=<% %>=}}", "no tag of a report"},
  };
  for (const auto& [text, error] : kCases) {
    EXPECT_THAT(ErrorOf([&, &text = text] { ReportTemplate::Load(text, "t.html"); }),
                HasSubstr(error))
        << text;
  }
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

TEST_F(ReportFillTest, Calendar_ShowsWholeWeeksOfEveryMonthThatHasRows) {
  rows.tables["select v\n7"] = {{"Promoter", "FarsiVisitDate", "Name"},
                                {"رضا", "1403/12/01", "a"},  // a Wednesday
                                {"رضا", "1403/12/30", "b"},  // the leap day, a Thursday
                                {"رضا", "1404/01/01", "c"},
                                {"رضا", "1404/01/01", "d"},
                                {"مريم", "1404/01/31", "e"}};  // a Sunday
  EXPECT_EQ(Html("{{#promoters}}[{{Promoter}}{{#months}}({{MonthName}} {{Year}} {{RowCount}}"
                 "{{#weeks}}\n{{RowNumber}}/{{RowCount}}:{{#days}} {{Day}}{{^Day}}-{{/Day}}"
                 "{{#Friday}}.{{/Friday}}{{#v}}{{Name}}{{RowNumber}}{{/v}}{{/days}}{{/weeks}})"
                 "{{/months}}]{{/promoters}}",
                 kByCalendar),
            "[رضا(اسفند 1403 2\n"
            "1/1: - - - - 1a1 2 3.\n"
            "2/0: 4 5 6 7 8 9 10.\n"
            "3/0: 11 12 13 14 15 16 17.\n"
            "4/0: 18 19 20 21 22 23 24.\n"
            "5/1: 25 26 27 28 29 30b1 -.)"
            "(فروردين 1404 2\n"
            "1/2: - - - - - - 1.c1d2\n"
            "2/0: 2 3 4 5 6 7 8.\n"
            "3/0: 9 10 11 12 13 14 15.\n"
            "4/0: 16 17 18 19 20 21 22.\n"
            "5/0: 23 24 25 26 27 28 29.\n"
            "6/0: 30 31 - - - - -.)]"
            "[مريم(فروردين 1404 1\n"
            "1/0: - - - - - - 1.\n"
            "2/0: 2 3 4 5 6 7 8.\n"
            "3/0: 9 10 11 12 13 14 15.\n"
            "4/0: 16 17 18 19 20 21 22.\n"
            "5/0: 23 24 25 26 27 28 29.\n"
            "6/1: 30 31e1 - - - - -.)]");
  EXPECT_THAT(
      Html("{{#promoters}}{{#months}}{{#weeks}}{{#days}}{{Weekday}} {{FarsiVisitDate}}"
           "{{FarsiVisitDateWeekday}}{{^v}},{{/v}}{{/days}};{{/weeks}}{{/months}}"
           "{{/promoters}}",
           kByCalendar),
      testing::StartsWith("شنبه ,يكشنبه ,دوشنبه ,سه شنبه ,چهارشنبه 1403/12/01چهارشنبهپنجشنبه "
                          "1403/12/02پنجشنبه,جمعه 1403/12/03جمعه,;شنبه 1403/12/04شنبه,"));
}

TEST_F(ReportFillTest, Calendar_LevelsAndDatesThatMakeNone_AreRefusedWithTheLine) {
  const std::pair<const char*, const char*> kHeads[] = {
      {"days by day FarsiVisitDate", "stands inside one by week"},
      {"weeks by week FarsiVisitDate", "stands inside one by month"},
      {"m by month FarsiVisitDate; days by day FarsiVisitDate", "stands inside one by week"},
      {"m by month Name; weeks by week FarsiVisitDate", "stands inside one by month"},
      {"m by month FarsiVisitDate; x by Promoter; w by week FarsiVisitDate", "by month of its"},
      {"m by month FarsiVisitDate, Name", "has one column"},
      {"m by month Day", "query v has no column Day"},
  };
  for (const auto& [levels, error] : kHeads) {
    EXPECT_THAT(FillError("", std::string("group v: ") + levels),
                testing::AllOf(HasSubstr("321 t.html:"), HasSubstr(error)))
        << levels;
  }
  EXPECT_THAT(FillError("{{#promoters}}{{#months}}{{FarsiVisitDate}}", kByCalendar),
              HasSubstr("section is not closed"));
  EXPECT_THAT(FillError("{{#promoters}}{{#months}}{{FarsiVisitDate}}{{/months}}{{/promoters}}",
                        kByCalendar),
              HasSubstr("no field of this name here: FarsiVisitDate"));
  const std::string text =
      "{{#promoters}}{{#months}}{{#weeks}}{{#days}}{{#v}}{{Name}}{{/v}}{{/days}}{{/weeks}}"
      "{{/months}}{{/promoters}}";
  const std::pair<std::vector<std::string>, const char*> kDates[] = {
      {{"1404/02/15", "1404/13/01"}, "row 2 of query v: no date in FarsiVisitDate: \"1404/13/01\""},
      {{"~"}, "row 1 of query v: no date in FarsiVisitDate: \"\""},
      {{"1404/02/15", "1404/02/14"}, "row 2 of query v is not in the order of FarsiVisitDate"},
      {{"1404/02/15", "1404/02/01"}, "row 2 of query v is not in the order"},
      {{"1404/02/31", "1404/02/30"}, "row 2 of query v is not in the order"},
  };
  for (const auto& [dates, error] : kDates) {
    Answers::Table table{{"Promoter", "FarsiVisitDate", "Name"}};
    for (const std::string& date : dates) table.push_back({"رضا", date, "a"});
    rows.tables["select v\n7"] = table;
    EXPECT_THAT(FillError(text, kByCalendar), HasSubstr("321 t.html:7: group")) << error;
    EXPECT_THAT(FillError(text, kByCalendar), HasSubstr(error));
  }
}

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
