#include "report/Fill.h"

#include <charconv>
#include <utility>
#include <vector>

#include "calendar/SolarHijriDate.h"
#include "report/Filling.h"
#include "report/ReportData.h"
#include "report/ReportError.h"
#include "text/Text.h"

namespace report {

namespace {

std::string Restricted(const ReportTemplate& report, const ReportQuery& query,
                       const SelectionFormula& formula) {
  std::string statement;
  std::string_view rest = query.statement;
  for (;;) {
    const auto begin = rest.find('{');
    statement += rest.substr(0, begin);
    if (begin == std::string_view::npos) return statement;
    const auto end = rest.find('}', begin);
    const std::string_view name = end == std::string_view::npos
                                      ? rest.substr(begin + 1)
                                      : rest.substr(begin + 1, end - begin - 1);
    if (end == std::string_view::npos || name != formula.field) {
      report.Refuse(query.line,
                    "پرسش «" + query.name + "» فيلد انتخاب «" + std::string(name) +
                        "» را مي خواهد، كه شناخته نيست.",
                    "query " + query.name + " wants {" + std::string(name) +
                        "}, the selection formula gives " + formula.field);
    }
    statement += std::to_string(formula.value);
    rest.remove_prefix(end + 1);
  }
}

std::string Whole(Filling filling) {
  std::string text;
  int line = 0;
  while (filling.Next(text, line)) {
  }
  return text;
}

}  // namespace

SelectionFormula ParseFormula(std::string_view formula) {
  const auto refuse = [&] {
    throw ReportError(
        platform::kInvalidProcedureCall, "شرط انتخاب گزارش درست نيست: " + std::string(formula),
        "a selection formula is \"name = whole number\", not \"" + std::string(formula) + "\"");
  };
  const auto sign = formula.find('=');
  if (sign == std::string_view::npos) refuse();
  const std::string_view name = text::Trim(formula.substr(0, sign));
  const std::string_view number = text::Trim(formula.substr(sign + 1));
  SelectionFormula result{std::string(name), 0};
  const auto [end, error] =
      std::from_chars(number.data(), number.data() + number.size(), result.value);
  if (!IsName(name) || error != std::errc() || end != number.data() + number.size()) refuse();
  return result;
}

std::string WithDigits(std::string_view text, Digits digits) {
  if (digits == Digits::kLatin) return std::string(text);
  std::string result;
  result.reserve(text.size() * 2);
  for (char c : text) {
    if (text::IsDigit(c)) {
      result += '\xDB';  // U+06F0 to U+06F9
      result += static_cast<char>('\xB0' + (c - '0'));
    } else {
      result += c;
    }
  }
  return result;
}

FilledReport Fill(ReportTemplate report, std::unique_ptr<platform::Connection> connection,
                  std::string_view formula, std::chrono::sys_days today) {
  const SelectionFormula selection = ParseFormula(formula);
  const auto data = std::make_shared<ReportData>(
      ReportData{.report = std::move(report),
                 .today = calendar::SolarHijriDate::FromDays(today).Text(),
                 .connection = std::move(connection),
                 .queries = {}});
  const ReportTemplate& source = data->report;
  std::vector<std::string> statements;
  for (const ReportQuery& query : source.Queries()) {
    statements.push_back(Restricted(source, query, selection));
  }
  for (std::size_t i = 0; i < statements.size(); ++i) {
    data->queries.emplace_back(source, source.Queries()[i], statements[i], *data->connection);
  }
  // All names are looked up before any row is read.
  Filling title(data, source.Title(), Filling::Escape::kNothing);
  Filling header(data, source.Header(), Filling::Escape::kNothing);
  auto body = std::make_unique<Filling>(data, source.Body(), Filling::Escape::kHtml);
  const Digits digits = source.ShownDigits();
  return {.name = source.Name(),
          .title = Whole(std::move(title)),
          .header = Whole(std::move(header)),
          .printDate = WithDigits(data->today, digits),
          .orientation = source.PageOrientation(),
          .digits = digits,
          .body = std::move(body)};
}

}  // namespace report
