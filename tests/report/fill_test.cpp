#include "report/Fill.h"

#include <gmock/gmock.h>

#include <array>
#include <map>

#include "calendar/SolarHijriDate.h"
#include "report/ReportError.h"

namespace report {
namespace {

using testing::HasSubstr;

/// Answers each statement with the rows written for it; anything else is the database's error.
class Rows : public platform::Connection {
 public:
  using Table = std::vector<std::vector<std::string>>;  // columns first; "~" is NULL

  platform::RowSet Execute(std::string_view statement) override {
    ++statements;
    const auto found = answers.find(std::string(statement));
    if (found == answers.end()) throw platform::RuntimeError(208, "Invalid object name 'x'.");
    if (found->second.empty()) return {};
    platform::RowSet rows(found->second.front());
    for (std::size_t row = 1; row < found->second.size(); ++row) {
      for (const std::string& cell : found->second[row]) {
        cell == "~" ? rows.AppendNull() : rows.Append(cell);
      }
    }
    return rows;
  }
  std::int32_t CallProcedure(std::string_view, std::span<const platform::Parameter>) override {
    return 0;
  }

  std::map<std::string, Table> answers;
  int statements = 0;
};

const std::chrono::sys_days kToday =
    calendar::SolarHijriDate::FromYearMonthDay(1404, 2, 15)->Days();

class ReportFillTest : public testing::Test {
 protected:
  ReportFillTest() {
    rows.answers["select p 7"] = {{"ID", "Notes", "FarsiCreateDate"}, {"7", "~", "1404/02/13"}};
    rows.answers["select v\n7"] = {{"Promoter", "FarsiVisitDate", "Name"},
                                   {"رضا", "1404/02/15", "a"},
                                   {"رضا", "1404/02/15", "b"},
                                   {"رضا", "1404/02/16", "c"},
                                   {"مريم", "1404/02/16", "d"}};
    rows.answers["select none 7"] = {{"ID"}};
    rows.answers["update 7"] = {};
  }

  static ReportTemplate Load(const std::string& body, const std::string& head = {}) {
    return ReportTemplate::Load(
        "<!--report\ntitle: T\nquery p: select p {fmlID}\nquery v:\n  select v\n  {fmlID}\n" +
            head + "\n-->" + body,
        "t.html");
  }
  std::string Html(const std::string& body, const std::string& head = {}) {
    return Fill(Load(body, head), rows, "fmlID = 7", kToday).html;
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

  Rows rows;
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
  rows.answers["select p 7"][1][1] = "<b>\"a\" & 'b'{{ID}}";
  const FilledReport filled = Fill(Load("{{#p}}{{Notes}}{{/p}}",
                                        "header: {{#p}}{{ID}} {{Notes}} {{Today}}{{/p}}\n"
                                        "page: landscape\ndigits: persian"),
                                   rows, "fmlID = 7", kToday);
  EXPECT_EQ(filled.html, "&lt;b&gt;&quot;a&quot; &amp; &apos;b&apos;{{ID}}");
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

}  // namespace
}  // namespace report
