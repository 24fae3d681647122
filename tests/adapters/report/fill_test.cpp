#include "adapters/report/Fill.h"

#include <gmock/gmock.h>

#include <map>

#include "adapters/report/ReportError.h"
#include "calendar/SolarHijriDate.h"

namespace adapters::report {
namespace {

using testing::HasSubstr;

/// Answers each statement with the rows written for it; anything else is the database's error.
class Rows : public platform::Connection {
 public:
  using Table = std::vector<std::vector<std::string>>;  // columns first; "~" is NULL

  platform::RowSet Execute(std::string_view statement) override {
    statements.emplace_back(statement);
    const auto found = answers.find(std::string(statement));
    if (found == answers.end()) throw platform::RuntimeError(208, "Invalid object name 'x'.");
    if (found->second.empty()) return {};
    platform::RowSet rows(found->second.front());
    for (std::size_t row = 1; row < found->second.size(); ++row) {
      for (const std::string& cell : found->second[row]) {
        if (cell == "~") {
          rows.AppendNull();
        } else {
          rows.Append(cell);
        }
      }
    }
    return rows;
  }
  std::int32_t CallProcedure(std::string_view, std::span<const platform::Parameter>) override {
    return 0;
  }

  std::map<std::string, Table> answers;
  std::vector<std::string> statements;
};

const std::chrono::sys_days kToday =
    calendar::SolarHijriDate::FromYearMonthDay(1404, 2, 15)->Days();

class ReportFillTest : public testing::Test {
 protected:
  ReportFillTest() {
    rows.answers["select p 7"] = {{"ID", "Notes", "FarsiCreateDate"}, {"7", "~", "1404/02/13"}};
    rows.answers["select v 7"] = {{"Promoter", "FarsiVisitDate", "Name"},
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
    rows.answers["select v\n7"] = rows.answers["select v 7"];
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
  for (const char* good : {"fmlID = 17", "fmlID=17", "  fmlID   =  17 "}) {
    EXPECT_EQ(ParseFormula(good).field, "fmlID");
    EXPECT_EQ(ParseFormula(good).value, 17);
  }
  EXPECT_EQ(ParseFormula("fmlID = -1").value, -1);
  for (const char* bad :
       {"", "fmlID", "fmlID =", "= 17", "fmlID = 17 or 1=1", "fmlID = 1.5", "fmlID = '17'",
        "fml ID = 17", "fmlID == 17", "fmlID = 99999999999999999999", "fmlID = 17;"}) {
    EXPECT_THAT(ErrorOf([&] { ParseFormula(bad); }), HasSubstr("5 a selection formula")) << bad;
  }
}

TEST_F(ReportFillTest, Queries_Restricted_RunWithTheFormulasNumber) {
  Html("");
  EXPECT_THAT(rows.statements, testing::ElementsAre("select p 7", "select v\n7"));
}

TEST_F(ReportFillTest, Sections_Ungrouped_RepeatForEachRow) {
  EXPECT_EQ(Html("{{#v}}{{RowNumber}}{{Name}} {{/v}}{{^v}}none{{/v}}"), "1a 2b 3c 4d ");
  EXPECT_EQ(Html("{{#e}}{{ID}}{{/e}}{{^e}}none{{/e}}", "query e: select none {fmlID}"), "none");
}

TEST_F(ReportFillTest, Sections_Grouped_NestAndCount) {
  const std::string head = "group v: promoters by Promoter; days by FarsiVisitDate";
  EXPECT_EQ(Html("{{#promoters}}{{^First}};{{/First}}{{RowNumber}}.{{Promoter}}({{RowCount}})"
                 "{{#days}} {{FarsiVisitDateWeekday}}({{RowCount}}):"
                 "{{#v}}{{RowNumber}}{{Name}}{{Promoter}}{{/v}}{{/days}}{{/promoters}}",
                 head),
            "1.رضا(3) دوشنبه(2):1aرضا2bرضا سه شنبه(1):1cرضا;2.مريم(1) سه شنبه(1):1dمريم");
}

TEST_F(ReportFillTest, Fields_EmptyOrNull_CountAsAbsent) {
  EXPECT_EQ(Html("{{#p}}[{{Notes}}]{{#Notes}}has{{/Notes}}{{^Notes}}has not{{/Notes}}{{/p}}"),
            "[]has not");
}

TEST_F(ReportFillTest, Values_InHtml_AreEscaped) {
  rows.answers["select p 7"][1][1] = "<b>\"a\" & 'b'</b>{{ID}}";
  EXPECT_EQ(Html("{{#p}}{{Notes}}{{/p}}"),
            "&lt;b&gt;&quot;a&quot; &amp; &apos;b&apos;&lt;/b&gt;{{ID}}");
}

TEST_F(ReportFillTest, Heads_TitleAndHeader_ArePlainText) {
  rows.answers["select p 7"][1][1] = "a & b";
  rows.answers["select v\n7"] = {{"Name"}};
  const FilledReport filled = Fill(
      Load("", "header: {{#p}}{{ID}} {{Notes}} {{Today}}{{/p}}\npage: landscape\ndigits: persian"),
      rows, "fmlID = 7", kToday);
  EXPECT_EQ(filled.title, "T");
  EXPECT_EQ(filled.header, "۷ a & b ۱۴۰۴/۰۲/۱۵");
  EXPECT_EQ(filled.printDate, "۱۴۰۴/۰۲/۱۵");
  EXPECT_EQ(filled.orientation, Orientation::kLandscape);
}

TEST_F(ReportFillTest, Names_NotKnownWhereTheyStand_AreRefusedWithTheLine) {
  const struct {
    const char* body;
    const char* head;
    const char* error;
  } kCases[] = {
      {"\n{{#p}}\n{{Name}}{{/p}}", "", "321 t.html:10: no field of this name here: Name"},
      {"{{Notes}}", "", "321 t.html:8: no field of this name here: Notes"},
      {"{{#p}}{{notes}}{{/p}}", "", "321 t.html:8: no field of this name here: notes"},
      {"{{#w}}{{/w}}", "", "321 t.html:8: no section of this name here: w"},
      {"{{#v}}{{/v}}", "group v: days by Name", "no section of this name here: v"},
      {"{{#days}}{{Promoter}}{{/days}}", "group v: days by Name", "no field of this name here"},
      {"{{^p}}{{ID}}{{/p}}", "", "no field of this name here: ID"},
      {"", "group v: days by Day", "query v has no column Day to group by"},
      {"", "header: {{Name}}", "321 t.html:7: no field of this name here: Name"},
  };
  for (const auto& each : kCases) {
    EXPECT_THAT(FillError(each.body, each.head), HasSubstr(each.error)) << each.body;
  }
}

TEST_F(ReportFillTest, Queries_ThatFail_TellFileQueryAndTheDatabasesWords) {
  EXPECT_EQ(FillError("", "query bad: select x {fmlID}"),
            "208 t.html:7: query bad: Invalid object name 'x'.");
  EXPECT_THAT(FillError("", "query bad: update {fmlID}"),
              HasSubstr("321 t.html:7: query bad is no"));
  rows.statements.clear();
  EXPECT_THAT(FillError("", "query bad: select x {fmlNo}"), HasSubstr("wants {fmlNo}"));
  EXPECT_THAT(FillError("", "query bad: select x {fmlID"), HasSubstr("wants {fmlID}"));
  EXPECT_TRUE(rows.statements.empty());
}

TEST_F(ReportFillTest, Load_BrokenTemplate_IsRefusedWithTheLine) {
  const std::string head = "<!--report\ntitle: T\nquery p: q {fmlID}\n";
  const struct {
    std::string text;
    const char* error;
  } kCases[] = {
      {"", "321 t.html:1: the file does not begin"},
      {"<html></html>", "321 t.html:1: the file does not begin"},
      {head, "321 t.html:1: the file does not begin"},
      {"<!--report\nquery p: q {fmlID}\n-->", "t.html:1: the head has no title"},
      {"<!--report\ntitle: T\n-->", "t.html:1: the head has no query"},
      {"<!--report\ntitle: T\nquery p: q\n-->", "t.html:3: query p has no {formula field}"},
      {head + "page: square\n-->", "t.html:4: unknown value of page: square"},
      {head + "colour: red\n-->", "t.html:4: unknown entry of the head: colour"},
      {head + "nonsense\n-->", "t.html:4: no \"name: value\": nonsense"},
      {head + "query p: r {fmlID}\n-->", "t.html:4: section named twice: p"},
      {head + "query 1: r {fmlID}\n-->", "t.html:4: no name for a section: 1"},
      {head + "group x: a by B\n-->", "t.html:4: no query of this name before: x"},
      {head + "group p: a of B\n-->", "t.html:4: no \"name by column, column\": a of B"},
      {head + "-->\n{{#p}}", "t.html:5: section is not closed: p"},
      {head + "-->\n\n{{/p}}", "t.html:6: section is not open here: p"},
      {head + "-->{{#p}}{{#x}}{{/p}}{{/x}}", "section is not open here: p"},
      {head + "-->{{p", "t.html:4: a tag is not closed"},
      {head + "-->{{", "a tag is not closed"},
      {head + "-->{{{p}}}", "no tag of a report"},
      {head + "-->{{&p}}", "no tag of a report"},
      {head + "-->{{>p}}", "no tag of a report"},
      {head + "-->{{=<% %>=}}", "no tag of a report"},
      {head + "-->{{}}", "no tag of a report"},
  };
  for (const auto& each : kCases) {
    EXPECT_THAT(ErrorOf([&] { ReportTemplate::Load(each.text, "t.html"); }), HasSubstr(each.error))
        << each.text;
  }
}

}  // namespace
}  // namespace adapters::report
